#include "latin1.h"

#include <cstdint>

#include <fmt/format.h>

namespace velform {
namespace {

// Takes one character from the front. The parser lets only valid UTF-8 through, so a sequence that
// is cut short merely must not be read beyond its end.
std::uint32_t take_character(std::string_view &utf8) {
    const auto take_byte = [&utf8] {
        const auto byte = static_cast<std::uint8_t>(utf8.front());
        utf8.remove_prefix(1);
        return std::uint32_t{byte};
    };
    const std::uint32_t first = take_byte();
    if (first < 0x80) return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    std::uint32_t character = first & (0x3FU >> more);
    for (int k = 0; k < more && !utf8.empty(); ++k)
        character = character << 6 | (take_byte() & 0x3F);
    return character;
}

bool is_control(std::uint32_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

std::string fault_of(std::uint32_t c, std::string_view bytes, LineFeeds line_feeds) {
    if (c == '\n' && line_feeds == LineFeeds::allowed) return {};
    if (c == '\n') return "a line feed, and this is one line; use a space";
    if (is_control(c)) return fmt::format("the control character U+{:04X}; take it out", c);
    if (c <= 0xFF) return {};
    return fmt::format("'{}' (U+{:04X}), which ISO 8859-1 does not have; use another character",
                       bytes, c);
}

} // namespace

Latin1 to_latin1(std::string_view utf8, LineFeeds line_feeds) {
    Latin1 result;
    while (!utf8.empty()) {
        if (utf8.starts_with("\r\n")) utf8.remove_prefix(1);
        const std::string_view rest = utf8;
        const std::uint32_t c = take_character(utf8);
        const std::string_view bytes = rest.substr(0, rest.size() - utf8.size());
        std::string fault = fault_of(c, bytes, line_feeds);
        if (fault.empty()) {
            result.text += static_cast<char>(c);
        } else if (result.fault.empty()) {
            result.fault = std::move(fault);
        }
    }
    return result;
}

} // namespace velform
