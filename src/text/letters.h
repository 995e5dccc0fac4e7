// The letter that a key is known by, as access keys are given. For the keys of loops and menus, and
// for captions that show theirs.
#pragma once

#include "model/objects.h"

namespace velumo {

// The small letter of a capital one of ISO 8859-1; any other character as it is.
u32 small_letter(u32 character);

// Small letters and digits of ISO 8859-1; NUL for any other key.
char letter_of(const SDL_keysym &key);

} // namespace velumo
