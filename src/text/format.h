// Formatting of the texts and captions of single objects. For layout and loading.
#pragma once

#include "model/objects.h"

namespace velumo {

// Breaks the text of an object into its lines; returns the last line written.
u32 format_text(vel_context &ctx, u32 number);

// Cuts a caption to its first line and centres that of a label; returns 0 to 3 as
// vel_format_small_obj does.
u32 format_caption(vel_context &ctx, u32 number);

} // namespace velumo
