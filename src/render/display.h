// The one place that asks SDL to show what was drawn. For whoever changes the picture.
#pragma once

#include <span>

#include "render/rect.h"

namespace velumo {

// Updates a rectangle of the display, as far as it lies on it. Without a display nothing happens.
void update_display(const vel_context &ctx, SDL_Rect rect);
// The same for several at once, which it cuts.
void update_display(const vel_context &ctx, std::span<SDL_Rect> rects);

} // namespace velumo
