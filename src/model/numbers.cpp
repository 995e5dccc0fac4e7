#include "model/numbers.h"

#include <cstring>

namespace velumo {
namespace {

constexpr u32 max_digits_read = 9;
constexpr float powers_of_ten[] = {1.0F,      10.0F,      100.0F,      1000.0F,      10000.0F,
                                   100000.0F, 1000000.0F, 10000000.0F, 100000000.0F, 1000000000.0F};

float tenth(u32 value) { return static_cast<float>(value) / 10.0F; }

// Digits that a number is written with, by the size of its tenth, which is always below the last
// power. On purpose: single precision rounds 99999999 up to a hundred million, which gets a digit
// too many.
u32 count_digits(float tenth_of_value) {
    const float *above =
        std::upper_bound(std::begin(powers_of_ten), std::end(powers_of_ten), tenth_of_value);
    return static_cast<u32>(above - std::begin(powers_of_ten)) + 1;
}

// Digits before the start of the buffer, which the miscounted numbers have, are dropped.
void write_digit(i32 digit, i32 position, char *destination) {
    if (position >= 0) digit_to_character(digit, destination[position]);
}

void write_digits(u32 value, u32 digits, char *destination) {
    // On purpose: the number is taken as signed, so from 2147483648 on no digit is written.
    i32 rest = as_signed(value);
    float rest_tenth = tenth(value);
    i32 position = as_signed(digits) - 1;
    while (position >= 0 && rest > 0) {
        const i32 units = rest % 10;
        write_digit(units, position, destination);
        if (rest_tenth >= 10.0F) {
            rest = (rest - units) / 10;
        } else {
            --position;
            write_digit(static_cast<i32>(rest_tenth), position, destination);
        }
        --position;
        rest_tenth = static_cast<float>(rest) / 10.0F;
    }
}

} // namespace

bool digit_to_character(i32 digit, char &character) {
    const bool is_digit = digit >= 0 && digit <= 9;
    character = static_cast<char>('0' + (is_digit ? digit : 0));
    return is_digit;
}

bool character_to_digit(char character, u32 &digit) {
    const bool is_digit = character >= '0' && character <= '9';
    digit = is_digit ? static_cast<u32>(character - '0') : 0;
    return is_digit;
}

u32 string_to_number(const char *string) {
    const auto length = static_cast<u32>(strnlen(string, max_digits_read));
    u32 number = 0;
    for (u32 k = 0; k < length; ++k) {
        u32 digit = 0;
        character_to_digit(string[k], digit);
        number = number * 10 + digit;
    }
    return number;
}

i32 number_to_string(u32 value, char *destination) {
    const u32 digits = count_digits(tenth(value));
    destination[digits] = '\0';
    if (digits == 1) {
        digit_to_character(as_signed(value), destination[0]);
    } else {
        write_digits(value, digits, destination);
    }
    return as_signed(digits);
}

u32 power_of_ten(u32 exponent) {
    // On purpose: the power for 0 is 10 as well.
    u32 power = 10;
    // Ten to the 32 is 0 modulo 2 to the 32, and stays 0.
    for (u32 k = 1; k < std::min<u32>(exponent, 32); ++k) power *= 10;
    return power;
}

} // namespace velumo
