// Words from outside, of sources, paths and arguments, as a terminal may get them.
#pragma once

#include <string>
#include <string_view>

namespace velform {

// Control characters, those that turn the direction of writing, and bytes that are no UTF-8 become
// escapes as in a C string; of very long words the middle is left out. The result is one line.
std::string printable(std::string_view words);

// Of text in UTF-8.
std::size_t characters_in(std::string_view utf8);

} // namespace velform
