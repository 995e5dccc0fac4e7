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

// The pictures, or the fonts, that one call reads. A form could name a large file in a thousand
// ways.
class FormFiles {
public:
    explicit FormFiles(const vel_context &ctx) : ctx_(ctx) {}

    // What those before it leave no room for does not fit into memory.
    FileContent read(const char *path);

private:
    const vel_context &ctx_;
    std::size_t room_ = std::size_t{1} << 28; // bytes
};

} // namespace velumo
