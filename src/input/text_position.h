// The cursor as an index into a text, and as a line and column of its formatted lines. For editing.
#pragma once

#include "model/objects.h"

namespace velumo {

// For the cursor object, each from the other. A position outside the formatted text changes
// nothing.
void find_cursor_index(vel_context &ctx);
void find_cursor_line(vel_context &ctx);

} // namespace velumo
