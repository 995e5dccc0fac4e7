// The loops on scripted events: hit tests, selections, dialogs, moves, waiting.
#include "support.h"

#include <algorithm>

namespace {

using test::Form;

// The dummy display with two windows, 8 and 9, and buttons, fields and free-standing objects.
class Loops : public Form {
protected:
    Loops() {
        SDL_FreeSurface(ctx.screen);
        SDL_Init(SDL_INIT_VIDEO);
        ctx.screen = SDL_SetVideoMode(320, 200, 32, SDL_SWSURFACE);
        for (uint32_t button = 1; button <= 7; ++button) {
            make(button, VEL_TYPE_LABEL, 0, 0, 16, 16).hidden = 1;
        }
        make(8, VEL_TYPE_WINDOW, 20, 60, 120, 100).hidden = 1;
        make(10, VEL_TYPE_LABEL, 30, 70, 30, 20, 8);
        make(11, VEL_TYPE_LABEL, 70, 70, 30, 20, 8);
        make(12, VEL_TYPE_ENTRY, 30, 100, 100, 20, 8).editable = 1;
        make(13, VEL_TYPE_ENTRY, 30, 130, 100, 20, 8).editable = 1;
        objects[12].max_chars = objects[13].max_chars = 60;
        make(9, VEL_TYPE_WINDOW, 100, 60, 120, 100).hidden = 1;
        make(14, VEL_TYPE_LABEL, 150, 70, 30, 20, 9);
        make(15, VEL_TYPE_PICTURE_UNLOADED, 280, 20, 30, 30);
        make(16, VEL_TYPE_LABEL, 285, 25, 10, 10, 15);
        open(8);
        SDL_Event event;
        while (SDL_PollEvent(&event) != 0) {
        } // what setting the video mode brought
    }
    ~Loops() override {
        SDL_Quit();
        ctx.screen = nullptr;
    }
    void open(uint32_t window) {
        ctx.window_to_activate = window;
        vel_activate_window(&ctx);
    }
    static void push(SDL_Event event) { ASSERT_EQ(SDL_PushEvent(&event), 0); }
    static void push_mouse(bool pressed, int x, int y, Uint8 button = SDL_BUTTON_LEFT) {
        SDL_Event event{};
        event.button.type = pressed ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        event.button.button = button;
        event.button.state = pressed ? SDL_PRESSED : SDL_RELEASED;
        event.button.x = static_cast<Uint16>(x);
        event.button.y = static_cast<Uint16>(y);
        push(event);
    }
    static void release(int x, int y) { push_mouse(false, x, y); }
    // Releases over the middle of an object.
    void release_on(uint32_t number) {
        const vel_object &o = objects[number];
        release(static_cast<int>(o.x + o.width / 2), static_cast<int>(o.y + o.height / 2));
    }
    static void push_key(int symbol, int modifiers = KMOD_NONE) {
        for (const Uint8 type : {Uint8{SDL_KEYDOWN}, Uint8{SDL_KEYUP}}) {
            SDL_Event event{};
            event.type = type;
            event.key.keysym.sym = static_cast<SDLKey>(symbol);
            event.key.keysym.mod = static_cast<SDLMod>(modifiers);
            push(event);
        }
    }
    static void push_type(Uint8 type) {
        SDL_Event event{};
        event.type = type;
        push(event);
    }
    std::string label(uint32_t number) const { return objects[number].label; }
};

TEST_F(Loops, hits_are_found_in_their_order) {
    const struct {
        int x, y;
        uint32_t hit;
    } cases[] = {
        {35, 75, 10},                 // dependent of the active window
        {30, 75, 8},   {31, 75, 10},  // its outermost column belongs to the window
        {59, 75, 10},  {60, 75, 8},   // right edge 60 is outside
        {155, 75, 9},                 // a window behind gives only itself
        {110, 75, 8},                 // where both lie, the active one
        {290, 30, 16}, {300, 45, 15}, // free-standing objects and theirs
        {20, 100, 0},  {21, 100, 8},  {5, 5, 0}, {37, 44, 1}, // frame buttons, 24 above the window
    };
    objects[9].hidden = 0;
    for (const auto &c : cases) {
        const auto x = static_cast<uint32_t>(c.x), y = static_cast<uint32_t>(c.y);
        EXPECT_EQ(vel_test_all_objects(&ctx, x, y), c.hit) << c.x << "," << c.y;
    }
    objects[8].hidden = 1; // the active window is hit all the same
    EXPECT_EQ(vel_test_all_objects(&ctx, 35, 75), 10U);
    objects[8].hidden = 0;
    ctx.active_window = 0; // then the higher number wins where windows overlap
    EXPECT_EQ(vel_test_all_objects(&ctx, 110, 75), 9U);
    EXPECT_EQ(vel_test_all_objects(&ctx, 35, 75), 8U);
}

TEST_F(Loops, dependents_that_cannot_be_hit_hide_nothing) {
    make(17, VEL_TYPE_LABEL, 30, 70, 30, 20, 10); // over all of 10
    const struct {
        uint32_t hidden, width, style, hit;
    } cases[] = {{0, 30, 0, 17}, {1, 30, 0, 10}, {0, 0, 0, 10},
                 {0, 30, 2, 10}, {0, 30, 3, 10}, {0, 30, 5, 17}};
    for (const auto &c : cases) {
        objects[17].hidden = c.hidden;
        objects[17].width = c.width;
        objects[17].border_style = c.style;
        EXPECT_EQ(vel_test_all_objects(&ctx, 40, 80), c.hit) << c.style;
    }
    // A master that is transparent hides its dependents as well.
    objects[10].border_style = 2;
    EXPECT_EQ(vel_test_all_objects(&ctx, 40, 80), 8U);
    // Beyond its master a dependent is cut away.
    objects[11].width = 300;
    EXPECT_EQ(vel_in_object(&ctx, 11, 139, 80), 1U);
    EXPECT_EQ(vel_in_object(&ctx, 11, 140, 80), 0U);
}

TEST_F(Loops, only_what_hangs_on_a_master_is_found_below_it) {
    make(17, VEL_TYPE_LABEL, 30, 70, 30, 20, 8);  // over all of 10, but behind it in the list
    make(18, VEL_TYPE_LABEL, 32, 72, 10, 10, 10); // the innermost
    const struct {
        uint32_t master, x, y, hit;
    } cases[] = {{8, 35, 75, 18}, {8, 50, 85, 10}, {8, 25, 65, 0}, {10, 35, 75, 18},
                 {10, 50, 85, 0}, {18, 35, 75, 0}, {9, 35, 75, 0}};
    for (const auto &c : cases) {
        EXPECT_EQ(vel_test_dep_objs(&ctx, c.master, c.x, c.y), c.hit) << c.master << " at " << c.x;
    }
}

TEST_F(Loops, cursors_are_placed_at_the_margins_once) {
    set_margins(objects[8], 4);
    set_margins(objects[12], 3);
    make(17, VEL_TYPE_ENTRY, 40, 80, 9, 9, 10).editable = 1; // deeper
    objects[13].editable = 0;
    const auto cursor = [this](uint32_t number) {
        return std::to_string(objects[number].cursor_x) + "," +
               std::to_string(objects[number].cursor_y);
    };
    const auto forget = [this] {
        for (const uint32_t number : {8, 12, 13, 17}) {
            objects[number].cursor_x = objects[number].cursor_y = 0;
        }
    };
    objects[8].editable = 1;
    forget();
    vel_initiate_cursor_dep_objs(&ctx, 8);
    EXPECT_EQ(cursor(8) + " " + cursor(12) + " " + cursor(13) + " " + cursor(17),
              "0,0 33,103 0,0 40,80");
    forget();
    objects[12].cursor_y = 1; // was placed before
    vel_initiate_cursor_win(&ctx, 8);
    EXPECT_EQ(cursor(8) + " " + cursor(12) + " " + cursor(13) + " " + cursor(17),
              "24,64 0,1 0,0 40,80");
}

TEST_F(Loops, selections_end_at_their_stops_and_at_the_close_button) {
    EXPECT_EQ(vel_get_mouse_selection(&ctx, 0, 10), 0U); // no event is needed
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 0), 0U);
    push_mouse(true, 40, 80);
    push_mouse(false, 40, 80, SDL_BUTTON_RIGHT);
    push_type(SDL_QUIT);
    release_on(11);
    release(5, 5);
    release_on(10);
    EXPECT_EQ(vel_get_mouse_selection(&ctx, 10, 14), 10U);
    EXPECT_EQ(ctx.event.type, SDL_NOEVENT);
    release_on(10);
    release_on(11);
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 11), 11U);
    release_on(7);
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 11), 7U);
}

