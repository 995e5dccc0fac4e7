// What is drawn, and in which order: whole screens, windows and the dependents of an object. For
// whoever changes the picture.
#pragma once

#include "model/objects.h"

namespace velumo {

void format_all(vel_context &ctx);

// The whole screen, without formatting; show_all also updates the display.
void draw_all(vel_context &ctx);
void show_all(vel_context &ctx);

// The active window without its marks, and the frame buttons.
void draw_active_window(vel_context &ctx);
void show_active_window(vel_context &ctx);
// The same after a key has changed something in it: with partial_redraw, only what has changed.
void show_edited_window(vel_context &ctx);

// Puts what depends on other objects where it belongs before they are drawn: bars show how far
// something is scrolled, whoever has scrolled it.
void settle_parts(vel_context &ctx);

void draw_dependents(vel_context &ctx, u32 master);

// Fits the dependents whose border says so, and hides those that lie outside their masters.
void place_dependents(vel_context &ctx, u32 master);

// Covers an object with the background colour.
void erase_object(vel_context &ctx, u32 number);

} // namespace velumo
