// The modal dialog in which the user walks through folders and names a file. For the interface.
#pragma once

#include "model/objects.h"

namespace velumo {

// Returns 1, 0 when the user gave up, or a negative code of vel_result.
i32 choose_file(vel_context &ctx, u32 window, char *path_out, std::size_t size);

} // namespace velumo
