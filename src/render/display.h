// The one place that asks SDL to show what was drawn. For whoever changes the picture.
#pragma once

#include "render/rect.h"

namespace velumo {

// Updates a rectangle of the display, as far as it lies on it. Without a display nothing happens.
void update_display(const vel_context &ctx, SDL_Rect rect);

} // namespace velumo
