// Tables made from the bytes of the form files, before a context owns them. For start-up.
#pragma once

#include "model/bytes.h"
#include "model/memory.h"

namespace velumo {

using LineBuffer = char[VEL_TEXT_BUFFER_SIZE];

// The tables live in memory from calloc, because vel_close and applications release it with free.
struct Tables {
    Table<vel_object> objects;
    Table<vel_text_rec> texts;
    Table<LineBuffer> buffers;
    u32 object_count = 0;
    u32 object_records = 0; // record 0 and the spare ones included
    u32 text_count = 0;
    u32 text_records = 0;
};

// Both return false when the table does not fit into memory. Bytes after the last whole record are
// ignored; the spare records after the loaded ones are zero.
bool read_objects(Bytes form, u32 spare, Tables &tables);
bool read_texts(Bytes texts, u32 spare, Tables &tables);

bool needs_texts(const Tables &tables);

} // namespace velumo
