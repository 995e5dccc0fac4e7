// Opening the display and the default font. For start-up.
#pragma once

#include "model/objects.h"

namespace velumo {

// Sizes that SDL holds, and that no memory is too small for.
bool is_display_size(u32 width, u32 height);

// Returns a code of vel_result, with SDL's error text. After an error nothing has changed.
i32 open_display(vel_context &ctx, u32 width, u32 height, const char *title);

// Gives the display another size, where the screen is its own. After a failure the screen has its
// old size, or is null.
bool set_display_size(vel_context &ctx, u32 width, u32 height);

// Covers the whole screen with the background colour.
void clear_screen(vel_context &ctx);

} // namespace velumo
