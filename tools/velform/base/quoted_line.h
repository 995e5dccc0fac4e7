// A line of a source with a mark under one of its characters, for messages.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velform {

// Two lines, as in
//    12 | rect = [10, 20, 0, 30]
//       |        ^
// or of long lines the part around the column. Empty when there is no such line.
std::string quoted_line(std::string_view source, std::uint32_t line, std::uint32_t column);

} // namespace velform
