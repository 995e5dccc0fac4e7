// The folders that lists show, kept with the context. For the listing and for shutdown.
#pragma once

#include <map>
#include <string>

#include "model/objects.h"

namespace velumo {

struct ListedName {
    std::string bytes; // as the file system has it
    std::string label; // as a row shows it
    bool is_folder;
};

struct Listing {
    std::vector<ListedName> names; // in their order
    u32 first = 0;                 // shown by the first row
    u32 row_width = 0;             // of a row that shows a name
};

} // namespace velumo

struct vel_listings {
    std::map<velumo::u32, velumo::Listing> by_list;
};
