// ISO 8859-1, which forms show, and UTF-8, which files, names of files and other programs have. For
// the public functions, for the file selectors and for the clipboard.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "model/objects.h"

namespace velumo {

// Takes a character from the front of a text that is not empty; nothing when ISO 8859-1 does not
// have it, or when the bytes are none.
std::optional<char> take_character(std::string_view &utf8);

// The number that Unicode gives to the character of these bytes; U+FFFD when they are none.
u32 code_point_of(std::string_view utf8_character);

// Characters of a text that had no place, and where in it the first of them is: at its end when
// there is none. Bytes that are no character count as one.
struct Lost {
    std::size_t characters;
    std::size_t first;
};

// They end what they write with a NUL, if there is room for at least that.
Lost copy_as_latin1(std::string_view utf8, std::span<char> latin1);
Lost copy_as_utf8(std::string_view latin1, std::span<char> utf8);

// For names of files: what ISO 8859-1 cannot show, control characters and bytes that are no UTF-8
// become '?'.
std::string latin1_of(std::string_view utf8);

std::string utf8_of(std::string_view latin1);

} // namespace velumo
