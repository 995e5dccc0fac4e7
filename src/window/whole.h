// Windows that are the whole X window: they cover the screen. For start-up and resizing.
#pragma once

#include "model/objects.h"

namespace velumo {

bool is_whole_window(const vel_context &ctx, u32 number);

// False when there was not the memory for all of it.
bool cover_screen(vel_context &ctx, u32 whole_window);

// After a form was loaded: its whole windows cover the screen, if there is one, and the focus
// starts in the first.
void start_whole_windows(vel_context &ctx);

} // namespace velumo
