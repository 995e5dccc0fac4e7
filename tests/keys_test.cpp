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
    // The code, and how printable it is: 7 for as before.
    std::pair<uint32_t, uint32_t> press(uint32_t symbol, int modifiers = plain) {
        ctx.key_code = 0;
        ctx.key_printable = 7;
        handle(SDL_KEYDOWN, symbol, modifiers);
        EXPECT_EQ(ctx.event.type == SDL_NOEVENT, ctx.key_code != 0) << symbol;
        return {ctx.key_code, ctx.key_printable};
    }
};

TEST_F(Keys, give_what_a_german_keyboard_shows) {
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, uint32_t, uint32_t>;
    for (const auto &[symbol, alone, shifted, with_alt, printable] :
         {Case('z', 'z', 'Z', 'z', 1), Case('e', 'e', 'E', 321, 1), Case('q', 'q', 'Q', '@', 1),
          Case('3', '3', 4294967207U, '3', 1), Case(246, 246, 214, 246, 1),
          Case(223, 223, '?', '\\', 1), Case('<', '<', '<', '|', 1), Case(255, 255, 255, 255, 1),
          Case(SDLK_INSERT, 277, 277, 277, 0), Case(SDLK_BACKSPACE, 8, 8, 8, 0),
          Case(SDLK_DELETE, 127, 127, 127, 0), Case(SDLK_RETURN, 271, 271, 271, 0),
          Case(SDLK_KP_ENTER, 271, 271, 271, 0), Case(256, 0, 0, 0, 7), Case(0, 0, 0, 0, 7)}) {
        using Held = std::pair<int, uint32_t>;
        for (const auto &[modifiers, code] :
             {Held(plain, alone), Held(shift, shifted), Held(KMOD_RSHIFT, shifted),
              Held(alt, with_alt), Held(KMOD_RALT, alone), Held(shift | KMOD_RSHIFT, alone),
              Held(shift | alt, alone), Held(shift | KMOD_CAPS, alone)})
            EXPECT_EQ(press(symbol, modifiers), std::pair(code, printable)) << modifiers;
    }
    // Each alone, with Shift and with Alt.
    for (const std::string_view key :
         {"   ", "\xFC\xDC\xFC", "\xE4\xC4\xE4", "1!1", "2\"2", "4$4", "5%5", "6&6", "7/{", "8([",
          "9)]", "0=}", "+*~", "#'#", ",;,", ".:.", "-_-"}) {
        const auto code = [key](std::size_t k) { return static_cast<uint8_t>(key[k]); };
        for (const auto &[modifiers, k] : {std::pair(plain, 0U), {shift, 1U}, {alt, 2U}})
            EXPECT_EQ(press(code(0), modifiers), std::pair(uint32_t{code(k)}, 1U)) << key;
    }
}

TEST_F(Keys, numeric_fields_print_digit_keys_only) {
    objects[8].type = VEL_TYPE_NUMBER;
    for (const uint32_t symbol : {U'0', U'9'}) EXPECT_EQ(press(symbol), std::pair(symbol, 1U));
    for (const uint32_t symbol : {U'/', U':', U'a', U'\b'})
        EXPECT_EQ(press(symbol), std::pair(symbol, 0U));
    EXPECT_EQ(press('1', shift), std::pair('!' + 0U, 1U));
}

TEST_F(Keys, are_handed_over_when_any_key_is_released) {
    press('a');
    press('b');
    EXPECT_EQ(ctx.final_key, 0U);
    for (const uint32_t code : {'b' + 0U, 7U}) { // the release of a, then that of b
        handle(SDL_KEYUP);
        EXPECT_EQ(ctx.final_key, code);
        ctx.final_key = 7;
    }
    ctx.cursor_object = 0;
    EXPECT_EQ(press('a').first, 0U);
}

} // namespace
