// Moving, resizing and scrolling the active window. For the frame buttons.
#pragma once

#include "model/axis.h"

namespace velumo {

enum class SizeStep { less, more };
void resize_window(vel_context &ctx, const Axis &axis, SizeStep change);

// Waits for the press that says where to.
void move_window(vel_context &ctx);
// By the arrow keys, in steps of 8 pixels or, with Shift, of 1, until Enter leaves the window where
// it is or Escape puts it back. Its corner stays on the screen.
void move_window_by_keys(vel_context &ctx);

// Moves the active window to a place, or makes it larger by pixels, and draws it there, with its
// frame buttons.
void show_moved(vel_context &ctx, u32 x, u32 y);
void show_resized(vel_context &ctx, i64 wider, i64 higher);
// The place nearest to one at which the corner of a window can be seen.
i64 place_in_sight(const vel_context &ctx, i64 place, const Axis &axis);

// The way that the contents move.
enum class Towards { left, right, up, down };
void scroll_window(vel_context &ctx, Towards towards);

} // namespace velumo
