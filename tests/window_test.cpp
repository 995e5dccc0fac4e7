// Activation, closing, frame buttons: what happens to the stack, to the objects and on the screen.
#include "support.h"

namespace {

using test::Names, test::u32;
using Action = void (*)(vel_context *) noexcept;
using Field = uint32_t vel_object::*;

// Windows 8 to 12, closed, each with a label of its number plus 5 in it.
class Windows : public test::Form {
protected:
    Windows() {
        for (uint32_t number = 8; number <= 12; ++number) {
            const int x = 30 + 20 * static_cast<int>(number);
            make_window(number, x, 60, 120, 80);
            make(number + 5, VEL_TYPE_LABEL, x + 10, 70, 20, 20, number);
        }
        make_frame_buttons();
    }
    // The active window, how many are counted, and the stack.
    std::string state() const {
        std::string found =
            std::to_string(ctx.active_window) + " of " + std::to_string(ctx.window_count) + ":";
        for (const uint32_t window : ctx.window_stack) {
            if (window != 0) found += " " + std::to_string(window);
        }
        return found;
    }
    // Left edges of the frame buttons that show, if they are 24 pixels above the window.
    std::string buttons() const {
        std::string found;
        for (uint32_t k = 1; k <= 7; ++k) {
            const vel_object &o = objects[k];
            if (o.hidden == 0) found += std::to_string(k) + ":" + std::to_string(o.x) + " ";
            EXPECT_TRUE(o.hidden != 0 || o.y == objects[ctx.active_window].y - 24);
        }
        return found;
    }
    void act(Action action, uint32_t object) {
        test::updates().clear();
        ctx.window_to_activate = object;
        action(&ctx);
    }
    void set_places(uint32_t number, uint32_t place) {
        vel_object &o = objects[number];
        o.x = o.y = o.cursor_x = o.cursor_y = place;
    }
    std::array<int, 4> places(uint32_t number) const {
        const auto &o = objects[number];
        const auto i = [](uint32_t n) { return static_cast<int>(n); };
        return {i(o.x), i(o.y), i(o.cursor_x), i(o.cursor_y)};
    }
    using Places = std::array<int, 4>; // of an object and its cursor
};

// A number opens a window, 0 closes the active one, and a number below 0 closes the window named.
TEST_F(Windows, the_stack_keeps_what_was_opened_last_in_front) {
    make(20, VEL_TYPE_WINDOW, 0, 0, 9, 9); // visible from the start, so never counted
    make(21, VEL_TYPE_WINDOW, 0, 0, 9, 9).master = 8;
    make(22, VEL_TYPE_TEXT, 0, 0, 9, 9);
    using Case = std::pair<std::vector<int>, std::string>;
    for (const auto &[steps, wanted] :
         {Case({8, 9, 10, 11, 12}, "12 of 5: 12 11 10 9 8"),
          Case({8, 9, 10, 11, 12, 9}, "9 of 5: 9 12 11 10 8"), Case({8, 9, 13, 9}, "9 of 2: 9 8"),
          Case({10, 9, 8, 0}, "9 of 2: 9 10"), Case({10, 9, 8, -9, -9, -12}, "8 of 2: 8 10"),
          Case({8, 9, 0, 0, 0}, "0 of 0:"), Case({8, 9, -8}, "9 of 1: 9"),
          Case({21, 8}, "8 of 1: 8"), Case({22, 8}, "8 of 1: 8"), Case({20, 8}, "8 of 1: 8"),
          Case({20}, "20 of 0: 20"), Case({20, -20}, "20 of 0: 20")}) {
        for (const int step : steps) step > 0 ? open(u32(step)) : vel_close_win(&ctx, u32(-step));
        EXPECT_EQ(state(), wanted);
        for (uint32_t k = 8; k <= 12; ++k) {
            EXPECT_EQ(objects[k].hidden == 0,
                      wanted.find(" " + std::to_string(k), 5) != std::string::npos)
                << wanted;
            objects[k].hidden = 1;
        }
        std::fill_n(ctx.window_stack, 100, ctx.active_window = ctx.window_count = 0);
    }
}

TEST_F(Windows, the_101st_window_is_only_marked_visible) {
    std::vector<vel_object> many(120, objects[8]);
    std::fill_n(many.begin(), 8, vel_object{});
    for (vel_object &o : many) o.dep_objs[0] = 0;
    ctx.objects = many.data();
    ctx.object_count = 119;
    for (uint32_t k = 8; k <= 108; ++k) open(k);
    EXPECT_EQ(many[108].hidden, 0U);
    // It is visible, so it may come to the front; then the bottom falls off.
    for (const auto &[opened, top, bottom] :
         {std::tuple{107U, 107U, 8U}, {8U, 8U, 9U}, {108U, 108U, 10U}}) {
        open(opened);
        EXPECT_EQ(std::tuple(ctx.active_window, ctx.window_stack[0], ctx.window_stack[99],
                             ctx.window_count),
                  std::tuple(top, top, bottom, 100U));
    }
    for (uint32_t k = 0; k < 101; ++k) vel_close_win(&ctx, 0);
    EXPECT_EQ(state(), "0 of 0:");
}

TEST_F(Windows, what_is_closed_or_active_no_more_leaves_nothing_on_the_screen) {
    for (const uint32_t kind : {VEL_WINDOW_FULL, VEL_WINDOW_REDUCED}) {
        for (const auto &[closed, marks_go] :
             {std::pair{8U, true}, {10U, false}, {0U, true}}) { // 0: 12 is opened
            clear();
            for (const uint32_t k : {10U, 8U}) objects[k].window_kind = kind, open(k);
            vel_draw_all_objects(&ctx, 0, 0);
            EXPECT_EQ(at(300, 40), test::red); // button 7
            closed == 0 ? open(12) : vel_close_win(&ctx, closed);
            EXPECT_EQ(pixels(test::green).empty(), marks_go);
            for (const int x : {280, 300})
                EXPECT_EQ(at(x, 40), marks_go ? test::white : test::red) << x;
            const int inside = closed == 10 ? 317 : 200;
            EXPECT_EQ(at(inside, 130), closed == 0 ? test::red : test::white) << closed;
            for (const uint32_t k : {12U, 10U, 8U}) vel_close_win(&ctx, k);
        }
    }
}

TEST_F(Windows, frame_buttons_are_in_a_row_that_ends_with_the_window) {
    ctx.screen_width = 640;
    objects[8].width = 300;
    open(8);
    const std::string full = "1:288 2:304 3:320 4:336 5:352 6:368 7:384 ", reduced = "1:368 7:384 ";
    const std::string cut =
        "1:526 2:542 3:558 4:574 5:590 6:606 7:622 "; // the screen cuts it at 638
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, std::string>;
    for (const auto &[kind, x, hidden, shown] :
         {Case(0, 100, 0, full), Case(1, 100, 0, reduced), Case(2, 0, 0, reduced),
          Case(0, 500, 0, cut), Case(0, 100, 1, ""), Case(2, 100, 1, "")}) {
        objects[8].window_kind = kind, objects[8].x = x, objects[8].hidden = hidden;
        vel_set_operators(&ctx);
        EXPECT_EQ(buttons(), shown) << kind << " " << x;
    }
    ctx.object_count = 0; // they need no count of objects
    objects[8].hidden = 0, objects[8].window_kind = VEL_WINDOW_FULL;
    vel_set_operators(&ctx);
    EXPECT_EQ(buttons(), full);
    vel_close_win(&ctx, 0);
    EXPECT_EQ(buttons(), "");
}

TEST_F(Windows, the_cursor_goes_to_the_first_object_that_takes_it) {
    make_field(18, 200, 70, 20, 20, 13);
    make_field(19, 230, 70, 20, 0, 9);
    make_field(20, 230, 70, 0, 20, 9); // no area
    objects[10].editable = 1;          // the window itself
    objects[11].editable = 2;          // what was before
    using Case = std::pair<uint32_t, uint32_t>;
    for (const auto &[window, cursor] : {Case(8, 18), Case(9, 0), Case(10, 10), Case(11, 10)}) {
        open(window);
        EXPECT_EQ(ctx.cursor_object, cursor) << window;
    }
    objects[13].editable = 2; // and what hangs below such an object is not found
    open(8);
    EXPECT_EQ(ctx.cursor_object, 0U);
    // Closing a window takes its own cursor and not that of a dependent.
    for (const auto &[cursor, after] : {std::pair{18U, 18U}, {11U, 10U}}) {
        ctx.cursor_object = cursor;
        vel_close_win(&ctx, 0);
        EXPECT_EQ(ctx.cursor_object, after);
    }
}

TEST_F(Windows, cursors_are_placed_at_the_margins_once) {
    objects[8].editable = objects[13].editable = 1;
    make_field(18, 40, 80, 9, 9, 13);
    make(19, VEL_TYPE_EMPTY, 50, 80, 9, 9, 8).editable = 1;
    make(20, VEL_TYPE_ENTRY, 60, 80, 9, 9, 19); // not editable
    make_field(21, 60, 80, 9, 0, 8).dep_objs[0] = 22;
    make_field(22, 60, 80, 9, 9, 0);
    for (const uint32_t k : {8, 13, 18}) objects[k].margin_left = 4, objects[k].margin_top = 5;
    for (const bool with_window : {false, true}) {
        objects[13].cursor_y = with_window ? 1 : 0;
        objects[13].cursor_line = objects[13].cursor_column = 7;
        (with_window ? vel_initiate_cursor_win : vel_initiate_cursor_dep_objs)(&ctx, 8);
        const Places placed = with_window ? Places{194, 65, 0, 1} : Places{0, 0, 204, 75};
        using Case = std::tuple<uint32_t, int, int>;
        for (const auto &[number, x, y] :
             {Case(8, placed[0], placed[1]), Case(13, placed[2], placed[3]), Case(18, 44, 85),
              Case(19, 0, 0), Case(20, 0, 0), Case(21, 0, 0), Case(22, 0, 0)}) {
            vel_object &o = objects[number];
            EXPECT_EQ(std::tuple(o.cursor_x, o.cursor_y), std::tuple(x, y)) << number;
            o.cursor_x = o.cursor_y = 0;
        }
        EXPECT_EQ(std::tuple(objects[13].cursor_line, objects[13].cursor_column),
                  with_window ? std::tuple(7U, 7U) : std::tuple(0U, 0U));
    }
}

TEST_F(Windows, selecting_activates_windows_and_moves_the_cursor) {
    open(8);
    for (uint32_t type = 1; type <= 9; ++type) {
        for (const uint32_t editable : {0U, 1U, 2U}) {
            const bool takes =
                editable == 1 && std::strchr("13568", static_cast<int>('0' + type)) != nullptr;
            objects[13].type = type, objects[13].editable = editable;
            ctx.cursor_object = 0;
            act(vel_select_window, 13);
            EXPECT_EQ(std::tuple(ctx.cursor_object, ctx.window_to_activate),
                      std::tuple(takes ? 13U : 0U, 13U))
                << type;
            EXPECT_EQ(test::updates(), takes ? Names{"190,60 120x80"} : Names{});
        }
    }
    act(vel_select_window, 9);
    EXPECT_EQ(ctx.active_window, 9U);
    EXPECT_EQ(test::updates(), Names{"0,0 320x200"});
    EXPECT_EQ(at(215, 65), test::red);
}

TEST_F(Windows, resizing_stops_at_its_limits_and_draws) {
    objects[8].x = objects[8].y = 30;
    open(8);
    using Case = std::tuple<bool, bool, uint32_t, uint32_t>;
    for (const auto &[across, grows, before, after] :
         {Case(true, true, 266, 270), Case(true, true, 270, 270), Case(false, true, 129, 133),
          Case(false, true, 150, 150), Case(true, false, 21, 17), Case(true, false, 20, 20),
          Case(false, false, 22, 18), Case(false, false, 20, 20)}) {
        vel_object &o = objects[8];
        o.width = o.height = 60;
        (across ? o.width : o.height) = before;
        clear();
        vel_draw_all_objects(&ctx, 0, 0);
        act(across ? (grows ? vel_increase_win_w : vel_decrease_win_w)
                   : (grows ? vel_increase_win_h : vel_decrease_win_h),
            0);
        EXPECT_EQ(across ? o.width : o.height, after);
        EXPECT_EQ(test::updates(), Names{"0,0 320x200"});
        const int right = 30 + static_cast<int>(o.width), bottom = 30 + static_cast<int>(o.height);
        EXPECT_EQ(std::tuple(at(right, 32).g, at(right + 1, 32).r), std::tuple(255, 255))
            << before; // the new marks only
        EXPECT_EQ(std::tuple(at(32, bottom).g, at(32, bottom + 1).r), std::tuple(255, 255))
            << before;
    }
}

TEST_F(Windows, scrolling_has_a_lopsided_range) {
    ctx.scroll_step = 10;
    open(8);
    vel_object &o = objects[8];
    o.editable = objects[13].editable = 1;
    // On the way left the window's own cursor goes right.
    using Case = std::tuple<Action, bool, uint32_t, int, int>;
    for (const auto &[action, across, max, reached, own] :
         {Case(&vel_scroll_win_right, true, 100, 200, 200),
          Case(&vel_scroll_win_left, true, 100, -100, 100),
          Case(&vel_scroll_win_down, false, 45, 90, 90),
          Case(&vel_scroll_win_up, false, 45, -50, -50),
          Case(&vel_scroll_win_right, true, 0, 1600, 1600),
          Case(&vel_scroll_win_left, true, 0, -1600, 1600),
          Case(&vel_scroll_win_down, false, 0, 1000, 1000),
          Case(&vel_scroll_win_up, false, 0, -1000, -1000)}) {
        o.scroll_x = o.scroll_y = 0;
        o.scroll_max_x = o.scroll_max_y = max;
        o.cursor_x = o.cursor_y = 100;
        set_places(13, 100);
        test::updates().clear();
        for (int k = 0; k < 400; ++k) action(&ctx);
        const int dx = across ? reached : 0, dy = across ? 0 : reached;
        EXPECT_EQ(std::tuple(o.scroll_x, o.scroll_y), std::tuple(u32(dx), u32(dy)));
        EXPECT_EQ(places(8), (Places{190, 60, across ? 100 + own : 100, across ? 100 : 100 + own}));
        EXPECT_EQ(places(13), (Places{100 + dx, 100 + dy, 100 + dx, 100 + dy}));
        EXPECT_EQ(test::updates(),
                  Names(static_cast<std::size_t>(std::abs(reached)) / 10, "190,60 120x80"));
    }
}

TEST_F(Windows, dependents_scroll_by_their_clip_mode) {
    make(18, VEL_TYPE_LABEL, 200, 75, 5, 5, 13).editable = 1;
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, int, int>;
    for (const auto &[mode, nested_mode, direction, dx, nested_dx] :
         {Case(0, 0, 1, -7, -7), Case(0, 1, 1, -7, -7), Case(0, 2, 1, -7, 0), Case(1, 0, 1, 0, 0),
          Case(2, 0, 1, 0, 0), Case(0, 0, 2, 7, 7), Case(0, 0, 3, 0, 0), Case(0, 0, 0, 0, 0)}) {
        for (const bool x : {true, false}) {
            set_places(13, 300), set_places(18, 310);
            objects[13].clip_mode = mode, objects[18].clip_mode = nested_mode;
            (x ? vel_update_x_dependent_obj : vel_update_y_dependent_obj)(&ctx, 8, direction, 7);
            EXPECT_EQ(places(13), (Places{300 + x * dx, 300 + !x * dx, 300, 300}))
                << mode << nested_mode << direction;
            EXPECT_EQ(places(18), (Places{310 + x * nested_dx, 310 + !x * nested_dx,
                                          310 + x * nested_dx, 310 + !x * nested_dx}));
        }
    }
}

// Labels keep their cursors at a move. Below an object without a height the other way moves
// nothing.
TEST_F(Windows, moved_dependents_take_their_cursors_along) {
    make(18, VEL_TYPE_LABEL, 200, 75, 5, 0, 13);
    make_field(19, 200, 75, 5, 5, 18);
    make(20, VEL_TYPE_ENTRY, 200, 75, 5, 5, 8); // not editable
    objects[13].editable = objects[18].editable = 1;
    using Case = std::tuple<uint32_t, bool, bool, bool, bool>;
    for (const auto &[number, by_move, cursor_by_move, by_shift, cursor_by_shift] :
         {Case(13, true, false, true, true), Case(18, true, false, false, false),
          Case(19, true, true, false, false), Case(20, true, false, true, false)}) {
        for (const bool is_move : {true, false}) {
            set_places(number, 100);
            (is_move ? vel_update_dep_objs_after_move
                     : vel_add_difference_toxy_dep_objs)(&ctx, 8, 20, u32(-30));
            const bool moves = is_move ? by_move : by_shift,
                       cursor_moves = is_move ? cursor_by_move : cursor_by_shift;
            EXPECT_EQ(places(number), (Places{100 + 20 * moves, 100 - 30 * moves,
                                              100 + 20 * cursor_moves, 100 - 30 * cursor_moves}))
                << number;
        }
    }
}

TEST_F(Windows, frame_buttons_do_what_the_mode_says) {
    ctx.scroll_step = 10;
    ctx.mark_colour_a = test::red;
    ctx.mark_colour_b = test::blue;
    open(8);
    using Change = std::array<uint32_t, 4>; // of width, height and both offsets
    const auto press_button = [&](uint32_t button, uint32_t mode, uint32_t kind) {
        vel_object &o = objects[8];
        o.window_kind = kind;
        o.width = o.height = 100;
        o.scroll_x = o.scroll_y = 0;
        ctx.frame_mode = mode;
        act(vel_exa_left_pressed, button);
        return Change{o.width - 100, o.height - 100, o.scroll_x, o.scroll_y};
    };
    const uint32_t back4 = u32(-4), back10 = u32(-10);
    using Case = std::tuple<uint32_t, Change, Change>;
    for (const auto &[button, resized, scrolled] :
         {Case(1, {}, {}), Case(2, {0, back4}, {0, 0, 0, 10}), Case(3, {0, 4}, {0, 0, 0, back10}),
          Case(4, {}, {}), Case(5, {back4}, {0, 0, 10}), Case(6, {4}, {0, 0, back10}),
          Case(7, {}, {}), Case(13, {}, {})}) {
        EXPECT_EQ(press_button(button, 0, VEL_WINDOW_FULL), resized) << button;
        EXPECT_EQ(press_button(button, 1, VEL_WINDOW_FULL), scrolled) << button;
        EXPECT_EQ(press_button(button, 2, VEL_WINDOW_FULL), Change{}) << button;
        EXPECT_EQ(press_button(button, 0, VEL_WINDOW_REDUCED), Change{}) << button;
    }
    for (const auto &[mode, next, colour] :
         {std::tuple{0U, 1U, test::blue}, {1U, 0U, test::red}, {7U, 7U, test::green}}) {
        ctx.frame_mode = mode;
        ctx.mark_colour = test::green;
        act(vel_exa_left_released, VEL_BUTTON_MODE);
        EXPECT_EQ(std::tuple(ctx.frame_mode, test::updates().size()),
                  std::tuple(next, mode == 7 ? 0U : 1U));
        EXPECT_EQ(ctx.mark_colour, colour);
    }
    act(vel_exa_left_released, VEL_BUTTON_CLOSE);
    EXPECT_EQ(std::tuple(ctx.active_window, test::updates().size()), std::tuple(0U, 1U));
    EXPECT_EQ(press_button(3, 0, VEL_WINDOW_FULL), Change{}); // nothing is active
    for (const Action action : {vel_increase_win_w, vel_scroll_win_up, vel_move_window}) {
        push_type(SDL_USEREVENT);
        press(50, 50);
        act(action, 0);
        EXPECT_EQ(places(0), Places{});
    }
}

} // namespace
