// What painting shares with erasing and marking. For the drawing of scenes and marks.
#pragma once

#include "model/objects.h"

namespace velumo {

// Moves a top-level window to x of at least 11 and y of at least 25, which leaves room for its
// marks and frame buttons. Other objects stay.
void keep_window_on_screen(vel_object &object);

} // namespace velumo
