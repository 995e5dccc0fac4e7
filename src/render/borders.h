// Borders of objects: four lines where the border style puts them. For painting.
#pragma once

#include "model/objects.h"

namespace velumo {

void paint_border(vel_context &ctx, u32 number);

} // namespace velumo
