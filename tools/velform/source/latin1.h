// Text of a source, which is UTF-8, as ISO 8859-1.
#pragma once

#include <string>
#include <string_view>

namespace velform {

enum class LineFeeds { allowed, refused };

struct Latin1 {
    std::string text;  // empty when there is a fault
    std::string fault; // names the first character that has no place; empty when all have one
};

// Line ends of two characters become a line feed. Control characters have no place.
Latin1 to_latin1(std::string_view utf8, LineFeeds line_feeds);

} // namespace velform
