// The loops on scripted events: hit tests, selections, dialogs, moves, waiting.
#include "support.h"

#include <chrono>

namespace {

using test::Step;

constexpr Uint8 right_button = SDL_BUTTON_RIGHT;

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
    // Waits after a step that is done at once.
    uint32_t wait(const Step &step) {
        step();
        return vel_wait_for_object(&ctx);
    }
    uint32_t wait_for_click(uint32_t number) { return wait(click(number)); }
};

TEST_F(Loops, hits_are_found_in_their_order) {
    const std::tuple<int, int, uint32_t> cases[] = {
        {35, 75, 10},  {30, 75, 8},   {31, 75, 10},
        {59, 75, 10},  {60, 75, 8}, // outermost columns belong to the window
        {35, 70, 8},   {35, 71, 10},  {35, 89, 10},
        {35, 90, 8},   {155, 75, 9},  {110, 75, 8}, // a window that is not active gives only itself
        {290, 30, 16}, {300, 45, 15}, {20, 100, 0},
        {21, 100, 8},  {5, 5, 0},     {37, 44, 1}};
    objects[9].hidden = 0;
    for (const auto &[x, y, number] : cases) EXPECT_EQ(hit(x, y), number) << x << "," << y;
    objects[8].hidden = 1; // the active window is hit all the same
    EXPECT_EQ(hit(35, 75), 10U);
    objects[8].hidden = 0;
    ctx.active_window = 0; // then the higher number wins where windows overlap
    EXPECT_EQ(hit(110, 75), 9U);
    EXPECT_EQ(hit(35, 75), 8U);
    for (const uint32_t number : {17U, 18U})
        make(number, VEL_TYPE_LABEL, 240, 150, 20, 20); // and the lower elsewhere
    EXPECT_EQ(hit(250, 160), 17U);
    objects[17].hidden = 1;
    EXPECT_EQ(hit(250, 160), 18U);
    objects[18].master = 15;
    EXPECT_EQ(hit(250, 160), 0U);
    ctx.object_count = 9;
    EXPECT_EQ(std::tuple(hit(110, 75), hit(290, 30)), std::tuple(9U, 0U));
}

TEST_F(Loops, dependents_that_cannot_be_hit_hide_nothing) {
    make(17, VEL_TYPE_LABEL, 30, 70, 30, 20, 10); // over all of 10
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, uint32_t>;
    const Case cases[] = {Case(0, 30, 0, 17), Case(1, 30, 0, 10), Case(0, 0, 0, 10),
                          Case(0, 30, 2, 10), Case(0, 30, 3, 10), Case(0, 30, 5, 17),
                          Case(0, 30, 1, 17)};
    for (const auto &[hidden, width, style, number] : cases) {
        objects[17].hidden = hidden, objects[17].width = width, objects[17].border_style = style;
        EXPECT_EQ(hit(40, 80), number) << style;
    }
    // A master that is transparent hides its dependents as well.
    objects[10].border_style = 2;
    EXPECT_EQ(hit(40, 80), 8U);
    // Beyond its master a dependent is cut away.
    objects[11].width = 300;
    using Other = std::tuple<int, int, uint32_t>;
    for (const auto &[x, y, is_in] : {Other(139, 80, 1), Other(140, 80, 0), Other(90, 70, 0),
                                      Other(90, 71, 1), Other(90, 89, 1), Other(90, 90, 0)}) {
        EXPECT_EQ(vel_in_object(&ctx, 11, x, y), is_in) << x << "," << y;
    }
}

TEST_F(Loops, selections_end_at_their_stops_and_at_the_close_button) {
    EXPECT_EQ(vel_get_mouse_selection(&ctx, 0, 10), 0U); // no event is needed
    EXPECT_EQ(vel_get_mouse_selection(&ctx, 10, 0), 0U);
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 0), 0U);
    press_on(10);
    push_mouse(false, 40, 80, right_button);
    push_type(SDL_QUIT);
    release_on(11);
    release(5, 5);
    release_on(10);
    EXPECT_EQ(vel_get_mouse_selection(&ctx, 10, 14), 10U);
    EXPECT_EQ(ctx.event.type, SDL_NOEVENT);
    for (const uint32_t end : {11U, 7U}) {
        release_on(10);
        release_on(end);
        EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 11), end);
    }
}

TEST_F(Loops, keys_go_to_the_cursor_object_meanwhile) {
    push_key('a', KMOD_LSHIFT);
    push_key(252);
    push_key('3');
    release_on(10);
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 10), 10U);
    EXPECT_EQ(label(12), "A\xFC"
                         "3");
    // A key that came without a cursor object is translated once there is one.
    ctx.cursor_object = 0;
    push_key('b');
    SDL_Event released;
    SDL_PumpEvents();
    SDL_PeepEvents(&released, 1, SDL_GETEVENT, SDL_EVENTMASK(SDL_KEYUP));
    set_steps({[this] { ctx.cursor_object = 12; }, [] {}, [this] { release_on(10); }});
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 10), 10U);
    EXPECT_EQ(ctx.key_code, static_cast<uint32_t>('b'));
}

