#include "base/quoted_line.h"

#include <algorithm>

#include <fmt/format.h>

#include "base/printable.h"

namespace velform {
namespace {

constexpr std::size_t most_before = 60, most_shown = 100; // characters

bool begins_character(char byte) { return (static_cast<std::uint8_t>(byte) & 0xC0) != 0x80; }

// The byte after so many characters.
std::size_t end_of(std::string_view text, std::size_t characters) {
    std::size_t at = 0;
    for (; at < text.size(); ++at) {
        if (begins_character(text[at]) && characters-- == 0) break;
    }
    return at;
}

// As a terminal shows it: a tab takes one place.
std::string shown(std::string_view text) {
    std::string words(text);
    std::ranges::replace(words, '\t', ' ');
    return printable(words);
}

// Without its end; empty when there is no such line.
std::string_view line_of(std::string_view source, std::uint32_t line) {
    for (; line > 1; --line) {
        const std::size_t end = source.find('\n');
        if (end == source.npos) return {};
        source.remove_prefix(end + 1);
    }
    const std::string_view found = source.substr(0, source.find('\n'));
    return found.ends_with('\r') ? found.substr(0, found.size() - 1) : found;
}

} // namespace

std::string quoted_line(std::string_view source, std::uint32_t line, std::uint32_t column) {
    const std::string_view whole = line_of(source, line);
    if (whole.empty() || column == 0) return {};
    const std::size_t marked = std::min<std::size_t>(column - 1, characters_in(whole));
    const std::size_t skipped = marked > most_before ? marked - most_before : 0;
    std::string_view seen = whole.substr(end_of(whole, skipped));
    seen = seen.substr(0, end_of(seen, most_shown));
    const std::string before = shown(seen.substr(0, end_of(seen, marked - skipped)));
    const std::string after = shown(seen.substr(end_of(seen, marked - skipped)));
    return fmt::format("{:>6} | {}{}\n{:>6} | {:{}}^\n", line, before, after, "", "",
                       characters_in(before));
}

} // namespace velform
