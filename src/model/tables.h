// Tables made from the bytes of the form files, before a context owns them. For start-up.
#pragma once

#include "model/file.h"

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
    bool need_texts = false; // an object has a text
};

// The records of a file; the spare ones after them are zero.
FileError read_objects(RecordReader &form, u32 spare, Tables &tables);
FileError read_texts(RecordReader &texts, u32 spare, Tables &tables);

} // namespace velumo
