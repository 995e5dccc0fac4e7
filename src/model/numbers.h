// Decimal numbers in strings, with edge behaviour of their own. For programs.
#pragma once

#include "model/objects.h"

namespace velumo {

// False for what is no digit; then the character is '0' and the value 0.
bool digit_to_character(i32 digit, char &character);
bool character_to_digit(char character, u32 &digit);

u32 string_to_number(const char *string);
// Returns the digits written.
i32 number_to_string(u32 value, char *destination);

u32 power_of_ten(u32 exponent);

} // namespace velumo
