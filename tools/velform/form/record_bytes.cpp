#include "form/record_bytes.h"

#include <algorithm>
#include <cstddef>

#include <velumo.h>

#include "source/form_source.h"

namespace velform {
namespace {

bool is_control(char c) {
    const auto byte = static_cast<std::uint8_t>(c);
    return byte < 0x20 || (byte >= 0x7F && byte < 0xA0);
}

} // namespace

RecordList::RecordList(std::string_view bytes, std::size_t size) {
    while (bytes.size() >= size && records.size() < most_records) {
        records.push_back(bytes.substr(0, size));
        bytes.remove_prefix(size);
    }
    tail = bytes;
}

std::uint32_t number_at(std::string_view bytes, std::size_t offset) {
    std::uint32_t number = 0;
    for (std::size_t k = 4; k-- > 0;)
        number = number << 8 | static_cast<std::uint8_t>(bytes[offset + k]);
    return number;
}

std::int64_t colour_at(std::string_view bytes, std::size_t offset) {
    std::int64_t colour = 0;
    for (std::size_t k = 0; k < 3; ++k) {
        const std::uint32_t part = number_at(bytes, offset + 4 * k);
        if (part > 0xFF) return -1;
        colour = colour << 8 | part;
    }
    return colour;
}

std::string_view string_at(std::string_view bytes, std::size_t offset, std::size_t size) {
    const std::string_view field = bytes.substr(offset, size - 1);
    return field.substr(0, field.find('\0'));
}

std::string_view text_of_record(std::string_view record) {
    return string_at(record, offsetof(vel_text_rec, text), VEL_TEXT_SIZE);
}

std::string readable(std::string_view text, bool has_line_feeds) {
    std::string result(text);
    std::size_t lost = 0;
    for (char &c : result) {
        if (!is_control(c) || (c == '\n' && has_line_feeds)) continue;
        c = '?';
        ++lost;
    }
    return 2 * lost > result.size() ? std::string{} : result;
}

std::string utf8_of(std::string_view latin1) {
    std::string utf8;
    for (const char c : latin1) {
        const auto byte = static_cast<std::uint8_t>(c);
        if (byte >= 0x80) utf8 += static_cast<char>(0xC0 | byte >> 6);
        utf8 += byte < 0x80 ? c : static_cast<char>(0x80 | (byte & 0x3F));
    }
    return utf8;
}

bool is_readable_path(std::string_view path) {
    if (path.empty() ||
        std::ranges::any_of(path, [](char c) { return c == 0x7F || (c >= 0 && c < 0x20); }))
        return false;
    // The other way round than the library, which has no need of characters beyond ISO 8859-1.
    for (std::size_t k = 0; k < path.size(); ++k) {
        const auto first = static_cast<std::uint8_t>(path[k]);
        if (first < 0x80) continue;
        // Of two or three bytes, without those that other lengths can say and those of pairs.
        const std::size_t more = first >= 0xC2 && first < 0xE0   ? 1
                                 : first >= 0xE1 && first < 0xED ? 2
                                                                 : 0;
        if (more == 0 || k + more >= path.size()) return false;
        for (std::size_t j = 1; j <= more; ++j) {
            if ((static_cast<std::uint8_t>(path[k + j]) & 0xC0) != 0x80) return false;
        }
        k += more;
    }
    return true;
}

} // namespace velform
