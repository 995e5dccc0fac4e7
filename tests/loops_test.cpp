// The loops on scripted events: hit tests, selections, dialogs, moves, waiting.
#include "support.h"

#include <chrono>

namespace {

constexpr Uint8 right_button = SDL_BUTTON_RIGHT;
constexpr const char *window = "20,60 120x100"; // as it is shown

// Window 8 is active: labels 10 and 11, fields 12 and 13. Window 9, with label 14, is closed.
// Picture 15 and label 16 in it are on the desktop.
class Loops : public test::Form {
protected:
    Loops() {
        make_frame_buttons();
        make_window(8, 20, 60, 120, 100);
        make(10, VEL_TYPE_LABEL, 30, 70, 30, 20, 8);
        make(11, VEL_TYPE_LABEL, 70, 70, 30, 20, 8);
        make_field(12, 30, 100, 100, 20, 8);
        make_field(13, 30, 130, 100, 20, 8);
        make_window(9, 100, 60, 120, 100);
        make(14, VEL_TYPE_LABEL, 150, 70, 30, 20, 9);
        make(15, VEL_TYPE_PICTURE_UNLOADED, 280, 20, 30, 30);
        make(16, VEL_TYPE_LABEL, 285, 25, 10, 10, 15);
        open(8);
    }
    uint32_t hit(int x, int y) const {
        return vel_test_all_objects(&ctx, test::u32(x), test::u32(y));
    }
    std::string label(uint32_t number) const { return objects[number].label; }
    uint32_t wait_for_click(uint32_t number) {
        click_on(number);
        return vel_wait_for_object(&ctx);
    }
};

// The outermost columns and rows of a label belong to its window, and a window that is not active
// gives only itself.
TEST_F(Loops, hits_are_found_in_their_order) {
    const std::tuple<int, int, uint32_t> cases[] = {
        {30, 75, 8},  {31, 75, 10}, {59, 75, 10}, {60, 75, 8},  {35, 70, 8},   {35, 71, 10},
        {35, 89, 10}, {35, 90, 8},  {155, 75, 9}, {110, 75, 8}, {290, 30, 16}, {300, 45, 15},
        {20, 100, 0}, {21, 100, 8}, {5, 5, 0},    {37, 44, 1}};
    objects[9].hidden = 0;
    for (const auto &[x, y, number] : cases) EXPECT_EQ(hit(x, y), number) << x << "," << y;
    EXPECT_EQ(vel_test_dep_objs(&ctx, 8, 35, 75), 10U);
    objects[8].hidden = 1; // the active window is hit all the same
    EXPECT_EQ(hit(35, 75), 10U);
    objects[8].hidden = 0;
    ctx.active_window = 0; // then the higher number wins where windows overlap
    EXPECT_EQ(std::tuple(hit(110, 75), hit(35, 75)), std::tuple(9U, 8U));
    for (const uint32_t number : {17U, 18U})
        make(number, VEL_TYPE_LABEL, 240, 150, 20, 20); // and the lower elsewhere
    EXPECT_EQ(hit(250, 160), 17U);
    objects[17].hidden = 1;
    EXPECT_EQ(hit(250, 160), 18U);
    objects[18].master = 15;
    EXPECT_EQ(hit(250, 160), 0U);
}

TEST_F(Loops, dependents_that_cannot_be_hit_hide_nothing) {
    make(17, VEL_TYPE_LABEL, 30, 70, 30, 20, 10); // over all of 10
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, uint32_t>;
    for (const auto &[hidden, width, style, number] :
         {Case(0, 30, 0, 17), Case(1, 30, 0, 10), Case(0, 0, 0, 10), Case(0, 30, 2, 10),
          Case(0, 30, 3, 10), Case(0, 30, 5, 17)}) {
        objects[17].hidden = hidden, objects[17].width = width, objects[17].border_style = style;
        EXPECT_EQ(hit(40, 80), number) << style;
    }
    objects[10].border_style = 2; // a master that is transparent hides its dependents as well
    EXPECT_EQ(vel_test_dep_objs(&ctx, 8, 40, 80), 0U);
    objects[11].width = 300; // beyond its master a dependent is cut away
    EXPECT_EQ(std::tuple(vel_in_object(&ctx, 11, 139, 80), vel_in_object(&ctx, 11, 140, 80)),
              std::tuple(1U, 0U));
}

TEST_F(Loops, selections_end_at_their_stops_and_at_the_close_button) {
    EXPECT_EQ(vel_get_mouse_selection(&ctx, 0, 10), 0U); // no event is needed
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 0), 0U);
    press_on(10);
    push_mouse(false, 40, 80, right_button);
    push_key('a', KMOD_LSHIFT); // keys go to the field
    push_key(252);
    push_type(SDL_VIDEOEXPOSE); // what was covered is shown again
    release_on(11);
    release(5, 5);
    test::updates().clear();
    release_on(10);
    EXPECT_EQ(vel_get_mouse_selection(&ctx, 10, 14), 10U);
    EXPECT_EQ(std::tuple(label(12), ctx.event.type), std::tuple("A\xFC", SDL_NOEVENT));
    EXPECT_EQ(test::updates(), test::Names({window, window, "0,0 320x200"}));
    for (const uint32_t end : {11U, 7U}) {
        release_on(10);
        release_on(end);
        EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 11), end);
    }
}

