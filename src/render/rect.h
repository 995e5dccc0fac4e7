// Rectangles and their way into an SDL_Rect. For all drawing.
#pragma once

#include "model/objects.h"

namespace velumo {

struct Rect {
    i64 x, y, width, height;
};

// SDL keeps 16 bits of each number; the higher ones are dropped.
inline SDL_Rect sdl_rect(const Rect &r) {
    return {static_cast<Sint16>(r.x), static_cast<Sint16>(r.y), static_cast<Uint16>(r.width),
            static_cast<Uint16>(r.height)};
}

} // namespace velumo
