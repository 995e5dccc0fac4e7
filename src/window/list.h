// Lists: objects whose rows, their dependents, show some of many items. For frame actions and
// folders.
#pragma once

#include <optional>

#include "model/objects.h"

namespace velumo {

// Shows other items, from where the list is scrolled to.
void show_items(vel_context &ctx, u32 list, std::vector<std::string> labels);

// The item that a row shows; nothing when it shows none.
std::optional<std::size_t> item_of_row(const vel_context &ctx, u32 row);

// Scrolls the lists of a window by scroll_step, but by one row at least. False when the window
// shows none.
enum class ListEnd { first, last };
bool scroll_lists(vel_context &ctx, u32 window, ListEnd towards);

// Scrolls one list by rows, towards its end where they are positive. False when the object is none,
// or shows all of its items.
bool scroll_list(vel_context &ctx, u32 list, i32 rows);

} // namespace velumo
