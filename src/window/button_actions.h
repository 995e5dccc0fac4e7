// What pressing and releasing a frame button does. For the waiting loop.
#pragma once

#include "model/objects.h"

namespace velumo {

void press_frame_button(vel_context &ctx, u32 button);
void release_frame_button(vel_context &ctx, u32 button);

// Does both for a key, and moves the window by keys. The focus stays on the button while that
// shows.
void use_frame_button(vel_context &ctx, u32 button);

} // namespace velumo
