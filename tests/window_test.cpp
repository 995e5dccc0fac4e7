// Activation, closing, frame buttons: what happens to the stack, to the objects and on the screen.
#include "support.h"

#include <sstream>

namespace {

using test::Names, test::u32;
using Action = void (*)(vel_context *) noexcept;
using Moves = std::array<int, 4>; // of an object and its cursor, from 100

class Windows : public test::Form {
protected:
    // Windows 8 to 12, closed, each with a label of its number plus 5 in it.
    Windows() {
        for (uint32_t number = 8; number <= 12; ++number) {
            const int x = 30 + 20 * static_cast<int>(number);
            make_window(number, x, 60, 120, 80);
            make(number + 5, VEL_TYPE_LABEL, x + 10, 70, 20, 20, number);
        }
        make_frame_buttons();
    }
    // A number opens a window, 0 closes the active one, and -8 closes window 8.
    void open_and_close(const std::vector<int> &steps) {
        for (const int step : steps) step > 0 ? open(u32(step)) : vel_close_win(&ctx, u32(-step));
    }
    // The active window, how many are counted, and the stack.
    std::string state() const {
        std::ostringstream found;
        found << ctx.active_window << " of " << ctx.window_count << ":";
        for (const uint32_t *window = ctx.window_stack; *window != 0; ++window)
            found << " " << *window;
        return found.str();
    }
    void act(Action action, uint32_t object = 0) {
        test::updates().clear();
        ctx.window_to_activate = object;
        action(&ctx);
    }
    void put_at_100(std::initializer_list<uint32_t> numbers) {
        for (const uint32_t k : numbers)
            objects[k].x = objects[k].y = objects[k].cursor_x = objects[k].cursor_y = 100;
    }
    Moves moves_of(uint32_t number) const {
        const vel_object &o = objects[number];
        const auto from_100 = [](uint32_t place) { return static_cast<int>(place - 100); };
        return {from_100(o.x), from_100(o.y), from_100(o.cursor_x), from_100(o.cursor_y)};
    }
};

TEST_F(Windows, the_stack_keeps_what_was_opened_last_in_front) {
    make(20, VEL_TYPE_WINDOW, 0, 0, 9, 9); // visible from the start, so never counted
    make(21, VEL_TYPE_TEXT, 0, 0, 9, 9);
    using Case = std::pair<std::vector<int>, std::string>;
    for (const auto &[steps, wanted] :
         {Case({8, 9, 10, 11, 12, 9}, "9 of 5: 9 12 11 10 8"), Case({8, 9, 13, 9}, "9 of 2: 9 8"),
          Case({10, 9, 8, 0}, "9 of 2: 9 10"), Case({10, 9, 8, -9, -9, -12}, "8 of 2: 8 10"),
          Case({8, 9, 0, 0, 0}, "0 of 0:"), Case({21, 8}, "8 of 1: 8"), Case({20, 8}, "8 of 1: 8"),
          Case({20}, "20 of 0: 20"), Case({20, -20}, "20 of 0: 20")}) {
        open_and_close(steps);
        EXPECT_EQ(state(), wanted);
        for (uint32_t k = 8; k <= 12; ++k) objects[k].hidden = 1;
        std::fill_n(ctx.window_stack, 100, ctx.active_window = ctx.window_count = 0);
    }
}

TEST_F(Windows, what_is_closed_or_active_no_more_leaves_nothing_on_the_screen) {
    using Case = std::tuple<uint32_t, int, bool, int, vel_colour>;
    for (const auto &[kind, step, marks_go, inside, colour] :
         {Case(0, 12, true, 200, test::red), Case(1, 12, true, 200, test::red),
          Case(0, -8, true, 200, test::white), Case(1, -8, true, 200, test::white),
          Case(0, -10, false, 317, test::white)}) {
        clear();
        objects[8].window_kind = kind;
        open_and_close({10, 8});
        vel_draw_all_objects(&ctx, 0, 0);
        open_and_close({step});
        EXPECT_EQ(pixels(test::green).empty(), marks_go) << step;
        for (const int x : {280, 300}) // two frame buttons
            EXPECT_EQ(at(x, 40), marks_go ? test::white : test::red) << step;
        EXPECT_EQ(at(inside, 130), colour) << step;
        open_and_close({-12, -10, -8});
    }
}

TEST_F(Windows, frame_buttons_are_in_a_row_that_ends_with_the_window) {
    objects[8].width = 160;
    open(8);
    const std::string reduced = "1:228 7:244 ";
    const std::string full = "1:148 2:164 3:180 4:196 5:212 6:228 7:244 ";
    const std::string cut = "1:206 2:222 3:238 4:254 5:270 6:286 7:302 "; // by the screen, at 318
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, std::string>;
    for (const auto &[kind, x, hidden, shown] :
         {Case(0, 100, 0, full), Case(1, 100, 0, reduced), Case(2, 0, 0, reduced),
          Case(0, 200, 0, cut), Case(0, 100, 1, "")}) {
        objects[8].window_kind = kind, objects[8].x = x, objects[8].hidden = hidden;
        vel_set_operators(&ctx);
        std::string left_edges;
        for (uint32_t k = 1; k <= 7; ++k) {
            const vel_object &o = objects[k];
            if (o.hidden == 0) left_edges += std::to_string(k) + ":" + std::to_string(o.x) + " ";
            EXPECT_EQ(o.y, 60 - 24U);
        }
        EXPECT_EQ(left_edges, shown) << kind << " " << x;
    }
}

TEST_F(Windows, the_cursor_goes_to_the_first_object_that_takes_it) {
    make_field(18, 200, 70, 20, 20, 13);
    make_field(19, 230, 70, 20, 0, 9);
    make_field(20, 230, 70, 0, 20, 9); // no area
    objects[10].editable = 1;          // the window itself
    objects[11].editable = 2;          // what was before
    using Case = std::tuple<uint32_t, uint32_t, uint32_t>;
    for (const auto &[window, cursor, in_dependents] :
         {Case(8, 18, 18), Case(9, 0, 0), Case(10, 10, 0), Case(11, 10, 0)}) {
        open(window);
        EXPECT_EQ(ctx.cursor_object, cursor) << window;
        EXPECT_EQ(vel_check_cursor_dep_objs(&ctx, window), in_dependents) << window;
    }
    for (const uint32_t cursor : {18U, 8U}) { // closing a window takes its own, no dependent's
        open(8);
        ctx.cursor_object = cursor;
        vel_close_win(&ctx, 0);
        EXPECT_EQ(ctx.cursor_object, cursor == 8 ? 0U : cursor);
    }
    for (const auto &[number, after] : {std::pair{14U, 0U}, {18U, 18U}}) { // labels take none
        act(vel_select_window, number);
        EXPECT_EQ(ctx.cursor_object, after);
        EXPECT_EQ(test::updates(), after == 0 ? Names{} : Names{"250,60 68x80"});
    }
}

TEST_F(Windows, cursors_are_placed_at_the_margins_once) {
    make_field(18, 40, 80, 9, 9, 13);
    make_field(19, 40, 80, 9, 9, 13).cursor_y = 1; // placed before
    make(20, VEL_TYPE_ENTRY, 60, 80, 9, 9, 8);     // not editable
    objects[8].editable = 1;
    for (const uint32_t k : {8U, 18U, 19U, 20U}) {
        set_margins(objects[k], 4);
        objects[k].cursor_line = 7;
    }
    vel_initiate_cursor_dep_objs(&ctx, 8);
    EXPECT_EQ(objects[8].cursor_x, 0U);
    vel_initiate_cursor_win(&ctx, 8);
    using Case = std::array<uint32_t, 4>;
    for (const auto &[number, x, y, line] :
         {Case{8, 194, 64, 0}, {18, 44, 84, 0}, {19, 0, 1, 7}, {20, 0, 0, 7}}) {
        const vel_object &o = objects[number];
        EXPECT_EQ(std::tuple(o.cursor_x, o.cursor_y, o.cursor_line), std::tuple(x, y, line));
    }
}

TEST_F(Windows, resizing_stops_at_its_limits_and_draws) {
    objects[8].x = objects[8].y = 30;
    open(8);
    vel_object &o = objects[8];
    using Case = std::tuple<Action, uint32_t vel_object::*, uint32_t, uint32_t>;
    const auto width = &vel_object::width, height = &vel_object::height;
    for (const auto &[action, side, before, after] :
         {Case(vel_increase_win_w, width, 269, 273), Case(vel_increase_win_w, width, 270, 270),
          Case(vel_increase_win_h, height, 149, 153), Case(vel_increase_win_h, height, 150, 150),
          Case(vel_decrease_win_w, width, 21, 17), Case(vel_decrease_win_w, width, 20, 20),
          Case(vel_decrease_win_h, height, 22, 18), Case(vel_decrease_win_h, height, 20, 20)}) {
        o.width = o.height = 60;
        o.*side = before;
        clear();
        vel_draw_all_objects(&ctx, 0, 0);
        act(action);
        EXPECT_EQ(o.*side, after) << before;
        EXPECT_EQ(test::updates(), Names{"0,0 320x200"});
        expect_drawn_afresh();
    }
}

// On the way left the window's own cursor goes right.
TEST_F(Windows, scrolling_has_a_lopsided_range) {
    ctx.scroll_step = 10;
    open(8);
    vel_object &o = objects[8];
    o.editable = objects[13].editable = 1;
    using Case = std::tuple<Action, uint32_t, int, int>;
    for (const auto &[action, max, dx, dy] :
         {Case(vel_scroll_win_right, 100, 200, 0), Case(vel_scroll_win_left, 100, -100, 0),
          Case(vel_scroll_win_down, 45, 0, 90), Case(vel_scroll_win_up, 45, 0, -50),
          Case(vel_scroll_win_right, 0, 1600, 0), Case(vel_scroll_win_left, 0, -1600, 0),
          Case(vel_scroll_win_down, 0, 0, 1000), Case(vel_scroll_win_up, 0, 0, -1000)}) {
        o.scroll_x = o.scroll_y = 0;
        o.scroll_max_x = o.scroll_max_y = max;
        put_at_100({8, 13});
        test::updates().clear();
        for (int k = 0; k < 200; ++k) action(&ctx);
        EXPECT_EQ(std::tuple(o.scroll_x, o.scroll_y), std::tuple(u32(dx), u32(dy)));
        EXPECT_EQ(moves_of(8), (Moves{0, 0, std::abs(dx), dy}));
        EXPECT_EQ(moves_of(13), (Moves{dx, dy, dx, dy}));
        EXPECT_EQ(test::updates().size(), static_cast<std::size_t>(std::abs(dx + dy) / 10));
    }
}

TEST_F(Windows, dependents_scroll_by_their_clip_mode) {
    make(18, VEL_TYPE_LABEL, 200, 75, 5, 5, 13).editable = 1;
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, int, int>;
    for (const auto &[mode, nested_mode, direction, d, nested] :
         {Case(0, 0, 1, -7, -7), Case(0, 1, 1, -7, -7), Case(0, 2, 1, -7, 0), Case(1, 0, 1, 0, 0),
          Case(0, 0, 2, 7, 7), Case(0, 0, 3, 0, 0)}) {
        put_at_100({13, 18});
        objects[13].clip_mode = mode, objects[18].clip_mode = nested_mode;
        vel_update_x_dependent_obj(&ctx, 8, direction, 7);
        EXPECT_EQ(moves_of(13), (Moves{d, 0, 0, 0})) << mode << nested_mode << direction;
        EXPECT_EQ(moves_of(18), (Moves{nested, 0, nested, 0}));
        vel_update_y_dependent_obj(&ctx, 8, direction, 7);
        EXPECT_EQ(moves_of(13), (Moves{d, d, 0, 0}));
        EXPECT_EQ(moves_of(18), (Moves{nested, nested, nested, nested}));
    }
}

// Labels keep their cursors at a move. Below an object without a height the other way moves
// nothing.
TEST_F(Windows, moved_dependents_take_their_cursors_along) {
    make(18, VEL_TYPE_LABEL, 200, 75, 5, 0, 13);
    make_field(19, 200, 75, 5, 5, 18);
    make(20, VEL_TYPE_ENTRY, 200, 75, 5, 5, 8); // not editable
    objects[13].editable = objects[18].editable = 1;
    const Moves all{20, -30, 20, -30}, only_object{20, -30}, none{};
    using Case = std::tuple<uint32_t, Moves, Moves>;
    for (const auto &[number, by_move, by_shift] :
         {Case(13, only_object, all), Case(18, only_object, none), Case(19, all, none),
          Case(20, only_object, only_object)}) {
        put_at_100({number});
        vel_update_dep_objs_after_move(&ctx, 8, 20, u32(-30));
        EXPECT_EQ(moves_of(number), by_move) << number;
        put_at_100({number});
        vel_add_difference_toxy_dep_objs(&ctx, 8, 20, u32(-30));
        EXPECT_EQ(moves_of(number), by_shift) << number;
    }
}

TEST_F(Windows, frame_buttons_do_what_the_mode_says) {
    ctx.scroll_step = 10;
    ctx.mark_colour_a = test::red;
    ctx.mark_colour_b = test::blue;
    open(8);
    using Size = std::array<uint32_t, 4>; // with both offsets
    using Case = std::tuple<uint32_t, uint32_t, Size>;
    vel_object &o = objects[8];
    o.x = 100;
    for (const auto &[mode, button, after] :
         {Case(0, 2, {120, 76}), Case(0, 3, {120, 80}), Case(0, 5, {116, 80}),
          Case(0, 6, {120, 80}), Case(1, 2, {120, 80, 0, 10}), Case(1, 3, {120, 80}),
          Case(1, 5, {120, 80, 10}), Case(1, 6, {120, 80})}) {
        ctx.frame_mode = mode;
        act(vel_exa_left_pressed, button);
        EXPECT_EQ((Size{o.width, o.height, o.scroll_x, o.scroll_y}), after) << button;
    }
    for (const auto &[mode, next, colour] :
         {std::tuple{0U, 1U, test::blue}, {1U, 0U, test::red}, {7U, 7U, test::red}}) {
        ctx.frame_mode = mode;
        act(vel_exa_left_released, VEL_BUTTON_MODE);
        EXPECT_EQ(std::tuple(ctx.frame_mode, ctx.mark_colour), std::tuple(next, colour));
        EXPECT_EQ(test::updates().empty(), mode == 7);
    }
    act(vel_exa_left_released, VEL_BUTTON_CLOSE);
    EXPECT_EQ(std::tuple(ctx.active_window, test::updates().size()), std::tuple(0U, 1U));
}

} // namespace
