// The letter that a key is known by, as access keys are given. For the keys of loops and menus.
#pragma once

#include "model/objects.h"

namespace velumo {

// Small letters and digits of ISO 8859-1; NUL for any other key.
char letter_of(const SDL_keysym &key);

} // namespace velumo
