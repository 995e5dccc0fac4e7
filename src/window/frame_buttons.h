// The row of frame buttons above the active window. For activation and frame actions.
#pragma once

#include "model/objects.h"

namespace velumo {

// Places or hides the buttons as the active window wants them.
void place_frame_buttons(vel_context &ctx);

// Erase the marks and the buttons of an active window.
void erase_frame(vel_context &ctx, u32 window);
void erase_frame_before_move(vel_context &ctx, u32 window);

// The same for a window that closes: its buttons are erased whatever their state, and hidden.
void remove_frame(vel_context &ctx, u32 window);

} // namespace velumo
