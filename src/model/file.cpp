#include "model/file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "model/guard.h"

namespace velumo {
namespace {

constexpr std::size_t buffered_records = 64; // fit into the nearer caches

// Opening a device can be an action of its own, so that is looked at before. What has become of
// the file meanwhile must not stop the program either: a named pipe is not waited for.
int open_regular(const char *path, Access access) {
    struct stat status {};
    if (::stat(path, &status) != 0 || !S_ISREG(status.st_mode)) return -1;
    const int way = access == Access::read_write ? O_RDWR : O_RDONLY;
    int descriptor = -1;
    do {
        descriptor = ::open(path, way | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    } while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

} // namespace

File::File(const char *path, Access access) : descriptor_(open_regular(path, access)) {}

File::~File() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

std::optional<std::size_t> File::size() const {
    struct stat status {};
    const bool is_regular =
        descriptor_ >= 0 && ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
    if (!is_regular) return {};
    return static_cast<std::size_t>(status.st_size);
}

bool File::read(unsigned char *to, std::size_t size) const {
    while (size > 0) {
        const ssize_t got = ::read(descriptor_, to, size);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return false;
        to += got;
        size -= static_cast<std::size_t>(got);
    }
    return true;
}

std::string identity_of(const char *path) {
    struct stat status {};
    if (::stat(path, &status) != 0 || !S_ISREG(status.st_mode)) return {};
    const timespec &changed = status.st_mtim;
    const auto text = [](auto number) { return std::to_string(number) + ' '; };
    return text(status.st_dev) + text(status.st_ino) + text(status.st_size) + text(changed.tv_sec) +
           text(changed.tv_nsec);
}

FileContent read_file(const char *path, Access access, std::size_t most) {
    const File file(path, access);
    const auto size = file.size();
    if (!size) return {.memory = nullptr, .size = 0, .error = FileError::open};
    if (is_guarded && *size > most) {
        return {.memory = nullptr, .size = 0, .error = FileError::memory};
    }
    FileContent content;
    content.memory.reset(static_cast<unsigned char *>(std::malloc(*size + 1)));
    if (!content.memory) return {.memory = nullptr, .size = 0, .error = FileError::memory};
    if (!file.read(content.memory.get(), *size)) {
        return {.memory = nullptr, .size = 0, .error = FileError::read};
    }
    content.memory[*size] = '\0';
    content.size = *size;
    return content;
}

void set_file_error(const char *path, FileError error) {
    struct stat status {};
    if (error == FileError::memory) {
        SDL_SetError("%s is too large", path);
    } else if (error == FileError::open && ::stat(path, &status) == 0 && !S_ISREG(status.st_mode)) {
        SDL_SetError("%s is no regular file", path);
    } else {
        SDL_SetError("Couldn't open %s", path);
    }
}

RecordReader::RecordReader(const char *path, Access access, std::size_t record_size)
    : file_(path, access), record_size_(record_size) {
    const auto size = file_.size();
    if (!size) {
        error_ = FileError::open;
        return;
    }
    count_records(*size);
    if (error_ != FileError::none) return;
    unread_ = count_;
    buffer_.reset(static_cast<unsigned char *>(std::malloc(buffered_records * record_size)));
    if (buffer_ == nullptr) error_ = FileError::memory;
}

RecordReader::RecordReader(Bytes file, std::size_t record_size)
    : record_size_(record_size), read_(file) {
    count_records(file.size());
    read_ = file.first(count_ * record_size);
}

void RecordReader::count_records(std::size_t file_size) {
    count_ = file_size / record_size_;
    if (!is_guarded || count_ <= max_records) return;
    count_ = 0;
    error_ = FileError::records;
}

bool RecordReader::next(Bytes &record) {
    if (read_.empty() && !fill()) return false;
    record = read_.first(record_size_);
    read_ = read_.subspan(record_size_);
    return true;
}

bool RecordReader::fill() {
    const std::size_t records = std::min(unread_, buffered_records);
    unread_ -= records;
    if (records == 0 || !file_.read(buffer_.get(), records * record_size_)) return false;
    read_ = {buffer_.get(), records * record_size_};
    return true;
}

} // namespace velumo
