// Whole files read into memory, and files of records read through a small buffer. For start-up and
// text streams.
#pragma once

#include <optional>

#include "model/bytes.h"
#include "model/memory.h"

namespace velumo {

enum class Access { read_only, read_write };
enum class FileError { none, open, read, memory };

// Only regular files are read: a pipe or a folder counts as one that cannot be opened.
class File {
public:
    File(const char *path, Access access);
    ~File();
    File(const File &) = delete;
    File &operator=(const File &) = delete;

    std::optional<std::size_t> size() const;
    bool read(unsigned char *to, std::size_t size) const;

private:
    const int descriptor_;
};

struct FileContent {
    Table<unsigned char> memory;
    std::size_t size = 0;
    FileError error = FileError::none;

    Bytes bytes() const { return {memory.get(), size}; }
};

FileContent read_file(const char *path, Access access);

// The whole records of a file, one after the other. Bytes after the last one are ignored.
class RecordReader {
public:
    RecordReader(const char *path, Access access, std::size_t record_size);

    // Why there is nothing to read, if there is not.
    FileError error() const { return error_; }
    std::size_t count() const { return count_; }
    // False when the file cannot be read up to there.
    bool next(Bytes &record);

private:
    bool fill();

    const File file_;
    const std::size_t record_size_;
    std::size_t count_ = 0;
    FileError error_ = FileError::none;
    Table<unsigned char> buffer_;
    std::size_t buffered_ = 0,
                place_ = 0;  // records in the buffer, and those of them that were taken
    std::size_t unread_ = 0; // records that the buffer never had
};

} // namespace velumo
