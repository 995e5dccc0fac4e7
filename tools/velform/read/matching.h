// Which objects of two forms are the same ones. For diff.
#pragma once

#include "read/read_form.h"

namespace velform {

// By name. Objects without one are the same if their masters are and they are, say, the second
// nameless label there. If one form has no names at all, and for what is left, the number counts.
class Matching {
public:
    Matching(const ReadForm &before, const ReadForm &after);

    // The number of the same object in the other form; 0 when there is none.
    std::uint32_t after(std::uint32_t before) const { return after_[before]; }
    std::uint32_t before(std::uint32_t after) const { return before_[after]; }

private:
    void join(std::uint32_t before, std::uint32_t after);

    std::vector<std::uint32_t> after_, before_; // place 0 is not used
};

} // namespace velform
