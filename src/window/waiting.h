// The waiting loop within one window. For dialogs that are more than a question.
#pragma once

#include "model/objects.h"

namespace velumo {

// All that lies outside of the window is out of the user's reach.
struct Dialog {
    u32 window;
    u32 on_enter;  // the object that the Enter key stands for
    u32 on_escape; // the object that the Escape key stands for
};

// As vel_wait_for_object, but 7 when the dialog's window was closed.
u32 wait_in_dialog(vel_context &ctx, const Dialog &dialog);

} // namespace velumo
