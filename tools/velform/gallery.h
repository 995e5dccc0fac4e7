// The form that shows what the themes look like: an object of every kind.
#pragma once

#include <string>
#include <string_view>

namespace velform {

inline constexpr int gallery_width = 600, gallery_height = 440;

std::string gallery_source(std::string_view theme);

} // namespace velform
