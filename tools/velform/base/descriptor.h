// An open file, and writing to it whatever comes between.
#pragma once

#include <cerrno>
#include <string_view>

#include <poll.h>
#include <unistd.h>

namespace velform {

class Descriptor {
public:
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    ~Descriptor() {
        if (is_open()) close(descriptor_);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    bool is_open() const { return descriptor_ >= 0; }
    operator int() const { return descriptor_; }

private:
    int descriptor_;
};

// Writes all bytes, or returns false and leaves the reason in errno.
inline bool write_all(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (count < 0 && errno == EAGAIN) {
            pollfd room{descriptor, POLLOUT, 0};
            poll(&room, 1, -1);
        } else if (count == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

} // namespace velform
