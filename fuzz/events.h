// Events as a script says them, sane or not. For programs.
#pragma once

#include <SDL.h>

#include "input.h"

namespace fuzz {

// Also moves the pointer of the world.
SDL_Event read_event(u8 code, Input &script);

} // namespace fuzz
