// The hint at what a misspelt word was meant to be.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velform {

// Returns "; did you mean 'x'?" with the candidate nearest to the word, or an empty string when
// none is near.
std::string did_you_mean(std::string_view word, std::span<const std::string_view> candidates);

// Hints for names that a form source gives. As a form may name thousands that do not exist, only
// the first ones get a hint.
class Suggestions {
public:
    void add(std::string_view candidate) { candidates_.push_back(candidate); }
    std::string hint(std::string_view word);

private:
    std::vector<std::string_view> candidates_;
    int hints_left_ = 100;
};

} // namespace velform
