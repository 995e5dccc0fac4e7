// Pull-down menus: the pointer is moved on the dummy display, step by step.
#include "support.h"

#include <functional>

namespace {

using test::Form;

// Menu 8 at 100, 60, of 60 x 61 pixels, with entries 9, 10 and 11 of 20 pixels' height.
class Menus : public Form {
protected:
    Menus() {
        SDL_FreeSurface(ctx.screen);
        SDL_Init(SDL_INIT_VIDEO);
        ctx.screen = SDL_SetVideoMode(320, 200, 32, SDL_SWSURFACE);
        make(8, VEL_TYPE_MENU, 100, 60, 60, 61).hidden = 1;
        for (uint32_t k = 0; k < 3; ++k) {
            vel_object &o =
                make(9 + k, VEL_TYPE_LABEL, 100, 60 + 20 * static_cast<int>(k), 60, 20, 8);
            o.fill_r = 200, o.fill_g = 21, o.fill_b = 20;
        }
        ctx.application_a[0] = this;
        ctx.idle_hook = [](vel_context *c) { static_cast<Menus *>(c->application_a[0])->step(); };
    }
    ~Menus() override {
        SDL_Quit();
        ctx.screen = nullptr;
    }
    static void point(int x, int y) {
        SDL_WarpMouse(static_cast<Uint16>(x), static_cast<Uint16>(y));
    }
    static void release(int x, int y, Uint8 button = SDL_BUTTON_LEFT) {
        SDL_Event event{};
        event.button.type = SDL_MOUSEBUTTONUP;
        event.button.button = button;
        event.button.state = SDL_RELEASED;
        event.button.x = static_cast<Uint16>(x);
        event.button.y = static_cast<Uint16>(y);
        SDL_PushEvent(&event);
    }
    // Does the next step whenever the menu rests.
    void step() {
        if (next_ < steps_.size()) steps_[next_++]();
    }
    uint32_t run(uint32_t mode, std::vector<std::function<void()>> steps) {
        steps_ = std::move(steps);
        next_ = 0;
        const uint32_t chosen = vel_move_out_menu(&ctx, 8, mode);
        EXPECT_EQ(next_, steps_.size());
        EXPECT_EQ(objects[8].hidden, 1U);
        for (uint32_t k = 9; k < 12; ++k) {
            EXPECT_EQ(std::tuple(objects[k].fill_r, objects[k].fill_g, objects[k].fill_b),
                      std::tuple(200U, 21U, 20U));
        }
        return chosen;
    }

