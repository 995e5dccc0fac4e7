// Parts: what the form tool makes of several objects and the user changes as one. For the loops.
#pragma once

#include <optional>

#include "parts/drag.h"

namespace velumo {

// The part that acts on a press on an object: the object itself or the nearest around it; 0 for
// none.
u32 part_at(const vel_context &ctx, u32 object);

// Whether keys go to a part that has the focus.
bool is_part_with_keys(const vel_context &ctx, u32 object);

// The part, or the tab, that shows that the pointer is on it; 0 for none.
u32 hovered_part(const vel_context &ctx, u32 object);

// The context's event, which is a press of the left button, on a part.
Press press_part(vel_context &ctx, u32 part, u32 object);

// What a key did to the part that has the focus; nothing when it means nothing to it.
std::optional<Press> key_on_part(vel_context &ctx, u32 part, const SDL_keysym &key);

// Makes the parts of a form that was loaded show what it says. Throws std::bad_alloc.
void start_parts(vel_context &ctx);

// Gives a part the focus that keys go to.
void focus_part(vel_context &ctx, u32 part);

} // namespace velumo
