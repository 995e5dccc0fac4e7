// Forms by keys alone: the focus, answers, menus, frame buttons, and closing the program.
#include "support.h"

namespace {

using test::Step;
using test::Steps;
using test::u32;

struct Key {
    int symbol, modifiers = KMOD_NONE;
};
using Keys = std::vector<Key>;
constexpr Key tab{SDLK_TAB}, back_tab{SDLK_TAB, KMOD_LSHIFT}, enter{SDLK_RETURN}, space{SDLK_SPACE},
    escape{SDLK_ESCAPE}, f10{SDLK_F10}, up{SDLK_UP}, down{SDLK_DOWN}, left{SDLK_LEFT},
    right{SDLK_RIGHT}, frame{SDLK_SPACE, KMOD_LALT};
constexpr Key alt(char letter) { return {letter, KMOD_RALT}; }

// Window 8 is active: default answer 10, cancel answer 11, fields 12 (key n) and 13, text 14,
// answer 15 (key s). Window 9 has labels 17 and 18. On the desktop are label 16, titles 20 (key f)
// and 21 of menus 22 (entries 23, 24 with key q, 25) and 26 (entry 27), and field 28 (key d).
class Keyboard : public test::Form {
protected:
    Keyboard() {
        ctx.comfort = VEL_COMFORT_KEYBOARD;
        make_frame_buttons();
        make_window(8, 20, 60, 140, 120);
        make_window(9, 40, 70, 120, 100);
        for (const uint32_t k : {10U, 11U, 15U})
            make(k, VEL_TYPE_LABEL, 25, static_cast<int>(10 * k) - 30, 40, 8, 8);
        make_field(12, 80, 70, 60, 20, 8), make_field(13, 80, 100, 60, 20, 8);
        make(14, VEL_TYPE_TEXT, 80, 130, 60, 20, 8).editable = 1;
        objects[14].text_index = 1;
        make(17, VEL_TYPE_LABEL, 50, 80, 30, 20, 9), make(18, VEL_TYPE_LABEL, 90, 80, 30, 20, 9);
        for (const uint32_t k : {16U, 20U, 21U})
            make(k, VEL_TYPE_LABEL, static_cast<int>(50 * k) - 790, 5, 40, 15);
        make_menu(20, 22, {23, 24, 25}), make_menu(21, 26, {27});
        make_field(28, 200, 150, 60, 20, 0);
        vel_set_answer(&ctx, 10, VEL_ANSWER_DEFAULT);
        vel_set_answer(&ctx, 11, VEL_ANSWER_CANCEL);
        vel_set_answer(&ctx, 15, VEL_ANSWER_PLAIN);
        for (const auto &[number, key] :
             {std::pair(12U, 'n'), {15U, 's'}, {20U, 'f'}, {24U, 'q'}, {28U, 'd'}})
            vel_set_access_key(&ctx, number, key);
        open(8);
        vel_draw_all_objects(&ctx, 1, 0);
    }
    void make_menu(uint32_t title, uint32_t menu, const std::vector<uint32_t> &entries) {
        make(menu, VEL_TYPE_MENU, 150, 60, 60, 61).hidden = 1;
        for (const uint32_t k : entries)
            make(k, VEL_TYPE_LABEL, 150, 60 + 20 * static_cast<int>(k - entries[0]), 60, 20, menu);
        objects[title].max_chars = menu;
    }
    static void push(const Keys &keys) {
        for (const Key key : keys) push_key(key.symbol, key.modifiers);
    }
    // What a loop returns for keys; 16 when none of them ended it, as label 16 is then clicked.
    uint32_t after(const Keys &keys, const std::function<uint32_t()> &loop) {
        push(keys);
        click_on(16);
        const uint32_t result = loop();
        drop_events();
        return result;
    }
    uint32_t wait(const Keys &keys) {
        return after(keys, [this] { return vel_wait_for_object(&ctx); });
    }
    // The focus after each of so many keys.
    std::string path(Key key, int count) {
        std::string found;
        for (; count > 0; --count) {
            EXPECT_EQ(wait({key}), 16U);
            found += std::to_string(ctx.cursor_object) + " ";
        }
        return found;
    }
};

TEST_F(Keyboard, tab_goes_through_fields_and_answers_that_can_be_reached) {
    EXPECT_EQ(ctx.cursor_object, 12U); // as ever, the first that can be edited
    EXPECT_EQ(path(tab, 6), "13 14 10 11 15 12 ");
    EXPECT_EQ(path(back_tab, 2), "15 11 ");
    vel_set_enabled(&ctx, 13, 0);
    objects[10].x = 300; // outside of its window
    vel_draw_all_objects(&ctx, 0, 0);
    EXPECT_EQ(path(tab, 4), "15 12 14 11 ");
    vel_set_enabled(&ctx, 8, 0); // a disabled master disables all that is in it
    vel_close_win(&ctx, 8);
    vel_set_answer(&ctx, 16, VEL_ANSWER_PLAIN);
    ctx.cursor_object = 0;
    EXPECT_EQ(path(tab, 3), "16 28 16 ");
    open(9); // nothing to edit and no answer: as ever
    EXPECT_EQ(ctx.cursor_object, 0U);
    vel_close_win(&ctx, 9);
    vel_set_answer(&ctx, 17, VEL_ANSWER_PLAIN), vel_set_answer(&ctx, 18, VEL_ANSWER_DEFAULT);
    open(9);
    EXPECT_EQ(ctx.cursor_object, 18U);
    ctx.comfort = 0;
    EXPECT_EQ(path(tab, 1), "18 ");
}

TEST_F(Keyboard, answers_are_given_by_keys) {
    const Key control_enter{SDLK_RETURN, KMOD_LCTRL}, key_pad{SDLK_KP_ENTER};
    using Case = std::tuple<uint32_t, Key, uint32_t>; // the focus, a key and what it gives
    for (const auto &[focus, key, result] :
         {Case(0, enter, 10), Case(12, key_pad, 10), Case(14, enter, 16),
          Case(14, control_enter, 10), Case(11, enter, 11), Case(15, space, 15),
          Case(12, space, 16), Case(12, escape, 11), Case(10, escape, 11), Case(17, space, 16),
          Case(12, alt('s'), 15), Case(12, alt('S'), 15), Case(12, alt('x'), 16),
          Case(12, {'s', KMOD_LMETA}, 15), Case(12, {'s', KMOD_LSHIFT}, 16)}) {
        ctx.cursor_object = focus;
        EXPECT_EQ(wait({key}), result) << focus << " " << key.symbol;
        EXPECT_EQ(ctx.cursor_object, focus);
    }
    EXPECT_EQ(std::tuple(std::string(texts[1].text), std::string(objects[12].label)),
              std::tuple("\n", " xS"));
    ctx.cursor_object = 15; // what is pressed there does not come up in the field that is next
    EXPECT_EQ(wait({{'w'}, tab, {'y'}}), 16U);
    EXPECT_STREQ(objects[12].label, " xSy");
    EXPECT_EQ(wait({alt('d')}), 16U); // the window first, then the desktop
    EXPECT_EQ(ctx.cursor_object, 28U);
    vel_set_access_key(&ctx, 13, 'D');
    EXPECT_EQ(wait({alt('d')}), 16U);
    EXPECT_EQ(ctx.cursor_object, 13U);
    for (const uint32_t k : {10U, 11U, 15U}) vel_set_enabled(&ctx, k, 0);
    EXPECT_EQ(wait({enter, alt('s')}), 16U);
    ctx.comfort = 0;
    EXPECT_EQ(wait({enter, escape, alt('n')}), 16U);
    EXPECT_EQ(std::tuple(ctx.cursor_object, objects[8].hidden), std::tuple(13U, 0U));
    ctx.comfort = VEL_COMFORT_KEYBOARD;
    EXPECT_EQ(wait({escape}), 7U); // without a cancel answer it closes the window
    EXPECT_EQ(objects[8].hidden, 1U);
    EXPECT_EQ(wait({escape}), 16U);
}

// A key that is held repeats its press, but not its answer.
TEST_F(Keyboard, keys_held_since_before_a_loop_give_no_answer) {
    for (const Key key : {enter, escape, alt('s')}) {
        SDL_GetKeyState(nullptr)[key.symbol] = 1;
        EXPECT_EQ(wait({key}), 16U);
        EXPECT_NE(wait({key, key}), 16U); // it was let go between the two
        SDL_GetKeyState(nullptr)[key.symbol] = 0;
    }
    SDL_GetKeyState(nullptr)[SDLK_RETURN] = 1;
    EXPECT_EQ(wait({f10, enter, down, enter}), 24U);
    SDL_GetKeyState(nullptr)[SDLK_RETURN] = 0;
}

TEST_F(Keyboard, dialogs_keep_to_their_answers) {
    const auto decide = [this] { return vel_decide_window(&ctx, 9, 17, 18); };
    const auto select = [this] { return vel_get_mouse_selection(&ctx, 10, 16); };
    make_field(19, 50, 120, 0, 20, 9).hidden = 1;
    vel_set_access_key(&ctx, 18, 'y');
    using Case = std::tuple<Keys, uint32_t, uint32_t>; // in a dialog and in a selection
    const Key next_window{SDLK_TAB, KMOD_LCTRL};
    for (const auto &[keys, decided, selected] :
         {Case({enter}, 17, 10), Case({tab, space}, 18, 16), Case({tab, tab, space}, 17, 16),
          Case({back_tab, enter}, 18, 10), Case({escape}, 7, 7), Case({alt('y')}, 18, 16),
          Case({alt('f'), f10, alt('s'), alt('d'), next_window, escape}, 7, 7),
          Case({frame, right, enter}, 7, 7)}) {
        EXPECT_EQ(after(keys, decide), decided) << keys[0].symbol;
        ctx.cursor_object = selected == 10 ? 13 : keys.size() > 1 && selected == 16 ? 10 : 14;
        EXPECT_EQ(after(keys, select), selected) << keys[0].symbol;
    }
    vel_set_answer(&ctx, 18, VEL_ANSWER_DEFAULT), vel_set_answer(&ctx, 17, VEL_ANSWER_CANCEL);
    EXPECT_EQ(after({enter}, decide), 18U);
    EXPECT_EQ(after({escape}, decide), 17U);
}

TEST_F(Keyboard, windows_are_raised_from_the_bottom_of_the_stack) {
    make_window(19, 60, 80, 100, 90);
    open(9), open(19);
    for (const auto &[shift, active] : {std::pair{0, 8U}, {KMOD_LSHIFT, 19U}}) {
        EXPECT_EQ(wait({{SDLK_TAB, KMOD_LCTRL | shift}}), 16U);
        EXPECT_EQ(ctx.active_window, active);
    }
}

TEST_F(Keyboard, menus_are_walked_by_keys) {
    const Key home{SDLK_HOME}, end{SDLK_END};
    test::Form::point(5, 190); // rests outside
    vel_set_enabled(&ctx, 25, 0);
    using Case = std::pair<Keys, uint32_t>;
    for (const auto &[keys, result] :
         {Case({f10, enter}, 23), Case({alt('f'), down, space}, 24),
          Case({f10, down, down, enter}, 23), Case({f10, up, enter}, 24),
          Case({f10, end, home, enter}, 23), Case({f10, end, enter}, 24), Case({f10, {'q'}}, 24),
          Case({f10, alt('q')}, 24), Case({f10, {'z'}, enter}, 23), Case({f10, right, enter}, 27),
          Case({f10, left, enter}, 27), Case({f10, right, right, enter}, 23),
          Case({f10, escape}, 16), Case({f10, escape, escape}, 11)}) {
        EXPECT_EQ(wait(keys), result) << keys.size();
        EXPECT_EQ(std::tuple(objects[22].hidden, objects[26].hidden), std::tuple(1U, 1U));
    }
    make(19, VEL_TYPE_LABEL, 100, 160, 20, 15, 8).max_chars = 26; // a title in the window
    EXPECT_EQ(wait({f10, right, enter}), 27U);
    // The pointer takes over when it comes onto an entry, and keys take over again.
    const auto shows = [this](uint32_t dark) {
        EXPECT_EQ(objects[23].fill_r, dark == 23 ? 235U : 255U);
        EXPECT_EQ(objects[24].fill_r, dark == 24 ? 235U : 255U);
    };
    vel_set_access_key(&ctx, 21, 'm');
    objects[21].max_chars = 22;
    set_steps({[] { push({alt('m')}); }, [=] { shows(23), point(300, 190); },
               [=] { shows(23), point(270, 50); }, [=] { shows(24), push({up}); },
               [=] { shows(23); }, [] { point(300, 190); }, [] { push({enter}); }});
    EXPECT_EQ(vel_wait_for_object(&ctx), 23U);
    EXPECT_TRUE(all_steps_done());
}

TEST_F(Keyboard, frame_buttons_are_used_by_keys) {
    vel_object &o = objects[8];
    EXPECT_EQ(wait({frame}), 16U);
    EXPECT_EQ(ctx.cursor_object, 1U);
    EXPECT_EQ(path(right, 3), "2 3 4 ");
    EXPECT_EQ(path(left, 2), "3 2 ");
    EXPECT_EQ(path(back_tab, 2), "1 7 ");
    EXPECT_EQ(path(tab, 1), "1 ");
    EXPECT_EQ(wait({right, enter, {'a'}, right, right, space, escape}), 16U);
    EXPECT_EQ(std::tuple(o.height, ctx.frame_mode, ctx.cursor_object),
              std::tuple(116U, VEL_MODE_SCROLL, 12U));
    EXPECT_STREQ(objects[12].label, "");
    const Key fine{SDLK_RIGHT, KMOD_LSHIFT};
    EXPECT_EQ(wait({frame, enter, right, down, down, fine, enter}), 16U);
    EXPECT_EQ(std::tuple(o.x, o.y, objects[12].x), std::tuple(29U, 76U, 89U));
    EXPECT_EQ(wait({enter, left, up, up, left, escape, escape}), 16U);
    EXPECT_EQ(std::tuple(o.x, o.y, ctx.cursor_object), std::tuple(29U, 76U, 12U));
    Keys far(8, up);
    far.insert(far.begin(), {frame, enter}), far.insert(far.end(), 35, right);
    far.push_back(enter);
    EXPECT_EQ(wait(far), 16U);
    EXPECT_EQ(std::tuple(o.x, o.y), std::tuple(300U, 25U)); // 20 pixels are left
    EXPECT_EQ(wait({left, enter}), 7U);
    EXPECT_EQ(std::tuple(o.hidden, ctx.cursor_object), std::tuple(1U, 0U));
    EXPECT_EQ(wait({frame, enter}), 16U); // no window, no buttons
}

TEST_F(Keyboard, closing_the_program_ends_every_loop) {
    const std::function<uint32_t()> loops[] = {
        [this] { return vel_move_out_menu(&ctx, 22, 0); },
        [this] { return vel_move_window(&ctx), objects[8].x - 20; },
        [this] { return vel_decide_window(&ctx, 9, 17, 18); },
        [this] { return vel_get_mono_mouse_selection(&ctx, 10); }};
    EXPECT_EQ(vel_quit_requested(nullptr) + vel_quit_requested(&ctx), 0U);
    point(170, 70);
    for (const auto &loop : loops) {
        push_type(SDL_QUIT);
        EXPECT_EQ(loop(), 0U);
        EXPECT_EQ(vel_quit_requested(&ctx), 1U);
        EXPECT_EQ(vel_wait_for_object(&ctx), 0U); // sees it, too
    }
    for (const Keys &keys : {Keys{}, Keys{f10}, Keys{frame, enter}}) {
        push(keys);
        push_type(SDL_QUIT);
        EXPECT_EQ(vel_wait_for_object(&ctx), 0U);
        EXPECT_EQ(vel_quit_requested(&ctx), 1U);
        SDL_Event event;
        EXPECT_EQ(SDL_PollEvent(&event), 0); // it is used up
        EXPECT_EQ(wait({escape, escape}), 11U);
        EXPECT_EQ(vel_quit_requested(&ctx), 0U);
    }
    ctx.comfort = 0;
    push_type(SDL_QUIT), release_on(10);
    EXPECT_EQ(vel_get_mono_mouse_selection(&ctx, 10), 10U); // as ever, it is dropped
    EXPECT_EQ(vel_quit_requested(&ctx), 0U);
}

} // namespace
