#include "source/toml_text.h"

#include <algorithm>

#include <fmt/format.h>

#include "base/printable.h"

namespace velform {
namespace {

// The parser and its tables recurse with the depth of a source, so the depth is limited before.
constexpr int most_key_parts = 32;
constexpr int most_brackets = 64;

Position position_at(std::string_view text, std::size_t index) {
    const std::string_view before = text.substr(0, index);
    const auto line_start = before.rfind('\n') + 1; // npos + 1 is 0
    const auto lines = std::ranges::count(before, '\n');
    const auto characters = characters_in(before.substr(line_start));
    return {static_cast<std::uint32_t>(lines + 1), static_cast<std::uint32_t>(characters + 1)};
}

// Walks over a source and looks at what is neither comment nor string.
class DepthScan {
public:
    explicit DepthScan(std::string_view text) : text_(text) {}

    // Returns the first place that lies too deep.
    std::optional<Position> run() {
        for (; place_ < text_.size(); ++place_) {
            step(text_[place_]);
            if (parts_ > most_key_parts || brackets_ > most_brackets) {
                return position_at(text_, place_);
            }
        }
        return std::nullopt;
    }

private:
    void step(char c) {
        if (c == '#') {
            skip_comment();
        } else if (c == '"' || c == '\'') {
            skip_string(c);
        } else if (c == '.') {
            ++parts_;
        } else if (std::string_view("\n=,[]{}").find(c) != std::string_view::npos) {
            parts_ = 1;
            if (c == '[' || c == '{') ++brackets_;
            if (c == ']' || c == '}') --brackets_;
        }
    }

    void skip_comment() {
        // The line feed stays for the next step.
        place_ = std::min(text_.find('\n', place_), text_.size()) - 1;
    }

    void skip_string(char quote) {
        const std::string_view rest = text_.substr(place_);
        const bool long_form = rest.starts_with(std::string(3, quote));
        const std::string end(long_form ? 3 : 1, quote);
        std::size_t at = place_ + end.size();
        while (at < text_.size() && !text_.substr(at).starts_with(end)) {
            if (!long_form && text_[at] == '\n') break;
            at += quote == '"' && text_[at] == '\\' ? 2 : 1;
        }
        place_ = std::min(at + end.size(), text_.size()) - 1;
    }

    std::string_view text_;
    std::size_t place_ = 0;
    int parts_ = 1;
    int brackets_ = 0;
};

// What the parser says, in words that help: the first row whose two parts are in its message.
struct Wording {
    std::string_view where, what, words;
};
constexpr Wording wordings[] = {
    {"string", "end-of-file",
     "the string is not closed; its quotation marks are missing at the end"},
    {"string", "unknown escape",
     "there is no such escape in a string; a backslash itself is written \"\\\\\""},
    {"inline table", "saw '\\n'",
     "a table in braces must be on one line; close it here, or write it with [[...]]"},
    {"inline table", "end-of-file", "the table is not closed; a '}' is missing"},
    {"inline table", "expected", "a comma or a '}' is missing here"},
    {"array", "end-of-file", "the list is not closed; a ']' is missing"},
    {"array", "expected comma", "a comma or a ']' is missing before this"},
    {"table header", "expected",
     "the name of a table ends with ']', or with ']]' in a list of tables"},
    {"", "cannot redefine existing", "this key has a value already; take one out"},
    {"", "cannot add", "this key has a value already, which is of another kind"},
    {"key-value", "expected value", "a value is missing after the '='"},
    {"key-value", "expected '='", "a '=' is missing after the key"},
    {"", "could not determine value type",
     "this is no value; a string is in quotes, and a colour is a string, as in \"#ffffff\""},
    {"integer", "expected digit", "this is no number"},
};

// A string that is not closed ends at the end of its line, where the parser sees a control
// character.
bool is_inside_line(std::string_view text, Position where) {
    for (std::uint32_t line = 1; line < where.line; ++line) {
        text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
    }
    const std::string_view line = text.substr(0, text.find('\n'));
    return where.column <= static_cast<std::size_t>(position_at(line, line.size()).column) - 1;
}

std::string message_of(const toml::parse_error &fault, std::string_view text) {
    const std::string_view message = fault.description();
    if (message.find("control characters") != std::string_view::npos) {
        return is_inside_line(text, position_of(fault.source()))
                   ? "a control character in a string; write it as an escape, as in \"\\u0007\""
                   : "the string is not closed; a quotation mark is missing at its end";
    }
    for (const Wording &wording : wordings) {
        if (message.find(wording.where) != std::string_view::npos &&
            message.find(wording.what) != std::string_view::npos) {
            return std::string(wording.words);
        }
    }
    constexpr std::string_view beginning = "Error while parsing ";
    const bool has_place = message.starts_with(beginning);
    return fmt::format("this is not as TOML wants it: {}",
                       has_place ? message.substr(beginning.size()) : message);
}

} // namespace

std::optional<toml::table> parse_toml(std::string_view text, Diagnostics &diagnostics) {
    if (const auto where = DepthScan(text).run()) {
        diagnostics.error(*where, fmt::format("nested too deeply; at most {} parts of a key and {} "
                                              "brackets within each other are allowed",
                                              most_key_parts, most_brackets));
        return std::nullopt;
    }
    try {
        return toml::parse(text);
    } catch (const toml::parse_error &fault) {
        diagnostics.error(position_of(fault.source()), message_of(fault, text));
        return std::nullopt;
    }
}

std::string_view kind_of(const toml::node &node) {
    switch (node.type()) {
    case toml::node_type::table:
        return "a table";
    case toml::node_type::array:
        return "a list";
    case toml::node_type::string:
        return "a string";
    case toml::node_type::integer:
        return "a whole number";
    case toml::node_type::floating_point:
        return "a number with a fraction";
    case toml::node_type::boolean:
        return "true or false";
    default:
        return "a date or time";
    }
}

} // namespace velform
