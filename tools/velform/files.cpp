#include "files.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <fmt/format.h>

#include "descriptor.h"

namespace velform {

void fail_at_file(std::string_view what, const std::string &path, int code) {
    throw FileProblem(fmt::format("cannot {} {}: {}", what, path, std::strerror(code)));
}

std::string read_file(const std::string &path, std::size_t largest) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    if (!file.is_open()) fail_at_file("read", path, errno);
    std::string bytes;
    char block[16384];
    while (bytes.size() <= largest) {
        const ssize_t count = read(file, block, sizeof block);
        if (count == 0) return bytes;
        if (count > 0) bytes.append(block, static_cast<std::size_t>(count));
        if (count < 0 && errno != EINTR) fail_at_file("read", path, errno);
    }
    throw FileProblem(fmt::format("cannot read {}: it is larger than {} MiB", path, largest >> 20));
}

} // namespace velform
