// Windows that are open until the user has answered. For the interface.
#pragma once

#include "model/objects.h"

namespace velumo {

// Opens a window, waits for one of two answers and closes it. Returns the answer, or 7 for the
// close button.
u32 ask_in_window(vel_context &ctx, u32 window, u32 answer_a, u32 answer_b);

} // namespace velumo
