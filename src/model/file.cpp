// Reading a whole file.
#include "model/file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velumo {
namespace {

constexpr std::size_t buffered_records = 64; // fit into the nearer caches

} // namespace

// Opening does not wait: a named pipe without a writer must not stop the program.
File::File(const char *path, Access access)
    : descriptor_(::open(path, (access == Access::read_write ? O_RDWR : O_RDONLY) | O_CLOEXEC |
                                   O_NONBLOCK)) {}

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

FileContent read_file(const char *path, Access access) {
    const File file(path, access);
    const auto size = file.size();
    if (!size) return {.memory = nullptr, .size = 0, .error = FileError::open};
    FileContent content;
    content.memory.reset(static_cast<unsigned char *>(std::malloc(*size + 1)));
    if (!content.memory) return {.memory = nullptr, .size = 0, .error = FileError::memory};
    if (!file.read(content.memory.get(), *size)) {
        return {.memory = nullptr, .size = 0, .error = FileError::read};
    }
    content.size = *size;
    return content;
}

RecordReader::RecordReader(const char *path, Access access, std::size_t record_size)
    : file_(path, access), record_size_(record_size),
      buffer_(static_cast<unsigned char *>(std::malloc(buffered_records * record_size))) {
    const auto size = file_.size();
    if (!size) error_ = FileError::open;
    if (size && buffer_ == nullptr) error_ = FileError::memory;
    if (error_ == FileError::none) count_ = unread_ = *size / record_size;
}

bool RecordReader::next(Bytes &record) {
    if (place_ == buffered_ && !fill()) return false;
    record = {buffer_.get() + place_++ * record_size_, record_size_};
    return true;
}

bool RecordReader::fill() {
    place_ = 0;
    buffered_ = std::min(unread_, buffered_records);
    unread_ -= buffered_;
    return buffered_ != 0 && file_.read(buffer_.get(), buffered_ * record_size_);
}

} // namespace velumo
