// What a form says of its objects beyond their records, and the texts that say it to the library.
#pragma once

#include "form/form.h"

namespace velform {

// The first line of the texts that say it.
#define SIGNATURE(line) inline constexpr std::string_view trait_signature = line;
#include "model/traits.inc"

// Whether the source, or a style, sets a flag that means something for the object.
bool is_set(const FormObject &object, Field flag);

// What the object is of its window's answers, also when it is a button without saying so.
vel_answer answer_of(const Form &form, const FormObject &object);

// The key that reaches it together with Alt; empty when there is none.
std::string access_key(const FormObject &object);

// In the order of their objects; none when nothing is said. See model/traits.inc.
std::vector<std::string> trait_texts(const Form &form);

} // namespace velform
