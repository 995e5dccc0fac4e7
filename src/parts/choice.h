// Choices: fields that open a list. For parts and the interface.
#pragma once

#include <optional>

#include "parts/drag.h"

namespace velumo {

// The list that a choice opens; 0 for none.
u32 list_of_choice(const vel_context &ctx, u32 choice);
// Shows the selected row of the list in the field.
void show_chosen(vel_context &ctx, u32 choice);

Press press_choice(vel_context &ctx, u32 choice);
std::optional<Press> key_on_choice(vel_context &ctx, u32 choice, const SDL_keysym &key);

} // namespace velumo
