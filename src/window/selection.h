// The loop that waits until the user picks one of two objects. For dialogs.
#pragma once

#include "model/objects.h"

namespace velumo {

// Returns the object picked; the close button ends a loop whatever it waits for.
u32 select_either(vel_context &ctx, u32 stop_a, u32 stop_b);

} // namespace velumo
