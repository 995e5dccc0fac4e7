#include "record_table.h"

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
constexpr Name font_choice_names[] = {{"default", 0}, {"own", 1}};

constexpr std::uint32_t bits(std::initializer_list<std::uint32_t> types) {
    std::uint32_t result = 0;
    for (const std::uint32_t type : types) result |= 1U << type;
    return result;
}

constexpr std::uint32_t any = ~0U;
constexpr std::uint32_t windows = bits({VEL_TYPE_WINDOW});
constexpr std::uint32_t fields = bits({VEL_TYPE_ENTRY, VEL_TYPE_NUMBER});
constexpr std::uint32_t captions = fields | bits({VEL_TYPE_LABEL});
constexpr std::uint32_t texts = windows | bits({VEL_TYPE_TEXT});
constexpr std::uint32_t flowing = texts | bits({VEL_TYPE_CHAIN});
constexpr std::uint32_t written = captions | flowing;
constexpr std::uint32_t pictures = bits({VEL_TYPE_PICTURE_UNLOADED});
constexpr std::uint32_t titles = bits({VEL_TYPE_LABEL}) | pictures;
constexpr std::uint32_t boxes = written | bits({VEL_TYPE_MENU});

constexpr Range signed_pixels{-32768, 32767};
constexpr Range pixels{0, 32767};
constexpr Range type_codes{VEL_TYPE_EMPTY, VEL_TYPE_CHAIN};
// Codes that the library has no name for are kept, because some of them do something.
constexpr Range codes{0, std::numeric_limits<std::int32_t>::max()};
constexpr std::int64_t black = 0x000000;
constexpr std::int64_t edge = 0x93A1B5;
constexpr std::int64_t white = 0xFFFFFF;

using enum Field;

// Rows of the table, by the kind of the field.
constexpr RecordField number(Field f, std::uint32_t offset, std::string_view key, Range range,
                             std::int64_t standard, std::uint32_t types, std::string_view meaning) {
    return {f, offset, 4, key, key, Kind::number, range, {}, standard, types, meaning};
}
constexpr RecordField colour(Field f, std::uint32_t offset, std::string_view name,
                             std::string_view key, std::int64_t standard, std::uint32_t types,
                             std::string_view meaning) {
    return {f, offset, 12, name, key, Kind::colour, {}, {}, standard, types, meaning};
}
constexpr RecordField string(Field f, std::uint32_t offset, std::string_view name,
                             std::string_view key, Kind kind, std::uint32_t types,
                             std::string_view meaning) {
    const bool is_in_record = kind == Kind::caption || kind == Kind::path;
    const std::uint32_t size = is_in_record ? VEL_STRING_SIZE : 4;
    return {f, offset, size, name, key, kind, {}, {}, 0, types, meaning};
}
constexpr RecordField flag(Field f, std::uint32_t offset, std::string_view key, std::uint32_t types,
                           std::string_view meaning) {
    return {f, offset, 4, key, key, Kind::flag, codes, {}, 0, types, meaning};
}
constexpr RecordField code(Field f, std::uint32_t offset, std::string_view name,
                           std::string_view key, Range range, std::span<const Name> names,
                           std::uint32_t types, std::string_view meaning) {
    return {f, offset, 4, name, key, Kind::code, range, names, 0, types, meaning};
}
constexpr RecordField computed(Field f, std::uint32_t offset, std::uint32_t size,
                               std::string_view name, std::string_view meaning) {
    return {f, offset, size, name, {}, Kind::computed, {}, {}, 0, any, meaning};
}
constexpr RecordField unread(Field f, std::uint32_t offset, std::string_view name) {
    return {f, offset, 4, name, {}, Kind::reserved, {}, {}, 0, any, "Not read."};
}

