// Titles: labels and pictures that open a menu. For the waiting loop.
#pragma once

#include "menu/pull_down.h"

namespace velumo {

// The menu that an object opens when it is pressed; 0 for none.
u32 menu_of_title(const vel_context &ctx, u32 title);

// Runs the menu below its title and redraws the screen.
MenuEnd open_menu_of_title(vel_context &ctx, u32 title);

} // namespace velumo
