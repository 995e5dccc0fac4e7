// The two files of a form as bytes, cut into records. For decompiling them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "form/record_table.h"

namespace velform {

struct FormBytes {
    std::string form, text;
};

// Of a file of records; what a program does not load belongs to the tail.
struct RecordList {
    std::vector<std::string_view> records; // record 1 comes first
    std::string_view tail;

    RecordList(std::string_view bytes, std::size_t size);
    std::string_view operator[](std::uint32_t number) const { return records[number - 1]; }
    std::uint32_t count() const { return static_cast<std::uint32_t>(records.size()); }
};

std::uint32_t number_at(std::string_view bytes, std::size_t offset);
// 0xRRGGBB, of three numbers; -1 when one is larger than 255.
std::int64_t colour_at(std::string_view bytes, std::size_t offset);
// Up to the first NUL, or to the byte before the end of the field.
std::string_view string_at(std::string_view bytes, std::size_t offset, std::size_t size);
std::string_view text_of_record(std::string_view record);

// Text in ISO 8859-1 as a source can say it: '?' in place of control characters. Empty when most of
// it would be that.
std::string readable(std::string_view text, bool has_line_feeds);
std::string utf8_of(std::string_view latin1);

// Whether a source can name the file: its name is not empty and valid UTF-8.
bool is_readable_path(std::string_view path);

} // namespace velform
