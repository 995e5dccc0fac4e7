#include "base/destination.h"

#include <cerrno>
#include <charconv>
#include <filesystem>

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/files.h"

namespace velform {
namespace {

namespace fs = std::filesystem;

constexpr int most_links = 40; // as the system itself follows

// The number of a descriptor that is open in this process, as in /dev/fd/1; -1 for other paths.
// Opening such a path would open a file that was redirected once more, at its beginning.
int own_descriptor(const fs::path &path) {
    std::error_code fault;
    const fs::path folder = fs::canonical(path.parent_path(), fault);
    if (fault || folder != fmt::format("/proc/{}/fd", getpid())) return -1;
    int number = -1;
    const std::string name = path.filename().string();
    std::from_chars(name.data(), name.data() + name.size(), number);
    return number;
}

// Links are followed by hand, so that what they lead to is replaced and not they.
Destination followed(const std::string &given) {
    fs::path path(given);
    for (int links = 0; links <= most_links; ++links) {
        const int descriptor = own_descriptor(path);
        if (descriptor >= 0) return {given, true, descriptor};
        std::error_code fault;
        const fs::path target = fs::read_symlink(path, fault);
        if (fault) return {path.string()};
        path = path.parent_path() / target;
    }
    fail_at_file("follow", given, ELOOP);
}

} // namespace

Destination destination_of(const std::string &path) {
    if (path == standard_stream) return {"standard output", true, STDOUT_FILENO};
    Destination to = followed(path);
    struct stat status {};
    if (to.is_stream) return to;
    if (stat(to.path.c_str(), &status) != 0) {
        if (errno != ENOENT) fail_at_file("write", path, errno);
        return to;
    }
    to.is_stream = S_ISCHR(status.st_mode) || S_ISFIFO(status.st_mode);
    if (S_ISDIR(status.st_mode)) fail_at_file("write", path, EISDIR);
    if (!to.is_stream && !S_ISREG(status.st_mode)) {
        throw FileProblem(fmt::format("cannot write {}: it is a socket or a disk", path));
    }
    return to;
}

bool is_stream(const std::string &path) {
    if (path == standard_stream) return true;
    std::error_code none;
    const fs::file_type type = fs::status(path, none).type();
    return type == fs::file_type::character || type == fs::file_type::fifo ||
           followed(path).is_stream;
}

} // namespace velform
