// The longest rising choice out of a list of numbers. For decompile.
#pragma once

#include <cstdint>
#include <vector>

namespace velform {

// Returns the places of the numbers chosen, in order; each number is larger than the one before.
std::vector<std::size_t> longest_rise(const std::vector<std::uint32_t> &numbers);

} // namespace velform
