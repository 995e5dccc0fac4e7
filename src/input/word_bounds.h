// Where the words of a text begin and end. For comfortable typing.
#pragma once

#include <string_view>

#include "model/objects.h"

namespace velumo {

struct Bounds {
    u32 first, end;
};

// The start of the word before an index, and of the one after it; the ends of the text without one.
u32 word_start_before(std::string_view text, u32 index);
u32 word_start_after(std::string_view text, u32 index);

// The word, the blanks or the signs at an index.
Bounds word_at(std::string_view text, u32 index);

} // namespace velumo
