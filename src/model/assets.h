// Pictures and fonts of loaded objects. For start-up.
#pragma once

#include "model/objects.h"

namespace velumo {

i32 load_images(vel_context &ctx, u32 first);

enum class FontMessages { print, keep_quiet };
i32 load_fonts(vel_context &ctx, u32 first, FontMessages messages);

void release_assets(vel_context &ctx);

} // namespace velumo
