// Painting of one object: its body or picture, its text lines, its border. For scenes and menus.
#pragma once

#include "model/objects.h"

namespace velumo {

void paint_object(vel_context &ctx, u32 number);

} // namespace velumo
