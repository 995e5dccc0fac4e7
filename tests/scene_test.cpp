// Screens and windows: what is drawn and shown, in which order, and what drawing writes back.
#include "support.h"

// Takes the place of SDL's own, which nobody can see on a display that is none.
extern "C" void SDL_UpdateRects(SDL_Surface *screen, int count, SDL_Rect *rects) {
    EXPECT_EQ(screen, SDL_GetVideoSurface());
    for (int k = 0; k < count; ++k) {
        test::updates().push_back(test::text_of(rects[k].x, rects[k].y, rects[k].w, rects[k].h));
    }
}

namespace {

using test::Names;

constexpr vel_colour grey{128, 128, 128}, dark{1, 2, 3};

class Scene : public test::Form {
protected:
    vel_object &make_coloured(uint32_t number, uint32_t type, int x, int y, uint32_t size,
                              vel_colour c, uint32_t master = 0) {
        vel_object &o = make(number, type, x, y, size, size, master);
        set_fill(o, c);
        return o;
    }
    void stack(std::initializer_list<uint32_t> windows) {
        std::copy(windows.begin(), windows.end(), ctx.window_stack);
        ctx.window_count = static_cast<uint32_t>(windows.size());
        ctx.active_window = windows.size() == 0 ? 0 : *windows.begin();
    }
    void draw() {
        clear();
        EXPECT_EQ(vel_draw_all_objects(&ctx, 0, 0), 1U);
    }
};

TEST_F(Scene, windows_are_over_the_desktop_and_frame_buttons_over_all) {
    make_coloured(12, VEL_TYPE_LABEL, 40, 40, 100, grey);
    make_coloured(8, VEL_TYPE_WINDOW, 60, 60, 60, test::red);
    make_coloured(9, VEL_TYPE_WINDOW, 80, 80, 60, test::blue);
    make_coloured(10, VEL_TYPE_WINDOW, 100, 100, 60, test::black);
    make_coloured(11, VEL_TYPE_LABEL, 70, 70, 45, {5, 5, 5}, 8);
    make_coloured(7, VEL_TYPE_LABEL, 95, 95, 16, dark);
    stack({10, 9, 8});
    draw();
    using Case = std::tuple<int, vel_colour>;
    for (const auto &[place, colour] :
         {Case(42, grey), Case(62, test::red), Case(75, {5, 5, 5}), Case(85, test::blue),
          Case(115, test::black), Case(105, dark)})
        EXPECT_EQ(at(place, place), colour) << place;
}

TEST_F(Scene, what_is_not_on_the_desktop_or_the_stack_is_not_drawn) {
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, bool>;
    for (const auto &[number, type, hidden, height, master, shows] :
         {Case(8, 2, 0, 20, 0, true), Case(29, 2, 0, 20, 0, true), Case(8, 2, 1, 20, 0, false),
          Case(8, 2, 0, 0, 0, false), Case(8, 2, 0, 20, 10, false), Case(8, 1, 0, 20, 0, false),
          Case(8, 3, 0, 20, 0, false), Case(8, 7, 0, 20, 0, true)}) {
        std::fill_n(objects, 30, vel_object{});
        make(number, type, 50, 50, 20, height).hidden = hidden;
        objects[number].master = master;
        draw();
        EXPECT_EQ(at(55, 55) == test::red, shows) << number << " " << type;
    }
    const Case windows[] = {{0, 1, 0, 20, 9, false}, {9, 1, 1, 20, 9, false},
                            {8, 2, 0, 20, 8, true},  {8, 1, 0, 20, 8, false},
                            {8, 2, 0, 0, 8, false},  {8, 200, 0, 20, 8, true}};
    make(8, VEL_TYPE_WINDOW, 200, 50, 20, 20);
    objects[29] = {};
    for (const auto &[top, count, hidden, width, active, shows] : windows) {
        make(9, VEL_TYPE_WINDOW, 50, 50, width, 20).hidden = hidden;
        stack({top, 9});
        ctx.window_count = count;
        ctx.active_window = active;
        draw();
        EXPECT_EQ(at(55, 55) == test::red, shows) << top << " " << count << " " << active;
    }
}

TEST_F(Scene, only_the_active_window_has_marks) {
    make_coloured(8, VEL_TYPE_WINDOW, 100, 60, 50, test::red);
    make_coloured(9, VEL_TYPE_WINDOW, 200, 60, 50, test::red);
    // Outline and square of the first, with the window between them.
    vel_draw_box(&ctx, 99, 59, 52, 52, 0, 255, 0);
    vel_draw_box(&ctx, 90, 59, 10, 10, 0, 255, 0);
    vel_draw_box(&ctx, 100, 60, 50, 50, 255, 0, 0);
    const std::string wanted = pixels(test::green);
    stack({8, 9});
    draw();
    EXPECT_EQ(pixels(test::green), wanted);
    vel_undraw_selected_box(&ctx, 8);
    vel_undraw_selected_lines(&ctx, 8);
    EXPECT_EQ(pixels(test::green), "");
}

TEST_F(Scene, marks_move_windows_that_are_too_close_to_the_corner) {
    using Mark = void (*)(vel_context *, uint32_t) noexcept;
    using Case = std::tuple<Mark, uint32_t, int, int, int, int>;
    for (const auto &[mark, type, x, y, moved_x, moved_y] :
         {Case(vel_draw_selected_lines, 2, 10, 0, 11, 2),
          Case(vel_draw_selected_lines, 1, 11, 1, 11, 1),
          Case(vel_draw_selected_box, 2, -3, 1, 11, 2),
          Case(vel_undraw_selected_box, 1, 5, 10, 11, 25), Case(vel_undraw_object, 1, 0, 0, 11, 25),
          Case(vel_evoke_object, 1, 10, 24, 11, 25), Case(vel_evoke_object, 1, 12, 26, 12, 26)}) {
        make(8, type, x, y, 20, 20);
        mark(&ctx, 8);
        EXPECT_EQ(std::pair(objects[8].x, objects[8].y),
                  std::pair(test::u32(moved_x), test::u32(moved_y)));
    }
}

// The limits of the master are 99 and 150 on both axes.
TEST_F(Scene, dependents_are_hidden_when_no_part_of_them_lies_inside) {
    make(8, VEL_TYPE_WINDOW, 100, 100, 50, 50);
    vel_object &o = make(9, VEL_TYPE_LABEL, 0, 0, 0, 0, 8);
    using Case = std::tuple<int, uint32_t, bool>;
    for (const auto &[start, size, shows] :
         {Case(90, 10, false), Case(91, 10, true), Case(149, 10, true), Case(150, 10, false),
          Case(0, 300, true)}) {
        for (const bool across : {true, false}) {
            o.x = o.y = 110;
            o.width = o.height = 10;
            (across ? o.x : o.y) = test::u32(start);
            (across ? o.width : o.height) = size;
            vel_switch_dep_object(&ctx, 8);
            EXPECT_EQ(o.hidden, shows ? 0U : 1U) << start << " " << size << across;
        }
    }
    o.x = o.hidden = 0;
    for (const bool is_menu : {true, false}) { // menus, and what has no size, keep what they are
        o.type = is_menu ? VEL_TYPE_MENU : VEL_TYPE_LABEL;
        o.width = is_menu ? 10 : 0;
        vel_switch_dep_object(&ctx, 8);
        EXPECT_EQ(o.hidden, 0U) << is_menu;
    }
}

TEST_F(Scene, dependents_of_fitted_borders_cover_the_inner_area) {
    vel_object &m = make(8, VEL_TYPE_WINDOW, 100, 100, 50, 40);
    m.margin_left = 5;
    m.margin_right = 6;
    m.margin_top = 7;
    m.margin_bottom = 8;
    m.border_inset = 2;
    vel_object &o = make(9, VEL_TYPE_LABEL, 1, 1, 1, 1, 8);
    using Numbers = std::array<uint32_t, 5>;
    for (const Numbers &n : {Numbers{4, 1, 1, 1, 1}, Numbers{5, 103, 105, 43, 29}}) {
        o.border_style = n[0];
        vel_switch_dep_object(&ctx, 8);
        EXPECT_EQ((Numbers{o.border_style, o.x, o.y, o.width, o.height}), n);
    }
}

// Menus show when they are not hidden.
TEST_F(Scene, dependents_are_drawn_depth_first_and_lists_end_at_0) {
    make_coloured(8, VEL_TYPE_WINDOW, 100, 100, 60, grey);
    make_coloured(9, VEL_TYPE_LABEL, 110, 110, 40, test::red, 8);
    make_coloured(10, VEL_TYPE_LABEL, 120, 120, 25, test::blue, 9);
    make_coloured(11, VEL_TYPE_MENU, 130, 130, 20, test::black, 8);
    make_coloured(12, VEL_TYPE_LABEL, 145, 145, 2, dark, 11);
    objects[8].dep_objs[3] = 13;
    make_coloured(13, VEL_TYPE_LABEL, 150, 104, 5, test::green).master = 8;
    for (const bool is_hidden : {false, true}) {
        objects[11].hidden = is_hidden ? 1 : 0;
        clear();
        vel_draw_dep_objs(&ctx, 8);
        EXPECT_EQ(at(115, 115), test::red);
        EXPECT_EQ(at(125, 125), test::blue);
        // The later sibling lies over the nephew.
        EXPECT_EQ(at(135, 135), is_hidden ? test::blue : test::black);
        EXPECT_EQ(box_of(dark), is_hidden ? "" : "145,145 2x2");
        EXPECT_EQ(box_of(test::green), ""); // nothing after the 0
    }
}

TEST_F(Scene, the_cursor_is_drawn_where_it_is) {
    make(8, VEL_TYPE_WINDOW, 100, 60, 100, 100);
    vel_object &o = make(9, VEL_TYPE_ENTRY, 110, 70, 50, 30, 8);
    stack({8});
    o.cursor_x = objects[8].cursor_x = 120;
    o.cursor_y = objects[8].cursor_y = 75;
    using Case = std::tuple<uint32_t, uint32_t, bool>;
    for (const auto &[cursor, type, shows] :
         {Case(9, VEL_TYPE_ENTRY, true), Case(0, VEL_TYPE_ENTRY, false),
          Case(9, VEL_TYPE_LABEL, false), Case(8, VEL_TYPE_LABEL, true)}) {
        o.type = type;
        if (cursor == 8) objects[8].dep_objs[0] = 0;
        ctx.cursor_object = cursor;
        draw();
        EXPECT_EQ(at(120, 80) == test::blue, shows) << type;
    }
    clear();
    vel_draw_selected_window(&ctx);
    EXPECT_EQ(at(120, 80), test::blue);
}

TEST_F(Scene, formatting_comes_first_when_asked_for) {
    make_text(9, "word", 200).hidden = 1;
    set_label(make(10, VEL_TYPE_NUMBER, 0, 0, 100, 50), "two\nlines");
    std::string stream = "flows";
    make(14, VEL_TYPE_CHAIN, 0, 0, 99, 99).stream = stream.data();
    make(15, VEL_TYPE_CHAIN, 0, 0, 100, 100, 14).text_index = 2;
    make(16, VEL_TYPE_WINDOW, 0, 0, 100, 100).text_index = 3;
    set_text(3, "window");
    for (const bool formats : {false, true}) {
        vel_draw_all_objects(&ctx, formats ? 1 : 0, 0);
        EXPECT_EQ((Names{line(1, 0), line(2, 0), line(3, 0), objects[10].label}),
                  formats ? (Names{"word", "flows", "window", "two"})
                          : (Names{"", "", "", "two\nlines"}));
    }
}

TEST_F(Scene, erasing_covers_the_whole_rectangle_and_no_shadow) {
    vel_object &o = make(8, VEL_TYPE_WINDOW, 300, 180, 60, 60);
    o.border_style = VEL_BORDER_SHADOW;
    test::fill(ctx.screen, test::red);
    vel_undraw_object(&ctx, 8);
    EXPECT_EQ(box_of(test::white), "300,180 20x20"); // beyond the cut size
}

TEST_F(Scene, the_display_is_shown_what_was_drawn_and_only_where_it_is) {
    stack({8});
    using Case = std::tuple<int, uint32_t, SDL_Rect, Names, Names>;
    const Case cases[] = {
        Case(290, 60, {10, 20, 30, 40}, {"10,20 30x40"}, {"290,50 28x70"}),
        Case(100, 60, {-5, -6, 400, 400}, {"0,0 320x200"}, {"100,50 60x70"}),
        Case(100, 60, {300, 190, 40, 40}, {"300,190 20x10"}, {"100,50 60x70"}),
        Case(100, 60, {400, 300, 40, 40}, {}, {"100,50 60x70"}),
        Case(400, 50, {0, 0, 320, 200}, {"0,0 320x200"}, {})}; // its cut size wraps
    for (const auto &[x, width, screen, shown_all, shown_window] : cases) {
        make(8, VEL_TYPE_WINDOW, x, 50, width, 70);
        ctx.screen_rect = screen;
        test::updates().clear();
        vel_draw_all_objects(&ctx, 0, 0);
        EXPECT_EQ(test::updates(), Names{});
        vel_draw_all_objects(&ctx, 0, 1);
        EXPECT_EQ(test::updates(), shown_all) << x << " " << screen.x;
        test::updates().clear();
        clear();
        vel_draw_and_screenup_selected_window(&ctx);
        EXPECT_EQ(test::updates(), shown_window) << x;
        EXPECT_EQ(at(110, 60) == test::red, x == 100);
    }
}

} // namespace
