// Makes valid forms by chance, as the form tool could, loads and draws them and uses them a little.
// Prints a number that follows from every pixel and every record, to be compared with that of a
// library built without its guards. The library has nothing to say about such a form.
// usage: valid_forms COUNT [SEED]
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

#include "form_bytes.h"
#include "stage.h"
#include "velumo.h"
#include "world.h"

namespace {

using namespace fuzz;
using Record = vel_object_file_rec;

constexpr u32 first_window = 8, most_objects = 30, texts = 4;
constexpr u32 columns = 100, rows = 80;

class Maker {
public:
    explicit Maker(std::mt19937_64 &chance) : chance_(chance) {}

    FormBytes make() {
        records_.assign(first_window - 1, {});
        for (Record &button : records_) {
            button.type = VEL_TYPE_LABEL;
            button.width = button.height = VEL_FRAME_BUTTON_SIZE;
            button.hidden = 1;
        }
        for (u32 windows = 1 + below(3); windows > 0; --windows) make_window();
        for (u32 loose = below(3); loose > 0; --loose) add(VEL_TYPE_LABEL + below(3), 0);
        make_texts();
        return {bytes_of(records_.data(), records_.size()), bytes_of(texts_, texts)};
    }

private:
    u32 below(u32 end) { return static_cast<u32>(chance_() % end); }
    bool happens(u32 one_in) { return below(one_in) == 0; }

    template <class Row> static std::vector<u8> bytes_of(const Row *from, std::size_t count) {
        const auto *const bytes = reinterpret_cast<const u8 *>(from);
        return {bytes, bytes + count * sizeof(Row)};
    }

    void make_window() {
        const u32 window = add(VEL_TYPE_WINDOW, 0);
        at(window).hidden = 1;
        at(window).window_kind = below(3);
        at(window).centred = below(2);
        for (u32 count = below(7); count > 0; --count) make_dependent(window, 2);
    }

    void make_dependent(u32 master, u32 depth) {
        constexpr u32 types[] = {VEL_TYPE_LABEL, VEL_TYPE_TEXT,   VEL_TYPE_PICTURE_UNLOADED,
                                 VEL_TYPE_ENTRY, VEL_TYPE_NUMBER, VEL_TYPE_MENU,
                                 VEL_TYPE_LABEL};
        if (records_.size() == most_objects) return;
        const u32 number = add(types[below(std::size(types))], master);
        for (u32 k = depth > 0 && happens(3) ? 3 : 0; k > 0; --k) make_dependent(number, depth - 1);
    }

    Record &at(u32 number) { return records_[number - 1]; }

    u32 add(u32 type, u32 master) {
        Record r{};
        r.type = type;
        place(r, master);
        for (u32 *colour : {&r.fill_r, &r.fill_g, &r.fill_b, &r.text_r, &r.text_g, &r.text_b,
                            &r.border_r, &r.border_g, &r.border_b}) {
            *colour = below(256);
        }
        for (u32 *margin : {&r.margin_left, &r.margin_right, &r.margin_top, &r.margin_bottom}) {
            *margin = below(6);
        }
        write(r);
        r.border_style = below(6);
        r.border_inset = below(4);
        r.clip_mode = below(3);
        r.scroll_max_x = below(300), r.scroll_max_y = below(300);
        r.master = master;
        if (type == VEL_TYPE_PICTURE_UNLOADED) std::strcpy(r.image_path, picture_path);
        records_.push_back(r);
        const auto number = static_cast<u32>(records_.size());
        if (master != 0) *std::find(at(master).dep_objs, at(master).dep_objs + 99, 0U) = number;
        return number;
    }

    void place(Record &r, u32 master) {
        const u32 x = master == 0 ? 11 : at(master).x, y = master == 0 ? 25 : at(master).y;
        r.x = x + below(40), r.y = y + below(30);
        r.width = 10 + below(columns), r.height = 8 + below(rows);
    }

    // What is written on the object, and how.
    void write(Record &r) {
        const bool is_field = r.type == VEL_TYPE_ENTRY || r.type == VEL_TYPE_NUMBER;
        for (u32 k = below(is_field ? 20 : 12); k > 0; --k) {
            r.label[k - 1] =
                static_cast<char>(r.type == VEL_TYPE_NUMBER ? '0' + below(10) : ' ' + below(95));
        }
        if (std::strlen(r.label) == 0) std::strcpy(r.label, "a1");
        if (r.type == VEL_TYPE_TEXT || r.type == VEL_TYPE_WINDOW) {
            r.text_index = below(texts + 1);
            r.line_width = happens(2) ? 0 : 20 + below(80);
            r.line_spacing = below(4);
        }
        r.editable = (is_field || r.type == VEL_TYPE_TEXT) && happens(2);
        r.max_chars = is_field ? below(65) : 0;
        if (happens(1000)) {
            r.font_choice = 1, r.font_size = 6 + below(20);
            std::strcpy(r.font_path, font_path);
        }
        r.text_length = static_cast<u32>(std::strlen(r.label));
    }

