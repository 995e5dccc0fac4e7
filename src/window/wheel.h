// The wheel scrolls what is under the pointer: a text, a list, else a window. For the loops.
#pragma once

#include "window/reach.h"

namespace velumo {

// False when the context's event is not from the wheel, and without VEL_COMFORT_WHEEL; else the
// event is used up.
bool scroll_by_wheel(vel_context &ctx, const Reach &reach);

} // namespace velumo
