#include "source/latin1.h"

#include <algorithm>
#include <cstdint>

#include <fmt/format.h>
#include <velumo.h>

namespace velform {
namespace {

std::uint8_t byte_of(char c) { return static_cast<std::uint8_t>(c); }
bool continues(char c) { return (byte_of(c) & 0xC0) == 0x80; }
bool is_control(char c) { return byte_of(c) < 0x20 || (byte_of(c) >= 0x7F && byte_of(c) < 0xA0); }

std::string with_short_line_ends(std::string_view utf8) {
    std::string text;
    for (std::size_t k = 0; k < utf8.size(); ++k) {
        if (!utf8.substr(k).starts_with("\r\n")) text += utf8[k];
    }
    return text;
}

std::string control_fault(char c) {
    if (c == '\n') return "a line feed, and this is one line; use a space";
    return fmt::format("the control character U+{:04X}; take it out", byte_of(c));
}

// The fault of the character at the front, which ISO 8859-1 does not have or which is a NUL.
std::string fault_at(std::string_view utf8) {
    if (utf8.front() == '\0') return control_fault('\0');
    const auto end = std::find_if_not(utf8.begin() + 1, utf8.end(), continues);
    const std::string_view bytes(utf8.begin(), end);
    std::uint32_t character = byte_of(bytes.front()) & (0x7FU >> bytes.size());
    for (const char c : bytes.substr(1)) character = character << 6 | (byte_of(c) & 0x3F);
    return fmt::format("'{}' (U+{:04X}), which ISO 8859-1 does not have; use another character",
                       bytes, character);
}

} // namespace

Latin1 to_latin1(std::string_view utf8, LineFeeds line_feeds) {
    const std::string source = with_short_line_ends(utf8);
    std::string text(source.size() + 1, '\0');
    std::size_t lost = 0;
    vel_from_utf8(source.c_str(), text.data(), text.size(), &lost);
    const std::string_view before = std::string_view(source).substr(0, lost);
    text.resize(before.size() - static_cast<std::size_t>(std::ranges::count_if(before, continues)));
    const auto control = std::ranges::find_if(text, [line_feeds](char c) {
        return is_control(c) && !(c == '\n' && line_feeds == LineFeeds::allowed);
    });
    if (control != text.end()) return {{}, control_fault(*control)};
    if (lost < source.size()) return {{}, fault_at(std::string_view(source).substr(lost))};
    return {std::move(text), {}};
}

} // namespace velform
