#include "base/files.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <fmt/format.h>

#include "base/descriptor.h"

namespace velform {

void fail_at_file(std::string_view what, const std::string &path, int code) {
    throw FileProblem(fmt::format("cannot {} {}: {}", what, path, std::strerror(code)));
}

std::string read_file(const std::string &path) {
    const bool is_input = path == standard_stream;
    const std::string name = is_input ? "standard input" : path;
    const Descriptor file(is_input ? dup(STDIN_FILENO)
                                   : open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    if (!file.is_open()) fail_at_file("read", name, errno);
    std::string bytes;
    char block[16384];
    while (bytes.size() <= largest_file) {
        const ssize_t count = read(file, block, sizeof block);
        if (count == 0) return bytes;
        if (count > 0) bytes.append(block, static_cast<std::size_t>(count));
        if (count < 0 && errno != EINTR) fail_at_file("read", name, errno);
    }
    throw FileProblem(
        fmt::format("cannot read {}: it is larger than {} MiB", name, largest_file >> 20));
}

} // namespace velform
