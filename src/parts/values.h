// Parts with a value: check boxes, radio buttons, sliders, progress. For parts and the interface.
#pragma once

#include <optional>

#include "parts/drag.h"

namespace velumo {

bool has_value(const vel_context &ctx, u32 object);

// Sets the value, cut to the range of the part, and moves its objects. Throws std::bad_alloc.
void set_value(vel_context &ctx, u32 object, i32 value);
// A radio button that is checked takes the mark from the others of its group.
void set_checked(vel_context &ctx, u32 object, bool checked);

// Puts the knob or bar where the value is.
void place_value(vel_context &ctx, u32 object);

// Shows the mark of a check box or a radio button as its value says.
void show_mark(vel_context &ctx, u32 check);

Press press_check(vel_context &ctx, u32 check);
Press press_slider(vel_context &ctx, u32 slider);
std::optional<Press> key_on_check(vel_context &ctx, u32 check, const SDL_keysym &key);
std::optional<Press> key_on_slider(vel_context &ctx, u32 slider, const SDL_keysym &key);

// Lets the blocks of endless progress move along, and shows those in sight.
void move_endless(vel_context &ctx);

} // namespace velumo
