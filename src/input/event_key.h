// The key of a keyboard event, whatever numbers the event has. For everything that acts on keys.
#pragma once

#include <cstring>

#include "model/objects.h"

namespace velumo {

// A filter, or another program, may send keys and modifiers that SDL does not have. The key then
// counts as one that SDL does not know, and the modifiers as none.
inline SDL_keysym key_of(const SDL_Event &event) {
    SDL_keysym key = event.key.keysym;
    u32 symbol = 0;
    u32 modifiers = 0;
    static_assert(sizeof symbol == sizeof key.sym && sizeof modifiers == sizeof key.mod);
    std::memcpy(&symbol, &key.sym, sizeof symbol);
    std::memcpy(&modifiers, &key.mod, sizeof modifiers);
    if (symbol >= SDLK_LAST) key.sym = SDLK_UNKNOWN;
    if (modifiers >= 2 * KMOD_RESERVED) key.mod = KMOD_NONE;
    return key;
}

} // namespace velumo
