// The lines that loading a form prints about what it does not take. For the model.
#pragma once

#include <string>

#include "model/guard.h"
#include "model/objects.h"

namespace velumo {

// What comes from a file or a path, as a terminal may show it: control characters as \xNN. UTF-8
// and the letters of ISO 8859-1 stay as they are. Throws std::bad_alloc.
std::string printable(const char *text);

// Counts the lines of one load, so that a form full of faults does not bury what matters.
class LineCount {
public:
    // Whether the next line is printed.
    bool admits() { return count_++ < most_printed || !is_guarded; }
    // Lines that were not.
    u32 left_out() const { return is_guarded && count_ > most_printed ? count_ - most_printed : 0; }

private:
    static constexpr u32 most_printed = 20;
    u32 count_ = 0;
};

} // namespace velumo
