// Form files written small, so that a mutation of a few bytes means something. For the targets,
// and for seeds, which are made from the files of the project's forms.
#pragma once

#include <vector>

#include "input.h"

namespace fuzz {

struct FormBytes {
    std::vector<u8> form, text;
};

// Small enough for a script to point anywhere with a byte.
FormBytes form_of_parts();
extern const u32 list_of_parts;                  // the number of its list
inline constexpr u8 written_parts[] = {0, 0, 8}; // without changes

FormBytes read_form(Input &input);

// What read_form makes the same files of; the most that fits into size bytes.
std::vector<u8> write_form(const FormBytes &files, std::size_t size);

} // namespace fuzz
