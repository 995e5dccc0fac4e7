// Moving, resizing and scrolling the active window. For the frame buttons.
#pragma once

#include "model/axis.h"

namespace velumo {

enum class Change { less, more };
void resize_window(vel_context &ctx, const Axis &axis, Change change);

// Waits for the press that says where to.
void move_window(vel_context &ctx);
// By the arrow keys, in steps of 8 pixels or, with Shift, of 1, until Enter leaves the window where
// it is or Escape puts it back. Its corner stays on the screen.
void move_window_by_keys(vel_context &ctx);

// The way that the contents move.
enum class Towards { left, right, up, down };
void scroll_window(vel_context &ctx, Towards towards);

} // namespace velumo
