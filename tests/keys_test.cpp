// Keys: what the irregular ones of a German keyboard give, and when keys are handed over.
#include "support.h"

namespace {

constexpr int plain = KMOD_NONE, shift = KMOD_LSHIFT, alt = KMOD_LALT;

class Keys : public test::Form {
protected:
    Keys() {
        make(8, VEL_TYPE_ENTRY, 20, 30, 100, 20);
        ctx.cursor_object = 8;
    }
    void handle(Uint8 type, uint32_t symbol = 0, int modifiers = plain) {
        ctx.event.type = type;
        ctx.event.key.keysym.sym = static_cast<SDLKey>(symbol);
        ctx.event.key.keysym.mod = static_cast<SDLMod>(modifiers);
        vel_getfirstkeyinformation(&ctx);
        vel_getfinalkeyinformation(&ctx);
    }
    uint32_t press(uint32_t symbol, int modifiers) {
        ctx.key_code = 0;
        ctx.key_printable = 7;
        handle(SDL_KEYDOWN, symbol, modifiers);
        const bool consumed = ctx.event.type == SDL_NOEVENT && ctx.event.key.keysym.sym == 0;
        EXPECT_EQ(consumed, ctx.key_code != 0) << symbol;
        return ctx.key_code;
    }
};

TEST_F(Keys, give_what_a_german_keyboard_shows) {
    const struct {
        uint32_t symbol, plain, shifted, with_alt;
    } cases[] = {{'a', 'a', 'A', 'a'},  {'z', 'z', 'Z', 'z'},         {'e', 'e', 'E', 321},
                 {'q', 'q', 'Q', '@'},  {'3', '3', 4294967207U, '3'}, {246, 246, 214, 246},
                 {223, 223, '?', '\\'}, {'7', '7', '/', '{'},         {'+', '+', '*', '~'},
                 {'<', '<', '<', '|'},  {180, 180, 180, 180},         {'*', '*', '*', '*'},
                 {9, 9, 9, 9},          {255, 255, 255, 255},         {1, 1, 1, 1}};
    for (const auto &c : cases) {
        for (const auto &[modifiers, code] : {std::pair{plain, c.plain},
                                              {shift, c.shifted},
                                              {KMOD_RSHIFT + 0, c.shifted},
                                              {alt, c.with_alt},
                                              {KMOD_RALT + 0, c.plain},
                                              {shift | KMOD_RSHIFT, c.plain},
                                              {shift | alt, c.plain},
                                              {shift | KMOD_CAPS, c.plain}}) {
            EXPECT_EQ(press(c.symbol, modifiers), code) << c.symbol << " " << modifiers;
            EXPECT_EQ(ctx.key_printable, 1U) << c.symbol;
        }
    }
    const std::pair<uint32_t, uint32_t> controls[] = {
        {SDLK_RIGHT, 275},  {SDLK_LEFT, 276},   {SDLK_UP, 273},
        {SDLK_DOWN, 274},   {SDLK_INSERT, 277}, {SDLK_BACKSPACE, 8},
        {SDLK_DELETE, 127}, {SDLK_RETURN, 271}, {SDLK_KP_ENTER, 271}};
    for (const auto &[symbol, code] : controls) {
        for (const int modifiers : {plain, shift, alt}) EXPECT_EQ(press(symbol, modifiers), code);
        EXPECT_EQ(ctx.key_printable, 0U) << symbol;
    }
    for (const uint32_t symbol : {0U, 256U, 270U, 272U, 278U, 282U}) {
        EXPECT_EQ(press(symbol, plain), 0U) << symbol;
        EXPECT_EQ(ctx.key_printable, 7U);
    }
}

TEST_F(Keys, numeric_fields_print_digit_keys_only) {
    objects[8].type = VEL_TYPE_NUMBER;
    const struct {
        uint32_t symbol;
        int modifiers;
        uint32_t code, printable;
    } cases[] = {{'0', plain, '0', 1},          {'9', plain, '9', 1}, {'1', shift, '!', 1},
                 {'/', plain, '/', 0},          {':', plain, ':', 0}, {'a', plain, 'a', 0},
                 {SDLK_BACKSPACE, plain, 8, 0}, {282, plain, 0, 0},   {SDLK_KP5, plain, 0, 0}};
    for (const auto &c : cases) {
        EXPECT_EQ(press(c.symbol, c.modifiers), c.code);
        EXPECT_EQ(ctx.key_printable, c.printable) << c.symbol;
    }
}

TEST_F(Keys, are_handed_over_when_any_key_is_released) {
    press('a', plain);
    press('b', plain);
    EXPECT_EQ(ctx.final_key, 0U);
    for (const uint32_t code : {'b' + 0U, 0U}) { // the release of a, then that of b
        handle(SDL_KEYUP);
        EXPECT_EQ(ctx.final_key, code);
        ctx.final_key = 0;
    }
    ctx.cursor_object = 0;
    EXPECT_EQ(press('a', plain), 0U);
}

} // namespace
