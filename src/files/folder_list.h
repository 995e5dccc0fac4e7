// Lists that show the names in a folder. For the file dialog.
#pragma once

#include "model/objects.h"

namespace velumo {

inline constexpr std::size_t longest_label = VEL_DIR_NAME_SIZE - 1; // bytes

// Returns the number of names, or a negative code of vel_result.
i32 list_folder(vel_context &ctx, u32 list, const char *path, const char *pattern);

// What a list shows; null when it was never filled.
const std::vector<ListedName> *names_of(const vel_context &ctx, u32 list);

// How a row shows a name: cut to the size of a label, and with a slash at the end of a folder's.
std::string label_of(const ListedName &name);

// The name that a row shows; null when it shows none.
const ListedName *name_of_row(const vel_context &ctx, u32 row);

} // namespace velumo
