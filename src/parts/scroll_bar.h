// Scroll bars: where their thumbs are, and what presses on them scroll. For parts.
#pragma once

#include "parts/drag.h"

namespace velumo {

// Puts the thumbs where what they scroll is.
void place_thumbs(vel_context &ctx);

Press press_scroll_bar(vel_context &ctx, u32 bar);

} // namespace velumo
