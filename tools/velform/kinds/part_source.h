// What a form source says of a part: an object with a `kind`.
#pragma once

#include <span>
#include <vector>

#include "source/form_source.h"

namespace velform {

enum class PartKind : std::uint8_t {
    check,
    radio,
    list,
    scroll_bar,
    choice,
    slider,
    progress,
    tabs,
    button,
    caption,
    whole
};

struct ColumnSource {
    Position where;
    std::optional<Setting> title, width, align, picture;
};

struct PageSource {
    Position where;
    std::optional<Setting> title, key;
    std::vector<ObjectSource> objects;
};

struct PartSource {
    PartKind kind{};
    Position where; // of its kind
    std::optional<Setting> checked, group, row_height, scrolls;
    std::vector<ColumnSource> columns;
    std::vector<std::vector<std::string>> rows; // their cells, in ISO 8859-1
    Position rows_where;
    std::vector<PageSource> pages;
};

// The looks of a part's main object.
Role role_of(PartKind kind);
// As in "a check", for messages.
std::string_view name_with_article(PartKind kind);

// A kind with the keys that only some kinds have.
struct PartRow {
    std::string_view name, article;
    PartKind kind;
    Role role;
    std::span<const std::string_view> keys;
    bool has_caption, has_objects;
    std::string_view meaning;
};
std::span<const PartRow> part_table();

// A key that is no field of an object.
struct PartKey {
    std::string_view key, value, meaning;
};
std::span<const PartKey> part_keys();

} // namespace velform
