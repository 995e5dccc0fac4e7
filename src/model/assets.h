// Pictures and fonts of loaded objects. For start-up.
#pragma once

#include "model/objects.h"

namespace velumo {

// Load what the objects from first on want (0 means 1). Return 1 or -1 as the last one did or
// did not load; 0 when none wanted anything.
i32 load_images(vel_context &ctx, u32 first);

enum class FontMessages { print, keep_quiet };
i32 load_fonts(vel_context &ctx, u32 first, FontMessages messages);

void release_assets(vel_context &ctx);

} // namespace velumo
