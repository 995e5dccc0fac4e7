// The form description file and the text file, record by record.
#include "model/tables.h"

#include <cstddef>
#include <limits>

namespace velumo {
namespace {

using FileRecord = vel_object_file_rec;

static_assert(sizeof(FileRecord) == 776);
static_assert(sizeof(vel_text_rec) == 1008 && offsetof(vel_text_rec, cursor_index) == 4 &&
              offsetof(vel_text_rec, text) == 8);

// A number of the record and where it goes. What the record reserves is not here.
struct NumberField {
    std::size_t offset;
    u32 vel_object::*target;
};

#define FIELD(name)                                                                                \
    NumberField { offsetof(FileRecord, name), &vel_object::name }
constexpr NumberField number_fields[] = {
    FIELD(x),
    FIELD(y),
    FIELD(width),
    FIELD(height),
    FIELD(fill_r),
    FIELD(fill_g),
    FIELD(fill_b),
    FIELD(font_choice),
    FIELD(font_size),
    FIELD(text_index),
    FIELD(text_r),
    FIELD(text_g),
    FIELD(text_b),
    FIELD(margin_left),
    FIELD(margin_right),
    FIELD(margin_top),
    FIELD(margin_bottom),
    FIELD(centred),
    FIELD(line_width),
    FIELD(line_spacing),
    FIELD(type),
    FIELD(window_kind),
    FIELD(editable),
    FIELD(text_length),
    FIELD(max_chars),
    FIELD(border_style),
    FIELD(border_inset),
    FIELD(border_r),
    FIELD(border_g),
    FIELD(border_b),
    FIELD(master),
    FIELD(scroll_max_x),
    FIELD(scroll_max_y),
    FIELD(clip_mode),
};
#undef FIELD

// The layout of the record in the file, byte by byte.
struct FileOffset {
    std::size_t actual, wanted;
};
#define AT(name, offset)                                                                           \
    FileOffset { offsetof(FileRecord, name), offset }
constexpr FileOffset file_offsets[] = {
    AT(x, 0),
    AT(y, 4),
    AT(width, 8),
    AT(height, 12),
    AT(fill_r, 16),
    AT(fill_g, 20),
    AT(fill_b, 24),
    AT(label, 28),
    AT(font_choice, 96),
    AT(font_size, 100),
    AT(font_path, 104),
    AT(text_index, 172),
    AT(text_r, 176),
    AT(text_g, 180),
    AT(text_b, 184),
    AT(margin_left, 188),
    AT(margin_right, 192),
    AT(margin_top, 196),
    AT(margin_bottom, 200),
    AT(centred, 204),
    AT(line_width, 208),
    AT(line_spacing, 212),
    AT(reserved_number_of_lines, 216),
    AT(reserved, 220),
    AT(hidden, 224),
    AT(type, 228),
    AT(window_kind, 232),
    AT(editable, 236),
    AT(reserved_cursor_x, 240),
    AT(reserved_cursor_y, 244),
    AT(text_length, 248),
    AT(reserved_cursor_line, 252),
    AT(reserved_cursor_column, 256),
    AT(max_chars, 260),
    AT(border_style, 264),
    AT(border_inset, 268),
    AT(border_r, 272),
    AT(border_g, 276),
    AT(border_b, 280),
    AT(master, 284),
    AT(dep_objs, 288),
    AT(reserved_scroll_x, 688),
    AT(reserved_scroll_y, 692),
    AT(scroll_max_x, 696),
    AT(scroll_max_y, 700),
    AT(image_path, 704),
    AT(clip_mode, 772),
};
#undef AT
static_assert(std::all_of(std::begin(file_offsets), std::end(file_offsets),
                          [](FileOffset field) { return field.actual == field.wanted; }));

// Records in a file and behind it. False when the numbers or the memory do not reach.
template <class Record> bool make_table(std::size_t count, u32 spare, Table<Record> &table) {
    if (count + spare >= std::numeric_limits<u32>::max()) return false;
    table.reset(static_cast<Record *>(std::calloc(count + spare + 1, sizeof(Record))));
    return table != nullptr;
}

void read_dependents(Bytes record, vel_object &object) {
    for (std::size_t k = 0; k < VEL_MAX_DEPENDENTS; ++k) {
        object.dep_objs[k] = little_endian(record, offsetof(FileRecord, dep_objs) + 4 * k);
    }
    // A list that begins with 0 is empty, whatever stands behind.
    if (object.dep_objs[0] == 0) std::fill_n(object.dep_objs, VEL_MAX_DEPENDENTS, 0U);
}

void read_object(Bytes record, vel_object &object) {
    for (const NumberField &field : number_fields) {
        object.*field.target = little_endian(record, field.offset);
    }
    copy_string(record, offsetof(FileRecord, label), object.label);
    copy_string(record, offsetof(FileRecord, font_path), object.font_path);
    copy_string(record, offsetof(FileRecord, image_path), object.image_path);
    read_dependents(record, object);
    // On purpose: dependents other than menus, and empty records, start visible whatever the
    // record says.
    const bool keeps_hidden =
        object.type != VEL_TYPE_EMPTY && (object.master == 0 || object.type == VEL_TYPE_MENU);
    if (keeps_hidden) object.hidden = little_endian(record, offsetof(FileRecord, hidden));
}

void read_text(Bytes record, vel_text_rec &text) {
    text.first_word = little_endian(record, offsetof(vel_text_rec, first_word));
    text.cursor_index = little_endian(record, offsetof(vel_text_rec, cursor_index));
    std::memcpy(text.text, record.data() + offsetof(vel_text_rec, text), VEL_TEXT_SIZE);
    if (std::memchr(text.text, '\0', VEL_TEXT_SIZE) == nullptr) text.text[VEL_TEXT_SIZE - 1] = '\0';
}

} // namespace

bool read_objects(Bytes form, u32 spare, Tables &tables) {
    const std::size_t count = form.size() / sizeof(FileRecord);
    if (!make_table(count, spare, tables.objects)) return false;
    tables.object_count = static_cast<u32>(count);
    tables.object_records = tables.object_count + spare + 1;
    for (std::size_t k = 0; k < count; ++k) {
        read_object(form.subspan(k * sizeof(FileRecord), sizeof(FileRecord)),
                    tables.objects[k + 1]);
    }
    return true;
}

bool needs_texts(const Tables &tables) {
    const vel_object *first = tables.objects.get() + 1;
    return std::any_of(first, first + tables.object_count,
                       [](const vel_object &object) { return object.text_index != 0; });
}

bool read_texts(Bytes texts, u32 spare, Tables &tables) {
    const std::size_t count = texts.size() / sizeof(vel_text_rec);
    if (!make_table(count, spare, tables.texts) || !make_table(count, spare, tables.buffers)) {
        return false;
    }
    tables.text_count = static_cast<u32>(count);
    tables.text_records = tables.text_count + spare + 1;
    for (std::size_t k = 0; k < count; ++k) {
        read_text(texts.subspan(k * sizeof(vel_text_rec), sizeof(vel_text_rec)),
                  tables.texts[k + 1]);
    }
    return true;
}

} // namespace velumo
