// Scroll bars: where their thumbs are, and what presses on them scroll. For parts.
#pragma once

#include "parts/drag.h"

namespace velumo {

// Puts the thumb where what it scrolls is.
void place_thumb(vel_context &ctx, u32 bar);

Press press_scroll_bar(vel_context &ctx, u32 bar);

} // namespace velumo
