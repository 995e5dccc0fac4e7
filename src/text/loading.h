// Puts texts into objects, and cursors back to the start. For the interface.
#pragma once

#include "model/objects.h"

namespace velumo {

// A text that is longer than its record is cut. Returns the last line written.
u32 load_text(vel_context &ctx, u32 number, const char *text);

// Counts the characters of a label or a text and puts the cursor at its start.
enum class Holder : u32 { label = 0, text = 1 }; // any other: nothing is counted
void reset_text(vel_context &ctx, u32 number, Holder holder);

// Moves a label of so many characters to the right end of its field.
u32 fill_label(vel_object &object, u32 length, u32 field_length, u8 fill);

} // namespace velumo
