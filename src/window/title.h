// Titles: labels and pictures that open a menu. For the waiting loop.
#pragma once

#include "menu/pull_down.h"
#include "window/reach.h"

namespace velumo {

// The menu that an object opens when it is pressed; 0 for none.
u32 menu_of_title(const vel_context &ctx, u32 title);

// The title that F10 opens; 0 for none.
u32 first_title(const vel_context &ctx, const Reach &reach);

// Runs the menu below its title, and those of other titles that keys go on to, and redraws the
// screen.
MenuEnd open_menu_of_title(vel_context &ctx, u32 title, const Reach &reach, Opened opened);

} // namespace velumo
