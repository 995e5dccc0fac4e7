// The focus, which is the cursor object: where Tab takes it, and which answers keys give wherever
// it is. For the keys of the loops.
#pragma once

#include "window/reach.h"

namespace velumo {

// Tab and Shift+Tab. Without VEL_COMFORT_KEYBOARD they know only what can be edited in the active
// window.
void move_focus(vel_context &ctx, const Reach &reach, bool backwards);

// Gives the focus to an object and shows it there.
void set_focus(vel_context &ctx, u32 number);

// Shows two objects that have changed, or one and 0.
void show_changed(vel_context &ctx, u32 a, u32 b);

// When there is no focus in the active window: its default answer gets it, or its first answer.
void focus_answer(vel_context &ctx, const Reach &reach);

// Gives the focus back to an object, after a dialog that was in front of its window.
void return_focus(vel_context &ctx, u32 number);

// Whether the focus is on an object that keys press.
bool has_answer_focus(const vel_context &ctx, const Reach &reach);

// The first reachable answer of a kind of vel_answer; 0 for none.
u32 answer_of_kind(const vel_context &ctx, const Reach &reach, vel_answer kind);

// The object that Alt and a letter reach; 0 for none.
u32 object_of_key(const vel_context &ctx, const Reach &reach, char key);

} // namespace velumo
