// The display: opening and resizing it, and what follows its size or the pointer.
#include "support.h"

#include "model/state.h"

namespace {

using test::text_of, test::u32;

std::string rect_of(const vel_object &o) {
    return text_of(static_cast<int>(o.x), static_cast<int>(o.y), static_cast<int>(o.width),
                   static_cast<int>(o.height));
}

void set_driver(const char *driver) {
    driver == nullptr ? unsetenv("SDL_VIDEODRIVER") : setenv("SDL_VIDEODRIVER", driver, 1);
}

// Without a driver in the environment, one that draws with letters would have a terminal here.
TEST(Display, a_failure_leaves_nothing_open_and_the_context_as_it_was) {
    setenv("DISPLAY", "nowhere", 1);
    setenv("TERM", "xterm", 1);
    SDL_Surface *const own = test::make_surface(9, 9);
    struct Case {
        const char *driver, *font;
        uint32_t width, height, font_size, flags;
        SDL_Surface *screen;
        int32_t result;
    };
    const char *const font = test::font_file;
    for (const Case &c : {Case{"dummy", font, 0, 50, 0, 0, nullptr, VEL_ERROR_ARGUMENT},
                          {"dummy", font, 50, 16384, 0, 0, nullptr, VEL_ERROR_ARGUMENT},
                          {"dummy", font, 16383, 16383, 0, 0, nullptr, VEL_ERROR_ARGUMENT},
                          {"dummy", font, 50, 50, 2001, 0, nullptr, VEL_ERROR_ARGUMENT},
                          {"dummy", font, 50, 50, 0, 4, nullptr, VEL_ERROR_ARGUMENT},
                          {"dummy", font, 50, 50, 0, 0, own, VEL_ERROR_ARGUMENT},
                          {"dummy", "nowhere.ttf", 50, 50, 0, 0, nullptr, VEL_ERROR_FONT},
                          {"unknown", font, 50, 50, 0, 0, nullptr, VEL_ERROR_DISPLAY},
                          {"caca", font, 50, 50, 0, 0, nullptr, VEL_ERROR_DISPLAY},
                          {"", font, 50, 50, 0, 0, nullptr, VEL_ERROR_DISPLAY},
                          {nullptr, font, 50, 50, 0, 0, nullptr, VEL_ERROR_DISPLAY}}) {
        set_driver(c.driver);
        vel_context ctx{};
        ctx.font_path = c.font, ctx.font_size = c.font_size;
        ctx.open_flags = c.flags, ctx.screen = c.screen;
        const vel_context before = ctx;
        SDL_ClearError();
        EXPECT_EQ(vel_open_display(&ctx, c.width, c.height, nullptr), c.result) << c.width;
        EXPECT_EQ(std::memcmp(&ctx, &before, sizeof ctx), 0) << c.result;
        EXPECT_EQ(std::string(SDL_GetError()).empty(), c.result == VEL_ERROR_ARGUMENT);
        EXPECT_EQ(std::tuple(SDL_WasInit(SDL_INIT_VIDEO), TTF_WasInit()), std::tuple(0U, 0));
        EXPECT_EQ(std::getenv("SDL_VIDEODRIVER") == nullptr, c.driver == nullptr);
    }
    set_driver("dummy");
    SDL_FreeSurface(own);
}

TEST(Display, what_the_program_has_set_stays_and_the_rest_has_defaults) {
    for (const bool is_set : {false, true}) {
        vel_context ctx{};
        if (is_set) {
            TTF_Init();
            ctx.font = TTF_OpenFont(test::font_file, 20);
            ctx.background_colour = test::red, ctx.mark_colour_a = test::green;
            ctx.scroll_step = 3, ctx.comfort = VEL_COMFORT_WHEEL;
        }
        TTF_Font *const font = ctx.font;
        ASSERT_EQ(vel_open_display(&ctx, 120, 90, "Title"), VEL_OK) << SDL_GetError();
        EXPECT_EQ(ctx.screen, SDL_GetVideoSurface());
        EXPECT_EQ(std::tuple(ctx.screen_width, ctx.screen_height), std::tuple(120U, 90U));
        EXPECT_EQ(std::tuple(ctx.screen_rect.w, ctx.screen_rect.h), std::tuple(120, 90));
        char *title = nullptr;
        SDL_WM_GetCaption(&title, nullptr);
        EXPECT_STREQ(title, "Title");
        EXPECT_EQ(ctx.font == font, is_set);
        EXPECT_EQ(test::pixel_of(ctx.screen, 119, 89), ctx.background_colour);
        EXPECT_EQ(std::tuple(ctx.scroll_step, ctx.comfort),
                  is_set ? std::tuple(3U, u32(VEL_COMFORT_WHEEL)) : std::tuple(20U, 63U));
        EXPECT_EQ(ctx.background_colour == test::red, is_set);
        EXPECT_EQ(ctx.mark_colour == test::green, is_set);
        vel_close(&ctx);
    }
}

// A form in memory: label 8 is a whole window, entry 9 in it keeps to its left and right edge.
struct WholeWindow {
    std::string form = std::string(776 * 9, '\0'), text = std::string(1008, '\0');
    vel_form_data data{};

