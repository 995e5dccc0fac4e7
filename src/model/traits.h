// What a form says of an object beyond its record. For start-up, input, drawing and windows.
#pragma once

#include "model/objects.h"

namespace velumo {

struct Tables;

// Reads the texts in which a form says it, see model/traits.inc. Whatever is no such text, names no
// loaded object or is unknown is ignored. Throws std::bad_alloc.
std::map<u32, Traits> read_traits(const Tables &tables);

const Traits &traits_of(const vel_context &ctx, u32 number);

// For changing them. Throws std::bad_alloc.
Traits &own_traits(vel_context &ctx, u32 number);

// The letter or digit as traits keep it: small. '\0' for any other character.
char access_key_of(char character);

inline bool is_enabled(const vel_context &ctx, u32 number) {
    return !traits_of(ctx, number).disabled;
}

inline bool has_comfort(const vel_context &ctx, vel_comfort comfort) {
    return (ctx.comfort & static_cast<u32>(comfort)) != 0;
}

} // namespace velumo
