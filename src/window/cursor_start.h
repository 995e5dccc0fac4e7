// Where the text cursor starts in the objects of a window. For activation and the waiting loop.
#pragma once

#include "model/objects.h"

namespace velumo {

// A cursor that was placed once stays where it is.
void start_cursors(vel_context &ctx, u32 window);
void start_cursors_of_dependents(vel_context &ctx, u32 master);

// The first dependent whose editable is 1, depth first; 0 for none.
// On purpose: whatever its type and hidden or not, and not below objects whose editable is above 1.
u32 first_cursor_stop(const vel_context &ctx, u32 master);

} // namespace velumo
