// The loop that runs a form until the application has something to do. For programs and dialogs.
#pragma once

#include "model/objects.h"

namespace velumo {

// Returns the object that was clicked or the menu entry that was chosen; 0 when the user or the
// event filter ends the program, 7 when the last window closed.
u32 wait_for_object(vel_context &ctx);

// All that lies outside of the window is out of the user's reach.
struct Dialog {
    u32 window;
    u32 on_enter;   // the answer that the Enter key gives
    u32 on_escape;  // the answer that the Escape key gives
    u32 on_tab = 0; // the object that Tab does not leave: the loop returns it instead
};

// The same within one window, and 7 when that was closed.
u32 wait_in_dialog(vel_context &ctx, const Dialog &dialog);

} // namespace velumo
