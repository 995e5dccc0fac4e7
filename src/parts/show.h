// Drawing what a part is in, after it has changed. For the parts.
#pragma once

#include "model/objects.h"

namespace velumo {

// Its window, its menu or the whole screen.
void show_part(vel_context &ctx, u32 part);

} // namespace velumo
