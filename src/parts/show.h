// Drawing what a part is in, after it has changed, and how long it can be. For the parts.
#pragma once

#include "model/objects.h"

namespace velumo {

// Pixels along a part that count, so that no product overflows.
inline constexpr i64 longest_part = 1 << 20;

// Its window, its menu or the whole screen.
void show_part(vel_context &ctx, u32 part);

} // namespace velumo
