// The stack of open windows, the front one first. For activation and closing.
#pragma once

#include <optional>

#include "model/objects.h"

namespace velumo {

// All hundred entries are searched, not only the counted ones.
std::optional<u32> find_window(const vel_context &ctx, u32 window);
void remove_entry(vel_context &ctx, u32 entry);
void push_window(vel_context &ctx, u32 window);

} // namespace velumo
