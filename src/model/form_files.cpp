#include "model/form_files.h"

#include <cstring>

namespace velumo {

const vel_form_file *file_in_program(const vel_context &ctx, const char *path) {
    const vel_form_data *data = ctx.state == nullptr ? nullptr : ctx.state->form_data;
    if (data == nullptr) return nullptr;
    const std::span files(data->files, data->file_count);
    const auto found = std::find_if(files.begin(), files.end(), [path](const vel_form_file &file) {
        return file.path != nullptr && file.bytes != nullptr && std::strcmp(file.path, path) == 0;
    });
    return found == files.end() ? nullptr : &*found;
}

FileContent FormFiles::read(const char *path) {
    const std::size_t most = std::min(max_file_size, room_);
    FileContent content;
    if (const vel_form_file *file = file_in_program(ctx_, path); file == nullptr) {
        content = read_file(path, Access::read_only, most);
    } else if (file->size > most) {
        content.error = FileError::memory;
    } else {
        content.lent = file->bytes;
        content.size = file->size;
    }
    room_ -= content.size;
    return content;
}

} // namespace velumo
