#include "input/held_keys.h"

#include "input/event_key.h"

namespace velumo {

HeldKeys::HeldKeys() {
    int count = 0;
    const Uint8 *down = SDL_GetKeyState(&count);
    for (std::size_t k = 0;
         down != nullptr && k < std::min<std::size_t>(keys_.size(), as_field(count)); ++k) {
        keys_[k] = down[k] != 0;
    }
}

void HeldKeys::follow(const SDL_Event &event) {
    if (event.type != SDL_KEYUP) return;
    keys_[static_cast<std::size_t>(key_of(event).sym)] = false;
}

void HeldKeys::hold(SDLKey key) {
    if (key < SDLK_LAST) keys_[static_cast<std::size_t>(key)] = true;
}

} // namespace velumo
