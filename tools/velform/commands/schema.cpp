#include "commands/schema.h"

#include <vector>

#include <fmt/format.h>

#include "form/record_table.h"
#include "kinds/file_dialog.h"
#include "kinds/part_source.h"
#include "source/theme.h"

namespace velform {
namespace {

std::string quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

template <class Names> std::string enumeration(const Names &names) {
    std::vector<std::string> parts;
    for (const auto &row : names) parts.push_back(quoted(row.name));
    return fmt::format(R"({{"enum": [{}]}})", fmt::join(parts, ", "));
}

// A whole number in a range.
std::string number(Range range) {
    return fmt::format(R"({{"type": "integer", "minimum": {}, "maximum": {}}})", range.first,
                       range.last);
}

constexpr std::string_view string = R"({"type": "string"})";
constexpr std::string_view integer = R"({"type": "integer"})";

std::string list_of(std::string_view entry) {
    return fmt::format(R"({{"type": "array", "items": {}}})", entry);
}
std::string either(std::string_view a, std::string_view b) {
    return fmt::format(R"({{"anyOf": [{}, {}]}})", a, b);
}
std::string one_or_list(std::string_view entry) { return either(entry, list_of(entry)); }
std::string reference(std::string_view name) {
    return fmt::format(R"({{"$ref": "#/$defs/{}"}})", name);
}

std::string value_of(const RecordField &row) {
    switch (row.kind) {
    case Kind::number:
        return number(row.range);
    case Kind::colour:
        return R"({"type": "string", "pattern": "^#[0-9a-fA-F]{6}$"})";
    case Kind::flag:
        return R"({"type": ["boolean", "integer"]})";
    case Kind::letter:
        return R"({"type": "string", "pattern": "^[A-Za-z0-9]$"})";
    case Kind::code:
        return either(enumeration(row.names), integer);
    case Kind::words:
        return either(string, integer);
    default:
        return std::string(string);
    }
}

// The properties of a table. What a key may be is said once in the definitions, with its meaning.
class Properties {
public:
    void add(std::string_view key, std::string_view value) {
        parts_.push_back(fmt::format("{}: {}", quoted(key), value));
    }
    void add(std::string_view key, std::string_view value, std::string_view meaning) {
        add(key, fmt::format(R"({{"description": {}, "allOf": [{}]}})", quoted(meaning), value));
    }
    std::string table(std::string_view required = "") const {
        const std::string needs =
            required.empty() ? "" : fmt::format(R"(, "required": [{}])", quoted(required));
        return fmt::format("{{\"type\": \"object\", \"additionalProperties\": false{}, "
                           "\"properties\": {{\n    {}}}}}",
                           needs, fmt::join(parts_, ",\n    "));
    }

private:
    std::vector<std::string> parts_;
};

void add_lists(Properties &properties) {
    for (const char *key : {"object", "objects", "window", "windows"}) {
        properties.add(key, list_of(reference("object")));
    }
}

// What styles, frame buttons and objects have.
Properties block() {
    Properties properties;
    for (const RecordField &row : whole_table()) {
        if (!row.key.empty()) properties.add(row.key, value_of(row), row.meaning);
    }
    for (const Shorthand &row : shorthands()) {
        const std::string four =
            R"({"type": "array", "items": {"type": "integer"}, "minItems": 4, "maxItems": 4})";
        properties.add(row.key, row.takes_one_for_all ? either(four, integer) : four, row.meaning);
    }
    properties.add("style", one_or_list(string), "Names of styles; later ones win.");
    return properties;
}

std::string column() {
    Properties properties;
    properties.add("title", string);
    for (const char *key : {"width", "picture"}) properties.add(key, integer);
    properties.add("align", value_of(record_field(Field::align)));
    return properties.table();
}

std::string page() {
    Properties properties;
    for (const char *key : {"title", "key"}) properties.add(key, string);
    add_lists(properties);
    return properties.table();
}

// The values of those keys of parts that are no field.
std::string value_of_part_key(std::string_view key) {
    if (key == "kind") return enumeration(part_table());
    if (key == "checked") return R"({"type": "boolean"})";
    if (key == "columns") return list_of(column());
    if (key == "rows") return list_of(string);
    if (key == "row_height") return std::string(integer);
    if (key == "pages") return list_of(page());
    return std::string(string);
}

std::string object() {
    Properties properties = block();
    properties.add("id", string, "Its name in the header.");
    for (const PartKey &row : part_keys()) {
        properties.add(row.key, value_of_part_key(row.key), row.meaning);
    }
    properties.add("page", list_of(page()));
    add_lists(properties);
    return properties.table();
}

std::string file_dialog() {
    Properties properties;
    for (const char *key : {"id", "title"}) properties.add(key, string);
    for (const char *key : {"x", "y", "width", "height", "rows"}) properties.add(key, integer);
    properties.add("rect", list_of(integer));
    properties.add("style", one_or_list(string));
    for (const FileDialogText &row : file_dialog_texts()) {
        if (row.key != "title") properties.add(row.key, string);
    }
    for (const FileDialogStyle &row : file_dialog_styles()) {
        properties.add(row.key, one_or_list(string));
    }
    return properties.table("id");
}

std::string frame() {
    Properties properties;
    properties.add("pictures", string);
    for (const std::string_view button : frame_button_names) {
        properties.add(button, reference("block"));
    }
    return properties.table();
}

} // namespace

std::string source_schema() {
    Properties root;
    root.add("prefix", string, "What the names in the header begin with.");
    root.add("theme", enumeration(themes()), "Default looks; light unless it is said.");
    root.add("styles", fmt::format(R"({{"type": "object", "additionalProperties": {}}})",
                                   reference("block")));
    root.add("frame", frame());
    root.add("spare",
             R"({"type": "object", "additionalProperties": {"type": "integer", "minimum": 1}, )"
             R"("propertyNames": {"pattern": "^[A-Za-z][A-Za-z0-9_]*$"}})",
             "Names of empty records for objects that the program makes, and how many of each.");
    root.add("file_dialog", list_of(file_dialog()));
    add_lists(root);
    std::string whole = root.table();
    whole.insert(1, fmt::format("\"$schema\": \"http://json-schema.org/draft-07/schema#\",\n"
                                "\"title\": \"Form source of Velumo\",\n"
                                "\"$defs\": {{\"block\": {},\n\"object\": {}}},\n",
                                block().table(), object()));
    return whole + '\n';
}

} // namespace velform
