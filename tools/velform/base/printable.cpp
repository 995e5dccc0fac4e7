#include "base/printable.h"

#include <algorithm>
#include <cstdint>

#include <fmt/format.h>

namespace velform {
namespace {

constexpr std::size_t longest = 1000; // bytes
constexpr std::uint32_t no_character = 0xFFFFFFFF;

struct Character {
    std::uint32_t code;
    std::size_t size;
};

// The character at the front; a byte that begins none is taken by itself.
Character character_at(std::string_view utf8) {
    constexpr std::uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto byte = [utf8](std::size_t k) { return static_cast<std::uint8_t>(utf8[k]); };
    if (byte(0) < 0x80) return {byte(0), 1};
    const std::size_t size = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
    if (byte(0) < 0xC0 || byte(0) > 0xF4 || size > utf8.size()) return {no_character, 1};
    std::uint32_t code = byte(0) & (0x7FU >> size);
    for (std::size_t k = 1; k < size; ++k) {
        if ((byte(k) & 0xC0) != 0x80) return {no_character, 1};
        code = code << 6 | (byte(k) & 0x3F);
    }
    const bool is_one = code >= least[size] && code <= 0x10FFFF && (code & 0x1FF800) != 0xD800;
    return is_one ? Character{code, size} : Character{no_character, 1};
}

bool is_in(std::uint32_t code, std::uint32_t first, std::uint32_t last) {
    return code >= first && code <= last;
}

// Beyond the control characters: ends of lines, and marks that turn the direction of writing.
bool is_treacherous(std::uint32_t code) {
    return is_in(code, 0, 0x1F) || is_in(code, 0x7F, 0x9F) || code == 0x61C ||
           is_in(code, 0x200E, 0x200F) || is_in(code, 0x2028, 0x202E) ||
           is_in(code, 0x2066, 0x2069);
}

std::string escaped(std::string_view words) {
    std::string line;
    for (std::size_t at = 0; at < words.size();) {
        const auto [code, size] = character_at(words.substr(at));
        if (code == '\n') {
            line += "\\n";
        } else if (code == no_character || (code < 0x80 && is_treacherous(code))) {
            line += fmt::format("\\x{:02x}", static_cast<std::uint8_t>(words[at]));
        } else if (is_treacherous(code)) {
            line += fmt::format("\\u{:04x}", code);
        } else {
            line += words.substr(at, size);
        }
        at += size;
    }
    return line;
}

// The edge of a character at or before a place.
std::size_t edge(std::string_view utf8, std::size_t place) {
    for (int k = 0; k < 3 && place > 0 && (utf8[place] & 0xC0) == 0x80; ++k) --place;
    return place;
}

} // namespace

std::string printable(std::string_view words) {
    if (words.size() <= longest) return escaped(words);
    const std::string_view begin = words.substr(0, edge(words, longest / 2));
    const std::string_view end = words.substr(edge(words, words.size() - longest / 2));
    return fmt::format("{} ... {}", escaped(begin), escaped(end));
}

std::size_t characters_in(std::string_view utf8) {
    return static_cast<std::size_t>(std::ranges::count_if(
        utf8, [](char byte) { return (static_cast<std::uint8_t>(byte) & 0xC0) != 0x80; }));
}

} // namespace velform