TEST_F(Loops, the_filter_sees_drops_and_ends) {
    ctx.event_filter = [](vel_context *, SDL_Event *event) -> uint32_t {
        if (event->type == SDL_QUIT) return VEL_FILTER_END_LOOP;
        return event->type == SDL_KEYDOWN ? VEL_FILTER_DROP : VEL_FILTER_PASS;
    };
    using Case = std::pair<std::function<uint32_t()>, uint32_t>;
    for (const auto &[loop, result] :
         {Case([this] { return vel_get_mouse_selection(&ctx, 10, 11); }, 7),
          Case([this] { return vel_get_mono_mouse_selection(&ctx, 10); }, 7),
          Case([this] { return vel_wait_for_object(&ctx); }, 0),
          Case([this] { return vel_move_window(&ctx), objects[8].x; }, 20)}) {
        push_key('a');
        push_type(SDL_QUIT);
        EXPECT_EQ(loop(), result);
        EXPECT_EQ(std::tuple(label(12), ctx.event.type), std::tuple("", SDL_NOEVENT));
    }
}

TEST_F(Loops, a_display_that_was_covered_is_shown_again) {
    push_type(SDL_VIDEOEXPOSE);
    release_on(10);
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 10), 10U);
    EXPECT_EQ(test::updates(), test::Names{"0,0 320x200"});
}

TEST_F(Loops, dialogs_open_answer_and_close) {
    open(9);
    release_on(11);
    EXPECT_EQ(vel_decide_window(&ctx, 8, 10, 11), 11U);
    EXPECT_EQ(test::updates(), test::Names{"0,0 320x200"});
    EXPECT_EQ(std::tuple(ctx.active_window, objects[8].hidden), std::tuple(9U, 1U));
    set_steps({click(7)}); // closed by its frame button
    EXPECT_EQ(vel_decide_window(&ctx, 8, 10, 11), 7U);
    release_on(10);
    vel_notice_window(&ctx, 8, 10);
    EXPECT_EQ(std::tuple(ctx.window_count, test::updates().size()), std::tuple(1U, 3U));
    // A dialog within a dialog, opened from the idle hook.
    make_window(18, 100, 60, 150, 100);
    make(19, VEL_TYPE_LABEL, 150, 70, 30, 20, 18);
    set_steps({[this] {
        release_on(10);
        vel_notice_window(&ctx, 8, 10);
        vel_draw_all_objects(&ctx, 0, 1);
        release_on(19);
    }});
    EXPECT_EQ(vel_decide_window(&ctx, 18, 19, 19), 19U);
    EXPECT_EQ(std::tuple(ctx.window_count, ctx.active_window), std::tuple(1U, 9U));
}

TEST_F(Loops, moves_go_to_the_next_press) {
    vel_object &o = objects[8], &field = objects[12];
    o.editable = 1;
    o.cursor_x = 25, o.cursor_y = 65;
    using Case = std::tuple<uint32_t, int, int, int, int>;
    for (const auto &[kind, x, y, moved_x, moved_y] :
         {Case(0, 100, 90, 100, 90), Case(1, 5, 5, 11, 25), Case(0, 10, 24, 11, 25),
          Case(0, 11, 25, 11, 25), Case(1, 12, 26, 12, 26)}) {
        o.window_kind = kind;
        vel_set_operators(&ctx);
        clear();
        vel_draw_all_objects(&ctx, 0, 0);
        const uint32_t dx = test::u32(moved_x) - o.x, dy = test::u32(moved_y) - o.y;
        const vel_object field_before = field, before = o;
        release(50, 50);
        push_key('a');
        push_mouse(true, 60, 60, right_button);
        press(x, y);
        vel_move_window(&ctx);
        EXPECT_EQ(std::tuple(o.x, o.y, o.cursor_x, o.cursor_y),
                  std::tuple(moved_x, moved_y, before.cursor_x + dx, before.cursor_y + dy));
        EXPECT_EQ(std::tuple(field.x, field.cursor_y),
                  std::tuple(field_before.x + dx, field_before.cursor_y + dy));
        EXPECT_EQ(objects[1].y, test::u32(moved_y) - 24);
        // Nothing is left where it was.
        SDL_Surface *shown = SDL_ConvertSurface(ctx.screen, ctx.screen->format, SDL_SWSURFACE);
        clear();
        vel_draw_all_objects(&ctx, 0, 0);
        EXPECT_EQ(difference(shown), "") << x;
        SDL_FreeSurface(shown);
    }
    EXPECT_EQ(label(12), ""); // the keys before the press are lost
}

