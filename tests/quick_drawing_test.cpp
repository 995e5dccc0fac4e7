// Drawing leaves out, keeps and measures by itself what it can; nobody must be able to see it.
#include <random>

#include "support.h"

#include "model/state.h"
#include "render/limits.h"
#include "text/font_table.h"

namespace test {
namespace {

std::string font_path(const std::string &name) {
    return "/usr/share/fonts/truetype/dejavu/" + name + ".ttf";
}

// --- The same form twice, drawn in two ways

constexpr int width = 260, height = 180;
constexpr std::uint32_t object_count = 34, last_text = 2;

struct Random {
    std::mt19937 engine;
    std::uint32_t below(std::uint32_t n) { return any() % n; }
    std::uint32_t any() { return static_cast<std::uint32_t>(engine()); }
    bool one_in(std::uint32_t n) { return below(n) == 0; }
    std::uint32_t place() {
        constexpr std::uint32_t wild[] = {0, 0xFFFFFFF0, 0x80000000, 32767, 65530, 65536};
        return one_in(60) ? wild[below(6)] : below(width + 40) - 20;
    }
};

// 24 bits print a line for each pixel of a line.
SDL_Surface *make_screen(int bits) {
    constexpr std::array<Uint32, 3> masks32{0xFF0000, 0xFF00, 0xFF}, masks16{0xF800, 0x7E0, 0x1F};
    const auto [r, g, b] = bits == 32 ? masks32 : bits == 16 ? masks16 : std::array<Uint32, 3>{};
    return SDL_CreateRGBSurface(SDL_SWSURFACE, width, height, bits, r, g, b, 0);
}

SDL_Surface *make_picture(Random &random) {
    const bool has_alpha = random.one_in(2);
    SDL_Surface *s = SDL_CreateRGBSurface(SDL_SWSURFACE, 30, 20, 32, 0xFF0000, 0xFF00, 0xFF,
                                          has_alpha ? 0xFF000000 : 0);
    for (int y = 0; y < 20; ++y) {
        SDL_Rect row{0, static_cast<Sint16>(y), 30, 1};
        SDL_FillRect(s, &row, random.any());
    }
    if (random.one_in(3)) SDL_SetColorKey(s, SDL_SRCCOLORKEY, *static_cast<Uint32 *>(s->pixels));
    return s;
}

void write(Random &random, char *text, std::uint32_t most) {
    const std::uint32_t length = random.below(most), mean_word = 1 + random.below(60);
    for (std::uint32_t k = 0; k < length; ++k) {
        const char letter = random.one_in(150) ? '\n' : static_cast<char>('A' + random.below(70));
        text[k] = random.one_in(mean_word) ? ' ' : letter;
    }
    text[length] = '\0';
}

class Twin {
public:
    Twin(std::uint32_t seed, int bits, bool plainly) {
        Random random{std::mt19937(seed)};
        ctx.screen = make_screen(bits);
        ctx.screen_width = width;
        ctx.screen_height = height;
        ctx.screen_rect = {0, 0, width, height};
        ctx.font = TTF_OpenFont(font_path("DejaVuSans").c_str(), 12);
        ctx.background_colour = {10, 90, 30};
        ctx.mark_colour = {200, 0, 100};
        ctx.comfort = random.one_in(2) ? VEL_COMFORT_ALL & ~VEL_COMFORT_CLIPBOARD : 0;
        ctx.text_cache_size = random.one_in(4) ? 1 + random.below(20000) : 0;
        ctx.partial_redraw = 1;
        ctx.objects = objects.data();
        ctx.object_count = object_count;
        ctx.text_recs = texts.data();
        ctx.text_bufs = buffers.data();
        ctx.text_count = last_text;
        velumo::state_of(ctx).draws_plainly = plainly;
        for (std::uint32_t k = 8; k <= object_count; ++k) make_object(random, k);
        for (std::uint32_t k = 1; k <= last_text; ++k) write(random, texts[k].text, 400);
        objects[1].type = VEL_TYPE_PICTURE;
        objects[1].image = pictures_.emplace_back(make_picture(random));
        make_window_to_type_in();
    }
    ~Twin() {
        for (SDL_Surface *picture : pictures_) SDL_FreeSurface(picture);
        SDL_FreeSurface(ctx.screen);
        SDL_FreeSurface(ctx.text_surface);
        TTF_CloseFont(ctx.font);
        velumo::release_state(ctx);
    }
    Twin(const Twin &) = delete;
    Twin &operator=(const Twin &) = delete;

