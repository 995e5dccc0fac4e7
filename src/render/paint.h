// Painting of one object: its body or picture, its text lines, its border. For scenes and menus.
#pragma once

#include "model/objects.h"

namespace velumo {

void paint_object(vel_context &ctx, u32 number);

// Moves a top-level window to x of at least 11 and y of at least 25, which leaves room for its
// marks and frame buttons. Other objects stay.
void keep_window_on_screen(vel_object &object);

} // namespace velumo
