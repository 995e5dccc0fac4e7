// Activation, closing, dialogs, frame buttons: what happens to the stack and to the objects.
#include "support.h"

#include <algorithm>
#include <numeric>
#include <sstream>

namespace {

using test::Form;
using Stack = std::vector<uint32_t>;

// Windows 8 to 12, closed, each with an object of its number plus 5 in it.
class Windows : public Form {
protected:
    Windows() {
        for (uint32_t number = 8; number <= 12; ++number) {
            const int x = 30 + 20 * static_cast<int>(number);
            make(number, VEL_TYPE_WINDOW, x, 60, 120, 80).hidden = 1;
            make(number + 5, VEL_TYPE_LABEL, x + 10, 70, 20, 20, number);
        }
        for (uint32_t button = 1; button <= 7; ++button) make(button, VEL_TYPE_LABEL, 0, 0, 16, 16);
    }
    void activate(uint32_t window) {
        ctx.window_to_activate = window;
        vel_activate_window(&ctx);
    }
    void open(std::initializer_list<uint32_t> windows) {
        for (const uint32_t window : windows) activate(window);
    }
    Stack stack() const {
        const auto *end = std::find(std::begin(ctx.window_stack), std::end(ctx.window_stack), 0U);
        return {std::begin(ctx.window_stack), end};
    }
    // Positions of the frame buttons that show, as "number:x,y".
    std::string buttons() const {
        std::ostringstream found;
        for (uint32_t k = 1; k <= 7; ++k) {
            const vel_object &o = objects[k];
            if (o.hidden == 0) found << k << ":" << o.x << "," << o.y << " ";
        }
        return found.str();
    }
};

TEST_F(Windows, opening_stacks_and_raising_does_not_count) {
    open({8, 9, 10, 11, 12});
    EXPECT_EQ(stack(), (Stack{12, 11, 10, 9, 8}));
    EXPECT_EQ(ctx.window_count, 5U);
    activate(9); // index 3 of 5
    EXPECT_EQ(stack(), (Stack{9, 12, 11, 10, 8}));
    EXPECT_EQ(ctx.window_count, 5U);
    EXPECT_EQ(ctx.active_window, 9U);
    EXPECT_EQ(ctx.window_to_activate, 0U);
    EXPECT_EQ(objects[9].hidden, 0U);
}

TEST_F(Windows, only_top_level_windows_that_are_not_active_are_activated) {
    open({8});
    objects[9].master = 10;
    objects[11].type = VEL_TYPE_TEXT;
    for (const uint32_t number : {8U, 9U, 11U, 0U, 13U}) {
        activate(number);
        EXPECT_EQ(ctx.window_to_activate, number);
        EXPECT_EQ(stack(), (Stack{8}));
    }
}

TEST_F(Windows, a_window_that_was_visible_from_the_start_is_not_counted) {
    objects[8].hidden = 0;
    open({8});
    EXPECT_EQ(ctx.active_window, 8U);
    EXPECT_EQ(stack(), (Stack{8}));
    EXPECT_EQ(ctx.window_count, 0U);
}

TEST_F(Windows, the_101st_window_is_only_marked_visible) {
    std::vector<vel_object> many(120);
    for (uint32_t k = 8; k < 110; ++k) {
        many[k] = objects[8];
        many[k].dep_objs[0] = 0;
    }
    ctx.objects = many.data();
    ctx.object_count = 119;
    for (uint32_t k = 8; k < 108; ++k) activate(k);
    EXPECT_EQ(ctx.window_count, 100U);
    EXPECT_EQ(ctx.window_stack[0], 107U);
    EXPECT_EQ(ctx.window_stack[99], 8U);
    activate(108);
    EXPECT_EQ(many[108].hidden, 0U);
    EXPECT_EQ(ctx.active_window, 107U);
    EXPECT_EQ(ctx.window_count, 100U);
    activate(8); // the bottom of a full stack is raised
    EXPECT_EQ(ctx.window_stack[0], 8U);
    EXPECT_EQ(ctx.window_stack[99], 9U);
    // Visible, it may come to the front; the bottom falls off, and the count stays.
    activate(108);
    EXPECT_EQ(ctx.window_stack[0], 108U);
    EXPECT_EQ(ctx.window_stack[99], 10U);
    EXPECT_EQ(ctx.window_count, 100U);
    for (uint32_t k = 0; k < 101; ++k) vel_close_win(&ctx, 0);
    EXPECT_EQ(ctx.window_count, 0U);
    EXPECT_EQ(ctx.active_window, 0U);
}

TEST_F(Windows, closing_hands_on_to_the_window_that_takes_the_place) {
    open({10, 9, 8});
    vel_close_win(&ctx, 0);
    EXPECT_EQ(stack(), (Stack{9, 10}));
    EXPECT_EQ(ctx.window_count, 2U);
    EXPECT_EQ(ctx.active_window, 9U);
    EXPECT_EQ(objects[8].hidden, 1U);
    // In the middle or at the bottom: the active window stays.
    open({8});
    const std::string before = buttons();
    vel_close_win(&ctx, 9);
    EXPECT_EQ(stack(), (Stack{8, 10}));
    EXPECT_EQ(ctx.active_window, 8U);
    EXPECT_EQ(buttons(), before);
    // Closed ones, unstacked ones and 0 without an active window are ignored.
    vel_close_win(&ctx, 9);
    objects[11].hidden = 0;
    vel_close_win(&ctx, 11);
    EXPECT_EQ(objects[11].hidden, 0U);
    vel_close_win(&ctx, 0);
    vel_close_win(&ctx, 0);
    vel_close_win(&ctx, 0);
    EXPECT_EQ(stack(), Stack{});
    EXPECT_EQ(ctx.window_count, 0U);
    EXPECT_EQ(buttons(), "");
}

TEST_F(Windows, erasing_leaves_nothing_of_a_closed_window) {
    open({8});
    vel_draw_all_objects(&ctx, 0, 0);
    EXPECT_NE(pixels(test::green), "");
    vel_close_win(&ctx, 8);
    EXPECT_EQ(pixels(test::green), "");
    EXPECT_EQ(pixels(test::red), "");
}

TEST_F(Windows, frame_buttons_stand_in_a_row_that_ends_with_the_window) {
    ctx.screen_width = 640;
    objects[8].x = 100;
    objects[8].width = 300;
    open({8});
    EXPECT_EQ(buttons(), "1:288,36 2:304,36 3:320,36 4:336,36 5:352,36 6:368,36 7:384,36 ");
    objects[8].window_kind = VEL_WINDOW_REDUCED;
    vel_set_operators(&ctx);
    EXPECT_EQ(buttons(), "1:368,36 7:384,36 ");
    objects[8].window_kind = VEL_WINDOW_PLAIN;
    objects[8].x = 0;
    vel_set_operators(&ctx);
    EXPECT_EQ(buttons(), "1:368,36 7:384,36 ");
    objects[8].window_kind = VEL_WINDOW_FULL;
    objects[8].x = 500; // cut: the row ends at 638
    vel_set_operators(&ctx);
    EXPECT_EQ(objects[7].x, 638U - 16);
    objects[8].hidden = 1;
    vel_set_operators(&ctx);
    EXPECT_EQ(buttons(), "");
}

TEST_F(Windows, frame_buttons_need_no_count_of_objects) {
    ctx.object_count = 0;
    activate(8); // x 190, y 60, width 120: the row ends at column 310
    EXPECT_EQ(buttons(), "1:198,36 2:214,36 3:230,36 4:246,36 5:262,36 6:278,36 7:294,36 ");
    vel_draw_all_objects(&ctx, 0, 0);
    EXPECT_EQ(at(300, 40), test::red);
    vel_close_win(&ctx, 0);
    EXPECT_EQ(buttons(), "");
    EXPECT_EQ(at(300, 40), test::white);
}

TEST_F(Windows, the_cursor_goes_to_the_first_object_that_takes_it) {
    make(18, VEL_TYPE_ENTRY, 200, 70, 20, 20, 13).editable = 1;
    make(19, VEL_TYPE_ENTRY, 230, 70, 20, 0, 8).editable = 1; // no height
    objects[18].margin_left = 3;
    open({8});
    EXPECT_EQ(ctx.cursor_object, 18U);
    EXPECT_EQ(objects[18].cursor_x, 203U);
    EXPECT_EQ(objects[18].cursor_y, 70U);
    EXPECT_EQ(objects[19].cursor_x, 0U);
    EXPECT_EQ(vel_check_cursor_dep_objs(&ctx, 8), 18U);
    objects[18].cursor_x = 210;
    open({9});
    EXPECT_EQ(ctx.cursor_object, 0U);
    open({8});
    EXPECT_EQ(objects[18].cursor_x, 210U); // placed once, it stays
    // editable 1: the window itself; 2: what was before.
    objects[10].editable = 1;
    objects[11].editable = 2;
    open({10});
    EXPECT_EQ(ctx.cursor_object, 10U);
    open({11});
    EXPECT_EQ(ctx.cursor_object, 10U);
    // Closing a window takes its own cursor and not that of a dependent.
    objects[13].editable = 2; // and what hangs below such an object is not found
    open({8});
    EXPECT_EQ(ctx.cursor_object, 0U);
    ctx.cursor_object = 18;
    vel_close_win(&ctx, 8);
    EXPECT_EQ(ctx.active_window, 11U);
    EXPECT_EQ(ctx.cursor_object, 18U);
}

TEST_F(Windows, selecting_activates_windows_and_moves_the_cursor) {
    open({8});
    const auto select = [&](uint32_t number) {
        ctx.window_to_activate = number;
        ctx.cursor_object = 0;
        vel_select_window(&ctx);
        return ctx.cursor_object;
    };
    for (const auto &[type, taken] : {std::pair{VEL_TYPE_ENTRY, true},
                                      {VEL_TYPE_NUMBER, true},
                                      {VEL_TYPE_WINDOW, true},
                                      {VEL_TYPE_TEXT, true},
                                      {VEL_TYPE_CHAIN, true},
                                      {VEL_TYPE_LABEL, false},
                                      {VEL_TYPE_PICTURE, false}}) {
        objects[13].type = type;
        objects[13].editable = 1;
        EXPECT_EQ(select(13), taken ? 13U : 0U) << type;
        EXPECT_EQ(ctx.window_to_activate, 13U);
        objects[13].editable = 0;
        EXPECT_EQ(select(13), 0U);
    }
    select(9);
    EXPECT_EQ(ctx.active_window, 9U);
    EXPECT_EQ(at(215, 65), test::red); // and it is drawn
}

TEST_F(Windows, resizing_stops_at_its_limits) {
    ctx.screen_width = 640;
    ctx.screen_height = 480;
    open({8});
    const struct {
        void (*action)(vel_context *) noexcept;
        uint32_t vel_object::*size;
        uint32_t before, after;
    } cases[] = {
        {vel_increase_win_w, &vel_object::width, 586, 590},
        {vel_increase_win_w, &vel_object::width, 590, 590},
        {vel_increase_win_h, &vel_object::height, 429, 433},
        {vel_increase_win_h, &vel_object::height, 430, 430},
        {vel_decrease_win_w, &vel_object::width, 21, 17},
        {vel_decrease_win_w, &vel_object::width, 20, 20},
        {vel_decrease_win_h, &vel_object::height, 22, 18},
        {vel_decrease_win_h, &vel_object::height, 18, 18},
    };
    for (const auto &c : cases) {
        objects[8].*c.size = c.before;
        c.action(&ctx);
        EXPECT_EQ(objects[8].*c.size, c.after);
    }
}

TEST_F(Windows, scrolling_has_a_lopsided_range) {
    ctx.scroll_step = 10;
    open({8});
    vel_object &o = objects[8];
    o.editable = 1;
    o.cursor_x = o.cursor_y = 100;
    objects[13].editable = 1;
    objects[13].cursor_x = objects[13].cursor_y = 500;
    const uint32_t x = objects[13].x, y = objects[13].y;
    const struct {
        void (*action)(vel_context *) noexcept;
        uint32_t vel_object::*scroll;
        uint32_t vel_object::*limit;
        uint32_t vel_object::*cursor;
        uint32_t max;
        int reached, own_cursor, contents;
    } cases[] = {
        {vel_scroll_win_right, &vel_object::scroll_x, &vel_object::scroll_max_x,
         &vel_object::cursor_x, 100, 200, 200, 200},
        // On the way left the window's own cursor goes right.
        {vel_scroll_win_left, &vel_object::scroll_x, &vel_object::scroll_max_x,
         &vel_object::cursor_x, 100, -100, 100, -100},
        {vel_scroll_win_down, &vel_object::scroll_y, &vel_object::scroll_max_y,
         &vel_object::cursor_y, 45, 90, 90, 90},
        {vel_scroll_win_up, &vel_object::scroll_y, &vel_object::scroll_max_y, &vel_object::cursor_y,
         45, -50, -50, -50},
        {vel_scroll_win_right, &vel_object::scroll_x, &vel_object::scroll_max_x,
         &vel_object::cursor_x, 0, 1600, 1600, 1600}, // five screens of 320
        {vel_scroll_win_up, &vel_object::scroll_y, &vel_object::scroll_max_y, &vel_object::cursor_y,
         0, -1000, -1000, -1000},
    };
    for (const auto &c : cases) {
        o.scroll_x = o.scroll_y = 0;
        o.cursor_x = o.cursor_y = 100;
        objects[13].x = x, objects[13].y = y;
        o.*c.limit = c.max;
        for (int k = 0; k < 400; ++k) c.action(&ctx);
        const bool across = c.cursor == &vel_object::cursor_x;
        EXPECT_EQ(static_cast<int32_t>(o.*c.scroll), c.reached);
        EXPECT_EQ(static_cast<int32_t>(o.*c.cursor), 100 + c.own_cursor);
        EXPECT_EQ(static_cast<int32_t>(across ? objects[13].x - x : objects[13].y - y), c.contents);
    }
}

TEST_F(Windows, dependents_scroll_by_their_clip_mode) {
    make(18, VEL_TYPE_LABEL, 200, 75, 5, 5, 13);
    const struct {
        uint32_t mode, nested_mode;
        bool moves, nested_moves;
    } cases[] = {{0, 0, true, true},
                 {0, 1, true, true},
                 {0, 2, true, false},
                 {1, 0, false, false},
                 {2, 0, false, false}};
    for (const auto &c : cases) {
        objects[13].x = 300, objects[18].x = 310;
        objects[13].clip_mode = c.mode;
        objects[18].clip_mode = c.nested_mode;
        vel_update_x_dependent_obj(&ctx, 8, 1, 7);
        EXPECT_EQ(objects[13].x, c.moves ? 293U : 300U) << c.mode;
        EXPECT_EQ(objects[18].x, c.nested_moves ? 303U : 310U) << c.mode << c.nested_mode;
    }
    objects[13].clip_mode = objects[18].clip_mode = 0;
    const uint32_t y = objects[18].y;
    vel_update_y_dependent_obj(&ctx, 8, 2, 5);
    EXPECT_EQ(objects[18].y, y + 5);
    vel_update_y_dependent_obj(&ctx, 8, 3, 5);
    EXPECT_EQ(objects[18].y, y + 5);
}

TEST_F(Windows, moved_dependents_take_their_cursors_along) {
    make(18, VEL_TYPE_LABEL, 200, 75, 5, 0, 13); // no height
    make(19, VEL_TYPE_ENTRY, 200, 75, 5, 5, 18);
    for (const uint32_t k : {13U, 18U, 19U}) {
        objects[k].x = objects[k].y = objects[k].cursor_x = objects[k].cursor_y = 100;
        objects[k].editable = 1;
    }
    const auto down = static_cast<uint32_t>(-30);
    vel_update_dep_objs_after_move(&ctx, 8, 20, down);
    for (const uint32_t k : {13U, 18U, 19U}) {
        EXPECT_EQ(std::tuple(objects[k].x, objects[k].y), std::tuple(120U, 70U)) << k;
        EXPECT_EQ(objects[k].cursor_x, k == 19 ? 120U : 100U) << k; // labels keep theirs
    }
    vel_add_difference_toxy_dep_objs(&ctx, 8, 1, 1);
    EXPECT_EQ(std::tuple(objects[13].x, objects[13].cursor_x), std::tuple(121U, 101U));
    EXPECT_EQ(objects[18].x, 120U);
    EXPECT_EQ(objects[19].x, 120U); // below an object without height nothing moves
}

TEST_F(Windows, frame_buttons_do_what_the_mode_says) {
    ctx.scroll_step = 10;
    ctx.mark_colour_a = test::red;
    ctx.mark_colour_b = test::blue;
    open({8});
    const auto press = [&](uint32_t button, uint32_t mode) {
        objects[8].width = objects[8].height = 100;
        objects[8].scroll_x = objects[8].scroll_y = 0;
        ctx.frame_mode = mode;
        ctx.window_to_activate = button;
        vel_exa_left_pressed(&ctx);
        return std::array{objects[8].width - 100, objects[8].height - 100, objects[8].scroll_x,
                          objects[8].scroll_y};
    };
    const auto n = [](int value) { return static_cast<uint32_t>(value); };
    using Change = std::array<uint32_t, 4>;
    const struct {
        uint32_t button;
        Change resized, scrolled;
    } cases[] = {{1, {}, {}},
                 {2, {0, n(-4), 0, 0}, {0, 0, 0, 10}},
                 {3, {0, 4, 0, 0}, {0, 0, 0, n(-10)}},
                 {4, {}, {}},
                 {5, {n(-4), 0, 0, 0}, {0, 0, 10, 0}},
                 {6, {4, 0, 0, 0}, {0, 0, n(-10), 0}},
                 {7, {}, {}},
                 {13, {}, {}}};
    for (const auto &c : cases) {
        EXPECT_EQ(press(c.button, 0), c.resized) << c.button;
        EXPECT_EQ(press(c.button, 1), c.scrolled) << c.button;
        EXPECT_EQ(press(c.button, 2), Change{}) << c.button;
        objects[8].window_kind = VEL_WINDOW_REDUCED;
        EXPECT_EQ(press(c.button, 0), Change{}) << c.button;
        objects[8].window_kind = VEL_WINDOW_FULL;
    }
    for (const auto &[mode, next, colour] :
         {std::tuple{0U, 1U, test::blue}, {1U, 0U, test::red}, {7U, 7U, test::green}}) {
        ctx.frame_mode = mode;
        ctx.mark_colour = test::green;
        ctx.window_to_activate = 4;
        vel_exa_left_released(&ctx);
        EXPECT_EQ(ctx.frame_mode, next);
        EXPECT_EQ(ctx.mark_colour, colour);
    }
    ctx.window_to_activate = 7;
    vel_exa_left_released(&ctx);
    EXPECT_EQ(ctx.active_window, 0U);
    EXPECT_EQ(press(3, 0), (Change{})); // nothing is active
}

} // namespace
