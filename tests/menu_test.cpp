// Pull-down menus: the pointer is moved on the dummy display, step by step.
#include "support.h"

namespace {

using test::Step;
using test::Steps;

const Step rest = [] {};

// Menu 8 at 100, 60, of 60 x 61 pixels, with entries 9, 10 and 11 of 20 pixels' height. Title 13 at
// 90, 20, of 40 x 20 pixels, opens it; label 14 at 200, 150 is none.
class Menus : public test::Form {
protected:
    Menus() {
        make(8, VEL_TYPE_MENU, 100, 60, 60, 61).hidden = 1;
        for (const int k : {9, 10, 11})
            set_fill(make(test::u32(k), VEL_TYPE_LABEL, 100, 20 * k - 120, 60, 20, 8), light);
        make(13, VEL_TYPE_LABEL, 90, 20, 40, 20).max_chars = 8;
        make(14, VEL_TYPE_LABEL, 200, 150, 40, 20).max_chars = 13;
        test::Form::point(130, 70);
    }
    static Step point(int x, int y) {
        return [=] { test::Form::point(x, y); };
    }
    static Step let_go(int x, int y) {
        return [=] { release(x, y); };
    }
    static void press_title(int x = 110) {
        test::Form::point(x, 30);
        press(x, 30);
    }
    static void click_title() {
        press_title();
        release(110, 30);
    }
    // In the loop that waits for an object, or in that of the menu alone.
    uint32_t wait(const Steps &steps, uint32_t mode = 2) {
        set_steps(steps);
        const uint32_t result =
            mode == 2 ? vel_wait_for_object(&ctx) : vel_move_out_menu(&ctx, 8, mode);
        EXPECT_TRUE(all_steps_done());
        EXPECT_EQ(objects[8].hidden, 1U);
        for (uint32_t k = 9; k < 12; ++k) EXPECT_EQ(objects[k].fill_r, light.r);
        return result;
    }
    uint32_t run(uint32_t mode, const Steps &steps) { return wait(steps, mode); }
    Step expect_open(bool open) {
        return [this, open] { EXPECT_EQ(objects[8].hidden, open ? 0U : 1U); };
    }
    static constexpr vel_colour light{200, 21, 20},
        dark{180, 1, 20}; // 20 is too dark to be lowered
};

TEST_F(Menus, the_entry_released_on_is_chosen) {
    EXPECT_EQ(run(0, {point(130, 90), let_go(130, 90)}), 10U);
    EXPECT_EQ(ctx.event.type, SDL_NOEVENT);
    EXPECT_EQ(run(0, {[] { push_mouse(false, 130, 70, SDL_BUTTON_RIGHT); }, let_go(130, 70)}), 9U);
    EXPECT_EQ(run(0, {let_go(130, 80)}), 0U); // between two entries
    // A pointer that leaves in the same pass takes the choice back.
    EXPECT_EQ(run(0, {[] { release(130, 70), test::Form::point(5, 5); }}), 0U);
    test::Form::point(130, 70);
    objects[8].dep_objs[0] = 0; // without entries only the pointer closes
    EXPECT_EQ(run(1, {let_go(130, 70), let_go(130, 70), point(5, 5)}), 0U);
}

TEST_F(Menus, the_entry_under_the_pointer_is_darkened) {
    const auto expect_colours = [this](vel_colour of_9, vel_colour of_10) {
        return [=, this] {
            EXPECT_EQ(at(150, 70), of_9);
            EXPECT_EQ(at(150, 90), of_10);
        };
    };
    test::updates().clear();
    run(0,
        {expect_colours(dark, light), point(130, 90), rest, expect_colours(light, dark),
         point(130, 80), rest, expect_colours(light, dark), // on no entry the last one stays dark
         point(131, 90), rest, point(5, 5)});
    EXPECT_EQ(test::updates(), test::Names(3, "100,60 60x61")); // opened, and for each change
    EXPECT_EQ(pixels(light), "");
}

TEST_F(Menus, leaving_closes_in_every_direction) {
    using Case = std::array<int, 4>; // the last pixel on the menu and the first outside
    for (const auto &[x, y, out_x, out_y] :
         {Case{100, 70, 99, 70}, {159, 70, 160, 70}, {130, 120, 130, 121}, {130, 60, 130, 59}}) {
        test::Form::point(130, 70);
        EXPECT_EQ(run(0, {point(x, y), rest, point(out_x, out_y)}), 0U) << x << "," << y;
    }
    // Below a title the pointer may start above, but not at the side.
    test::Form::point(130, 50);
    EXPECT_EQ(run(1, {point(130, 40), rest, point(130, 70), rest, point(130, 50)}), 0U);
    EXPECT_EQ(run(1, {point(99, 50)}), 0U);
}

TEST_F(Menus, a_drag_from_the_title_or_two_clicks_choose_an_entry) {
    // The second click on the title closes the menu, the third opens it again.
    click_title();
    EXPECT_EQ(wait({expect_open(true), click_title, expect_open(false), click_title,
                    expect_open(true), point(110, 70), rest, let_go(110, 70)}),
              10U);
    // A release elsewhere is no click on the title. What the menu covered is drawn again.
    press_title();
    vel_draw_all_objects(&ctx, 0, 0);
    set_fill(make(15, VEL_TYPE_LABEL, 90, 45, 40, 20), test::green);
    EXPECT_EQ(wait({[this] { EXPECT_EQ(at(100, 55), light); }, let_go(220, 30), expect_open(false),
                    let_go(220, 160)}),
              14U);
    EXPECT_EQ(at(100, 55), test::green);
    end_loops_on_quit();
    press_title();
    EXPECT_EQ(wait({[] { push_type(SDL_QUIT); }}), 0U);
}

TEST_F(Menus, a_menu_hangs_below_its_title_on_the_screen) {
    using Case = std::tuple<int, int, int>;
    for (const auto &[title, menu, before] :
         {Case(90, 90, 100), Case(259, 259, 5), Case(261, 260, 0), Case(-10, 0, 300),
          Case(90, 90, -200)}) {
        objects[13].x = test::u32(title);
        for (const uint32_t k : {8U, 9U, 10U, 11U}) objects[k].x = test::u32(before);
        press_title(std::max(title + 1, 1));
        wait({let_go(220, 30), let_go(220, 160)});
        EXPECT_EQ(std::tuple(objects[8].x, objects[8].y, objects[10].x, objects[10].y),
                  std::tuple(menu, 40U, menu, 60U))
            << title;
    }
}

} // namespace
