// What fits behind a line. For measuring and text layout.
#pragma once

#include <string_view>

#include "model/objects.h"

namespace velumo {

// Whether a line so wide has room for a word so wide.
inline bool fits_behind(u32 line, u32 word, u32 line_width) {
    return as_signed(word) <= as_signed(line_width - line);
}

inline constexpr u32 longest_word = 70; // characters that are placed at once

// How much of the front of a text fits behind a line.
struct Fitting {
    u32 characters = 0;
    bool next_is_too_wide = false;
};

} // namespace velumo
