// What objects show of their state, as pixels, and what the wheel scrolls.
#include "support.h"

#include "model/traits.h"

namespace {

using test::Folder;
using test::Step;
using test::u32;

// Window 8 is active, with answers 10, 11 and 12 (white) and label 13, which is none.
class States : public test::Form {
protected:
    States() {
        ctx.comfort = VEL_COMFORT_STATES | VEL_COMFORT_WHEEL;
        make_frame_buttons();
        set_fill(make_window(8, 20, 60, 200, 120), {128, 128, 128});
        for (const uint32_t k : {10U, 11U, 12U, 13U}) {
            set_fill(make(k, VEL_TYPE_LABEL, 50 * static_cast<int>(k) - 470, 70, 40, 20, 8),
                     normal);
            objects[k].max_chars = 0;
            if (k < 13) vel_set_answer(&ctx, k, VEL_ANSWER_PLAIN);
        }
        set_fill(objects[12], test::white);
        open(8);
        vel_draw_all_objects(&ctx, 1, 0);
    }
    static Step point_at(int x, int y) {
        return [=] { move_pointer(x, y); };
    }
    // The body of an object, lighter (1), as ever (0) or darker (-1).
    int tint(uint32_t number) const {
        const vel_object &o = objects[number];
        const vel_colour c = at(static_cast<int>(o.x + 5), static_cast<int>(o.y + 5));
        const int more = c.r + c.g + c.b - static_cast<int>(o.fill_r + o.fill_g + o.fill_b);
        return more == 0 ? 0 : more / std::abs(more);
    }
    Step expect_tints(const std::array<int, 4> &wanted) {
        return [=, this] {
            for (uint32_t k = 0; k < 4; ++k) EXPECT_EQ(tint(10 + k), wanted[k]) << 10 + k;
        };
    }
    // Whether a line of two pixels' width runs round inside an object's outline.
    bool has_ring(uint32_t number) const {
        const vel_object &o = objects[number];
        const int x = static_cast<int>(o.x) + 1, y = static_cast<int>(o.y) + 1;
        const int right = x + static_cast<int>(o.width) - 3,
                  bottom = y + static_cast<int>(o.height) - 3;
        bool is_drawn = !(at(x - 1, y - 1) == at(x + 5, y + 5));
        for (int k = x; k <= right; ++k)
            is_drawn &= at(k, y) == test::blue && at(k, bottom) == test::blue;
        for (int k = y; k <= bottom; ++k)
            is_drawn &= at(x, k) == test::blue && at(right, k) == test::blue;
        return is_drawn;
    }
    static constexpr vel_colour normal{100, 20, 20};
};

TEST_F(States, answers_show_the_pointer_and_its_press) {
    test::updates().clear();
    const auto forget = [this] { ctx.comfort = 0, vel_draw_all_objects(&ctx, 0, 0); };
    set_steps({point_at(40, 80), expect_tints({1, 0, 0, 0}), point_at(41, 81), point_at(90, 80),
               expect_tints({0, 1, 0, 0}), point_at(140, 80), expect_tints({0, 0, -1, 0}),
               point_at(190, 80), expect_tints({0, 0, 0, 0}), [] { press(40, 80); },
               expect_tints({-1, 0, 0, 0}), point_at(90, 80), expect_tints({0, 1, 0, 0}),
               point_at(40, 80), expect_tints({-1, 0, 0, 0}), [] { release(15, 190); },
               expect_tints({0, 0, 0, 0}), point_at(40, 80), [] { release(40, 80); }});
    EXPECT_EQ(vel_wait_for_object(&ctx), 10U);
    expect_tints({0, 0, 0, 0})(); // the loop leaves nothing
    // Drawn for each change alone: 4 times the pointer went on, then come a press, 4 more changes,
    // and the end.
    EXPECT_EQ(test::updates(), test::Names(10, "20,60 200x120"));
    set_steps({point_at(190, 80), expect_tints({0, 0, 0, 1}), [] { release(190, 80); }});
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 13), 13U); // what is waited for is an answer
    set_steps({point_at(40, 80), forget, expect_tints({0, 0, 0, 0}), [] { release(40, 80); }});
    EXPECT_EQ(vel_wait_for_object(&ctx), 10U);
}

