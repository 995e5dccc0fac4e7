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

// The layout of the record in the file, byte by byte.
#define PLACE(byte, member) static_assert(offsetof(FileRecord, member) == (byte));
#define NUMBER(field, byte, ...) PLACE(byte, field)
#define FLAG NUMBER
#define COMPUTED NUMBER
#define UNREAD NUMBER
#define CODE(field, byte, member, ...) PLACE(byte, member)
#define STRING CODE
#define LINK CODE
#define SHARED_LINK CODE
#define LIST CODE
#define COLOUR(field, byte, member, ...)                                                           \
    PLACE(byte, member##_r) PLACE((byte) + 4, member##_g) PLACE((byte) + 8, member##_b)
#include "model/record.inc"
#undef PLACE

// Records of a file and spare ones. False when the numbers or the memory do not reach.
template <class Record> bool make_table(std::size_t count, u32 spare, Table<Record> &table) {
    if (count + spare >= std::numeric_limits<u32>::max()) return false;
    table.reset(static_cast<Record *>(std::calloc(count + spare + 1, sizeof(Record))));
    return table != nullptr;
}

void read_list(Bytes record, std::size_t place, u32 (&list)[VEL_MAX_DEPENDENTS]) {
    // A list that begins with 0 is empty, whatever comes after.
    if (little_endian(record, place) == 0) return;
    for (std::size_t k = 0; k < VEL_MAX_DEPENDENTS; ++k) {
        list[k] = little_endian(record, place + 4 * k);
    }
}

// The object is all zeros before.
void read_object(Bytes record, vel_object &object) {
#define NUMBER(field, byte, ...) object.field = little_endian(record, byte);
#define FLAG NUMBER
#define COMPUTED NUMBER
#define CODE(field, byte, member, ...) object.member = little_endian(record, byte);
#define LINK CODE
#define COLOUR(field, byte, member, ...)                                                           \
    object.member##_r = little_endian(record, byte);                                               \
    object.member##_g = little_endian(record, (byte) + 4);                                         \
    object.member##_b = little_endian(record, (byte) + 8);
#define STRING(field, byte, member, ...) copy_string(record, byte, object.member);
#define LIST(field, byte, member, ...) read_list(record, byte, object.member);
#include "model/record.inc"
    // On purpose: dependents other than menus, and empty records, start visible whatever the
    // record says.
    const bool keeps_hidden =
        object.type != VEL_TYPE_EMPTY && (object.master == 0 || object.type == VEL_TYPE_MENU);
    if (!keeps_hidden) object.hidden = 0;
}

void read_text(Bytes record, vel_text_rec &text) {
    text.first_word = little_endian(record, offsetof(vel_text_rec, first_word));
    text.cursor_index = little_endian(record, offsetof(vel_text_rec, cursor_index));
    std::memcpy(text.text, record.data() + offsetof(vel_text_rec, text), VEL_TEXT_SIZE);
    if (std::memchr(text.text, '\0', VEL_TEXT_SIZE) == nullptr) text.text[VEL_TEXT_SIZE - 1] = '\0';
}

} // namespace

FileError read_objects(RecordReader &form, u32 spare, Tables &tables) {
    const std::size_t count = form.count();
    if (!make_table(count, spare, tables.objects)) return FileError::memory;
    tables.object_count = static_cast<u32>(count);
    tables.object_records = tables.object_count + spare + 1;
    for (std::size_t k = 1; k <= count; ++k) {
        Bytes record;
        if (!form.next(record)) return FileError::read;
        read_object(record, tables.objects[k]);
        if (tables.objects[k].text_index != 0) tables.need_texts = true;
    }
    return FileError::none;
}

FileError read_texts(RecordReader &texts, u32 spare, Tables &tables) {
    const std::size_t count = texts.count();
    if (!make_table(count, spare, tables.texts) || !make_table(count, spare, tables.buffers)) {
        return FileError::memory;
    }
    tables.text_count = static_cast<u32>(count);
    tables.text_records = tables.text_count + spare + 1;
    for (std::size_t k = 1; k <= count; ++k) {
        Bytes record;
        if (!texts.next(record)) return FileError::read;
        read_text(record, tables.texts[k]);
    }
    return FileError::none;
}

} // namespace velumo
