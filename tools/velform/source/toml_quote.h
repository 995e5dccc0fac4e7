// Strings as TOML writes them.
#pragma once

#include <string>
#include <string_view>

namespace velform {

// Of text in UTF-8; one with line feeds takes several lines.
std::string in_quotes(std::string_view utf8);

} // namespace velform
