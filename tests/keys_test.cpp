// Keys: what a German keyboard gives, and when it is handed over.
#include "support.h"

namespace {

using test::Form;

constexpr uint32_t no_code = 0;
constexpr auto lshift = KMOD_LSHIFT, rshift = KMOD_RSHIFT, alt = KMOD_LALT, none = KMOD_NONE;

class Keys : public Form {
protected:
    Keys() {
        make(8, VEL_TYPE_ENTRY, 20, 30, 100, 20);
        ctx.cursor_object = 8;
    }
    uint32_t press(uint32_t symbol, int modifiers) {
        ctx.key_code = no_code;
        ctx.key_printable = 7;
        ctx.event.type = SDL_KEYDOWN;
        ctx.event.key.keysym.sym = static_cast<SDLKey>(symbol);
        ctx.event.key.keysym.mod = static_cast<SDLMod>(modifiers);
        vel_getfirstkeyinformation(&ctx);
        return ctx.key_code;
    }
    void release() {
        ctx.event.type = SDL_KEYUP;
        vel_getfinalkeyinformation(&ctx);
    }
};

TEST_F(Keys, give_what_a_german_keyboard_shows) {
    const struct {
        uint32_t symbol, plain, shifted, with_alt;
    } cases[] = {
        {' ', ' ', ' ', ' '},  {246, 246, 214, 246},
        {252, 252, 220, 252},  {228, 228, 196, 228},
        {223, 223, '?', '\\'}, {'a', 'a', 'A', 'a'},
        {'p', 'p', 'P', 'p'},  {'e', 'e', 'E', 321},
        {'q', 'q', 'Q', '@'},  {'r', 'r', 'R', 'r'},
        {'z', 'z', 'Z', 'z'},  {'1', '1', '!', '1'},
        {'2', '2', '"', '2'},  {'3', '3', 4294967207U, '3'},
        {'4', '4', '$', '4'},  {'5', '5', '%', '5'},
        {'6', '6', '&', '6'},  {'7', '7', '/', '{'},
        {'8', '8', '(', '['},  {'9', '9', ')', ']'},
        {'0', '0', '=', '}'},  {'+', '+', '*', '~'},
        {'#', '#', '\'', '#'}, {',', ',', ';', ','},
        {'.', '.', ':', '.'},  {'-', '-', '_', '-'},
        {'<', '<', '<', '|'},  {180, 180, 180, 180},
        {9, 9, 9, 9},          {27, 27, 27, 27},
        {255, 255, 255, 255},  {'*', '*', '*', '*'},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(press(c.symbol, none), c.plain) << c.symbol;
        EXPECT_EQ(ctx.key_printable, 1U) << c.symbol;
        EXPECT_EQ(ctx.event.type, SDL_NOEVENT);
        EXPECT_EQ(ctx.event.key.keysym.sym, 0);
        EXPECT_EQ(press(c.symbol, lshift), c.shifted) << c.symbol;
        EXPECT_EQ(press(c.symbol, rshift), c.shifted) << c.symbol;
        EXPECT_EQ(press(c.symbol, alt), c.with_alt) << c.symbol;
    }
}

TEST_F(Keys, control_keys_are_not_printable_and_others_give_no_code) {
    const struct {
        uint32_t symbol, code;
    } cases[] = {{SDLK_RIGHT, 275},  {SDLK_LEFT, 276},   {SDLK_UP, 273},
                 {SDLK_DOWN, 274},   {SDLK_INSERT, 277}, {SDLK_BACKSPACE, 8},
                 {SDLK_DELETE, 127}, {SDLK_RETURN, 271}, {SDLK_KP_ENTER, 271}};
    for (const auto &c : cases) {
        for (const int modifiers : {none, lshift, alt}) {
            EXPECT_EQ(press(c.symbol, modifiers), c.code);
            EXPECT_EQ(ctx.key_printable, 0U);
        }
    }
    for (const uint32_t symbol : {0U, 256U, 270U, 272U, 278U, 282U, 300U}) {
        EXPECT_EQ(press(symbol, none), no_code) << symbol;
        EXPECT_EQ(ctx.key_printable, 7U);
        EXPECT_EQ(ctx.event.type, SDL_KEYDOWN);
    }
}

TEST_F(Keys, modifiers_count_one_at_a_time) {
    for (const auto &[modifiers, code] : {std::pair{lshift | KMOD_CAPS, 'a'},
                                          {KMOD_CAPS | 0, 'a'},
                                          {lshift | rshift, 'a'},
                                          {KMOD_NUM | lshift, 'a'},
                                          {KMOD_RALT | 0, 'a'},
                                          {lshift | 0, 'A'}}) {
        EXPECT_EQ(press('a', modifiers), static_cast<uint32_t>(code)) << modifiers;
    }
    EXPECT_EQ(press('q', KMOD_RALT), static_cast<uint32_t>('q'));
    EXPECT_EQ(press('q', alt | lshift), static_cast<uint32_t>('q'));
}

TEST_F(Keys, numeric_fields_print_digit_keys_only) {
    objects[8].type = VEL_TYPE_NUMBER;
    const struct {
        uint32_t symbol;
        int modifiers;
        uint32_t code, printable;
    } cases[] = {{'5', none, '5', 1},     {'1', lshift, '!', 1},
                 {'a', none, 'a', 0},     {SDLK_BACKSPACE, none, 8, 0},
                 {282, none, no_code, 0}, {SDLK_KP5, none, no_code, 0}};
    for (const auto &c : cases) {
        EXPECT_EQ(press(c.symbol, c.modifiers), c.code);
        EXPECT_EQ(ctx.key_printable, c.printable) << c.symbol;
    }
}

TEST_F(Keys, are_handed_over_when_any_key_is_released) {
    press('a', none);
    press('b', none);
    release(); // of a
    EXPECT_EQ(ctx.final_key, static_cast<uint32_t>('b'));
    ctx.final_key = no_code;
    release(); // of b
    EXPECT_EQ(ctx.final_key, no_code);
    ctx.cursor_object = 0;
    EXPECT_EQ(press('a', none), no_code);
    EXPECT_EQ(ctx.event.type, SDL_KEYDOWN);
    vel_getfinalkeyinformation(&ctx); // no key-up
    EXPECT_EQ(ctx.final_key, no_code);
}

} // namespace
