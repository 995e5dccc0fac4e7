// The names in a folder that a file selector offers. For lists of them.
#pragma once

#include <optional>
#include <string>

#include "model/objects.h"

namespace velumo {

// Folders first, each group in order. Nothing when the folder cannot be read to its end.
std::optional<std::vector<ListedName>> read_folder(const char *path, const char *pattern);

// What can be added to the beginning of a name so that all names of the folder that begin so still
// do, with a slash after the only folder.
std::string common_rest(const std::string &folder, const std::string &beginning);

} // namespace velumo
