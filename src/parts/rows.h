// The rows of lists that the form tool has made: cells, pictures, and colours of what is selected.
// For lists.
#pragma once

#include "model/objects.h"

namespace velumo {

// What such a list is made of: its first dependents.
enum ListPiece : u32 { sample_of_list, header_of_list, bar_of_list, first_row_of_list };

// What an item shows in a column.
vel_cell cell_of(const List &items, u32 item, u32 column);

// Makes a row of a list show an item. Throws std::bad_alloc.
void show_made_row(vel_context &ctx, u32 list, const List &items, u32 row, u32 item);

// The item that each row shows comes from the text of the list: a line for each row, and a tab
// between columns.
u32 count_text_rows(const vel_context &ctx, u32 list);
void read_text_row(const vel_context &ctx, u32 list, u32 row, u32 column, vel_cell &cell);

} // namespace velumo
