// The text cursor: a line one pixel wide. For scenes.
#pragma once

#include "model/objects.h"

namespace velumo {

void draw_cursor(vel_context &ctx, u32 number);

} // namespace velumo
