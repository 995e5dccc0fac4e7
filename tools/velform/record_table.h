// The record of the form description file as one table: what stands at which byte, under which key
// a form source gives it, which values it takes. The compiler and docs/form-source.md follow it.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace velform {

// The rows of the table, in the order of the record.
enum class Field : std::uint8_t {
    x,
    y,
    width,
    height,
    fill,
    label,
    font_choice,
    font_size,
    font_file,
    text,
    text_colour,
    margin_left,
    margin_right,
    margin_top,
    margin_bottom,
    centred,
    line_width,
    line_spacing,
    reserved_number_of_lines,
    reserved,
    hidden,
    type,
    window_kind,
    editable,
    reserved_cursor_x,
    reserved_cursor_y,
    text_length,
    reserved_cursor_line,
    reserved_cursor_column,
    max_chars,
    menu,
    border,
    border_inset,
    border_colour,
    master,
    dependents,
    reserved_scroll_x,
    reserved_scroll_y,
    scroll_max_x,
    scroll_max_y,
    picture,
    clip,
    count
};

inline constexpr std::size_t field_count = static_cast<std::size_t>(Field::count);
inline constexpr std::uint32_t record_size = 776;
inline constexpr std::uint32_t text_record_size = 1008;

enum class Kind : std::uint8_t {
    number,   // a whole number in a range; negative ones wrap around
    colour,   // "#rrggbb"; three numbers in the record
    caption,  // one line of text in ISO 8859-1
    path,     // the name of a file, its bytes kept as they are
    text,     // a text of many lines; the record holds its number
    flag,     // true or false, or a number
    code,     // a name, or a number
    object,   // the id of another object; the record holds its number
    computed, // has no key: follows from the rest of the source
    reserved  // 0
};

struct Name {
    std::string_view name;
    std::uint32_t code;
};

struct Range {
    std::int64_t first, last;
};

struct RecordField {
    Field field;
    std::uint32_t offset;  // of the first byte
    std::uint32_t size;    // in bytes
    std::string_view name; // in velumo.h
    std::string_view key;  // in a form source; empty when it has none
    Kind kind;
    Range range;                 // of a number
    std::span<const Name> names; // of a code
    std::int64_t standard;       // value when nothing is said
    std::uint32_t types;         // bit t: the field means something for type t
    std::string_view meaning;
};

// Where objects of a type differ from the standard.
struct TypeStandard {
    std::uint32_t type;
    Field field;
    std::int64_t value;
};

// A key that stands for several fields.
struct Shorthand {
    std::string_view key;
    std::array<Field, 4> fields;
    bool takes_one_for_all;
    std::string_view meaning;
};

std::span<const RecordField, field_count> record_table();
std::span<const TypeStandard> type_standards();
std::span<const Shorthand> shorthands();

const RecordField &record_field(Field field);
// Returns null when no field has the key.
const RecordField *find_field(std::string_view key);
const Shorthand *find_shorthand(std::string_view key);

bool means_something(const RecordField &field, std::uint32_t type);
// Returns the name of an object type in a source; an empty one for codes that have none.
std::string_view type_name(std::uint32_t type);
// As in "a label", for messages.
std::string type_with_article(std::uint32_t type);

} // namespace velform
