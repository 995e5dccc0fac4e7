// Lists that show the names in a folder. For the file dialog.
#pragma once

#include "model/objects.h"

namespace velumo {

// Returns the number of names, or a negative code of vel_result.
i32 list_folder(vel_context &ctx, u32 list, const char *path, const char *pattern);

// What a list shows; null when it was never filled.
const std::vector<ListedName> *names_of(const vel_context &ctx, u32 list);

// How a row shows a name; folders end in a slash where there is room.
std::string label_of(const ListedName &name);

// The name that a row shows; null when it shows none.
const ListedName *name_of_row(const vel_context &ctx, u32 row);

} // namespace velumo
