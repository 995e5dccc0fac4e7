// Whole files read into memory, and records read from a file or from memory. For start-up, fonts,
// pictures and text streams.
#pragma once

#include <optional>
#include <string>

#include "model/bytes.h"
#include "model/memory.h"

namespace velumo {

enum class Access { read_only, read_write };
enum class FileError { none, open, read, memory, records };

// Bytes of a font, a picture or a stream. A sparse file can claim to be larger than any memory.
inline constexpr std::size_t max_file_size = std::size_t{1} << 26;
// Records of a form file or a text file.
inline constexpr std::size_t max_records = VEL_MAX_RECORDS;

// Only regular files are read: a pipe or a folder counts as one that cannot be opened.
class File {
public:
    File() = default; // none
    File(const char *path, Access access);
    ~File();
    File(const File &) = delete;
    File &operator=(const File &) = delete;

    std::optional<std::size_t> size() const;
    bool read(unsigned char *to, std::size_t size) const;

private:
    const int descriptor_ = -1;
};

struct FileContent {
    Table<unsigned char> memory;
    std::size_t size = 0;
    FileError error = FileError::none;
    const unsigned char *lent = nullptr; // the program's, in place of memory

    Bytes bytes() const { return {lent != nullptr ? lent : memory.get(), size}; }
};

// The same for all paths of a regular file, as long as it is not changed; empty when there is none.
std::string identity_of(const char *path);

// With a NUL after its last byte. A file of more than so many bytes does not fit into memory.
FileContent read_file(const char *path, Access access, std::size_t most = max_file_size);

// Says in SDL's error text why a file was not read, as SDL itself would.
void set_file_error(const char *path, FileError error);

// The whole records of a file, one after the other. Bytes after the last one are ignored.
class RecordReader {
public:
    RecordReader(const char *path, Access access, std::size_t record_size);
    // The file's bytes are in memory already, and stay there.
    RecordReader(Bytes file, std::size_t record_size);

    // Why there is nothing to read, if there is not.
    FileError error() const { return error_; }
    std::size_t count() const { return count_; }
    // False when the file cannot be read up to there.
    bool next(Bytes &record);

private:
    void count_records(std::size_t file_size);
    bool fill();

    const File file_;
    const std::size_t record_size_;
    std::size_t count_ = 0;
    FileError error_ = FileError::none;
    Table<unsigned char> buffer_;
    Bytes read_;             // records that were read and not taken yet
    std::size_t unread_ = 0; // records of the file after them
};

} // namespace velumo
