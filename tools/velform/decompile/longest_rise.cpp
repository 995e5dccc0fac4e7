#include "decompile/longest_rise.h"

#include <algorithm>

namespace velform {

std::vector<std::size_t> longest_rise(const std::vector<std::uint32_t> &numbers) {
    // Of all choices of k + 1 numbers, ends[k] is the place of the smallest last number.
    std::vector<std::size_t> ends;
    std::vector<std::size_t> before(numbers.size()); // in the choice that ends here
    for (std::size_t k = 0; k < numbers.size(); ++k) {
        const auto end = std::ranges::lower_bound(ends, numbers[k], {},
                                                  [&](std::size_t at) { return numbers[at]; });
        if (end != ends.begin()) before[k] = *(end - 1);
        if (end == ends.end()) {
            ends.push_back(k);
        } else {
            *end = k;
        }
    }
    std::vector<std::size_t> choice(ends.size());
    for (std::size_t k = ends.size(), at = ends.empty() ? 0 : ends.back(); k-- > 0;) {
        choice[k] = at;
        at = before[at];
    }
    return choice;
}

} // namespace velform