TEST_F(Loops, keys_go_to_the_cursor_object_meanwhile) {
    push_key('a', KMOD_LSHIFT);
    push_key(252);
    push_key('3');
    release_on(10);
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 10), 10U);
    EXPECT_EQ(label(12), "A\xFC"
                         "3");
}

TEST_F(Loops, a_flood_of_events_is_handled_without_loss) {
    int sent = 0;
    ctx.application_a[0] = &sent;
    ctx.idle_hook = [](vel_context *c) {
        int &count = *static_cast<int *>(c->application_a[0]);
        for (int k = 0; k < 50 && count < 10000; ++k, ++count) {
            if (count % 100 == 99)
                push_key(SDLK_BACKSPACE);
            else
                push_type(SDL_MOUSEMOTION);
        }
        if (count == 10000) release(45, 80);
    };
    std::strcpy(objects[12].label, std::string(64, 'x').c_str());
    for (int k = 0; k < 36; ++k) std::strcat(objects[13].label, "x");
    objects[12].cursor_column = 64;
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 10), 10U);
    EXPECT_EQ(sent, 10000);
    EXPECT_EQ(label(12), ""); // 100 deletions came for 64 characters
}

TEST_F(Loops, the_filter_sees_drops_and_ends) {
    ctx.event_filter = [](vel_context *, SDL_Event *event) -> uint32_t {
        if (event->type == SDL_QUIT) return VEL_FILTER_END_LOOP;
        return event->type == SDL_KEYDOWN ? VEL_FILTER_DROP : VEL_FILTER_PASS;
    };
    const auto run = [&](auto loop) {
        push_key('a');
        push_type(SDL_QUIT);
        return loop();
    };
    EXPECT_EQ(run([&] { return vel_get_mouse_selection(&ctx, 10, 11); }), 7U);
    EXPECT_EQ(run([&] { return vel_get_mono_mouse_selection(&ctx, 10); }), 7U);
    EXPECT_EQ(run([&] { return vel_wait_for_object(&ctx); }), 0U);
    EXPECT_EQ(label(12), "");
    EXPECT_EQ(run([&] {
                  vel_move_window(&ctx);
                  return objects[8].x;
              }),
              20U);
}

