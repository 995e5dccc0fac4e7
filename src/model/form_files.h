// The pictures and fonts of a form: in the program, or else on the disk. For the model's assets.
#pragma once

#include "model/file.h"
#include "model/objects.h"

namespace velumo {

// What the form's data has under a path; null when it has nothing.
const vel_form_file *file_in_program(const vel_context &ctx, const char *path);
inline bool is_in_program(const vel_context &ctx, const char *path) {
    return file_in_program(ctx, path) != nullptr;
}

FileContent read_form_file(const vel_context &ctx, const char *path);

} // namespace velumo
