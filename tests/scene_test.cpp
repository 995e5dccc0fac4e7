// Screens and windows: what is drawn, in which order, and what drawing writes back.
#include "support.h"

#include <algorithm>

namespace {

using test::Form;

class Scene : public Form {
protected:
    vel_object &make_coloured(uint32_t number, uint32_t type, int x, int y, uint32_t size,
                              vel_colour c, uint32_t master = 0) {
        vel_object &o = make(number, type, x, y, size, size, master);
        o.fill_r = c.r, o.fill_g = c.g, o.fill_b = c.b;
        return o;
    }
    void stack(std::initializer_list<uint32_t> windows) {
        std::copy(windows.begin(), windows.end(), ctx.window_stack);
        ctx.window_count = static_cast<uint32_t>(windows.size());
        ctx.active_window = windows.size() == 0 ? 0 : *windows.begin();
    }
    void draw() {
        test::fill(ctx.screen, test::white);
        EXPECT_EQ(vel_draw_all_objects(&ctx, 0, 0), 1U);
    }
};

TEST_F(Scene, windows_stand_over_the_desktop_and_frame_buttons_over_all) {
    make_coloured(12, VEL_TYPE_LABEL, 40, 40, 100, test::grey);
    make_coloured(8, VEL_TYPE_WINDOW, 60, 60, 60, test::red);
    make_coloured(9, VEL_TYPE_WINDOW, 80, 80, 60, test::blue);
    make_coloured(10, VEL_TYPE_WINDOW, 100, 100, 60, test::black);
    make_coloured(11, VEL_TYPE_LABEL, 70, 70, 45, test::green, 8);
    make_coloured(7, VEL_TYPE_LABEL, 95, 95, 16, {1, 2, 3});
    stack({10, 9, 8});
    draw();
    const struct {
        int x, y;
        vel_colour colour;
    } cases[] = {{45, 45, test::grey}, {62, 62, test::red},     {75, 75, test::green},
                 {85, 85, test::blue}, {115, 115, test::black}, {105, 105, {1, 2, 3}}};
    for (const auto &c : cases) EXPECT_EQ(at(c.x, c.y), c.colour) << c.x;
    // The same windows in another order: 8 in front hides the others where they overlap.
    stack({8, 10, 9});
    objects[7].hidden = 1;
    draw();
    EXPECT_EQ(at(118, 118), test::red);
    EXPECT_EQ(at(130, 130), test::black);
}

TEST_F(Scene, what_is_not_on_the_desktop_or_the_stack_is_not_drawn) {
    const struct {
        uint32_t type, hidden, width;
        bool shows;
    } cases[] = {{VEL_TYPE_LABEL, 0, 20, true}, {VEL_TYPE_LABEL, 1, 20, false},
                 {VEL_TYPE_LABEL, 0, 0, false}, {VEL_TYPE_WINDOW, 0, 20, false},
                 {VEL_TYPE_TEXT, 0, 20, false}, {VEL_TYPE_EMPTY, 0, 20, false},
                 {VEL_TYPE_MENU, 0, 20, true},  {11, 0, 20, true}};
    for (const auto &c : cases) {
        make(9, c.type, 50, 50, c.width, 20).hidden = c.hidden;
        draw();
        EXPECT_EQ(at(55, 55) == test::red, c.shows) << c.type;
    }
    make(9, VEL_TYPE_WINDOW, 50, 50, 20, 20);
    const struct {
        uint32_t top, count, active, hidden;
        bool shows;
    } windows[] = {{9, 1, 9, 0, true},  {0, 1, 9, 0, false}, {9, 1, 0, 0, false},
                   {9, 1, 9, 1, false}, {8, 2, 8, 0, true},  {8, 1, 8, 0, false}};
    make(8, VEL_TYPE_WINDOW, 200, 50, 20, 20);
    for (const auto &c : windows) {
        stack({c.top, 9});
        ctx.window_count = c.count;
        ctx.active_window = c.active;
        objects[9].hidden = c.hidden;
        draw();
        EXPECT_EQ(at(55, 55) == test::red, c.shows) << c.top << " " << c.count << " " << c.active;
    }
}

TEST_F(Scene, only_the_active_window_has_marks) {
    make_coloured(8, VEL_TYPE_WINDOW, 100, 60, 50, test::red);
    make_coloured(9, VEL_TYPE_WINDOW, 200, 60, 50, test::red);
    stack({8, 9});
    draw();
    EXPECT_EQ(at(99, 59), test::green); // outline
    EXPECT_EQ(at(150, 110), test::green);
    EXPECT_EQ(at(90, 68), test::green); // square
    EXPECT_EQ(at(89, 68), test::white);
    EXPECT_EQ(at(90, 69), test::white);
    EXPECT_EQ(at(199, 59), test::white);
    vel_undraw_selected_box(&ctx, 8);
    vel_undraw_selected_lines(&ctx, 8);
    EXPECT_EQ(pixels(test::green), "");
}

TEST_F(Scene, marks_move_windows_that_stand_too_close_to_the_corner) {
    const struct {
        void (*mark)(vel_context *, uint32_t) noexcept;
        uint32_t type;
        int x, y;
        uint32_t moved_x, moved_y;
    } cases[] = {
        {vel_draw_selected_lines, VEL_TYPE_LABEL, 10, 0, 11, 2},
        {vel_draw_selected_lines, VEL_TYPE_WINDOW, 11, 1, 11, 1},
        {vel_draw_selected_box, VEL_TYPE_LABEL, -3, 1, 11, 2},
        {vel_draw_selected_box, VEL_TYPE_WINDOW, 12, 2, 12, 2},
        {vel_undraw_selected_lines, VEL_TYPE_WINDOW, 10, 24, 11, 25},
        {vel_undraw_selected_box, VEL_TYPE_WINDOW, 5, 10, 11, 25},
        {vel_undraw_selected_lines, VEL_TYPE_LABEL, 5, 10, 5, 10},
        {vel_undraw_object, VEL_TYPE_WINDOW, 0, 0, 11, 25},
        {vel_undraw_object, VEL_TYPE_LABEL, 0, 0, 0, 0},
    };
    for (const auto &c : cases) {
        make(8, c.type, c.x, c.y, 20, 20);
        c.mark(&ctx, 8);
        EXPECT_EQ(objects[8].x, c.moved_x);
        EXPECT_EQ(objects[8].y, c.moved_y);
    }
}

TEST_F(Scene, dependents_show_while_any_of_them_lies_inside) {
    make(8, VEL_TYPE_WINDOW, 100, 100, 50, 50); // limits 99 and 150
    vel_object &o = make(9, VEL_TYPE_LABEL, 0, 110, 10, 10, 8);
    for (const auto &[x, hidden] : {std::pair{110, 0U}, {90, 1U}, {91, 0U}, {149, 0U}, {150, 1U}}) {
        o.x = static_cast<uint32_t>(x);
        vel_switch_dep_object(&ctx, 8);
        EXPECT_EQ(o.hidden, hidden) << x;
    }
    o.x = 0, o.width = 300; // across
    o.y = 99, o.height = 2; // the top edge on the limit, the bottom inside
    vel_switch_dep_object(&ctx, 8);
    EXPECT_EQ(o.hidden, 0U);
    o.y = 98; // both edges at or above it
    vel_switch_dep_object(&ctx, 8);
    EXPECT_EQ(o.hidden, 1U);
    o.type = VEL_TYPE_MENU;
    o.y = 110;
    vel_switch_dep_object(&ctx, 8);
    EXPECT_EQ(o.hidden, 1U);
}

TEST_F(Scene, dependents_of_fitted_borders_cover_the_inner_area) {
    vel_object &m = make(8, VEL_TYPE_WINDOW, 100, 100, 50, 40);
    m.margin_left = 5, m.margin_right = 6, m.margin_top = 7, m.margin_bottom = 8;
    m.border_inset = 2;
    vel_object &o = make(9, VEL_TYPE_LABEL, 1, 1, 1, 1, 8);
    for (uint32_t style = 0; style <= 6; ++style) {
        o.x = o.y = o.width = o.height = 1;
        o.border_style = style;
        vel_switch_dep_object(&ctx, 8);
        const bool fitted = style == 2 || style == 3 || style == 5;
        EXPECT_EQ(o.x, fitted ? 103U : 1U) << style;
        EXPECT_EQ(o.y, fitted ? 105U : 1U);
        EXPECT_EQ(o.width, fitted ? 43U : 1U);
        EXPECT_EQ(o.height, fitted ? 29U : 1U);
    }
}

TEST_F(Scene, dependents_are_drawn_depth_first_and_lists_end_at_0) {
    make_coloured(8, VEL_TYPE_WINDOW, 100, 100, 60, test::grey);
    make_coloured(9, VEL_TYPE_LABEL, 110, 110, 40, test::red, 8);
    make_coloured(10, VEL_TYPE_LABEL, 120, 120, 25, test::blue, 9);
    make_coloured(11, VEL_TYPE_LABEL, 130, 130, 20, test::black, 8);
    make_coloured(12, VEL_TYPE_MENU, 104, 104, 10, test::grey, 8);
    make_coloured(13, VEL_TYPE_LABEL, 105, 105, 5, test::green, 12); // an entry of the menu
    objects[8].dep_objs[4] = 14;
    make_coloured(14, VEL_TYPE_LABEL, 150, 104, 5, test::blue).master = 8;
    vel_draw_dep_objs(&ctx, 8);
    EXPECT_EQ(at(107, 107), test::green); // a menu that is not hidden is drawn like all others
    EXPECT_NE(at(152, 106), test::blue);  // nothing after the 0 is
    objects[12].hidden = 1;
    vel_draw_dep_objs(&ctx, 8);
    EXPECT_EQ(at(115, 115), test::red);
    EXPECT_EQ(at(125, 125), test::blue);
    EXPECT_EQ(at(135, 135), test::black); // the later sibling lies over the nephew
}

TEST_F(Scene, the_cursor_is_drawn_where_it_stands) {
    make(8, VEL_TYPE_WINDOW, 100, 60, 100, 100);
    vel_object &o = make(9, VEL_TYPE_ENTRY, 110, 70, 50, 30, 8);
    o.cursor_x = 120, o.cursor_y = 75;
    stack({8});
    draw();
    EXPECT_EQ(at(120, 80), test::red);
    ctx.cursor_object = 9;
    draw();
    EXPECT_EQ(at(120, 80), test::blue);
    for (const auto &[type, shows] : {std::pair{VEL_TYPE_LABEL, false}, {VEL_TYPE_CHAIN, true}}) {
        o.type = type;
        vel_draw_selected_window(&ctx);
        EXPECT_EQ(at(120, 80) == test::blue, shows) << type;
    }
}

TEST_F(Scene, formatting_comes_first_when_asked_for) {
    make_text(9, "word", 200).hidden = 1;
    make(10, VEL_TYPE_LABEL, 0, 0, 100, 50);
    std::strcpy(objects[10].label, "two\nlines");
    draw();
    EXPECT_EQ(line(1, 0), "");
    vel_draw_all_objects(&ctx, 1, 0);
    EXPECT_EQ(line(1, 0), "word");
    EXPECT_STREQ(objects[10].label, "two");
}

TEST_F(Scene, erasing_covers_the_whole_rectangle_and_no_shadow) {
    vel_object &o = make(8, VEL_TYPE_WINDOW, 300, 180, 60, 60);
    o.border_style = VEL_BORDER_SHADOW;
    o.border_g = 255;
    test::fill(ctx.screen, test::red);
    vel_undraw_object(&ctx, 8);
    EXPECT_EQ(at(300, 180), test::white);
    EXPECT_EQ(at(319, 199), test::white); // beyond the cut size
    EXPECT_EQ(at(299, 180), test::red);
}

TEST_F(Scene, a_display_is_updated_only_where_it_is) {
    SDL_FreeSurface(ctx.screen);
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0);
    ctx.screen = SDL_SetVideoMode(320, 200, 32, SDL_SWSURFACE);
    ctx.screen_rect = {-5, -5, 4000, 4000};
    make(8, VEL_TYPE_WINDOW, 400, 300, 50, 50); // its cut size wraps
    stack({8});
    EXPECT_EQ(vel_draw_all_objects(&ctx, 0, 1), 1U);
    vel_draw_and_screenup_selected_window(&ctx);
    SDL_Quit();
    ctx.screen = nullptr;
}

TEST_F(Form, an_empty_table_draws_nothing) {
    vel_context bare{};
    bare.screen = ctx.screen;
    EXPECT_EQ(vel_draw_all_objects(&bare, 1, 1), 1U);
    vel_draw_selected_window(&bare);
}

} // namespace