TEST_F(Loops, dialogs_open_answer_and_close) {
    open(9);
    release_on(11);
    EXPECT_EQ(vel_decide_window(&ctx, 8, 10, 11), 11U);
    EXPECT_EQ(ctx.active_window, 9U);
    EXPECT_EQ(objects[8].hidden, 1U);
    release_on(7); // closed by its frame button, which stands at 124, 36
    ctx.window_to_activate = 0;
    SDL_Event dropped;
    SDL_PollEvent(&dropped);
    release(130, 44);
    EXPECT_EQ(vel_decide_window(&ctx, 8, 10, 11), 7U);
    release_on(10);
    vel_notice_window(&ctx, 8, 10);
    EXPECT_EQ(ctx.window_count, 1U);
    // A dialog within a dialog, opened from the idle hook.
    ctx.idle_hook = [](vel_context *c) {
        c->idle_hook = nullptr;
        release(45, 80);
        vel_notice_window(c, 8, 10);
        vel_draw_all_objects(c, 0, 1);
        release(165, 80);
    };
    make(18, VEL_TYPE_WINDOW, 100, 60, 150, 100).hidden = 1;
    make(19, VEL_TYPE_LABEL, 150, 70, 30, 20, 18);
    EXPECT_EQ(vel_decide_window(&ctx, 18, 19, 19), 19U);
    EXPECT_EQ(ctx.window_count, 1U);
    EXPECT_EQ(ctx.active_window, 9U);
}

TEST_F(Loops, moves_go_to_the_next_press) {
    objects[8].editable = 1;
    objects[8].cursor_x = 25, objects[8].cursor_y = 65;
    const struct {
        int x, y;
        uint32_t moved_x, moved_y;
    } cases[] = {
        {100, 90, 100, 90}, {5, 5, 11, 25}, {10, 24, 11, 25}, {11, 25, 11, 25}, {12, 26, 12, 26}};
    for (const auto &c : cases) {
        const uint32_t dx = c.moved_x - objects[8].x, dy = c.moved_y - objects[8].y;
        const vel_object field = objects[12], window = objects[8];
        release(50, 50);
        push_key('a');
        push_mouse(true, 60, 60, SDL_BUTTON_RIGHT);
        push_mouse(true, c.x, c.y);
        vel_move_window(&ctx);
        EXPECT_EQ(std::tuple(objects[8].x, objects[8].y), std::tuple(c.moved_x, c.moved_y));
        EXPECT_EQ(objects[8].cursor_x, window.cursor_x + dx);
        EXPECT_EQ(objects[12].x, field.x + dx);
        EXPECT_EQ(objects[12].cursor_y, field.cursor_y + dy);
        EXPECT_EQ(objects[1].y, c.moved_y - 24);
        EXPECT_EQ(at(static_cast<int>(c.moved_x) + 2, static_cast<int>(c.moved_y) + 2), test::red);
    }
    EXPECT_EQ(label(12), ""); // the keys before the press are lost
}

