#include "source/source_layout.h"

#include <algorithm>
#include <stdexcept>

#include "base/printable.h"
#include "source/source_tree.h"
#include "source/toml_text.h"

namespace velform {
namespace {

using Kind = SourceValue::Kind;

constexpr std::size_t longest_line = 100; // characters, without the comment at its end
constexpr std::size_t step = 4;           // of the indentation

bool holds(const SourceValue &list, Kind kind) {
    return std::ranges::any_of(list.items, [=](const auto &i) { return i.value.kind == kind; });
}

class Layout {
public:
    std::string run(const std::vector<SourceItem> &lines) {
        const std::vector<bool> is_head = heads_of_tables(lines);
        for (std::size_t k = 0; k < lines.size(); ++k) {
            if (k > 0 && is_apart(lines[k - 1], lines[k], is_head[k])) text_ += '\n';
            write_line(lines[k]);
        }
        return std::move(text_);
    }

private:
    // The headers of tables, and the comments right above them.
    static std::vector<bool> heads_of_tables(const std::vector<SourceItem> &lines) {
        std::vector<bool> is_head(lines.size());
        for (std::size_t k = lines.size(); k-- > 0;) {
            const bool is_right_above =
                lines[k].is_comment() && k + 1 < lines.size() && !lines[k + 1].has_blank_before;
            is_head[k] = lines[k].is_header() || (is_right_above && is_head[k + 1]);
        }
        return is_head;
    }

    static bool is_apart(const SourceItem &before, const SourceItem &line, bool is_head) {
        const bool was_apart = line.has_blank_before;
        if (before.is_comment()) return was_apart;
        const bool is_first_key = before.is_header() && !line.is_comment();
        return is_head || (was_apart && !is_first_key);
    }

    void write_line(const SourceItem &line) {
        text_ += line.key;
        if (line.value.kind != Kind::none) {
            text_ += " = ";
            const std::size_t width = characters_in(line.key) + 3 + line.value.width;
            write(line.value, 0, width > longest_line);
        }
        write_comment(line, !line.is_comment());
        text_ += '\n';
    }

    void write_comment(const SourceItem &item, bool is_after_something) {
        if (is_after_something && !item.comment.empty()) text_ += ' ';
        text_ += item.comment;
    }

    void write(const SourceValue &value, std::size_t indentation, bool is_too_long) {
        if (value.kind == Kind::table) {
            write_table(value, indentation, is_too_long);
        } else if (value.kind == Kind::scalar) {
            text_ += value.text;
        } else if (!value.items.empty() && (is_too_long || value.takes_lines)) {
            write_broken(value, indentation);
        } else {
            write_list(value, indentation);
        }
    }

    // Lines break in its lists only. Those of numbers and words stay whole if they can.
    void write_table(const SourceValue &table, std::size_t indentation, bool is_too_long) {
        text_ += table.items.empty() ? "{" : "{ ";
        for (std::size_t k = 0; k < table.items.size(); ++k) {
            const SourceValue &value = table.items[k].value;
            text_ += (k > 0 ? ", " : "") + table.items[k].key + " = ";
            const bool is_worth_it = value.kind == Kind::table || holds(value, Kind::table) ||
                                     indentation + step + value.width > longest_line;
            write(value, indentation, is_too_long && is_worth_it);
        }
        text_ += table.items.empty() ? "}" : " }";
    }

    void write_list(const SourceValue &list, std::size_t indentation) {
        text_ += '[';
        for (std::size_t k = 0; k < list.items.size(); ++k) {
            if (k > 0) text_ += ", ";
            write(list.items[k].value, indentation, false);
        }
        text_ += ']';
    }

    // Tables and lists have lines of their own. Other values fill the lines, but where comments end
    // lines, these stay as they are.
    void write_broken(const SourceValue &list, std::size_t indentation) {
        const bool has_lines = std::ranges::any_of(list.items, [](const SourceItem &item) {
            return item.value.kind > Kind::scalar || item.value.takes_lines;
        });
        const std::size_t inner = indentation + step;
        std::size_t column = longest_line;
        text_ += '[';
        for (const SourceItem &item : list.items) {
            const std::size_t width = item.value.width + 1; // a comma
            if (!item.is_comment() || item.starts_line) {
                const bool is_first = &item == &list.items.front();
                const bool breaks = has_lines || (list.has_comments && item.starts_line) ||
                                    item.has_blank_before || column + 1 + width > longest_line;
                if (item.has_blank_before && !is_first) text_ += '\n';
                column = breaks ? begin_line(inner) : column + 1;
                if (!breaks) text_ += ' ';
            }
            if (!item.is_comment()) {
                write(item.value, inner, column + width > longest_line);
                text_ += ',';
            }
            write_comment(item, !item.is_comment() || !item.starts_line);
            column = item.comment.empty() ? column + width : longest_line;
        }
        begin_line(indentation);
        text_ += ']';
    }

    std::size_t begin_line(std::size_t indentation) {
        text_ += '\n';
        text_.append(indentation, ' ');
        return indentation;
    }

    std::string text_;
};

// Lines end with a line feed, which is what the parser takes others for in a text, too.
std::string with_line_feeds(std::string_view source) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (source.starts_with(byte_order_mark)) source.remove_prefix(byte_order_mark.size());
    std::string text;
    for (std::size_t k = 0; k < source.size(); ++k) {
        if (!source.substr(k).starts_with("\r\n")) text += source[k];
    }
    return text;
}

// Without what a layout may change.
std::string words_of(std::string text) {
    std::erase_if(
        text, [](char c) { return std::string_view(" \t\n,").find(c) != std::string_view::npos; });
    return text;
}

// Also to people: comments count.
bool mean_the_same(const std::string &one, const std::string &other) {
    Diagnostics unused;
    const auto first = parse_toml(one, unused), second = parse_toml(other, unused);
    return first && second && *first == *second && words_of(one) == words_of(other);
}

} // namespace

std::string laid_out(std::string_view source) {
    const std::string plain = with_line_feeds(source);
    std::string text = Layout().run(read_source_items(plain));
    if (!mean_the_same(plain, text)) throw std::logic_error("the source cannot be formatted");
    return text;
}

} // namespace velform
