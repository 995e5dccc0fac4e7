// Reading a whole file.
#include "model/file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velumo {
namespace {

class Descriptor {
public:
    // Opening does not wait: a named pipe without a writer must not stop the program.
    Descriptor(const char *path, Access access)
        : number_(::open(path, (access == Access::read_write ? O_RDWR : O_RDONLY) | O_CLOEXEC |
                                   O_NONBLOCK)) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    std::optional<std::size_t> regular_file_size() const {
        struct stat status {};
        if (number_ < 0 || ::fstat(number_, &status) != 0 || !S_ISREG(status.st_mode)) return {};
        return static_cast<std::size_t>(status.st_size);
    }

    bool read_all(unsigned char *to, std::size_t size) const {
        while (size > 0) {
            const ssize_t got = ::read(number_, to, size);
            if (got < 0 && errno == EINTR) continue;
            if (got <= 0) return false;
            to += got;
            size -= static_cast<std::size_t>(got);
        }
        return true;
    }

private:
    int number_;
};

} // namespace

FileContent read_file(const char *path, Access access) {
    const Descriptor file(path, access);
    const auto size = file.regular_file_size();
    if (!size) return {.memory = nullptr, .size = 0, .error = FileError::open};
    FileContent content;
    content.memory.reset(static_cast<unsigned char *>(std::malloc(*size + 1)));
    if (!content.memory) return {.memory = nullptr, .size = 0, .error = FileError::memory};
    if (!file.read_all(content.memory.get(), *size)) {
        return {.memory = nullptr, .size = 0, .error = FileError::read};
    }
    content.size = *size;
    return content;
}

} // namespace velumo
