#include "text/encoding.h"

#include "model/objects.h"

namespace velumo {
namespace {

constexpr char replacement = '?';

bool continues(u8 byte) { return (byte & 0xC0) == 0x80; }
bool is_control(u32 character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

// Bytes that follow the first of a sequence.
std::size_t bytes_behind(u8 first) {
    return first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
}

// Takes one sequence, or a byte that begins none, from the front.
char take_character(std::string_view &utf8) {
    const u8 first = static_cast<u8>(utf8.front());
    std::size_t length = 1;
    while (length <= bytes_behind(first) && length < utf8.size() &&
           continues(static_cast<u8>(utf8[length]))) {
        ++length;
    }
    const u32 second = length == 2 ? static_cast<u8>(utf8[1]) : 0;
    utf8.remove_prefix(length);
    const bool is_upper_half = second != 0 && (first == 0xC2 || first == 0xC3);
    if (first >= 0x80 && !is_upper_half) return replacement;
    const u32 character = is_upper_half ? (first & 3U) << 6 | (second & 0x3FU) : first;
    return is_control(character) ? replacement : static_cast<char>(character);
}

} // namespace

std::string latin1_of(std::string_view utf8) {
    std::string latin1;
    while (!utf8.empty()) latin1 += take_character(utf8);
    return latin1;
}

std::string utf8_of(std::string_view latin1) {
    std::string utf8;
    for (const char c : latin1) {
        const u8 byte = static_cast<u8>(c);
        if (byte >= 0x80) utf8 += static_cast<char>(0xC0 | byte >> 6);
        utf8 += byte >= 0x80 ? static_cast<char>(0x80 | (byte & 0x3F)) : c;
    }
    return utf8;
}

} // namespace velumo
