#include "form/record_table.h"

#include <algorithm>
#include <limits>

#include <fmt/format.h>
#include <velumo.h>

namespace velform {
namespace {

constexpr Name type_names[] = {
    {"empty", VEL_TYPE_EMPTY},
    {"window", VEL_TYPE_WINDOW},
    {"label", VEL_TYPE_LABEL},
    {"text", VEL_TYPE_TEXT},
    {"entry", VEL_TYPE_ENTRY},
    {"number", VEL_TYPE_NUMBER},
    {"menu", VEL_TYPE_MENU},
    {"chain", VEL_TYPE_CHAIN},
    // A picture becomes a loaded one when the library finds its file.
    {"picture", VEL_TYPE_PICTURE_UNLOADED},
};
constexpr Name window_kind_names[] = {
    {"full", VEL_WINDOW_FULL}, {"reduced", VEL_WINDOW_REDUCED}, {"plain", VEL_WINDOW_PLAIN}};
constexpr Name border_names[] = {
    {"none", VEL_BORDER_NONE},     {"frame", VEL_BORDER_FRAME},
    {"fitted", VEL_BORDER_FITTED}, {"frame_fitted", VEL_BORDER_FRAME_FITTED},
    {"shadow", VEL_BORDER_SHADOW}, {"shadow_fitted", VEL_BORDER_SHADOW_FITTED}};
constexpr Name clip_names[] = {
    {"margins", VEL_CLIP_MARGINS}, {"frame", VEL_CLIP_FRAME}, {"none", VEL_CLIP_NONE}};
constexpr Name align_names[] = {{"centre", 0}, {"left", 1}, {"right", 2}};
constexpr Name anchor_names[] = {{"left", 1}, {"right", 2}, {"top", 4}, {"bottom", 8}};
constexpr Name font_choice_names[] = {{"default", 0}, {"own", 1}};

constexpr std::uint32_t bits(std::initializer_list<std::uint32_t> types) {
    std::uint32_t result = 0;
    for (const std::uint32_t type : types) result |= 1U << type;
    return result;
}

constexpr std::uint32_t any = any_type;
constexpr std::uint32_t windows = bits({VEL_TYPE_WINDOW});
constexpr std::uint32_t fields = bits({VEL_TYPE_ENTRY, VEL_TYPE_NUMBER});
constexpr std::uint32_t captions = fields | bits({VEL_TYPE_LABEL});
constexpr std::uint32_t texts = windows | bits({VEL_TYPE_TEXT});
constexpr std::uint32_t flowing = texts | bits({VEL_TYPE_CHAIN});
constexpr std::uint32_t written = captions | flowing;
constexpr std::uint32_t pictures = bits({VEL_TYPE_PICTURE_UNLOADED});
constexpr std::uint32_t titles = bits({VEL_TYPE_LABEL}) | pictures;
constexpr std::uint32_t labels = bits({VEL_TYPE_LABEL});
constexpr std::uint32_t boxes = written | bits({VEL_TYPE_MENU});

constexpr std::uint32_t editables = flowing | fields;
constexpr std::uint32_t limited = texts | fields;

constexpr Range signed_pixels{-32768, 32767};
constexpr Range pixels{0, 32767};
constexpr Range points{1, 1000};
constexpr Range columns{0, 999};
constexpr Range type_codes{VEL_TYPE_EMPTY, VEL_TYPE_CHAIN};
// Codes that the library has no name for are kept, because some of them do something.
constexpr Range codes{0, std::numeric_limits<std::int32_t>::max()};
constexpr Range any_number{-1000000000, 1000000000};
constexpr std::int64_t black = 0x000000;
constexpr std::int64_t edge = 0x93A1B5;
constexpr std::int64_t white = 0xFFFFFF;

constexpr std::array<RecordField, field_count> rows{{
#define ROW(field, kind, byte, size, member, ...)                                                  \
    {Field::field, Kind::kind, byte, size, member, __VA_ARGS__},
#define NUMBER(field, byte, range, standard, types, meaning)                                       \
    ROW(field, number, byte, number_size, #field, #field, meaning, types, standard, range)
#define FLAG(field, byte, types, meaning)                                                          \
    ROW(field, flag, byte, number_size, #field, #field, meaning, types, 0, codes)
#define CODE(field, byte, member, range, names, types, meaning)                                    \
    ROW(field, code, byte, number_size, #member, #field, meaning, types, 0, range, names)
#define COLOUR(field, byte, member, standard, types, meaning)                                      \
    ROW(field, colour, byte, 3 * number_size, #member "_r, " #member "_g, " #member "_b", #field,  \
        meaning, types, standard)
#define STRING(field, byte, member, kind, types, meaning)                                          \
    ROW(field, kind, byte, VEL_STRING_SIZE, #member, #field, meaning, types)
#define LINK(field, byte, member, kind, types, meaning)                                            \
    ROW(field, kind, byte, number_size, #member, #field, meaning, types)
#define SHARED_LINK LINK
#define COMPUTED(field, byte, meaning) ROW(field, computed, byte, number_size, #field, {}, meaning)
#define LIST(field, byte, member, meaning)                                                         \
    ROW(field, computed, byte, VEL_MAX_DEPENDENTS *number_size, #member, {}, meaning)
#define UNREAD(field, byte) ROW(field, reserved, byte, number_size, #field, {})
#include "model/record.inc"
#undef ROW
#define TRAIT(field, kind, key, types, meaning)                                                    \
    {Field::field, Kind::kind, 0, 0, {}, key, meaning, types, 0, {0, 1}},
#define ANSWER(field, key, word, code, types, meaning) TRAIT(field, flag, key, types, meaning)
#define LETTER(field, key, word, member, types, meaning) TRAIT(field, letter, key, types, meaning)
#define MARK(field, key, word, member, types, meaning) TRAIT(field, flag, key, types, meaning)
#define VALUE(field, kind, key, word, member, range, types, meaning)                               \
    {Field::field, Kind::kind, 0, 0, {}, key, meaning, types, 0, range},
#define PHRASE(field, key, word, member, types, meaning) TRAIT(field, caption, key, types, meaning)
#include "model/traits.inc"
#undef TRAIT
}};

// What the library knows as numbers only.
struct TraitValue {
    Field field;
    std::int64_t standard;
    std::span<const Name> names;
};
constexpr TraitValue trait_values[] = {{Field::align, 0, align_names},
                                       {Field::anchor, 5, anchor_names},
                                       {Field::most, 100, {}},
                                       {Field::step, 1, {}}};

constexpr std::array<RecordField, field_count>
with_trait_values(std::array<RecordField, field_count> table) {
    for (const TraitValue &value : trait_values) {
        RecordField &row = table[static_cast<std::size_t>(value.field)];
        row.standard = value.standard;
        row.names = value.names;
    }
    return table;
}

constexpr std::array<RecordField, field_count> all_rows = with_trait_values(rows);

constexpr std::span<const RecordField, record_field_count> record_rows =
    std::span(all_rows).first<record_field_count>();

// Rows that mean something for different types may share their bytes.
constexpr bool share_bytes(const RecordField &a, const RecordField &b) {
    return a.offset == b.offset && a.size == b.size && (a.types & b.types) == 0;
}

constexpr bool table_is_gapless() {
    std::uint32_t place = 0;
    for (std::size_t row = 0; row < record_rows.size(); ++row) {
        if (row != 0 && share_bytes(record_rows[row - 1], record_rows[row])) continue;
        if (record_rows[row].offset != place) return false;
        place += record_rows[row].size;
    }
    return place == sizeof(vel_object_file_rec);
}
static_assert(table_is_gapless());

using enum Field;

// Windows and menus are opened by the program; what can be typed into takes typing.
constexpr TypeStandard standards[] = {
    {VEL_TYPE_WINDOW, hidden, 1},     {VEL_TYPE_MENU, hidden, 1},
    {VEL_TYPE_ENTRY, editable, 1},    {VEL_TYPE_NUMBER, editable, 1},
    {VEL_TYPE_ENTRY, max_chars, 64},  {VEL_TYPE_NUMBER, max_chars, 64},
    {VEL_TYPE_WINDOW, max_chars, 99}, {VEL_TYPE_TEXT, max_chars, 99},
};

constexpr Shorthand shorthand_table[] = {
    {"rect", {x, y, width, height}, false, "`[x, y, width, height]`"},
    {"margin",
     {margin_left, margin_right, margin_top, margin_bottom},
     true,
     "`[left, right, top, bottom]`, or one number for all four"},
};

} // namespace

std::span<const RecordField, record_field_count> record_table() { return record_rows; }
std::span<const RecordField> trait_table() {
    return std::span(all_rows).subspan<record_field_count>();
}
std::span<const RecordField, field_count> whole_table() { return all_rows; }
std::span<const TypeStandard> type_standards() { return standards; }
std::span<const Shorthand> shorthands() { return shorthand_table; }

const RecordField &record_field(Field field) { return all_rows[static_cast<std::size_t>(field)]; }

const RecordField *find_field(std::string_view key) {
    if (key.empty()) return nullptr;
    const auto found = std::ranges::find(all_rows, key, &RecordField::key);
    return found == all_rows.end() ? nullptr : &*found;
}

const Shorthand *find_shorthand(std::string_view key) {
    const auto found = std::ranges::find(shorthand_table, key, &Shorthand::key);
    return found == std::end(shorthand_table) ? nullptr : found;
}

bool means_something(const RecordField &field, std::uint32_t type) {
    return type < 32 && (field.types >> type & 1U) != 0;
}

std::string_view type_name(std::uint32_t type) {
    const auto found = std::ranges::find(type_names, type, &Name::code);
    return found == std::end(type_names) ? std::string_view{} : found->name;
}

std::string type_with_article(std::uint32_t type) {
    const std::string_view name = type_name(type);
    if (name.empty()) return fmt::format("an object of type {}", type);
    return fmt::format("{} {}", name == "empty" || name == "entry" ? "an" : "a", name);
}

} // namespace velform
