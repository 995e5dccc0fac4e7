// The marks of the active window: an outline and a square left of its corner. For scenes, and for
// whoever changes the active window.
#pragma once

#include "model/objects.h"

namespace velumo {

void draw_mark_outline(vel_context &ctx, u32 window);
void draw_mark_square(vel_context &ctx, u32 window);
void erase_mark_outline(vel_context &ctx, u32 window);
void erase_mark_square(vel_context &ctx, u32 window);

inline void erase_marks(vel_context &ctx, u32 window) {
    erase_mark_square(ctx, window);
    erase_mark_outline(ctx, window);
}

} // namespace velumo