    vel_context ctx{};
    std::array<vel_object, object_count + 1> objects{};
    std::array<vel_text_rec, last_text + 1> texts{};
    std::array<char[VEL_TEXT_BUFFER_SIZE], last_text + 1> buffers{};

private:
    // A window with a text and a field, whatever else hangs on it.
    void make_window_to_type_in() {
        const std::uint32_t types[] = {VEL_TYPE_WINDOW, VEL_TYPE_TEXT, VEL_TYPE_ENTRY};
        for (std::uint32_t k = 0; k < std::size(types); ++k) {
            vel_object &o = objects[8 + k];
            o.type = types[k];
            o.x = 20 + 5 * k;
            o.y = 30 + 45 * k;
            o.width = 180;
            o.height = k == 0 ? 140 : 40;
            o.clip_mode = VEL_CLIP_FRAME;
            o.master = k == 0 ? 0 : 8;
            o.hidden = 0;
            if (k != 0) objects[8].dep_objs[k - 1] = 8 + k;
        }
        objects[9].text_index = 1;
        ctx.window_to_activate = 8;
        vel_activate_window(&ctx);
    }

    void make_object(Random &random, std::uint32_t number) {
        vel_object &o = objects[number];
        o.type = random.one_in(3) ? std::uint32_t{VEL_TYPE_WINDOW} : random.below(10);
        o.x = random.place();
        o.y = random.place();
        o.width = random.below(160);
        o.height = random.below(120);
        for (std::uint32_t *c : {&o.fill_r, &o.fill_g, &o.text_b, &o.border_g, &o.text_r}) {
            *c = random.below(256);
        }
        for (std::uint32_t *m :
             {&o.margin_left, &o.margin_right, &o.margin_top, &o.margin_bottom}) {
            *m = random.below(random.one_in(5) ? 30 : 5);
        }
        o.border_style = random.below(7);
        o.border_inset = random.below(4);
        o.window_kind = o.centred = random.below(2); // both in a window that centres its lines
        o.clip_mode = random.below(3);
        o.hidden = random.one_in(6);
        o.editable = 1;
        o.max_chars = 64;
        o.text_index = random.below(last_text + 1);
        write(random, o.label, 30);
        if (random.one_in(12)) {
            o.type = VEL_TYPE_PICTURE;
            o.image = pictures_.emplace_back(make_picture(random));
        }
        hang_on(random, number);
    }

    // Mostly on an object made before, and near to it; sometimes in the list of one and not on it.
    void hang_on(Random &random, std::uint32_t number) {
        if (number == 8 || random.one_in(3)) return;
        vel_object &o = objects[number];
        const std::uint32_t master = random.one_in(2) ? number - 1 : 8 + random.below(number - 8);
        vel_object &m = objects[master];
        *std::find(m.dep_objs, m.dep_objs + 99, 0U) = number;
        if (!random.one_in(20)) o.master = master;
        o.x = m.x + random.below(50);
        o.y = m.y + random.below(40);
    }

