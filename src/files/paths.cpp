#include "files/paths.h"

#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

#include "model/memory.h"

namespace velumo {
namespace {

using OwnedString = std::unique_ptr<char, FreeDeleter>;

} // namespace

std::string working_folder() {
    const OwnedString folder(getcwd(nullptr, 0));
    // The name of a folder outside the process's root does not begin with a slash.
    return folder && *folder == '/' ? folder.get() : "/";
}

std::string joined(const std::string &folder, std::string_view path) {
    if (path.starts_with('/')) return std::string(path);
    std::string result = folder;
    if (!result.ends_with('/')) result += '/';
    return result.append(path);
}

SplitPath split(const std::string &path) {
    const std::size_t slash = path.rfind('/');
    return {path.substr(0, slash == 0 ? 1 : slash), path.substr(slash + 1)};
}

bool exists(const std::string &path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

bool is_folder(const std::string &path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool has_wildcard(std::string_view name) { return name.find_first_of("*?") != name.npos; }

std::string canonical(const std::string &path) {
    const OwnedString found(realpath(path.c_str(), nullptr));
    return found ? found.get() : path;
}

} // namespace velumo