TEST_F(Loops, the_release_of_the_press_that_places_a_window_selects_nothing) {
    open(9);
    open(8);
    for (const auto &[x, y] : {std::pair{150, 100}, std::pair{11, 60}}) {
        release_on(VEL_BUTTON_MOVE);
        press(x, y);
        release(x, y); // a corner belongs to no object, so that it would hit window 9
        EXPECT_EQ(wait_for_click(16), 16U);
        EXPECT_EQ(std::tuple(objects[8].x, objects[8].y, ctx.active_window), std::tuple(x, y, 8U));
    }
}

TEST_F(Loops, waiting_does_what_the_user_means) {
    push_key('a');
    push_key(SDLK_TAB);
    push_key('b');
    release_on(12); // the cursor back into the first field
    push_key('c');
    release_on(14); // raises window 9, whose number is higher
    EXPECT_EQ(wait_for_click(10), 10U);
    EXPECT_EQ(std::tuple(label(12), label(13)), std::tuple("ac", "b"));
    EXPECT_EQ(ctx.active_window, 8U); // 14 is hidden with its window
    open(9);
    release(25, 65); // the corner of window 8: raises it
    EXPECT_EQ(wait_for_click(11), 11U);
    EXPECT_EQ(ctx.active_window, 8U);
    objects[13].editable = 0; // a field that only shows is an answer, and a text is none
    make(17, VEL_TYPE_TEXT, 110, 75, 9, 9, 8);
    make(18, VEL_TYPE_CHAIN, 250, 150, 20, 20);
    make(19, VEL_TYPE_MENU, 290, 150, 20, 20);
    click_on(17);
    for (const uint32_t number : {15U, 16U, 13U, 18U, 19U})
        EXPECT_EQ(wait_for_click(number), number);
    EXPECT_EQ(wait([] { push_type(SDL_QUIT); }), 0U);
}

TEST_F(Loops, tab_goes_round_both_ways_through_what_is_visible) {
    make(17, VEL_TYPE_TEXT, 75, 75, 5, 5, 11).editable = 1;
    make_field(18, 300, 100, 5, 5, 8); // outside of the window
    vel_draw_all_objects(&ctx, 0, 0);
    std::vector<uint32_t> order;
    using Case = std::pair<uint32_t, int>;
    for (const auto &[from, modifiers] :
         {Case(0, 0), Case(17, 0), Case(12, 0), Case(13, 0), Case(17, 1), Case(13, 2), Case(12, 1),
          Case(0, 1), Case(18, 2)}) {
        ctx.cursor_object = from;
        test::updates().clear();
        push_key(SDLK_TAB, modifiers);
        EXPECT_EQ(wait_for_click(10), 10U);
        EXPECT_EQ(test::updates(), test::Names{"20,60 120x100"});
        order.push_back(ctx.cursor_object);
    }
    EXPECT_EQ(order, (std::vector<uint32_t>{17, 12, 13, 17, 13, 12, 17, 13, 13}));
    EXPECT_EQ(ctx.key_code, 0U);
    objects[8].editable = 1; // the window itself comes first
    ctx.cursor_object = 13;
    push_key(SDLK_TAB);
    wait_for_click(10);
    EXPECT_EQ(ctx.cursor_object, 8U);
}

TEST_F(Loops, frame_buttons_work_while_waiting) {
    press_on(VEL_BUTTON_WIDTH_MORE);
    EXPECT_EQ(wait([this] { release(5, 5), release_on(10); }), 10U);
    EXPECT_EQ(objects[8].width, 124U);
    // Held, it repeats after 400 ms and then every 50, until it is let go.
    const auto begun = std::chrono::steady_clock::now();
    press_on(VEL_BUTTON_WIDTH_LESS);
    ctx.idle_hook = [](vel_context *c) {
        if (c->objects[8].width > 108) return;
        c->idle_hook = nullptr;
        release(5, 5), release(45, 80);
    };
    EXPECT_EQ(vel_wait_for_object(&ctx), 10U);
    EXPECT_EQ(objects[8].width, 108U);
    EXPECT_GE(std::chrono::steady_clock::now() - begun, std::chrono::milliseconds(499));
    release_on(VEL_BUTTON_MODE);
    release_on(VEL_BUTTON_CLOSE);
    EXPECT_EQ(vel_wait_for_object(&ctx), 7U); // the last window is closed
    EXPECT_EQ(ctx.frame_mode, VEL_MODE_SCROLL);
}

} // namespace
