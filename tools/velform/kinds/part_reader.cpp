#include "kinds/part_reader.h"

#include <algorithm>

#include <fmt/format.h>

#include "base/suggestion.h"
#include "source/field_value.h"
#include "source/latin1.h"
#include "source/toml_text.h"

namespace velform {
namespace {

using Keys = std::vector<std::string_view>;

constexpr Range row_heights{12, 200}, column_widths{8, 4000}, picture_widths{1, 256};
constexpr std::size_t most_columns = 20, most_pages = 49;
constexpr std::string_view column_keys[] = {"title", "width", "align", "picture"};
constexpr std::string_view page_keys[] = {"title", "key", "object", "objects", "window", "windows"};
constexpr std::string_view object_lists[] = {"object", "objects", "window", "windows"};

bool is_one_of(std::span<const std::string_view> keys, std::string_view key) {
    return std::ranges::find(keys, key) != keys.end();
}

// Whether a key is one of those that only some kinds have.
bool is_of_kinds(std::string_view key) {
    return std::ranges::any_of(part_table(),
                               [key](const PartRow &row) { return is_one_of(row.keys, key); });
}

// Those that are no field of an object.
bool is_part_key(std::string_view key) {
    return std::ranges::find(part_keys(), key, &PartKey::key) != part_keys().end();
}

class PartReader {
public:
    PartReader(const ReadObjects &read_objects, Diagnostics &diagnostics)
        : read_objects_(read_objects), diagnostics_(diagnostics) {}

    std::optional<PartSource> read(const toml::table &table, bool is_window) {
        const toml::node *kind = table.get("kind");
        if (kind == nullptr) {
            refuse_keys_without_kind(table);
            return {};
        }
        const PartRow *row = find_kind(*kind);
        if (row == nullptr) return {};
        refuse_keys(table, *row);
        refuse_place(*kind, *row, is_window);
        PartSource part;
        part.kind = row->kind;
        part.where = position_of(*kind);
        read_keys(table, *row, part);
        return part;
    }

private:
    void error(const toml::node &node, std::string message) {
        diagnostics_.error(position_of(node), std::move(message));
    }

    const PartRow *find_kind(const toml::node &node) {
        Keys names;
        for (const PartRow &row : part_table()) names.push_back(row.name);
        const std::string wanted =
            fmt::format("`kind` must be one of \"{}\"", fmt::join(names, "\", \""));
        const auto *string = node.as_string();
        if (string == nullptr) {
            error(node, fmt::format("{}, not {}", wanted, kind_of(node)));
            return nullptr;
        }
        const auto row = std::ranges::find(part_table(), string->get(), &PartRow::name);
        if (row != part_table().end()) return &*row;
        error(node, fmt::format("{}, not \"{}\"{}", wanted, string->get(),
                                did_you_mean(string->get(), names)));
        return nullptr;
    }

    // What is raw may say by itself which part it is.
    void refuse_keys_without_kind(const toml::table &table) {
        const bool is_raw_part = table.at_path("raw.part").is_integer();
        for (const auto &[key, node] : table) {
            if (!is_of_kinds(key.str()) || (is_raw_part && !is_part_key(key.str()))) continue;
            diagnostics_.error(position_of(key),
                               fmt::format("`{}` means nothing without a `kind`", key.str()));
        }
    }

    static bool means_nothing(std::string_view key, const PartRow &row) {
        if (key == "label") return !row.has_caption;
        if (key == "menu") return !row.has_caption || !row.has_objects;
        if (is_one_of(object_lists, key)) return !row.has_objects;
        return is_of_kinds(key) && !is_one_of(row.keys, key);
    }

    void refuse_keys(const toml::table &table, const PartRow &row) {
        for (const auto &[key, node] : table) {
            if (key == "type") {
                refuse_type(node, row);
            } else if (means_nothing(key.str(), row)) {
                diagnostics_.error(position_of(key), fmt::format("`{}` means nothing for {}",
                                                                 key.str(), row.article));
            }
        }
    }

    void refuse_type(const toml::node &node, const PartRow &row) {
        const auto *string = node.as_string();
        if (string != nullptr && string->get() == "label") return;
        error(node, fmt::format("{} is a label; take out the `type`", row.article));
    }

    void refuse_place(const toml::node &kind, const PartRow &row, bool is_window) {
        if (is_window == (row.kind == PartKind::whole)) return;
        error(kind, is_window ? fmt::format("{} is no window; put it into `objects`", row.article)
                              : "only a window at the top level can be the whole X window");
    }

    std::optional<Setting> value(const toml::table &table, std::string_view key, Field like,
                                 std::optional<Range> range = {}) {
        const toml::node *node = table.get(key);
        if (node == nullptr) return {};
        RecordField field = record_field(like);
        field.key = key;
        if (range) field.range = *range;
        return read_value(field, *node, diagnostics_);
    }

