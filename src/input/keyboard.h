// Keys as the layout of the user's keyboard has them. For comfortable typing.
#pragma once

#include "model/objects.h"

namespace velumo {

// Lets SDL translate keys by the layout and repeat them. Cheap once it is so.
void use_layout();

// Turns the press in the context's event into final_key and consumes it, if typing in the cursor
// object has a use for it. A character outside of ISO 8859-1 is refused.
void translate_by_layout(vel_context &ctx);

} // namespace velumo
