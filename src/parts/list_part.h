// What the user does in a list that the form tool has made: selecting, finding by typing, sorting.
// For parts and choices.
#pragma once

#include <optional>

#include "parts/drag.h"
#include "parts/list.h"

namespace velumo {

// Shows rows from the first on; nothing is selected. Throws std::bad_alloc.
void show_list(vel_context &ctx, u32 list, u32 count, List::Cell cell);
// The rows that the list's own text has.
void show_text_rows(vel_context &ctx, u32 list);

enum class Selecting { only, too, up_to };
// Selects a row and brings it in sight; VEL_NO_ROW selects none.
void select_row(vel_context &ctx, u32 list, u32 row, Selecting how = Selecting::only);
void mark_row(vel_context &ctx, u32 list, u32 row, bool selected);

// The row under a point; VEL_NO_ROW for none.
u32 row_under(const vel_context &ctx, u32 list, i64 x, i64 y);

Press press_list(vel_context &ctx, u32 list, u32 object);
std::optional<Press> key_on_list(vel_context &ctx, u32 list, const SDL_keysym &key);

} // namespace velumo