    std::vector<std::function<void()>> steps_;
    std::size_t next_ = 0;
};

TEST_F(Menus, the_entry_released_on_is_chosen) {
    point(130, 70);
    EXPECT_EQ(run(0, {[] { point(130, 90); }, [] { release(130, 90); }}), 10U);
    point(130, 70);
    EXPECT_EQ(run(0, {[] { release(130, 70, SDL_BUTTON_RIGHT); }, [] { release(130, 90); }}), 10U);
    point(130, 70);
    EXPECT_EQ(run(0, {[] { release(130, 80); }}), 0U); // between two entries
    point(130, 70);
    objects[10].hidden = 1;
    objects[10].width = 0; // or drawing would bring it back
    EXPECT_EQ(run(0, {[] { release(130, 90); }}), 0U);
}

TEST_F(Menus, the_entry_under_the_pointer_is_darkened) {
    point(130, 70);
    const auto colours = [this](uint32_t k) {
        return std::array{objects[k].fill_r, objects[k].fill_g, objects[k].fill_b};
    };
    using Colours = std::array<uint32_t, 3>;
    run(0, {[&] {
                EXPECT_EQ(objects[8].hidden, 0U);
                EXPECT_EQ(colours(9), (Colours{180, 1, 20})); // 20 is too dark to be lowered
                EXPECT_EQ(at(130, 70), (vel_colour{180, 1, 20}));
                EXPECT_EQ(at(130, 90), (vel_colour{200, 21, 20}));
                point(130, 90);
            },
            [] {}, // the motion event
            [&] {
                EXPECT_EQ(colours(9), (Colours{200, 21, 20}));
                EXPECT_EQ(colours(10), (Colours{180, 1, 20}));
                EXPECT_EQ(at(130, 70), (vel_colour{200, 21, 20}));
                point(130, 80); // on no entry: the last one stays dark
            },
            [] {},
            [&] {
                EXPECT_EQ(colours(10), (Colours{180, 1, 20}));
            },
            [] { point(5, 5); }});
    EXPECT_EQ(pixels({200, 21, 20}), "");
}

TEST_F(Menus, leaving_closes_in_every_direction) {
    for (const auto &[x, y] : {std::pair{99, 70}, {160, 70}, {130, 121}, {130, 59}}) {
        point(130, 70);
        EXPECT_EQ(run(0, {[x = x, y = y] { point(x, y); }}), 0U) << x << "," << y;
    }
    for (const auto &[x, y] : {std::pair{100, 70}, {159, 70}, {130, 120}, {130, 60}}) {
        point(130, 70);
        EXPECT_EQ(run(0, {[x = x, y = y] { point(x, y); }, [] {}, [] { release(130, 90); }}), 10U);
    }
}

TEST_F(Menus, below_a_title_the_pointer_may_start_above) {
    point(130, 50);
    EXPECT_EQ(run(0, {}), 0U); // without a title it may not
    const auto rest = [] {};
    point(130, 50);
    EXPECT_EQ(run(1, {[] { point(130, 40); }, rest, [] { point(130, 59); }, rest,
                      [] { point(130, 70); }, rest, [] { point(130, 50); }}),
              0U);
    point(130, 50);
    EXPECT_EQ(run(1, {[] { point(99, 50); }}), 0U); // but not beside
}

TEST_F(Menus, a_pointer_that_leaves_in_the_same_pass_takes_the_choice_back) {
    point(130, 70);
    EXPECT_EQ(run(0, {[] {
                      release(130, 70);
                      point(5, 5); // the state is new before the release is fetched
                  }}),
              0U);
}

TEST_F(Menus, without_entries_only_the_pointer_closes) {
    objects[8].dep_objs[0] = 0;
    point(130, 70);
    EXPECT_EQ(run(1, {[] { release(130, 70); }, [] { release(130, 70); }, [] { point(5, 5); }}),
              0U);
}

TEST_F(Menus, beyond_the_screen_menus_are_cut) {
    objects[8].x = 300;
    point(310, 70);
    EXPECT_EQ(run(0, {[] { point(318, 70); }}), 0U); // 300 + 18 - 1 is the last column
    objects[8].x = 400;
    point(10, 70);
    EXPECT_EQ(run(0, {}), 0U);
    // Left of the screen the unsigned right edge counts as cut, too: the menu ends at 317.
    objects[8].x = static_cast<uint32_t>(-90);
    EXPECT_EQ(run(0, {[] { point(318, 70); }}), 0U);
}

TEST_F(Menus, the_filter_ends_a_menu) {
    ctx.event_filter = [](vel_context *, SDL_Event *e) -> uint32_t {
        return e->type == SDL_QUIT ? VEL_FILTER_END_LOOP : VEL_FILTER_PASS;
    };
    point(130, 70);
    EXPECT_EQ(run(0, {[] {
                      SDL_Event event{};
                      event.type = SDL_QUIT;
                      SDL_PushEvent(&event);
                  }}),
              0U);
}

// Title 13 at 90, 20, of 40 x 20 pixels, opens menu 8; label 14 at 200, 150 does not.
class Titles : public Menus {
protected:
    Titles() {
        make(13, VEL_TYPE_LABEL, 90, 20, 40, 20).max_chars = 8;
        make(14, VEL_TYPE_LABEL, 200, 150, 40, 20).max_chars = 13; // a label, no menu
    }
    static void press(int x, int y) {
        point(x, y);
        SDL_Event event{};
        event.button.type = SDL_MOUSEBUTTONDOWN;
        event.button.button = SDL_BUTTON_LEFT;
        event.button.state = SDL_PRESSED;
        event.button.x = static_cast<Uint16>(x);
        event.button.y = static_cast<Uint16>(y);
        SDL_PushEvent(&event);
    }
    uint32_t wait(std::vector<std::function<void()>> steps) {
        steps_ = std::move(steps);
        next_ = 0;
        const uint32_t result = vel_wait_for_object(&ctx);
        EXPECT_EQ(next_, steps_.size());
        return result;
    }
    std::function<void()> expect_open(bool open) {
        return [this, open] { EXPECT_EQ(objects[8].hidden, open ? 0U : 1U) << next_; };
    }
};

TEST_F(Titles, a_drag_from_the_title_chooses_an_entry) {
    const auto rest = [] {};
    press(110, 30);
    EXPECT_EQ(wait({expect_open(true), [] { point(110, 70); }, rest, [] { release(110, 70); }}),
              10U);
    EXPECT_EQ(ctx.event.type, SDL_NOEVENT);
}

TEST_F(Titles, clicks_open_and_close_the_menu) {
    const auto click = [] { press(110, 30), release(110, 30); };
    const auto rest = [] {};
    // Opened by a click, an entry is chosen by another.
    click();
    EXPECT_EQ(wait({expect_open(true), [] { point(110, 50); }, rest,
                    [] { press(110, 50), release(110, 50); }}),
              9U);
    // The second click on the title closes it, the third opens it again.
    click();
    EXPECT_EQ(wait({expect_open(true), click, expect_open(false), click, expect_open(true),
                    [] { point(110, 70); }, rest, [] { release(110, 70); }}),
              10U);
    // A release elsewhere is no click on the title.
    press(110, 30);
    EXPECT_EQ(wait({expect_open(true), [] { release(220, 30); }, expect_open(false),
                    [] { release(220, 160); }}),
              14U);
}

TEST_F(Titles, the_menu_hangs_below_its_title_on_the_screen) {
    const struct {
        int title, menu, before;
    } cases[] = {{90, 90, 100}, {5, 5, 90},    {259, 259, 5}, {260, 260, 259},
                 {261, 260, 0}, {310, 260, 7}, {-10, 0, 300}, {90, 90, -200}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.title);
        objects[13].x = static_cast<uint32_t>(c.title);
        const uint32_t shift = static_cast<uint32_t>(c.before) - objects[8].x;
        objects[8].x += shift;
        for (uint32_t k = 9; k < 12; ++k) objects[k].x += shift;
        press(std::max(c.title + 1, 1), 30);
        wait({[] { release(220, 30); }, [] { release(220, 160); }});
        EXPECT_EQ(std::tuple(objects[8].x, objects[8].y), std::tuple(c.menu, 40U));
        EXPECT_EQ(std::tuple(objects[10].x, objects[10].y), std::tuple(c.menu, 60U));
    }
}