    void make_texts() {
        for (vel_text_rec &text : texts_) {
            text = {};
            for (u32 k = below(300); k > 0; --k) {
                text.text[k - 1] = static_cast<char>(happens(6)    ? ' '
                                                     : happens(20) ? '\n'
                                                                   : 'a' + below(26));
            }
            if (text.text[0] == '\0') std::strcpy(text.text, "some words");
        }
    }

    std::mt19937_64 &chance_;
    std::vector<Record> records_;
    vel_text_rec texts_[texts];
};

class Digest {
public:
    void add(const void *from, std::size_t size) {
        const auto *const bytes = static_cast<const u8 *>(from);
        for (std::size_t k = 0; k + 4 <= size; k += 4) {
            u32 word;
            std::memcpy(&word, bytes + k, sizeof word);
            value_ = (value_ ^ word) * 0x100000001B3;
        }
    }
    unsigned long value() const { return value_; }

private:
    unsigned long value_ = 0xCBF29CE484222325;
};

void add_state(const vel_context &ctx, Digest &digest) {
    const SDL_Surface &screen = *ctx.screen;
    digest.add(screen.pixels, static_cast<std::size_t>(screen.pitch * screen.h));
    for (u32 k = 1; k <= ctx.object_count; ++k) {
        vel_object o;
        std::memcpy(&o, &ctx.objects[k], sizeof o);
        o.own_font = nullptr, o.image = nullptr, o.stream = nullptr; // differ from run to run
        digest.add(&o, sizeof o);
    }
    if (ctx.text_bufs == nullptr) return; // no object has a text
    digest.add(ctx.text_bufs, (ctx.text_count + 1U) * sizeof *ctx.text_bufs);
}

void use(vel_context &ctx, u32 step, Digest &digest) {
    vel_draw_all_objects(&ctx, 1, 0);
    add_state(ctx, digest);
    for (u32 k = first_window; k <= ctx.object_count; ++k) {
        const vel_object &o = ctx.objects[k];
        if (o.type != VEL_TYPE_WINDOW || o.master != 0) continue;
        ctx.window_to_activate = k;
        vel_select_window(&ctx);
    }
    constexpr void (*steps[])(vel_context *) noexcept = {
        vel_increase_win_w,  vel_decrease_win_h,   vel_scroll_win_down,
        vel_scroll_win_left, vel_increase_win_h,   vel_scroll_win_up,
        vel_decrease_win_w,  vel_scroll_win_right, vel_draw_selected_window};
    for (u32 k = 0; k < 3; ++k) steps[(step + k) % std::size(steps)](&ctx);
    ctx.final_key = 'x', ctx.key_printable = 1;
    vel_get_text(&ctx);
    vel_test_all_objects(&ctx, step % columns, step % rows);
    add_state(ctx, digest);
}

void run(const FormBytes &files, const Stage &stage, u32 step, Digest &digest) {
    constexpr int depths[] = {32, 16, 8, 15};
    world().form = files.form;
    world().text = files.text;
    vel_context ctx{};
    stage.set_up(ctx, {columns, rows, depths[step % std::size(depths)], true});
    world().display = ctx.screen;
    ctx.background_colour = {255, 255, 255};
    ctx.mark_colour_a = {0, 128, 0};
    ctx.scroll_step = 5;
    ctx.comfort = step % 2 == 0 ? VEL_COMFORT_ALL : 0;
    if (vel_load_forms(&ctx, 0, 0, form_path, text_path) != VEL_OK) {
        std::puts("FAULT: a valid form was not loaded");
        std::exit(EXIT_FAILURE);
    }
    use(ctx, step, digest);
    vel_close(&ctx);
}

// A bitmap of a few colours.
std::vector<u8> make_picture() {
    std::vector<u8> bytes(2000);
    SDL_Surface *const picture =
        SDL_CreateRGBSurface(SDL_SWSURFACE, 12, 10, 24, 0xFF0000, 0xFF00, 0xFF, 0);
    SDL_Rect box{2, 3, 5, 4};
    SDL_FillRect(picture, nullptr, 0x2040FF);
    SDL_FillRect(picture, &box, 0xFFC010);
    SDL_RWops *const to = SDL_RWFromMem(bytes.data(), static_cast<int>(bytes.size()));
    SDL_SaveBMP_RW(picture, to, 0);
    bytes.resize(static_cast<std::size_t>(SDL_RWtell(to)));
    SDL_RWclose(to);
    SDL_FreeSurface(picture);
    return bytes;
}

} // namespace

int main(int count, char **arguments) {
    const u32 forms = count > 1 ? static_cast<u32>(std::atol(arguments[1])) : 1000;
    std::mt19937_64 chance(count > 2 ? static_cast<u32>(std::atol(arguments[2])) : 1);
    set_up_world();
    const std::vector<u8> picture = make_picture();
    world().picture = picture;
    world().font = font_bytes();
    const Stage stage;
    Maker maker(chance);
    Digest digest;
    for (u32 step = 0; step < forms; ++step) run(maker.make(), stage, step, digest);
    std::printf("%u valid forms, %lu complaints, digest %016lx\n", forms, world().complaints,
                digest.value());
    return world().complaints == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
