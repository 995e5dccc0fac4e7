// Moving, resizing and scrolling the active window. For the frame buttons.
#pragma once

#include "model/axis.h"

namespace velumo {

enum class Change { less, more };
void resize_window(vel_context &ctx, const Axis &axis, Change change);

// Waits for the press that says where to.
void move_window(vel_context &ctx);

// The way that the contents move.
enum class Towards { left, right, up, down };
void scroll_window(vel_context &ctx, Towards towards);

} // namespace velumo
