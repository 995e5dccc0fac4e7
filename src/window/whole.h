// Windows that are the whole X window: they cover the screen. For start-up and resizing.
#pragma once

#include "window/anchors.h"

namespace velumo {

bool is_whole_window(const vel_context &ctx, u32 number);

void cover_screen(const vel_context &ctx, u32 whole_window, Stretching &stretching);

// After a form was loaded: its whole windows cover the screen, if there is one, and the focus
// starts in the first.
void start_whole_windows(vel_context &ctx);

} // namespace velumo
