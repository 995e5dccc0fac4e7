// Tabs: pages of which one shows. For parts and the interface.
#pragma once

#include <optional>

#include "parts/drag.h"

namespace velumo {

u32 page_count(const vel_context &ctx, u32 tabs);
// Throws std::bad_alloc.
void show_page(vel_context &ctx, u32 tabs, u32 page);

// Puts the marker on the tab whose page shows.
void place_marker(vel_context &ctx, u32 tabs);

// The tabs that an object is one of; 0 for none.
u32 tabs_of_tab(const vel_context &ctx, u32 object);

Press press_tab(vel_context &ctx, u32 tabs, u32 object);
// A key while one of the tabs has the focus.
std::optional<Press> key_on_tab(vel_context &ctx, u32 tab, const SDL_keysym &key);

} // namespace velumo
