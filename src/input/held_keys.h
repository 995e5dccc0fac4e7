// Keys that were already down when a loop began: while one is held and repeats, it presses nothing
// in the next loop. For the loops and menus.
#pragma once

#include <bitset>

#include "model/objects.h"

namespace velumo {

class HeldKeys {
public:
    HeldKeys();

    // Looks at an event: a key that is let go is free again.
    void follow(const SDL_Event &event);
    bool has(SDLKey key) const { return key < SDLK_LAST && keys_[static_cast<std::size_t>(key)]; }
    // For a key that has done what it should do once.
    void hold(SDLKey key);

private:
    std::bitset<SDLK_LAST> keys_;
};

} // namespace velumo
