// Moving and resizing the active window with the pointer. For the loops.
#pragma once

#include "input/text_mouse.h"

namespace velumo {

// A press of the left button over an object. With VEL_COMFORT_WINDOWS, the active window follows
// the pointer until the release: it moves by its empty top strip, and its lower right corner
// resizes it. Escape puts it back. "selected" is a release that ended this.
TextPress drag_window(vel_context &ctx, u32 object);

} // namespace velumo
