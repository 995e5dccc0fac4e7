#include "base/suggestion.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include <fmt/format.h>

namespace velform {
namespace {

// A misspelt word is shorter than this; comparing a longer one would only take time.
constexpr std::size_t longest_word = 64;
constexpr std::size_t most_candidates = 1000;

// The number of characters to insert, delete or replace to make one word of the other.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
        }
    }
    return row.back();
}

} // namespace

std::string did_you_mean(std::string_view word, std::span<const std::string_view> candidates) {
    if (word.size() > longest_word) return {};
    if (candidates.empty() || candidates.size() > most_candidates) return {};
    const auto distance_to = [word](std::string_view candidate) {
        return distance(word, candidate);
    };
    const std::string_view nearest = *std::ranges::min_element(candidates, {}, distance_to);
    if (distance_to(nearest) > 1 + word.size() / 4) return {};
    return fmt::format("; did you mean '{}'?", nearest);
}

std::string Suggestions::hint(std::string_view word) {
    if (hints_left_ == 0) return {};
    --hints_left_;
    return did_you_mean(word, candidates_);
}

} // namespace velform
