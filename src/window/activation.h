// Opening, raising and closing windows, and giving objects the text cursor. For dialogs, frame
// actions and the waiting loop.
#pragma once

#include "model/objects.h"

namespace velumo {

// What vel_activate_window and vel_select_window do with window_to_activate.
void activate_wanted_window(vel_context &ctx);
void select_wanted_object(vel_context &ctx);

inline void activate(vel_context &ctx, u32 window) {
    ctx.window_to_activate = window;
    activate_wanted_window(ctx);
}

// Window 0 is the active one.
void close_window(vel_context &ctx, u32 window);

} // namespace velumo