TEST_F(Titles, what_the_menu_covered_is_drawn_again) {
    press(110, 30);
    vel_draw_all_objects(&ctx, 0, 0);
    make(15, VEL_TYPE_LABEL, 90, 45, 40, 20).fill_g = 99;
    EXPECT_EQ(wait({[this] { EXPECT_EQ(at(100, 55).g, 21); }, [] { point(300, 30); }, [] {},
                    expect_open(false), [] { release(220, 160); }}),
              14U);
    EXPECT_EQ(at(100, 55), (vel_colour{255, 99, 0}));
}

TEST_F(Titles, only_labels_and_pictures_in_front_open_what_is_a_menu) {
    const struct {
        uint32_t type, named;
        bool opens;
    } cases[] = {
        {VEL_TYPE_LABEL, 8, true},          {VEL_TYPE_PICTURE_UNLOADED, 8, true},
        {VEL_TYPE_PICTURE, 8, true},        {VEL_TYPE_ENTRY, 8, false},
        {VEL_TYPE_MENU, 8, false},          {VEL_TYPE_LABEL, 0, false},
        {VEL_TYPE_LABEL, 14, false},        {VEL_TYPE_LABEL, 20, false}, // behind the table
        {VEL_TYPE_LABEL, 0xFFFFFFFF, false}};
    for (const auto &c : cases) {
        SCOPED_TRACE(std::to_string(c.type) + " " + std::to_string(c.named));
        objects[13].type = c.type;
        objects[13].max_chars = c.named;
        press(110, 30);
        EXPECT_EQ(
            wait({expect_open(c.opens), [] { point(300, 30); }, [] {}, [] { release(220, 160); }}),
            14U);
    }
    // In a window behind the active one a title is not reached.
    make(15, VEL_TYPE_WINDOW, 30, 80, 100, 60).hidden = 1;
    make(16, VEL_TYPE_LABEL, 40, 90, 40, 20, 15).max_chars = 8;
    make(17, VEL_TYPE_WINDOW, 150, 30, 30, 30).hidden = 1;
    for (const uint32_t window : {15U, 17U}) {
        ctx.window_to_activate = window;
        vel_activate_window(&ctx);
    }
    press(60, 100);
    wait({expect_open(false), [] { release(60, 100); },
          [this] { EXPECT_EQ(ctx.active_window, 15U); }, [] { press(60, 100); }, expect_open(true),
          [] { point(300, 30); }, [] {}, [] { release(220, 160); }});
}

TEST_F(Titles, the_filter_that_ends_the_menu_ends_the_wait) {
    ctx.event_filter = [](vel_context *, SDL_Event *e) -> uint32_t {
        return e->type == SDL_QUIT ? VEL_FILTER_END_LOOP : VEL_FILTER_PASS;
    };
    const auto end = [] {
        SDL_Event event{};
        event.type = SDL_QUIT;
        SDL_PushEvent(&event);
    };
    press(110, 30);
    EXPECT_EQ(wait({expect_open(true), end}), 0U);
    press(110, 30), release(110, 30); // in the menu that was opened again
    EXPECT_EQ(wait({expect_open(true), end}), 0U);
    EXPECT_EQ(objects[8].hidden, 1U);
}

} // namespace
