// Reads back the texts in which a form says what its records have no field for. For decompiling.
#pragma once

#include <map>
#include <span>

#include "source/settings.h"

namespace velform {

// By number of the object. Lines and words that the tool would not write are left out.
std::map<std::uint32_t, Settings> read_trait_words(std::span<const std::string_view> texts);

} // namespace velform
