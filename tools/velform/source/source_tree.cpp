#include "source/source_tree.h"

#include <algorithm>
#include <stdexcept>

#include "base/printable.h"

namespace velform {
namespace {

using Kind = SourceValue::Kind;

constexpr std::string_view blanks = " \t";

bool is_digit(char c) { return c >= '0' && c <= '9'; }

class TreeReader {
public:
    explicit TreeReader(std::string_view text) : text_(text) {}

    std::vector<SourceItem> run() {
        std::vector<SourceItem> items;
        for (skip_space(); !is_at_end(); skip_space()) {
            items.push_back(line());
            if (!is_at_end() && peek() != '\n') fail();
        }
        return items;
    }

private:
    [[noreturn]] static void fail() { throw std::logic_error("the source cannot be formatted"); }

    bool is_at_end() const { return place_ == text_.size(); }
    char peek() const { return is_at_end() ? '\0' : text_[place_]; }
    bool takes(std::string_view word) {
        if (!text_.substr(place_).starts_with(word)) return false;
        place_ += word.size();
        return true;
    }
    void require(std::string_view word) {
        if (!takes(word)) fail();
    }
    std::string_view until_any_of(std::string_view ends) {
        const std::size_t from = place_;
        place_ = std::min(text_.find_first_of(ends, place_), text_.size());
        return text_.substr(from, place_ - from);
    }

    void skip_blanks() { place_ = std::min(text_.find_first_not_of(blanks, place_), text_.size()); }

    // To the next word, counting the line feeds before it.
    void skip_space() {
        for (line_feeds_ = 0; skip_blanks(), takes("\n");) ++line_feeds_;
    }

    SourceItem begin_item() const {
        SourceItem item;
        item.has_blank_before = line_feeds_ > 1;
        item.starts_line = line_feeds_ > 0;
        return item;
    }

    SourceItem line() {
        SourceItem item = begin_item();
        if (peek() == '[') {
            item.key = header();
        } else if (peek() != '#') {
            item.key = key();
            require("=");
            skip_blanks();
            item.value = value();
        }
        skip_blanks();
        item.comment = comment();
        return item;
    }

    std::string header() {
        const bool is_list = takes("[[");
        if (!is_list) require("[");
        skip_blanks();
        std::string text = (is_list ? "[[" : "[") + key();
        const std::string_view end = is_list ? "]]" : "]";
        require(end);
        return text += end;
    }

    // And the blanks after it.
    std::string key() {
        std::string key;
        do {
            skip_blanks();
            if (!key.empty()) key += '.';
            const bool is_quoted = peek() == '"' || peek() == '\'';
            const std::string_view part = is_quoted ? string() : until_any_of(" \t\n=.[]{},#\"'");
            if (part.empty()) fail();
            key += part;
            skip_blanks();
        } while (takes("."));
        return key;
    }

    std::string comment() {
        if (peek() != '#') return {};
        const std::string_view text = until_any_of("\n");
        return std::string(text.substr(0, text.find_last_not_of(blanks) + 1));
    }

    std::string_view string() {
        const std::size_t from = place_;
        const char quote = peek();
        const std::string_view three = quote == '"' ? R"(""")" : "'''";
        const bool is_long = takes(three);
        const std::string_view end = is_long ? three : three.substr(0, 1);
        if (!is_long) require(end);
        while (!takes(end)) {
            if (is_at_end()) fail();
            place_ = std::min(place_ + (quote == '"' && peek() == '\\' ? 2 : 1), text_.size());
        }
        // Up to two quotation marks right before the closing ones belong to the text.
        for (int k = 0; is_long && k < 2; ++k) takes(end.substr(0, 1));
        return text_.substr(from, place_ - from);
    }

    // A number, a word or a date, which may have a blank before its time.
    std::string_view word() {
        constexpr std::string_view ends = " \t\n,]}#";
        const std::size_t from = place_;
        const std::string_view first = until_any_of(ends);
        const bool is_date = first.size() == 10 && first[4] == '-' && first[7] == '-';
        if (is_date && peek() == ' ' && place_ + 1 < text_.size() && is_digit(text_[place_ + 1])) {
            ++place_;
            until_any_of(ends);
        }
        if (first.empty()) fail();
        return text_.substr(from, place_ - from);
    }

    SourceValue value() {
        if (takes("[")) return list();
        if (takes("{")) return table();
        SourceValue value;
        value.kind = Kind::scalar;
        value.text = peek() == '"' || peek() == '\'' ? string() : word();
        value.width = characters_in(value.text.substr(0, value.text.find('\n')));
        value.takes_lines = value.text.find('\n') != std::string::npos;
        return value;
    }

    SourceValue list() {
        SourceValue list;
        list.kind = Kind::list;
        for (skip_space(); !takes("]"); skip_space()) {
            if (takes(",")) continue;
            SourceItem item = begin_item();
            if (peek() == '#') {
                item.comment = comment();
                list.has_comments = list.takes_lines = true;
                if (ends_line_of_last(item, list.items)) {
                    list.items.back().comment = item.comment;
                    continue;
                }
                item.starts_line = item.starts_line || !list.items.empty();
            } else {
                item.value = value();
            }
            add(std::move(item), list);
        }
        list.width += 2; // the brackets
        return list;
    }

    static bool ends_line_of_last(const SourceItem &comment, const std::vector<SourceItem> &items) {
        return !comment.starts_line && !items.empty() && items.back().comment.empty();
    }

    static void add(SourceItem item, SourceValue &to) {
        to.width += item.value.width + (to.items.empty() ? 0 : 2); // the comma and a blank
        to.takes_lines = to.takes_lines || item.value.takes_lines;
        to.items.push_back(std::move(item));
    }

    SourceValue table() {
        SourceValue table;
        table.kind = Kind::table;
        for (skip_blanks(); !takes("}"); skip_blanks()) {
            if (!table.items.empty()) require(",");
            SourceItem item;
            item.key = key();
            require("=");
            skip_blanks();
            item.value = value();
            table.width += characters_in(item.key) + 3; // the '=' and two blanks
            add(std::move(item), table);
        }
        table.width += table.items.empty() ? 2 : 4;
        return table;
    }

    std::string_view text_;
    std::size_t place_ = 0;
    std::size_t line_feeds_ = 0;
};

} // namespace

std::vector<SourceItem> read_source_items(std::string_view text) { return TreeReader(text).run(); }

} // namespace velform
