// The simple file selector: rows that show the names of the current folder. For the interface.
#pragma once

#include "model/objects.h"

namespace velumo {

void make_file_rows(vel_context &ctx, u32 list, u32 rows);
void read_current_folder(vel_context &ctx);
void fill_file_rows(vel_context &ctx, u32 list);

} // namespace velumo
