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
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, uint32_t>;
    for (const auto &[symbol, alone, shifted, with_alt] :
         {Case('a', 'a', 'A', 'a'), Case('z', 'z', 'Z', 'z'), Case('e', 'e', 'E', 321),
          Case('q', 'q', 'Q', '@'), Case('3', '3', 4294967207U, '3'), Case(246, 246, 214, 246),
          Case(223, 223, '?', '\\'), Case('7', '7', '/', '{'), Case('+', '+', '*', '~'),
          Case('<', '<', '<', '|'), Case(180, 180, 180, 180), Case('*', '*', '*', '*'),
          Case(9, 9, 9, 9), Case(255, 255, 255, 255), Case(1, 1, 1, 1)}) {
        using Held = std::pair<int, uint32_t>;
        for (const auto &[modifiers, code] :
             {Held(plain, alone), Held(shift, shifted), Held(KMOD_RSHIFT, shifted),
              Held(alt, with_alt), Held(KMOD_RALT, alone), Held(shift | KMOD_RSHIFT, alone),
              Held(shift | alt, alone), Held(shift | KMOD_CAPS, alone)}) {
            EXPECT_EQ(press(symbol, modifiers), code) << symbol << " " << modifiers;
            EXPECT_EQ(ctx.key_printable, 1U) << symbol;
        }
    }
    using Other = std::pair<uint32_t, uint32_t>;
    for (const auto &[symbol, code] :
         {Other(SDLK_RIGHT, 275), Other(SDLK_LEFT, 276), Other(SDLK_UP, 273), Other(SDLK_DOWN, 274),
          Other(SDLK_INSERT, 277), Other(SDLK_BACKSPACE, 8), Other(SDLK_DELETE, 127),
          Other(SDLK_RETURN, 271), Other(SDLK_KP_ENTER, 271)}) {
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
    using Case = std::tuple<uint32_t, int, uint32_t, uint32_t>;
    for (const auto &[symbol, modifiers, code, printable] :
         {Case('0', plain, '0', 1), Case('9', plain, '9', 1), Case('1', shift, '!', 1),
          Case('/', plain, '/', 0), Case(':', plain, ':', 0), Case('a', plain, 'a', 0),
          Case(SDLK_BACKSPACE, plain, 8, 0), Case(282, plain, 0, 0), Case(SDLK_KP5, plain, 0, 0)}) {
        EXPECT_EQ(press(symbol, modifiers), code);
        EXPECT_EQ(ctx.key_printable, printable) << symbol;
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
