// Whole files read into memory. For start-up and text streams.
#pragma once

#include <optional>

#include "model/bytes.h"
#include "model/memory.h"

namespace velumo {

enum class Access { read_only, read_write };
enum class FileError { none, open, read, memory };

struct FileContent {
    Table<unsigned char> memory;
    std::size_t size = 0;
    FileError error = FileError::none;

    Bytes bytes() const { return {memory.get(), size}; }
};

// Only regular files are read: a pipe or a folder counts as one that cannot be opened.
FileContent read_file(const char *path, Access access);

} // namespace velumo
