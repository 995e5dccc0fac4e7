// Lays out the text of any object. For scenes and dialogs.
#pragma once

#include "model/objects.h"

namespace velumo {

// What a redraw with formatting does for one object, hidden or not.
void format_object(vel_context &ctx, u32 number);

} // namespace velumo
