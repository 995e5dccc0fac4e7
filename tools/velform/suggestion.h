// The hint at what a misspelt word was meant to be.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace velform {

// Returns "; did you mean 'x'?" with the candidate nearest to the word, or an empty string when
// none is near.
std::string did_you_mean(std::string_view word, std::span<const std::string_view> candidates);

} // namespace velform