    WholeWindow() {
        set(1, 172, 1); // the text says what the objects are
        for (const auto &[at, value] : {std::pair(8U, 100U), {12U, 80U}, {228U, 2U}, {288U, 9U}})
            set(8, at, value);
        for (const auto &[at, value] : {std::pair(0U, 10U),
                                        {4U, 10U},
                                        {8U, 50U},
                                        {12U, 20U},
                                        {228U, 5U},
                                        {236U, 1U},
                                        {284U, 8U}})
            set(9, at, value);
        const std::string said =
            "velumo traits 1\n8 part=10 anchor=15\n9 anchor=3 tip=an anchor=15\n";
        text.replace(8, said.size(), said);
        data.form = reinterpret_cast<const unsigned char *>(form.data()),
        data.form_size = form.size();
        data.text = reinterpret_cast<const unsigned char *>(text.data()),
        data.text_size = text.size();
    }
    void set(std::size_t object, std::size_t offset, uint32_t value) {
        form[776 * (object - 1) + offset] = static_cast<char>(value);
    }
};

SDL_Event event_of(Uint8 type, int width = 0, int height = 0) {
    SDL_Event event{};
    event.resize = {type, width, height};
    return event;
}

// Sizes that come at once, which flags and filter there are, and the whole window's size then.
TEST(Display, a_whole_window_follows_the_last_of_all_sizes_that_wait) {
    const auto drop = [](vel_context *, SDL_Event *event) -> uint32_t {
        return event->type == SDL_VIDEORESIZE ? VEL_FILTER_DROP : VEL_FILTER_PASS;
    };
    using Sizes = std::vector<std::pair<int, int>>;
    const std::tuple<Sizes, uint32_t, vel_event_filter, std::string, std::size_t> cases[] = {
        {{{100, 90}, {1, 1}, {400, 150}}, VEL_OPEN_RESIZABLE, nullptr, "0,0 400x150", 1},
        {{{400, 150}}, VEL_OPEN_RESIZABLE, drop, "0,0 300x200", 0},
        {{{400, 150}}, 0, nullptr, "0,0 300x200", 0},
        {{{-5, 0}}, VEL_OPEN_RESIZABLE, nullptr, "0,0 300x200", 0}};
    for (const auto &[sizes, flags, filter, wanted, redraws] : cases) {
        const WholeWindow whole;
        vel_context ctx{};
        ctx.font_path = test::font_file, ctx.open_flags = flags, ctx.event_filter = filter;
        ASSERT_EQ(vel_open_display(&ctx, 300, 200, ""), VEL_OK);
        ASSERT_EQ(vel_load_forms_from_memory(&ctx, 0, 0, &whole.data), VEL_OK);
        EXPECT_EQ(std::tuple(rect_of(ctx.objects[8]), rect_of(ctx.objects[9]), ctx.cursor_object),
                  std::tuple("0,0 300x200", "10,10 250x20", 9U));
        for (SDL_Event event; SDL_PollEvent(&event) != 0;) continue;
        for (const auto &[width, height] : sizes) {
            SDL_Event event = event_of(SDL_VIDEORESIZE, width, height);
            SDL_PushEvent(&event);
        }
        SDL_Event quit = event_of(SDL_QUIT);
        SDL_PushEvent(&quit);
        test::updates().clear();
        EXPECT_EQ(vel_wait_for_object(&ctx), 0U);
        EXPECT_EQ(rect_of(ctx.objects[8]), wanted);
        EXPECT_EQ(ctx.screen->w, static_cast<int>(ctx.objects[8].width));
        EXPECT_EQ(test::updates().size(), redraws);
        vel_close(&ctx);
    }
}

// Window 8, with labels 9 and 10 in each other and the text 11.
class Resizing : public test::Form {
protected:
    Resizing() {
        make_frame_buttons();
        make_window(8, 40, 40, 160, 110);
        make(9, VEL_TYPE_LABEL, 50, 60, 30, 20, 8);
        make(10, VEL_TYPE_LABEL, 52, 62, 10, 10, 9);
        make(11, VEL_TYPE_TEXT, 50, 90, 60, 50, 8);
        ctx.comfort = VEL_COMFORT_TYPING;
        open(8);
    }
    void anchor(uint32_t number, int edges) { velumo::state_of(ctx).traits[number].anchor = edges; }
    // By 4 pixels each.
    void widen(int steps) {
        for (int k = 0; k < std::abs(steps); ++k)
            steps > 0 ? vel_increase_win_w(&ctx) : vel_decrease_win_w(&ctx);
    }
};

TEST_F(Resizing, dependents_keep_their_distance_from_the_edges_they_are_anchored_to) {
    using Case = std::tuple<int, int, std::string, std::string>;
    for (const auto &[edges, inner_edges, wanted, inner] :
         {Case(0, 0, "50,60 30x20", "52,62 10x10"), Case(1, 2, "50,60 30x20", "52,62 10x10"),
          Case(2, 8, "70,60 30x20", "72,62 10x10"), Case(8, 2, "50,68 30x20", "52,70 10x10"),
          Case(3, 2, "50,60 50x20", "72,62 10x10"), Case(12, 15, "50,60 30x28", "52,62 10x18"),
          Case(10, 15, "70,68 30x20", "72,70 10x10"), Case(15, 10, "50,60 50x28", "72,70 10x10")}) {
        anchor(9, edges), anchor(10, inner_edges);
        widen(5), vel_increase_win_h(&ctx), vel_increase_win_h(&ctx);
        EXPECT_EQ(std::tuple(rect_of(objects[9]), rect_of(objects[10])), std::tuple(wanted, inner))
            << edges;
        widen(-5), vel_decrease_win_h(&ctx), vel_decrease_win_h(&ctx);
        EXPECT_EQ(rect_of(objects[9]), "50,60 30x20") << edges;
    }
}

// The label would be 90 pixels too small. One without a width stays so, and moves on.
TEST_F(Resizing, what_does_not_fit_comes_back_when_there_is_room) {
    anchor(9, 3), anchor(10, 3), anchor(11, 3);
    objects[11].width = 0;
    widen(-30);
    EXPECT_EQ(std::tuple(rect_of(objects[9]), objects[10].width, objects[11].width),
              std::tuple("50,60 1x20", 1U, 0U));
    widen(30);
    EXPECT_EQ(std::tuple(rect_of(objects[9]), rect_of(objects[10]), objects[11].width),
              std::tuple("50,60 30x20", "52,62 10x10", 0U));
}

TEST_F(Resizing, a_text_is_broken_again_and_its_caret_stays_at_its_character) {
    vel_object &o = objects[11];
    o.text_index = o.editable = 1;
    o.width = width_of("one two") + 4;
    anchor(11, 3);
    set_text(1, "one two three");
    vel_draw_all_objects(&ctx, 1, 0);
    ASSERT_EQ(std::string(line(1, 1)), "three");
    vel_set_selection(&ctx, 11, 10, 10); // in "three"
    ASSERT_EQ(std::tuple(o.cursor_line, o.cursor_column), std::tuple(1U, 2U));
    widen(20);
    EXPECT_EQ(std::string(line(1, 0)), "one two three");
    EXPECT_EQ(std::tuple(o.cursor_line, o.cursor_column), std::tuple(0U, 10U));
    EXPECT_EQ(o.cursor_x, o.x + width_of("one two th"));
}

TEST_F(Resizing, the_form_follows_the_size_of_the_display) {
    make(12, VEL_TYPE_LABEL, 280, 160, 30, 30);
    make(13, VEL_TYPE_LABEL, 2, 2, 30, 30);
    anchor(12, 10);
    make_window(14, 250, 40, 60, 40);
    anchor(14, 2);
    EXPECT_EQ(vel_resize(&ctx, 0, 90), VEL_ERROR_ARGUMENT);
    ASSERT_EQ(vel_resize(&ctx, 100, 50), VEL_OK);
    EXPECT_EQ(std::tuple(ctx.screen->w, ctx.screen->h, ctx.screen_rect.w, ctx.screen_rect.h),
              std::tuple(100, 50, 100, 50));
    // The window stays where 20 pixels of it can be seen, but below its frame buttons.
    EXPECT_EQ(std::tuple(rect_of(objects[8]), rect_of(objects[9])),
              std::tuple("40,30 160x110", "50,50 30x20"));
    EXPECT_EQ(std::tuple(rect_of(objects[12]), rect_of(objects[13]), rect_of(objects[14])),
              std::tuple("60,10 30x30", "2,2 30x30", "30,30 60x40"));
    EXPECT_EQ(objects[1].y, objects[8].y - 24);
    EXPECT_EQ(test::pixel_of(ctx.screen, 0, 49), ctx.background_colour);
}

using Loop = uint32_t (*)(vel_context *) noexcept;

uint32_t select(vel_context *ctx) noexcept { return vel_get_mouse_selection(ctx, 10, 10); }

// A kind of window, a press, where the pointer goes then, and the window and field after it.
struct Drag {
    uint32_t kind, is_editable;
    int x, y, to_x, to_y;
    std::string window, field;
};
constexpr int escape = -1; // in place of where the pointer goes

// Window 8, with label 10 and field 11 in it, and window 9 in the background.
class Dragging : public test::Form {
protected:
    Dragging() {
        make_frame_buttons();
        make_window(9, 200, 60, 60, 60);
        make_window(8, 20, 60, 120, 100);
        make(10, VEL_TYPE_LABEL, 30, 62, 30, 20, 8);
        make_field(11, 30, 100, 100, 20, 8);
        ctx.comfort = VEL_COMFORT_WINDOWS | VEL_COMFORT_KEYBOARD;
        open(9), open(8);
        velumo::state_of(ctx).traits[11].anchor = 3;
    }
    void put_back() {
        for (const auto &[number, x, y, width, height] : {std::array{8U, 20U, 60U, 120U, 100U},
                                                          {10U, 30U, 62U, 30U, 20U},
                                                          {11U, 30U, 100U, 100U, 20U}}) {
            vel_object &o = objects[number];
            o.x = x, o.y = y, o.width = width, o.height = height;
        }
        clear();
        drop_events(); // a selection puts the last one back
    }
    // All places on the way wait at once.
    void check(const Drag &drag, Loop loop) {
        SCOPED_TRACE(drag.window + " from " + text_of(drag.x, drag.y, 0, 0));
        const bool is_cancelled = drag.to_x == escape, changes = drag.window != "20,60 120x100";
        objects[8].window_kind = drag.kind, objects[8].editable = drag.is_editable;
        vel_set_operators(&ctx);
        vel_draw_all_objects(&ctx, 0, 0);
        test::updates().clear();
        press(drag.x, drag.y);
        for (int k = 0; k < 30; ++k) move_pointer(drag.x + k, drag.y + k);
        if (!is_cancelled) move_pointer(drag.to_x, drag.to_y);
        set_steps({[&] {
                       EXPECT_TRUE(!changes || test::updates().size() == 1);
                       if (is_cancelled) push_key(SDLK_ESCAPE), move_pointer(50, 50);
                   },
                   [&] { is_cancelled ? release(90, 90) : release(drag.to_x, drag.to_y); },
                   [&] {
                       EXPECT_EQ(std::tuple(rect_of(objects[8]), rect_of(objects[11])),
                                 std::tuple(drag.window, drag.field));
                       push_type(SDL_QUIT);
                   }});
        EXPECT_EQ(loop(&ctx), 0U);
        EXPECT_TRUE(all_steps_done());
        if (changes) expect_drawn_afresh();
        put_back();
    }
};

TEST_F(Dragging, the_active_window_moves_by_its_strip_and_is_resized_by_its_corner) {
    const std::string before = "20,60 120x100", field = "30,100 100x20";
    for (const Drag &drag : {Drag{0, 0, 100, 65, 130, 85, "50,80 120x100", "60,120 100x20"},
                             {1, 0, 100, 65, 0, 0, "11,25 120x100", "21,65 100x20"},
                             {0, 0, 100, 65, 319, 199, "239,180 120x100", "249,220 100x20"},
                             {0, 0, 137, 157, 157, 167, "20,60 140x110", "30,100 120x20"},
                             {0, 0, 130, 150, 0, 0, "20,60 48x48", "30,100 28x20"},
                             {0, 0, 138, 158, 319, 199, "20,60 300x140", "30,100 280x20"},
                             {0, 0, 100, 65, escape, escape, before, field},
                             {0, 0, 137, 157, escape, escape, before, field},
                             {0, 0, 100, 84, 130, 105, before, field},  // below the strip
                             {0, 0, 40, 70, 90, 90, before, field},     // on the label
                             {2, 0, 100, 65, 130, 85, before, field},   // a plain window
                             {1, 0, 137, 157, 157, 167, before, field}, // a reduced one
                             {0, 1, 100, 65, 130, 85, before, field},
                             {0, 0, 230, 65, 130, 85, before, field}}) { // the other window
        for (const Loop loop : {vel_wait_for_object, select}) check(drag, loop);
    }
    ctx.comfort = VEL_COMFORT_KEYBOARD;
    check({0, 0, 100, 65, 130, 85, before, field}, vel_wait_for_object);
}

} // namespace
