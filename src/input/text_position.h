// The cursor as an index into a text, and as a line and column of its formatted lines. For editing.
#pragma once

#include "model/objects.h"

namespace velumo {

// Set the one from the other, for the cursor object; a cursor that is not met leaves all as it is.
void find_cursor_index(vel_context &ctx);
void find_cursor_line(vel_context &ctx);

} // namespace velumo
