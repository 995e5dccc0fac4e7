// How the form follows the display when that is resized. For programs and the loops.
#pragma once

#include "model/objects.h"

namespace velumo {

// Returns a code of vel_result.
i32 resize_display(vel_context &ctx, u32 width, u32 height);

// From now on the loops do so when the user resizes the display. Throws std::bad_alloc.
void follow_display(vel_context &ctx);

} // namespace velumo