TEST_F(States, the_focus_has_a_ring) {
    make_field(14, 30, 100, 60, 20, 8), make_field(15, 240, 100, 60, 20, 0);
    make(16, VEL_TYPE_PICTURE, 100, 100, 30, 30, 8).image = test::make_surface(30, 30);
    for (const uint32_t focus : {10U, 14U, 15U, 16U, VEL_BUTTON_CLOSE + 0U, 0U}) {
        ctx.cursor_object = focus;
        vel_draw_all_objects(&ctx, 0, 0);
        for (const uint32_t k : {7U, 10U, 11U, 14U, 15U, 16U})
            EXPECT_EQ(has_ring(k), k == focus) << focus << " " << k;
    }
    objects[13].x = 200; // cut by the window
    ctx.cursor_object = 13;
    vel_draw_all_objects(&ctx, 0, 0);
    EXPECT_EQ(at(218, 80), test::blue);
    EXPECT_EQ(at(222, 80), test::white);
    ctx.comfort = 0, ctx.cursor_object = 10;
    vel_draw_all_objects(&ctx, 0, 0);
    EXPECT_FALSE(has_ring(10));
}

TEST_F(States, disabled_objects_are_pale_and_let_clicks_through) {
    ctx.comfort = 0;
    set_fill(objects[10], test::red), set_label(objects[10], "MM");
    make(14, VEL_TYPE_PICTURE, 30, 100, 30, 30, 8).image = test::make_surface(30, 30);
    vel_draw_all_objects(&ctx, 1, 0);
    EXPECT_NE(pixels(test::blue), "");
    for (const uint32_t disabled : {10U, 14U}) vel_set_enabled(&ctx, disabled, 0);
    vel_draw_all_objects(&ctx, 0, 0);
    EXPECT_EQ(pixels(test::blue), "");
    EXPECT_NE(pixels({127, 0, 128}), "");             // half of the body
    EXPECT_EQ(at(40, 110), (vel_colour{64, 64, 64})); // half of the window
    EXPECT_EQ(std::tuple(vel_test_all_objects(&ctx, 40, 80), vel_test_all_objects(&ctx, 40, 110)),
              std::tuple(8U, 8U));
    vel_set_enabled(&ctx, 10, 1), vel_set_enabled(&ctx, 8, 0); // all that is in it
    vel_draw_all_objects(&ctx, 0, 0);
    EXPECT_EQ(pixels(test::blue), "");
}

TEST_F(States, the_access_key_is_underlined) {
    vel_object &o = objects[13];
    o.x = 30, o.y = 140, o.width = 100;
    set_label(o, "xVan");
    vel_set_access_key(&ctx, 13, 'v');
    const auto box = [&] {
        vel_draw_all_objects(&ctx, 1, 0);
        const int row = static_cast<int>(o.y + o.margin_top) + TTF_FontAscent(ctx.font) + 1;
        std::string found;
        for (int x = 0; x < 320; ++x)
            if (at(x, row) == test::blue) found += std::to_string(x) + " ";
        return found;
    };
    EXPECT_EQ(box(), ""); // not without the flag
    ctx.comfort |= VEL_COMFORT_KEYBOARD;
    const uint32_t left = o.x + o.margin_left;
    std::string wanted;
    for (uint32_t x = left + width_of("x"); x < left + width_of("xV"); ++x)
        wanted += std::to_string(x) + " ";
    EXPECT_EQ(box(), wanted);
    o.x = 220 - o.margin_left - width_of("x") - 3; // 3 of its pixels are inside the window
    EXPECT_EQ(box(), "217 218 219 ");
    vel_set_access_key(&ctx, 13, 'q');
    EXPECT_EQ(box(), "");
}

