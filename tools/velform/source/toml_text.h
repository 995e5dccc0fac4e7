// From the text of a source to a TOML table, with its syntax errors.
#pragma once

#include <optional>
#include <string_view>

#include <toml++/toml.h>

#include "base/diagnostics.h"

namespace velform {

// Returns nothing after an error, which is reported.
std::optional<toml::table> parse_toml(std::string_view text, Diagnostics &diagnostics);

inline Position position_of(const toml::source_region &region) {
    return {region.begin.line, region.begin.column};
}
inline Position position_of(const toml::node &node) { return position_of(node.source()); }
inline Position position_of(const toml::key &key) { return position_of(key.source()); }

// Returns what a value is, as a message says it: "a string", "a list".
std::string_view kind_of(const toml::node &node);

} // namespace velform