TEST_F(Loops, the_filter_sees_drops_and_ends) {
    ctx.event_filter = [](vel_context *, SDL_Event *event) -> uint32_t {
        if (event->type == SDL_QUIT) return VEL_FILTER_END_LOOP;
        return event->type == SDL_KEYDOWN ? VEL_FILTER_DROP : VEL_FILTER_PASS;
    };
    using Case = std::pair<std::function<uint32_t()>, uint32_t>;
    for (const auto &[loop, result] :
         {Case([this] { return vel_get_mouse_selection(&ctx, 10, 11); }, 7),
          Case([this] { return vel_wait_for_object(&ctx); }, 0),
          Case([this] { return vel_move_window(&ctx), objects[8].x; }, 20)}) {
        push_key('a');
        push_type(SDL_QUIT);
        EXPECT_EQ(loop(), result);
        EXPECT_EQ(std::tuple(label(12), ctx.event.type), std::tuple("", SDL_NOEVENT));
    }
}

TEST_F(Loops, dialogs_open_answer_and_close) {
    open(9);
    test::updates().clear();
    set_steps({[this] {
        EXPECT_EQ(test::updates(), test::Names{"0,0 320x200"});
        click_on(7); // closed by its frame button
    }});
    EXPECT_EQ(vel_decide_window(&ctx, 8, 10, 11), 7U);
    EXPECT_EQ(std::tuple(ctx.active_window, objects[8].hidden), std::tuple(9U, 1U));
}

TEST_F(Loops, moves_go_to_the_next_press) {
    vel_object &o = objects[8], &field = objects[12];
    o.editable = 1;
    o.cursor_x = 25, o.cursor_y = 65;
    using Case = std::tuple<uint32_t, int, int, int, int>;
    for (const auto &[kind, x, y, moved_x, moved_y] :
         {Case(0, 100, 90, 100, 90), Case(1, 5, 5, 11, 25), Case(0, 10, 24, 11, 25),
          Case(1, 12, 26, 12, 26)}) {
        o.window_kind = kind;
        vel_set_operators(&ctx);
        clear();
        vel_draw_all_objects(&ctx, 0, 0);
        push_key('a'); // keys before the press are lost
        push_mouse(true, 60, 60, right_button);
        press(x, y);
        vel_move_window(&ctx);
        EXPECT_EQ(std::tuple(o.x, o.y, o.cursor_x, o.cursor_y),
                  std::tuple(moved_x, moved_y, moved_x + 5, moved_y + 5));
        EXPECT_EQ(std::tuple(field.x, field.y, field.cursor_y),
                  std::tuple(moved_x + 10, moved_y + 40, moved_y + 40));
        EXPECT_EQ(objects[1].y, test::u32(moved_y) - 24);
        expect_drawn_afresh();
    }
    EXPECT_EQ(label(12), "");
}

TEST_F(Loops, waiting_does_what_the_user_means) {
    open(9);
    release(25, 65); // the corner of window 8: raises it
    push_key('b');
    objects[13].editable = 0; // a field that only shows is an answer, and a text is none
    make(17, VEL_TYPE_TEXT, 110, 75, 9, 9, 8);
    make(18, VEL_TYPE_CHAIN, 250, 150, 20, 20);
    make(19, VEL_TYPE_MENU, 290, 150, 20, 20);
    click_on(17);
    for (const uint32_t number : {11U, 15U, 16U, 13U, 18U, 19U})
        EXPECT_EQ(wait_for_click(number), number);
    EXPECT_EQ(std::tuple(ctx.active_window, label(12)), std::tuple(8U, "b"));
    release_on(VEL_BUTTON_MOVE);
    press(150, 100);
    release(150, 100); // selects nothing; the corner would hit window 9
    EXPECT_EQ(wait_for_click(16), 16U);
    EXPECT_EQ(std::tuple(objects[8].x, objects[8].y, ctx.active_window), std::tuple(150, 100, 8U));
}

TEST_F(Loops, tab_goes_round_both_ways_through_what_is_visible) {
    make(17, VEL_TYPE_TEXT, 75, 75, 5, 5, 11).editable = 1;
    make_field(18, 300, 100, 5, 5, 8); // outside of the window
    vel_draw_all_objects(&ctx, 0, 0);
    using Case = std::tuple<uint32_t, int, uint32_t, uint32_t>;
    for (const auto &[from, modifiers, in_window, to] :
         {Case(0, 0, 0, 17), Case(17, 0, 0, 12), Case(13, 0, 0, 17), Case(17, 1, 0, 13),
          Case(13, 2, 0, 12), Case(0, 1, 0, 13), Case(18, 2, 0, 13), Case(13, 0, 1, 8)}) {
        ctx.cursor_object = from;
        objects[8].editable = in_window; // the window itself comes first
        test::updates().clear();
        push_key(SDLK_TAB, modifiers);
        EXPECT_EQ(wait_for_click(10), 10U);
        EXPECT_EQ(ctx.cursor_object, to) << from << " " << modifiers;
        EXPECT_EQ(test::updates(), test::Names{window});
    }
    EXPECT_EQ(ctx.key_code, 0U);
}

TEST_F(Loops, frame_buttons_work_while_waiting) {
    // Held, it repeats after 400 ms and then every 50, until it is let go.
    const auto begun = std::chrono::steady_clock::now();
    press_on(VEL_BUTTON_WIDTH_LESS);
    ctx.idle_hook = [](vel_context *c) {
        if (c->objects[8].width > 104) return;
        c->idle_hook = nullptr;
        release(5, 5), release(45, 80);
    };
    EXPECT_EQ(vel_wait_for_object(&ctx), 10U);
    EXPECT_EQ(objects[8].width, 104U);
    EXPECT_GE(std::chrono::steady_clock::now() - begun, std::chrono::milliseconds(499));
    release_on(VEL_BUTTON_MODE);
    release_on(VEL_BUTTON_CLOSE);
    EXPECT_EQ(vel_wait_for_object(&ctx), 7U); // the last window is closed
    EXPECT_EQ(ctx.frame_mode, VEL_MODE_SCROLL);
}

} // namespace