TEST_F(States, the_wheel_scrolls_what_is_under_the_pointer) {
    const auto turn = [this](bool down, int notches, int x, int y) {
        const Uint8 button = down ? SDL_BUTTON_WHEELDOWN : SDL_BUTTON_WHEELUP;
        while (notches-- > 0) push_mouse(true, x, y, button), push_mouse(false, x, y, button);
        push_type(SDL_QUIT);
        EXPECT_EQ(vel_wait_for_object(&ctx), 0U);
    };
    const auto scroll = [](const vel_object &o) { return static_cast<int>(o.scroll_y); };
    vel_object &text = make(14, VEL_TYPE_TEXT, 30, 100, 60, 60, 8);
    text.text_index = 1, text.editable = 1, text.line_width = 300, text.cursor_y = 100;
    set_text(1, "1\n2\n3\n4\n5\n6\n7\n8\n9\n10");
    make(16, VEL_TYPE_LABEL, 120, 100, 8, 60, 8);
    velumo::Traits &bar = velumo::state_of(ctx).traits[16];
    bar.part = velumo::scroll_bar_part, bar.target = 14;
    vel_draw_all_objects(&ctx, 1, 0);
    const int pitch = static_cast<int>(height()), hidden = 10 * pitch - 60;
    using Case = std::tuple<bool, int, int, int>;
    for (const auto &[down, notches, x, wanted] :
         {Case(true, 1, 40, -3 * pitch), Case(true, 20, 40, -hidden),
          Case(false, 1, 122, 3 * pitch - hidden), Case(false, 20, 40, 0)}) { // until all in sight
        turn(down, notches, x, 110);
        EXPECT_EQ(std::tuple(scroll(text), static_cast<int>(text.cursor_y)),
                  std::tuple(wanted, 100 + wanted));
    }
    // A text that fits leaves it to its window, and a window with all in sight to nobody.
    ctx.scroll_step = 10;
    set_text(1, "1");
    vel_draw_all_objects(&ctx, 1, 0);
    turn(true, 3, 40, 110);
    EXPECT_EQ(std::tuple(text.y, scroll(objects[8])), std::tuple(100U, 0));
    text.height = 95; // ends 15 pixels below the window
    make(17, VEL_TYPE_LABEL, 35, 145, 20, 20, 14);
    turn(true, 1, 40, 150); // through both of its masters
    EXPECT_EQ(std::tuple(text.y, text.cursor_y, scroll(objects[8])), std::tuple(90U, 90U, -10));
    turn(false, 1, 100, 150), turn(true, 5, 100, 150);
    SDL_SetModState(KMOD_LSHIFT);
    turn(true, 1, 100, 150); // sideways all is in sight
    text.width = 195;
    turn(true, 1, 100, 150);
    SDL_SetModState(KMOD_NONE);
    EXPECT_EQ(std::tuple(text.x, text.y), std::tuple(25U, 85U));
    // A window in the background scrolls where it is; in a dialog it does not.
    make_window(9, 230, 60, 80, 60), make(15, VEL_TYPE_LABEL, 240, 70, 40, 80, 9);
    open(9), open(8);
    turn(true, 1, 250, 80);
    EXPECT_EQ(std::tuple(objects[15].y, ctx.active_window), std::tuple(60U, 8U));
    push_mouse(true, 250, 80, SDL_BUTTON_WHEELDOWN), release(1, 1), release(85, 66);
    EXPECT_EQ(vel_decide_window(&ctx, 8, 11, 12), 11U);
    open(8);
    ctx.comfort = 0;
    turn(true, 1, 250, 80);
    EXPECT_EQ(objects[15].y, 60U);
}

TEST_F(States, the_wheel_scrolls_lists_by_rows) {
    const Folder folder;
    folder.fill({"a", "b", "c", "d", "e", "f"});
    make(14, VEL_TYPE_LABEL, 30, 100, 100, 40, 8);
    make(15, VEL_TYPE_LABEL, 30, 100, 90, 20, 14), make(16, VEL_TYPE_LABEL, 30, 120, 90, 20, 14);
    EXPECT_EQ(vel_list_directory(&ctx, 14, folder.file("").c_str(), ""), 7);
    using Case = std::pair<Uint8, const char *>;
    for (const auto &[button, first] :
         {Case(SDL_BUTTON_WHEELDOWN, "c"), Case(SDL_BUTTON_WHEELDOWN, "e"),
          Case(SDL_BUTTON_WHEELUP, "b"), Case(SDL_BUTTON_WHEELUP, "../")}) {
        push_mouse(true, 40, 110, button), release(40, 80);
        EXPECT_EQ(vel_wait_for_object(&ctx), 10U);
        EXPECT_STREQ(objects[15].label, first);
    }
}

} // namespace