constexpr std::array<RecordField, field_count> table{
    number(
        x, 0, "x", signed_pixels, 0, any,
        "Left edge, from the left edge of the master. The record holds the place on the display."),
    number(y, 4, "y", signed_pixels, 0, any,
           "Top edge, from the top edge of the master. The record holds the place on the display."),
    number(width, 8, "width", pixels, 0, any,
           "Width. An object without width is neither drawn nor hit; a picture takes its own."),
    number(height, 12, "height", pixels, 0, any,
           "Height. An object without height is neither drawn nor hit; a picture takes its own."),
    colour(fill, 16, "fill_r, fill_g, fill_b", "fill", white, boxes, "Colour of the body."),
    string(label, 28, "label", "label", Kind::caption, captions,
           "Caption, or what an entry field holds at first: at most 67 characters, 64 in a field."),
    code(
        font_choice, 96, "font_choice", "font_choice", codes, font_choice_names, written,
        "Font of the program, or the object's own. It is \"own\" as soon as a font file is named."),
    number(font_size, 100, "font_size", {1, 1000}, 14, written, "Points of the own font."),
    string(font_file, 104, "font_path", "font_file", Kind::path, written,
           "TrueType file of the own font; seen from the folder where the program runs."),
    string(text, 172, "text_index", "text", Kind::text, flowing,
           "Text, at most 999 characters. The record holds the number of the text, 0 = none. "
           "A text object that can be edited and the members of a chain get an empty text; the "
           "head of a chain keeps one for the program to hand over as its `stream`."),
    colour(text_colour, 176, "text_r, text_g, text_b", "text_colour", black, written,
           "Colour of the text and of the text cursor."),
    number(margin_left, 188, "margin_left", pixels, 0, any,
           "Pixels kept free inside the left edge."),
    number(margin_right, 192, "margin_right", pixels, 0, any,
           "Pixels kept free inside the right edge."),
    number(margin_top, 196, "margin_top", pixels, 0, any, "Pixels kept free inside the top edge."),
    number(margin_bottom, 200, "margin_bottom", pixels, 0, any,
           "Pixels kept free inside the bottom edge."),
    flag(centred, 204, "centred", windows,
         "A window of the kind \"reduced\" centres the lines of its text."),
    number(line_width, 208, "line_width", pixels, 0, flowing,
           "Maximal width of a line; 0 = what the object's size gives."),
    number(line_spacing, 212, "line_spacing", pixels, 0, written,
           "Pixels added to the font's height for the distance of two lines."),
    unread(reserved_number_of_lines, 216, "reserved_number_of_lines"),
    unread(reserved, 220, "reserved"),
    flag(hidden, 224, "hidden", any,
         "Not drawn and not hit. Dependents that are no menu start visible whatever they say."),
    code(type, 228, "type", "type", type_codes, type_names, any,
         "What the object is. It must be said, but for the entries of `window` and `windows`."),
    code(window_kind, 232, "window_kind", "window_kind", codes, window_kind_names, windows,
         "Frame of a window: all seven frame buttons, the first and the last, or no change."),
    flag(editable, 236, "editable", flowing | fields,
         "Can hold the text cursor. A window with 2 leaves the cursor where it was when it opens."),
    unread(reserved_cursor_x, 240, "reserved_cursor_x"),
    unread(reserved_cursor_y, 244, "reserved_cursor_y"),
    computed(text_length, 248, 4, "text_length",
             "Characters of the text, or of the label of an object with a caption."),
    unread(reserved_cursor_line, 252, "reserved_cursor_line"),
    unread(reserved_cursor_column, 256, "reserved_cursor_column"),
    number(
        max_chars, 260, "max_chars", {0, 999}, 0, texts | fields,
        "Characters that a field takes, at most 64; columns that overwriting in a text reaches."),
    string(
        menu, 260, "max_chars", "menu", Kind::object, titles,
        "The `id` of the menu that a press on this title opens while `vel_wait_for_object` runs. "
        "The record holds its number, 0 = none."),
    code(border, 264, "border_style", "border", codes, border_names, any,
         "Border. A fitted object covers the inner area of its master, whatever its rectangle "
         "says."),
    number(border_inset, 268, "border_inset", pixels, 0, any,
           "Pixels from the inner area out to the frame, or from the outline to the shadow."),
    colour(border_colour, 272, "border_r, border_g, border_b", "border_colour", edge, any,
           "Colour of the border."),
    computed(master, 284, 4, "master", "Number of the object around this one, 0 = none."),
    computed(dependents, 288, 4 * VEL_MAX_DEPENDENTS, "dep_objs",
             "Numbers of the objects inside this one, in their order; the rest is 0."),
    unread(reserved_scroll_x, 688, "reserved_scroll_x"),
    unread(reserved_scroll_y, 692, "reserved_scroll_y"),
    number(scroll_max_x, 696, "scroll_max_x", pixels, 0, any,
           "How far the contents scroll across; 0 = five times the display."),
    number(scroll_max_y, 700, "scroll_max_y", pixels, 0, any,
           "How far the contents scroll down; 0 = five times the display."),
    string(picture, 704, "image_path", "picture", Kind::path, pictures,
           "File of a picture; seen from the folder where the program runs."),
    code(clip, 772, "clip_mode", "clip", codes, clip_names, any,
         "How the objects around this one limit it: inside their margins, by their outline, or not "
         "at all.")};

// Rows that mean something for different types may share their bytes.
constexpr bool share_bytes(const RecordField &a, const RecordField &b) {
    return a.offset == b.offset && a.size == b.size && (a.types & b.types) == 0;
}

constexpr bool table_is_gapless() {
    std::uint32_t place = 0;
    for (std::size_t row = 0; row < table.size(); ++row) {
        if (table[row].field != static_cast<Field>(row)) return false;
        if (row != 0 && share_bytes(table[row - 1], table[row])) continue;
        if (table[row].offset != place) return false;
        place += table[row].size;
    }
    return place == record_size;
}
static_assert(table_is_gapless());

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

std::span<const RecordField, field_count> record_table() { return table; }
std::span<const TypeStandard> type_standards() { return standards; }
std::span<const Shorthand> shorthands() { return shorthand_table; }

const RecordField &record_field(Field field) { return table[static_cast<std::size_t>(field)]; }

const RecordField *find_field(std::string_view key) {
    if (key.empty()) return nullptr;
    const auto found = std::ranges::find(table, key, &RecordField::key);
    return found == table.end() ? nullptr : &*found;
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
