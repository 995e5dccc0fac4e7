// The row of frame buttons above the active window. For activation and frame actions.
#pragma once

#include "model/objects.h"

namespace velumo {

// Places or hides the buttons as the active window wants them.
void place_frame_buttons(vel_context &ctx);

// Take the look of an active window off the screen, its marks included:
// when another window becomes active,
void erase_frame(vel_context &ctx, u32 window);
// when it closes, where the buttons are erased whatever their state, and hidden,
void remove_frame(vel_context &ctx, u32 window);
// and when it moves.
void erase_frame_before_move(vel_context &ctx, u32 window);

// The selection box and lines alone.
void erase_marks(vel_context &ctx, u32 window);

} // namespace velumo
