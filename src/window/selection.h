// The loop that waits until the user picks one of two objects. For dialogs.
#pragma once

#include "window/reach.h"

namespace velumo {

inline Reach reach_of_selection(u32 stop_a, u32 stop_b, bool is_dialog) {
    return {.is_dialog = is_dialog, .selects = true, .answers = {stop_a, stop_b}};
}

// Returns the object picked; the close button ends a loop whatever it waits for. 0 when the user
// closes the program.
u32 select_either(vel_context &ctx, const Reach &reach);

} // namespace velumo
