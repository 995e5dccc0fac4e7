#include "model/diagnostics.h"

#include <string_view>

namespace velumo {
namespace {

bool is_continuation(char c) { return (static_cast<u8>(c) & 0xC0) == 0x80; }

// Bytes of the UTF-8 character that the text begins with; 1 for any other byte.
std::size_t character_size(std::string_view text) {
    const u8 first = static_cast<u8>(text[0]);
    const std::size_t size = first < 0xC2 || first > 0xF4 ? 1
                             : first < 0xE0               ? 2
                             : first < 0xF0               ? 3
                                                          : 4;
    const bool is_whole =
        text.size() >= size && std::all_of(text.begin() + 1, text.begin() + size, is_continuation);
    return is_whole ? size : 1;
}

// The codes from 0x80 to 0x9F control terminals, too, alone and in UTF-8.
bool is_control(std::string_view character) {
    const u8 last = static_cast<u8>(character.back());
    if (character.size() == 1) return last < 0x20 || (last >= 0x7F && last < 0xA0);
    return character.size() == 2 && character[0] == '\xC2' && last < 0xA0;
}

void append_escaped(std::string_view bytes, std::string &to) {
    constexpr const char *digits = "0123456789ABCDEF";
    for (const char byte : bytes) {
        const u8 value = static_cast<u8>(byte);
        to.append("\\x").append(1, digits[value >> 4]).append(1, digits[value & 0xF]);
    }
}

} // namespace

std::string printable(const char *text) {
    std::string printed;
    for (std::string_view rest(text); !rest.empty();) {
        const std::string_view character = rest.substr(0, character_size(rest));
        if (is_control(character)) {
            append_escaped(character, printed);
        } else {
            printed.append(character);
        }
        rest.remove_prefix(character.size());
    }
    return printed;
}

} // namespace velumo
