#include "events.h"

#include "world.h"

namespace fuzz {
namespace {

constexpr int keys[] = {SDLK_RETURN, SDLK_UP,     SDLK_DOWN,      SDLK_RIGHT,    SDLK_LEFT,
                        SDLK_INSERT, SDLK_DELETE, SDLK_BACKSPACE, SDLK_TAB,      SDLK_HOME,
                        SDLK_END,    SDLK_PAGEUP, SDLK_PAGEDOWN,  SDLK_ESCAPE,   SDLK_F10,
                        SDLK_SPACE,  SDLK_a,      SDLK_z,         SDLK_c,        SDLK_v,
                        SDLK_x,      SDLK_y,      SDLK_KP_ENTER,  SDLK_F6,       SDLK_F4,
                        SDLK_LSHIFT, SDLK_LALT,   SDLK_KP5,       SDLK_WORLD_20, SDLK_1};
constexpr int modifiers[] = {KMOD_NONE,  KMOD_LSHIFT, KMOD_LCTRL, KMOD_LCTRL | KMOD_LSHIFT,
                             KMOD_LALT,  KMOD_MODE,   KMOD_NUM,   KMOD_LALT | KMOD_LSHIFT,
                             KMOD_RCTRL, KMOD_CAPS,   0xFFFF};

SDL_Event key_event(Uint8 type, Input &script) {
    SDL_Event event{};
    event.key.type = type;
    event.key.state = type == SDL_KEYDOWN ? SDL_PRESSED : SDL_RELEASED;
    SDL_keysym &key = event.key.keysym;
    const u8 value = script.byte();
    const u8 modifier = script.byte();
    key.mod = static_cast<SDLMod>(modifiers[modifier % std::size(modifiers)]);
    if (value < std::size(keys)) {
        key.sym = static_cast<SDLKey>(keys[value]);
        key.unicode = key.sym < 128 ? static_cast<Uint16>(key.sym) : Uint16{0};
    } else if (value < 250) {
        key.sym = static_cast<SDLKey>(value);
        // What a layout makes of a letter with Ctrl.
        key.unicode = (key.mod & KMOD_CTRL) != 0 ? value % 32 : value;
    } else {
        key.sym = static_cast<SDLKey>(script.number());
        key.unicode = script.pair();
    }
    world().modifiers = key.mod;
    return event;
}

// One byte up to 199, or whatever fits into the event.
Uint16 place(Input &script) { return static_cast<Uint16>(script.number()); }

SDL_Event button_event(Uint8 type, Uint8 button, Input &script) {
    SDL_Event event{};
    event.button.type = type;
    event.button.button = button;
    event.button.state = type == SDL_MOUSEBUTTONDOWN ? SDL_PRESSED : SDL_RELEASED;
    event.button.x = place(script);
    event.button.y = place(script);
    world().pointer_x = static_cast<Sint16>(event.button.x);
    world().pointer_y = static_cast<Sint16>(event.button.y);
    return event;
}

SDL_Event motion_event(Input &script) {
    SDL_Event event{};
    event.motion.type = SDL_MOUSEMOTION;
    event.motion.x = place(script);
    event.motion.y = place(script);
    world().pointer_x = static_cast<Sint16>(event.motion.x);
    world().pointer_y = static_cast<Sint16>(event.motion.y);
    return event;
}

} // namespace

SDL_Event read_event(u8 code, Input &script) {
    constexpr Uint8 wheel[] = {SDL_BUTTON_WHEELUP, SDL_BUTTON_WHEELDOWN, SDL_BUTTON_MIDDLE,
                               SDL_BUTTON_RIGHT};
    switch (code % 12) {
    case 0:
    case 1:
        return key_event(SDL_KEYDOWN, script);
    case 2:
        return key_event(SDL_KEYUP, script);
    case 3:
    case 4:
        return button_event(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT, script);
    case 5:
    case 6:
        return button_event(SDL_MOUSEBUTTONUP, SDL_BUTTON_LEFT, script);
    case 7:
        return motion_event(script);
    case 8:
        return button_event(SDL_MOUSEBUTTONDOWN, wheel[code / 12 % std::size(wheel)], script);
    case 9:
        return button_event(code % 2 == 0 ? SDL_MOUSEBUTTONUP : SDL_MOUSEBUTTONDOWN, script.byte(),
                            script);
    default: {
        SDL_Event event{};
        const Bytes bytes = script.block();
        std::copy_n(bytes.begin(), std::min(bytes.size(), sizeof event),
                    reinterpret_cast<u8 *>(&event));
        return event;
    }
    }
}

} // namespace fuzz