TEST_F(Loops, the_release_of_the_press_that_places_a_window_selects_nothing) {
    open(9);
    open(8);
    for (const auto &[x, y] : {std::pair{150, 100}, std::pair{11, 60}}) {
        release_on(VEL_BUTTON_MOVE);
        push_mouse(true, x, y);
        release(x, y); // a corner belongs to no object, so that it would hit window 9
        release_on(16);
        EXPECT_EQ(vel_wait_for_object(&ctx), 16U);
        EXPECT_EQ(std::tuple(objects[8].x, objects[8].y),
                  std::tuple(static_cast<uint32_t>(x), static_cast<uint32_t>(y)));
        EXPECT_EQ(ctx.active_window, 8U);
    }
}

TEST_F(Loops, waiting_does_what_the_user_means) {
    push_key('a');
    push_key(SDLK_TAB);
    push_key('b');
    release_on(12); // the cursor back into the first field
    push_key('c');
    release_on(14); // raises window 9, whose number is higher
    release_on(10);
    EXPECT_EQ(vel_wait_for_object(&ctx), 10U);
    EXPECT_EQ(label(12), "ac");
    EXPECT_EQ(label(13), "b");
    EXPECT_EQ(ctx.active_window, 8U); // 14 is hidden with its window
    open(9);
    release(25, 65); // the corner of window 8: raises it
    release_on(11);
    EXPECT_EQ(vel_wait_for_object(&ctx), 11U);
    EXPECT_EQ(ctx.active_window, 8U);
    for (const uint32_t number : {15U, 16U}) {
        release_on(number);
        EXPECT_EQ(vel_wait_for_object(&ctx), number);
    }
    objects[13].editable = 0; // a field that only shows
    release_on(13);
    EXPECT_EQ(vel_wait_for_object(&ctx), 13U);
    push_type(SDL_QUIT);
    EXPECT_EQ(vel_wait_for_object(&ctx), 0U);
}

TEST_F(Loops, tab_goes_round_both_ways_through_what_is_visible) {
    make(17, VEL_TYPE_TEXT, 75, 75, 5, 5, 11).editable = 1;
    make(18, VEL_TYPE_ENTRY, 300, 100, 5, 5, 8).editable = 1; // outside of the window
    ctx.cursor_object = 0;
    std::vector<uint32_t> order;
    for (const int modifiers : {0, 0, 0, 0, 1, 1, 2}) {
        push_key(SDLK_TAB, modifiers);
        release_on(10);
        EXPECT_EQ(vel_wait_for_object(&ctx), 10U);
        order.push_back(ctx.cursor_object);
    }
    EXPECT_EQ(order, (std::vector<uint32_t>{17, 12, 13, 17, 13, 12, 17}));
    EXPECT_EQ(ctx.key_code, 0U);
}

TEST_F(Loops, frame_buttons_work_while_waiting) {
    const uint32_t width = objects[8].width;
    const auto press_button = [&](uint32_t button) {
        const vel_object &o = objects[button];
        push_mouse(true, static_cast<int>(o.x + 8), static_cast<int>(o.y + 8));
    };
    press_button(VEL_BUTTON_WIDTH_MORE);
    release(5, 5);
    release_on(10);
    EXPECT_EQ(vel_wait_for_object(&ctx), 10U);
    EXPECT_EQ(objects[8].width, width + 4);
    // Held, it repeats until it is let go.
    press_button(VEL_BUTTON_WIDTH_LESS);
    ctx.idle_hook = [](vel_context *c) {
        if (c->objects[8].width > 100) return;
        c->idle_hook = nullptr;
        release(5, 5);
        release(45, 80);
    };
    EXPECT_EQ(vel_wait_for_object(&ctx), 10U);
    EXPECT_EQ(objects[8].width, 100U);
    release_on(VEL_BUTTON_MODE);
    release_on(VEL_BUTTON_CLOSE);
    EXPECT_EQ(vel_wait_for_object(&ctx), 7U); // the last window is closed
    EXPECT_EQ(ctx.frame_mode, VEL_MODE_SCROLL);
}

TEST_F(Loops, an_event_that_was_not_used_is_handled_again) {
    // A key that came without a cursor object is translated once there is one.
    ctx.cursor_object = 0;
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.keysym.sym = SDLK_a;
    push(event);
    ctx.idle_hook = [](vel_context *c) {
        c->cursor_object = 12;
        if (c->key_code == 'a') release(45, 80);
    };
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 10), 10U);
    EXPECT_EQ(ctx.key_code, static_cast<uint32_t>('a'));
}

} // namespace
