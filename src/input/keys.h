// Translation of keys by a fixed table for a German keyboard. For the loops.
#pragma once

#include "model/objects.h"

namespace velumo {

// Turns the press in the context's event into key_code and consumes it, while a cursor is there.
void translate_key_press(vel_context &ctx);

// Hands key_code over as final_key when the context's event is the release of any key.
void deliver_key(vel_context &ctx);

} // namespace velumo
