// Scroll bars: where their thumbs are, and what presses on them scroll. For parts and
// the wheel.
#pragma once

#include "parts/drag.h"

namespace velumo {

// What a part scrolls; 0 for one that is no scroll bar.
u32 scrolled_by(const vel_context &ctx, u32 part);

// Puts the thumb where what it scrolls is.
void place_thumb(vel_context &ctx, u32 bar);

Press press_scroll_bar(vel_context &ctx, u32 bar);

} // namespace velumo
