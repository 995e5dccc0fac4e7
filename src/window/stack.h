// The stack of open windows, the front one first; entries are moved as far as they are counted.
// For activation and closing.
#pragma once

#include <optional>

#include "model/objects.h"

namespace velumo {

// On purpose: all hundred entries are searched, not only the counted ones.
std::optional<u32> find_window(const vel_context &ctx, u32 window);
void remove_entry(vel_context &ctx, u32 entry);
void push_window(vel_context &ctx, u32 window);

} // namespace velumo
