// Numbers cut to the 16 bits of an SDL_Rect, and the update of the display. For all drawing.
#pragma once

#include "model/objects.h"

namespace velumo {

inline SDL_Rect sdl_rect(u32 x, u32 y, u32 width, u32 height) {
    return {static_cast<Sint16>(x), static_cast<Sint16>(y), static_cast<Uint16>(width),
            static_cast<Uint16>(height)};
}

// Updates a rectangle of the display, as far as it lies on it. Without a display nothing happens.
void update_display(const vel_context &ctx, SDL_Rect rect);

} // namespace velumo
