// The colours of objects. For all drawing.
#pragma once

#include "model/objects.h"

namespace velumo {

// Only the low byte of an object's colour component counts.
inline vel_colour colour_of(u32 r, u32 g, u32 b) {
    return {static_cast<u8>(r), static_cast<u8>(g), static_cast<u8>(b)};
}
inline vel_colour fill_colour(const vel_object &o) {
    return colour_of(o.fill_r, o.fill_g, o.fill_b);
}
inline vel_colour text_colour(const vel_object &o) {
    return colour_of(o.text_r, o.text_g, o.text_b);
}

} // namespace velumo