    std::vector<SDL_Surface *> pictures_;
};

// Into lines that have no room for a word or a blank, and a stream into members without more lines.
void break_texts(vel_context &ctx, Random random) {
    TTF_SetFontOutline(ctx.font, random.one_in(2) ? 3 : 0);
    ctx.umlaut_conversion = random.one_in(4);
    for (std::uint32_t k = 11; k <= 13; ++k) ctx.objects[k].type = VEL_TYPE_CHAIN;
    for (std::uint32_t k : {9U, 12U, 13U}) {
        ctx.objects[k].line_width = random.below(random.one_in(2) ? 50 : 1000);
        ctx.objects[k].text_index = k % last_text + 1;
    }
    write(random, ctx.text_recs[ctx.objects[9].text_index].text, VEL_TEXT_SIZE);
    vel_format_object_text(&ctx, 9);
    char stream[2500];
    write(random, stream, sizeof stream);
    ctx.objects[11].stream = stream;
    ctx.objects[11].dep_objs[0] = 12;
    ctx.objects[11].dep_objs[1] = 13;
    testing::internal::CaptureStdout();
    vel_format_stream_to_linked_objects(&ctx, 11);
    testing::internal::GetCapturedStdout();
    ctx.objects[11].stream = nullptr;
    TTF_SetFontOutline(ctx.font, 0);
}

// What a program and its user do between two looks.
void use(vel_context &ctx, std::uint32_t object, Random random) {
    constexpr std::uint32_t keys[] = {'x',          'W',          ' ', VEL_KEY_BACKSPACE,
                                      VEL_KEY_LEFT, VEL_KEY_ENTER};
    switch (random.below(15)) {
    case 0:
        vel_draw_all_objects(&ctx, random.below(2), 0);
        break;
    case 1:
        vel_evoke_object(&ctx, object);
        break;
    case 2:
        vel_draw_dep_objs(&ctx, object);
        break;
    case 3:
        ctx.window_to_activate = object;
        vel_activate_window(&ctx);
        break;
    case 4:
        vel_undraw_object(&ctx, object);
        break;
    case 5:
        TTF_SetFontStyle(ctx.font, static_cast<int>(random.below(8)));
        break;
    case 6: // mostly at the same address
        TTF_CloseFont(ctx.font);
        ctx.font = TTF_OpenFont(font_path(random.one_in(2) ? "DejaVuSans" : "DejaVuSerif").c_str(),
                                static_cast<int>(10 + random.below(3)));
        break;
    case 7:
        SDL_FreeSurface(ctx.text_surface);
        ctx.text_surface = nullptr;
        break;
    case 8: {
        SDL_Rect clip{static_cast<Sint16>(random.below(90)), 20, 150, 120};
        SDL_SetClipRect(ctx.screen, random.one_in(2) ? nullptr : &clip);
        break;
    }
    case 9:
        break_texts(ctx, random);
        break;
    default: // some keys in a row
        ctx.cursor_object = random.one_in(4) ? object : 9 + random.below(2);
        for (std::uint32_t k = random.below(8); k != 0; --k) {
            ctx.final_key = keys[random.below(6)];
            ctx.key_printable = ctx.final_key < 256 && ctx.final_key != VEL_KEY_BACKSPACE;
            vel_get_text(&ctx);
            if (ctx.state != nullptr) ctx.state->refusal = {}; // its flash ends by the clock
        }
        break;
    }
}

std::string difference_between(const SDL_Surface *a, const SDL_Surface *b) {
    if (a == nullptr || b == nullptr) return a == b ? "" : "one surface is missing";
    if (a->w != b->w || a->h != b->h) return "sizes";
    const auto row = [](const SDL_Surface *s, int y) {
        return static_cast<std::uint8_t *>(s->pixels) + y * s->pitch;
    };
    for (int k = 0; k < a->w * a->h; ++k) {
        const bool starts_row = k % a->w == 0;
        if (starts_row && std::memcmp(row(a, k / a->w), row(b, k / a->w), a->pitch) == 0) {
            k += a->w - 1;
        } else if (!(pixel_of(a, k % a->w, k / a->w) == pixel_of(b, k % a->w, k / a->w))) {
            return std::to_string(k % a->w) + "," + std::to_string(k / a->w);
        }
    }
    return {};
}

std::string difference_between(const Twin &a, const Twin &b) {
    for (std::uint32_t k = 0; k <= object_count; ++k) {
        vel_object one = a.objects[k], other = b.objects[k];
        one.image = other.image = nullptr;
        if (std::memcmp(&one, &other, sizeof one) != 0) return "object " + std::to_string(k);
    }
    if (std::memcmp(&a.buffers, &b.buffers, sizeof a.buffers) != 0) return "lines";
    if (std::memcmp(&a.texts, &b.texts, sizeof a.texts) != 0) return "texts";
    const std::string text = difference_between(a.ctx.text_surface, b.ctx.text_surface);
    return text.empty() ? difference_between(a.ctx.screen, b.ctx.screen) : "text_surface " + text;
}

TEST(QuickDrawing, gives_the_pixels_and_fields_of_plain_drawing) {
    SDL_Init(SDL_INIT_VIDEO);
    TTF_Init();
    for (std::uint32_t seed = 0; seed < 90; ++seed) {
        const int bits = seed % 3 == 0 ? 8 : seed % 3 == 1 ? 16 : 32;
        Twin quick(seed, bits, false), plain(seed, bits, true);
        Random random{std::mt19937(seed + 1000)};
        for (int step = 0; step < 24; ++step) {
            const std::uint32_t object = 8 + random.below(object_count - 7);
            const Random same{std::mt19937(random.any())};
            use(quick.ctx, object, same);
            use(plain.ctx, object, same);
            ASSERT_EQ(difference_between(quick, plain), "") << "seed " << seed << " step " << step;
        }
    }
    TTF_Quit();
    SDL_Quit();
}

class QuickForm : public Form {};

// More fonts than tables of them are kept, in one picture.
TEST_F(QuickForm, many_fonts_in_one_picture_are_each_their_own) {
    std::vector<vel_object> many(8 + 90);
    std::vector<TTF_Font *> fonts;
    for (std::uint32_t k = 8; k < many.size(); ++k) {
        fonts.push_back(TTF_OpenFont(font_file, 8 + static_cast<int>(k % 5)));
        vel_object &o = many[k] = make(8, VEL_TYPE_LABEL, static_cast<int>(k % 10) * 32,
                                       static_cast<int>(k / 10) * 20, 32, 20);
        o.font_choice = 1;
        o.own_font = fonts.back();
        set_label(o, std::to_string(k));
    }
    ctx.objects = many.data();
    ctx.object_count = static_cast<std::uint32_t>(many.size() - 1);
    velumo::state_of(ctx).draws_plainly = true;
    vel_draw_all_objects(&ctx, 0, 0);
    velumo::state_of(ctx).draws_plainly = false;
    expect_drawn_afresh();
    for (TTF_Font *font : fonts) TTF_CloseFont(font);
}

// Lines of less than one pixel go up from below the object's middle, and an object far on the left
// is where 16 bits of its place are.
TEST_F(QuickForm, text_shows_outside_its_limits) {
    struct Case {
        std::uint32_t x, line_spacing, scroll_y, margin_right;
    };
    for (const auto &[x, line_spacing, scroll_y, margin_right] :
         {Case{50, 0U - 40, 35, 0}, Case{0U - 65520, 0, 0, 60000}}) {
        vel_object &label = make(8, VEL_TYPE_LABEL, static_cast<int>(x), 60, 100, 40);
        label.line_spacing = line_spacing;
        label.scroll_y = scroll_y;
        label.margin_right = margin_right;
        set_label(label, "M");
        clear();
        velumo::state_of(ctx).draws_plainly = true;
        vel_draw_all_objects(&ctx, 0, 0);
        velumo::state_of(ctx).draws_plainly = false;
        EXPECT_NE(box_of(blue), "") << x;
        expect_drawn_afresh();
    }
}

// Each picture is as large as the screen. A small box comes after them, and a window.
TEST_F(QuickForm, hundreds_of_pictures_over_each_other_are_not_all_painted) {
    SDL_Surface *picture = make_surface(320, 200);
    make_window(8, 100, 60, 50, 40).hidden = 0;
    open(8);
    for (const std::size_t count : {50U, 400U, 65536U}) { // the last as many as are painted at once
        std::vector<vel_object> many(objects, objects + 9);
        many.resize(9 + count, make(9, VEL_TYPE_PICTURE, 0, 0, 320, 200));
        for (vel_object &o : many) o.image = picture;
        many.back() = make(9, VEL_TYPE_LABEL, 50, 60, 10, 10);
        set_fill(many.back(), blue);
        ctx.objects = many.data();
        ctx.object_count = static_cast<std::uint32_t>(many.size() - 1);
        clear();
        vel_draw_all_objects(&ctx, 0, 0);
        EXPECT_EQ(box_of(blue), count == 50 ? "50,60 10x10" : "") << count;
        EXPECT_EQ(pixel_of(ctx.screen, 140, 90), red) << count;
    }
    SDL_FreeSurface(picture);
}

// --- Widths

// How much of the front of a text fits a line, word by word and blank by blank.
std::size_t fitting(TTF_Font *font, const std::string &text, int line_width) {
    const auto wide = [font](const std::string &s) {
        return static_cast<int>(velumo::width_asked_of(font, s.c_str()));
    };
    std::string line;
    for (std::size_t end = 0; (end = text.find(' ', line.size())) != std::string::npos;) {
        const std::string word = text.substr(line.size(), end - line.size());
        if (!word.empty() && wide(word) > line_width - wide(line)) break;
        line += word;
        if (wide(line + ' ') > line_width) break;
        line += ' ';
    }
    return line.size();
}

TEST(QuickDrawing, strings_are_as_wide_and_fit_as_the_font_says) {
    struct {
        const char *font;
        int size, style, outline;
    } const cases[] = {{"DejaVuSans", 14, TTF_STYLE_NORMAL, 0},
                       {"DejaVuSans", 21, TTF_STYLE_BOLD | TTF_STYLE_ITALIC, 0},
                       {"DejaVuSerif-Bold", 9, TTF_STYLE_NORMAL, 0},
                       {"DejaVuSansMono", 13, TTF_STYLE_UNDERLINE, 2}};
    TTF_Init();
    Random random{std::mt19937(1)};
    for (const auto &c : cases) {
        TTF_Font *font = TTF_OpenFont(font_path(c.font).c_str(), c.size);
        TTF_SetFontStyle(font, c.style);
        TTF_SetFontOutline(font, c.outline);
        velumo::FontTable table(velumo::FontLook(font), 1);
        for (int k = 0; k < 25000; ++k) {
            std::string text(random.below(30), ' ');
            for (char &character : text) character = static_cast<char>(1 + random.below(255));
            ASSERT_EQ(table.width(text.c_str()), velumo::width_asked_of(font, text.c_str()))
                << c.font << " " << k;
            const std::string longer = text + "Ta";
            ASSERT_EQ(table.growing_width(text.c_str()), table.width(text.c_str()));
            ASSERT_EQ(table.growing_width(longer.c_str()), table.width(longer.c_str()));
            if (k % 10 != 0) continue;
            for (char &character : text) {
                if (character == '\n' || random.one_in(5)) character = ' ';
            }
            // As wide as some of the text, or a little wider.
            const std::string some = text.substr(0, random.below(30));
            const std::uint32_t line_width = table.width(some.c_str()) + random.below(3);
            ASSERT_EQ(table.fitting_words("", text, line_width).characters,
                      fitting(font, text, static_cast<int>(line_width)))
                << c.font << " " << k;
        }
        EXPECT_TRUE(table.is_exact()) << c.font;
        TTF_CloseFont(font);
    }
    TTF_Quit();
}

// --- Limits

class KnownLimits : public Form {};

// Near 0, where the end of a master's area counts as none.
TEST_F(KnownLimits, of_nested_masters_are_those_found_by_climbing) {
    Random random{std::mt19937(2)};
    for (int form = 0; form < 3000; ++form) {
        velumo::NestedLimits known_limits;
        for (std::uint32_t k = 8; k < 16; ++k) {
            vel_object &o = make(k, VEL_TYPE_LABEL, static_cast<int>(random.below(7)) - 5, -2,
                                 random.below(9), random.below(9));
            o.master = k == 8 ? 0 : k - 1 - random.below(std::min(k - 8, 2U));
            o.clip_mode = random.below(3);
            set_margins(o, random.below(3));
        }
        for (int look = 0; look < 20; ++look) {
            const std::uint32_t object = 9 + random.below(7);
            const auto known = velumo::dependent_limits(ctx, object, known_limits);
            const auto climbed = velumo::dependent_limits(ctx, object);
            ASSERT_EQ(std::tie(known.x.begin, known.x.end, known.y.begin, known.y.end),
                      std::tie(climbed.x.begin, climbed.x.end, climbed.y.begin, climbed.y.end));
        }
    }
}

// The margins of a master that is a label follow from its caption.
TEST_F(KnownLimits, follow_a_master_that_is_centred_between_two_texts) {
    make(8, VEL_TYPE_LABEL, 20, 20, 280, 170);
    make(9, VEL_TYPE_TEXT, 30, 30, 200, 70, 10).text_index = 1;
    set_label(make(10, VEL_TYPE_LABEL, 30, 30, 200, 150, 8), "ab");
    make(11, VEL_TYPE_TEXT, 30, 30, 200, 70, 10).text_index = 2;
    set_text(1, "some words");
    set_text(2, "some words");
    vel_draw_all_objects(&ctx, 0, 0);
    vel_draw_all_objects(&ctx, 1, 0);
    std::uint32_t left = 0, right = 0, top = 0, bottom = 0;
    vel_get_borders_for_text(&ctx, 11, &left, &right, &top, &bottom);
    EXPECT_EQ(objects[11].line_width, right - left - 1);
}

// --- What is updated

TEST_F(QuickForm, key_updates_only_the_line_that_it_changes) {
    make_frame_buttons();
    make_window(8, 30, 40, 250, 140);
    make_field(9, 40, 50, 100, 24, 8);
    ctx.partial_redraw = 1;
    open(8);
    ctx.cursor_object = 9;
    vel_draw_all_objects(&ctx, 0, 0);
    for (const char c : std::string("ab")) {
        updates().clear();
        ctx.final_key = static_cast<std::uint32_t>(c);
        ctx.key_printable = 1;
        vel_get_text(&ctx);
    }
    EXPECT_FALSE(updates().empty());
    for (const std::string &update : updates()) {
        int x = 0, y = 0, w = 0, h = 0;
        ASSERT_EQ(std::sscanf(update.c_str(), "%d,%d %dx%d", &x, &y, &w, &h), 4);
        EXPECT_TRUE(x >= 40 && y >= 50 && x + w <= 140 && y + h <= 74) << update;
    }
    expect_drawn_afresh();
}

} // namespace
} // namespace test
