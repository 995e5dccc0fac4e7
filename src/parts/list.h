// Lists: objects whose rows show some of many items. For frame actions, folders and the parts.
#pragma once

#include <optional>

#include "model/objects.h"

namespace velumo {

// Shows other items, from where the list is scrolled to. Throws std::bad_alloc.
void show_items(vel_context &ctx, u32 list, u32 count, List::Cell cell);

// The objects that are the rows of a list. A list made by the form tool has others before them, and
// perhaps more rows than it has room for now.
std::span<const u32> rows_of(const vel_context &ctx, u32 list);
// Shows more or fewer rows when the list has become higher or lower.
void fill_list(vel_context &ctx, u32 list);

// What the list shows; null when the object is none.
List *find_list(const vel_context &ctx, u32 list);

// The item that a row shows; nothing when it shows none.
std::optional<std::size_t> item_of_row(const vel_context &ctx, u32 row);

// Scrolls the lists of a window by scroll_step, but by one row at least. False when the window
// shows none.
enum class ListEnd { first, last };
bool scroll_lists(vel_context &ctx, u32 window, ListEnd towards);

// Scrolls one list by rows, towards its end where they are positive. False when the object is none,
// or shows all of its items.
bool scroll_list(vel_context &ctx, u32 list, i64 rows);

// Shows the rows again from an item on, or from where the list is scrolled to.
void show_from(vel_context &ctx, u32 list, i64 first);
void show_rows(vel_context &ctx, u32 list);

} // namespace velumo
