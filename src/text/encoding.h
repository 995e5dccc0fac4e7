// Names of files, which are UTF-8, as the ISO 8859-1 of labels and back. For file selectors.
#pragma once

#include <string>
#include <string_view>

namespace velumo {

// What ISO 8859-1 cannot show, control characters and bytes that are no UTF-8 become '?'.
std::string latin1_of(std::string_view utf8);

std::string utf8_of(std::string_view latin1);

} // namespace velumo
