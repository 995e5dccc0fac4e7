// The text editor: one key applied to the text of the cursor object. For the loops.
#pragma once

#include "model/objects.h"

namespace velumo {

// Takes final_key and shows the active window; leaves the key where nothing can be edited.
void edit_text(vel_context &ctx);

} // namespace velumo
