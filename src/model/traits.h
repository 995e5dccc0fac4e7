// What a form says of an object beyond its record. For input, drawing and windows.
#pragma once

#include "model/objects.h"

namespace velumo {

const Traits &traits_of(const vel_context &ctx, u32 number);

// For changing them. Throws std::bad_alloc.
Traits &own_traits(vel_context &ctx, u32 number);

inline bool is_enabled(const vel_context &ctx, u32 number) {
    return !traits_of(ctx, number).disabled;
}

inline bool has_comfort(const vel_context &ctx, vel_comfort comfort) {
    return (ctx.comfort & static_cast<u32>(comfort)) != 0;
}

} // namespace velumo
