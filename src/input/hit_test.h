// Which object lies under a point. For the loops.
#pragma once

#include "model/objects.h"

namespace velumo {

// Of the whole form: frame buttons, the active window with its dependents, other windows, the rest.
u32 object_under(const vel_context &ctx, i64 x, i64 y);

// The innermost dependent under a point; 0 for none.
u32 dependent_under(const vel_context &ctx, u32 master, i64 x, i64 y);

bool is_hit(const vel_context &ctx, u32 number, i64 x, i64 y);

} // namespace velumo
