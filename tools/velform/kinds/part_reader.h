// From the table of an object with a `kind` to what it says as a part.
#pragma once

#include <functional>

#include "kinds/part_source.h"

namespace velform {

using ReadObjects = std::function<std::vector<ObjectSource>(const toml::table &)>;

// The keys that parts have beyond those of objects.
std::vector<std::string_view> keys_of_parts();

// Returns nothing for an object without a kind, or with one that does not exist. Keys that mean
// nothing for the kind are reported, as are wrong values.
std::optional<PartSource> read_part(const toml::table &table, bool is_window,
                                    const ReadObjects &read_objects, Diagnostics &diagnostics);

} // namespace velform
