// A form source as its author wrote it: values by their characters, comments, blank lines.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velform {

struct SourceItem;

struct SourceValue {
    enum class Kind { none, scalar, list, table };

    Kind kind = Kind::none;
    std::string text;              // of a scalar
    std::vector<SourceItem> items; // of a list or a table
    std::size_t width = 0;         // characters up to the first line feed, all in one line
    bool has_comments = false;     // between its own items
    bool takes_lines = false;      // a comment or a line feed is somewhere in it
};

// A line of a source, or what is between two commas. One with neither key nor value is a comment
// in a line of its own, or after an opening bracket.
struct SourceItem {
    std::string key; // or "[name]" of a table; none in a list
    SourceValue value;
    std::string comment;
    bool has_blank_before = false; // a line
    bool starts_line = false;

    bool is_comment() const { return key.empty() && value.kind == SourceValue::Kind::none; }
    bool is_header() const { return key.starts_with('['); }
};

// The lines of a source that the parser takes. Throws std::logic_error for any other.
std::vector<SourceItem> read_source_items(std::string_view text);

} // namespace velform
