#include "commands/fields_page.h"

#include <vector>

#include <fmt/format.h>

#include "base/status.h"
#include "form/record_table.h"
#include "kinds/part_source.h"

namespace velform {
namespace {

std::string joined(const std::vector<std::string> &parts) {
    return fmt::format("{}", fmt::join(parts, ", "));
}

std::string codes_of(const RecordField &row) {
    std::vector<std::string> parts;
    for (const Name &name : row.names)
        parts.push_back(fmt::format("`\"{}\"` {}", name.name, name.code));
    return joined(parts);
}

std::string values_of(const RecordField &row) {
    switch (row.kind) {
    case Kind::number:
        return fmt::format("{} to {}", row.range.first, row.range.last);
    case Kind::colour:
        return "`\"#rrggbb\"`";
    case Kind::flag:
        return "`true` 1, `false` 0";
    case Kind::code:
        return codes_of(row);
    case Kind::words:
        return fmt::format("words out of {}", codes_of(row));
    case Kind::letter:
        return "letter or digit, as in `\"s\"`";
    case Kind::object:
        return "`id` of an object";
    case Kind::path:
        return "file name, at most 67 bytes";
    default:
        return "string";
    }
}

// A value as a source says it.
std::string written(const RecordField &row, std::int64_t value) {
    if (row.kind == Kind::colour) return fmt::format("`\"#{:06x}\"`", value);
    if (row.kind == Kind::flag) return value != 0 ? "`true`" : "`false`";
    for (const Name &name : row.names) {
        if (name.code == value) return fmt::format("`\"{}\"`", name.name);
    }
    return fmt::format("{}", value);
}

std::string default_of(const RecordField &row) {
    if (row.kind == Kind::caption || row.kind == Kind::path) return "empty";
    if (row.kind == Kind::text || row.kind == Kind::object || row.kind == Kind::letter ||
        row.field == Field::type) {
        return "none";
    }
    if (row.field == Field::focus) return "`true` for buttons";
    if (row.field == Field::anchor) return "`\"left top\"`";
    std::vector<std::string> parts{written(row, row.standard)};
    for (const TypeStandard &standard : type_standards()) {
        if (standard.field != row.field) continue;
        parts.push_back(
            fmt::format("{} {}", type_name(standard.type), written(row, standard.value)));
    }
    return joined(parts);
}

// The types for which a field means something.
std::string users_of(const RecordField &row) {
    std::vector<std::string> parts;
    bool is_for_all = true;
    for (const Name &type : record_field(Field::type).names) {
        const bool is_user = means_something(row, type.code);
        if (is_user) parts.emplace_back(type.name);
        is_for_all = is_for_all && is_user;
    }
    return is_for_all ? "all" : joined(parts);
}

std::string key_rows() {
    std::string rows;
    for (const RecordField &row : whole_table()) {
        if (row.key.empty()) continue;
        rows += fmt::format("| `{}` | {} | {} | {} | {} |\n", row.key, values_of(row),
                            default_of(row), users_of(row), row.meaning);
    }
    return rows;
}

std::string shorthand_rows() {
    std::string rows;
    for (const Shorthand &shorthand : shorthands()) {
        std::vector<std::string> keys;
        for (const Field field : shorthand.fields) {
            keys.push_back(fmt::format("`{}`", record_field(field).key));
        }
        rows += fmt::format("| `{}` | {} | {} |\n", shorthand.key, shorthand.meaning, joined(keys));
    }
    return rows;
}

std::string kind_rows() {
    std::string rows;
    for (const PartRow &row : part_table()) {
        std::vector<std::string> keys;
        for (const std::string_view key : row.keys) keys.push_back(fmt::format("`{}`", key));
        if (row.has_caption) keys.emplace_back("`label`");
        if (row.has_objects) keys.emplace_back("`objects`");
        rows += fmt::format("| `\"{}\"` | {} | {} |\n", row.name, row.meaning, joined(keys));
    }
    return rows;
}

std::string part_key_rows() {
    std::string rows;
    for (const PartKey &key : part_keys()) {
        rows += fmt::format("| `{}` | {} | {} |\n", key.key, key.value, key.meaning);
    }
    return rows;
}

std::string source_of(const RecordField &row) {
    if (row.kind == Kind::reserved) return "nothing; written as 0 and not read";
    if (row.kind == Kind::computed) return std::string(row.meaning);
    if (row.kind == Kind::object) return fmt::format("the number of `{}`, for titles", row.key);
    return fmt::format("`{}`", row.key);
}

std::string layout_rows() {
    std::string rows;
    for (const RecordField &row : record_table()) {
        rows += fmt::format("| {} | {} | `{}` | {} |\n", row.offset, row.size, row.name,
                            source_of(row));
    }
    return rows;
}

std::string key_tables() {
    return fmt::format("\n### Keys of an object\n\n"
                       "| Key | Value | Default | Types | Meaning |\n|---|---|---|---|---|\n{}\n"
                       "### Keys for several fields\n\n"
                       "| Key | Value | Stands for |\n|---|---|---|\n{}\n"
                       "### Kinds\n\n"
                       "| Kind | What it is | Keys of its own |\n|---|---|---|\n{}\n"
                       "### Keys of kinds alone\n\n"
                       "| Key | Value | Meaning |\n|---|---|---|\n{}\n",
                       key_rows(), shorthand_rows(), kind_rows(), part_key_rows());
}

std::string record_layout() {
    return fmt::format("\n| Byte | Size | Field in `velumo.h` | Holds |\n|---|---|---|---|\n{}\n",
                       layout_rows());
}

// A part of a page, between two marks.
struct Part {
    std::string_view begin, end;
    std::string (*text)();
};
constexpr Part page_parts[] = {{"<!-- fields -->\n", "<!-- /fields -->\n", key_tables},
                               {"<!-- record -->\n", "<!-- /record -->\n", record_layout}};

} // namespace

std::string field_reference() { return key_tables() + record_layout(); }

std::string with_field_reference(std::string page) {
    bool has_marks = false;
    for (const Part &part : page_parts) {
        const std::size_t mark = page.find(part.begin);
        const std::size_t end = page.find(part.end);
        if (mark == std::string::npos || end == std::string::npos || end < mark) continue;
        const std::size_t begin = mark + part.begin.size();
        page.replace(begin, end - begin, part.text());
        has_marks = true;
    }
    if (!has_marks) {
        throw FileProblem("the page has no part between the marks <!-- fields --> and "
                          "<!-- /fields -->, or <!-- record --> and <!-- /record -->");
    }
    return page;
}

} // namespace velform
