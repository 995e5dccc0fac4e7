// Strings of JSON. For list and check.
#pragma once

#include <string>
#include <string_view>

namespace velform {

// In quotes; control characters are escaped, also those that steer a terminal.
std::string json_string(std::string_view utf8);

} // namespace velform
