// The lock file of a form source: the numbers that its objects and texts have got, which they keep
// whatever is added, removed or moved in the source.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "base/diagnostics.h"

namespace velform {

struct LockedNumbers {
    std::uint32_t object = 0; // the first one of spare records
    std::uint32_t count = 1;  // more than 1 only for spare records
    std::uint32_t text = 0;   // 0 = it never had one
    bool is_gone = false;     // from the source; nothing else gets its numbers
    Position where{};

    std::uint32_t last() const { return object + count - 1; }
};

// By keys, see key_of_spare() and ObjectKeys.
using Lock = std::map<std::string, LockedNumbers, std::less<>>;

// No object has such a key.
std::string key_of_spare(std::string_view name);

// Returns what is certain; all that is damaged, foreign or contradictory is reported.
Lock read_lock(std::string_view bytes, Diagnostics &diagnostics);

// A line for each key, in their order.
std::string lock_text(const Lock &lock);

} // namespace velform
