// What lists show in their rows, kept with the context. For lists and for folders.
#pragma once

#include <string>
#include <vector>

#include "velumo.h"

namespace velumo {

// The items of a list object, of which its rows show some.
struct List {
    std::vector<std::string> labels; // one for each item, at most VEL_DIR_NAME_SIZE - 1 bytes
    std::uint32_t first = 0;         // item that the first row shows
    std::uint32_t row_width = 0;     // of a row that shows an item
};

// What a list of files shows, item by item.
struct ListedName {
    std::string bytes; // as the file system has it
    bool is_folder;
};

} // namespace velumo
