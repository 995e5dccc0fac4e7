// The record of the form description file, and what a form says of an object beyond it, as a table
// made from those that the library reads by: what is at which byte, under which key a form source
// gives it, which values it takes. The compiler and the pages docs/form-source.md and
// docs/file-formats.md follow it.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace velform {

// The rows of the table: those of the record in its order, then the traits.
enum class Field : std::uint8_t {
#define NUMBER(field, ...) field,
#define FLAG NUMBER
#define CODE NUMBER
#define COLOUR NUMBER
#define STRING NUMBER
#define LINK NUMBER
#define SHARED_LINK NUMBER
#define COMPUTED NUMBER
#define LIST NUMBER
#define UNREAD NUMBER
#include "model/record.inc"
    record_count,
    last_of_record = record_count - 1, // so that the first trait follows it
#define ANSWER(field, ...) field,
#define LETTER ANSWER
#define MARK ANSWER
#define VALUE ANSWER
#define PHRASE ANSWER
#include "model/traits.inc"
    count
};

inline constexpr std::size_t record_field_count = static_cast<std::size_t>(Field::record_count);
inline constexpr std::size_t field_count = static_cast<std::size_t>(Field::count);

enum class Kind : std::uint8_t {
    number,   // a whole number in a range; negative ones wrap around
    colour,   // "#rrggbb"; three numbers in the record
    caption,  // one line of text in ISO 8859-1
    path,     // the name of a file, its bytes kept as they are
    text,     // a text of many lines; the record holds its number
    flag,     // true or false, or a number
    letter,   // one letter or digit
    code,     // a name, or a number
    words,    // names, whose codes are bits of a number
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

inline constexpr std::uint32_t any_type = ~0U;
inline constexpr std::uint32_t number_size = 4; // bytes

struct RecordField {
    Field field;
    Kind kind;
    std::uint32_t offset;   // of the first byte
    std::uint32_t size;     // in bytes
    std::string_view name;  // in velumo.h
    std::string_view key{}; // in a form source; empty when it has none
    std::string_view meaning{};
    std::uint32_t types = any_type; // bit t: the field means something for type t
    std::int64_t standard = 0;      // value when nothing is said
    Range range{};                  // of a number
    std::span<const Name> names{};  // of a code
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

std::span<const RecordField, record_field_count> record_table();
std::span<const RecordField> trait_table(); // their rows have no bytes of the record
std::span<const RecordField, field_count> whole_table();
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
