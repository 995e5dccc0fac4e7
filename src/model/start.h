// Start-up and shutdown of a context. For the interface.
#pragma once

#include "model/assets.h"
#include "model/file.h"

namespace velumo {

struct Form {
    u32 spare_objects, spare_texts;
    const char *form_path, *text_path;
    Access access;
    FontMessages font_messages;
    // The files' bytes, which are then not read; the paths only name them.
    std::optional<Bytes> form_bytes{}, text_bytes{};
    const vel_form_data *data = nullptr; // where pictures and fonts are looked up first
};
// A form that is in the program.
Form form_in_memory(const vel_form_data &data);

// Returns a code of vel_result. The context is touched only when both files were read.
i32 load(vel_context &ctx, const Form &form);

const char *error_text(i32 code);

void close(vel_context &ctx);

} // namespace velumo