    void read_keys(const toml::table &table, const PartRow &row, PartSource &part) {
        const auto given = [&](std::string_view key) {
            return is_one_of(row.keys, key) ? table.get(key) : nullptr;
        };
        if (given("checked")) part.checked = value(table, "checked", Field::hidden, Range{0, 1});
        if (given("group")) part.group = value(table, "group", Field::label);
        if (given("row_height")) {
            part.row_height = value(table, "row_height", Field::height, row_heights);
        }
        if (given("for")) part.scrolls = value(table, "for", Field::menu);
        if (const toml::node *node = given("columns")) read_columns(*node, part);
        if (const toml::node *node = given("rows")) read_rows(*node, part);
        for (const std::string_view key : {"pages", "page"}) {
            if (const toml::node *node = given(key)) read_pages(key, *node, part);
        }
    }

    // Tables in a list, with at most so many entries; unknown keys of them are reported.
    template <class Read>
    void read_tables(const toml::node &node, std::string_view what, std::size_t most,
                     std::span<const std::string_view> keys, Read read) {
        const toml::array *entries = node.as_array();
        const bool is_good =
            entries != nullptr && !entries->empty() && entries->size() <= most &&
            std::ranges::all_of(*entries, [](const toml::node &entry) { return entry.is_table(); });
        if (!is_good) {
            error(node, fmt::format("`{}s` must be a list of 1 to {} tables", what, most));
            return;
        }
        for (const toml::node &entry : *entries) {
            const toml::table &table = *entry.as_table();
            for (const auto &[key, value] : table) {
                if (is_one_of(keys, key.str())) continue;
                diagnostics_.error(position_of(key),
                                   fmt::format("a {} has no key '{}'{}", what, key.str(),
                                               did_you_mean(key.str(), keys)));
            }
            read(table);
        }
    }

    void read_columns(const toml::node &node, PartSource &part) {
        read_tables(node, "column", most_columns, column_keys, [&](const toml::table &table) {
            part.columns.push_back({position_of(table), value(table, "title", Field::label),
                                    value(table, "width", Field::width, column_widths),
                                    value(table, "align", Field::align),
                                    value(table, "picture", Field::width, picture_widths)});
        });
    }

    void read_pages(std::string_view key, const toml::node &node, PartSource &part) {
        if (!part.pages.empty()) {
            error(node, fmt::format("the pages are given twice; take out `{}`", key));
            return;
        }
        read_tables(node, "page", most_pages, page_keys, [&](const toml::table &table) {
            part.pages.push_back({position_of(table), value(table, "title", Field::label),
                                  value(table, "key", Field::access_key), read_objects_(table)});
        });
    }

    void read_rows(const toml::node &node, PartSource &part) {
        part.rows_where = position_of(node);
        const toml::array *entries = node.as_array();
        if (entries == nullptr) {
            error(node, fmt::format("`rows` must be a list of strings, not {}", kind_of(node)));
            return;
        }
        std::size_t size = 0;
        for (const toml::node &entry : *entries) {
            part.rows.push_back(read_row(entry));
            for (const std::string &cell : part.rows.back()) size += cell.size() + 1;
            if (size <= VEL_TEXT_SIZE) continue; // the last row has no line feed
            error(entry, fmt::format("`rows` have more than {} characters; let the program supply "
                                     "them",
                                     VEL_TEXT_SIZE - 1));
            return;
        }
    }

    std::vector<std::string> read_row(const toml::node &node) {
        const auto *string = node.as_string();
        if (string == nullptr) {
            error(node, fmt::format("a row must be a string, not {}", kind_of(node)));
            return {""};
        }
        std::vector<std::string> cells;
        std::string_view rest = string->get();
        for (bool is_last = false; !is_last;) {
            const std::string_view cell = rest.substr(0, rest.find('\t'));
            is_last = cell.size() == rest.size();
            rest.remove_prefix(std::min(rest.size(), cell.size() + 1));
            Latin1 converted = to_latin1(cell, LineFeeds::refused);
            if (!converted.fault.empty()) {
                error(node, fmt::format("the row contains {}", converted.fault));
            }
            cells.push_back(std::move(converted.text));
        }
        return cells;
    }

    const ReadObjects &read_objects_;
    Diagnostics &diagnostics_;
};

} // namespace

std::vector<std::string_view> keys_of_parts() {
    Keys keys{"page"};
    for (const PartKey &key : part_keys()) keys.push_back(key.key);
    return keys;
}

std::optional<PartSource> read_part(const toml::table &table, bool is_window,
                                    const ReadObjects &read_objects, Diagnostics &diagnostics) {
    return PartReader(read_objects, diagnostics).read(table, is_window);
}

} // namespace velform
