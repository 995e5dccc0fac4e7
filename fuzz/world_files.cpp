// Files and folders of the world: two files in memory and one folder, in which every folder holds
// the same names. Paths of fonts and pictures are nothing but a file that cannot be opened.
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <string_view>
#include <sys/stat.h>

#include "world.h"

namespace {

using fuzz::Call;
using fuzz::Failure;
using fuzz::world;

struct Entry {
    const char *name;
    mode_t mode;
};

constexpr Entry entries[] = {
    {".", S_IFDIR},
    {"..", S_IFDIR},
    {".hidden", S_IFREG},
    {"sub", S_IFDIR},
    {"Sub", S_IFDIR},
    {"a.txt", S_IFREG},
    {"B.txt", S_IFREG},
    {"pipe", S_IFIFO},
    {"\303\244\303\266\303\274\302\200", S_IFREG},
    {"\377\376%s%n\033]0;\a", S_IFREG},
    {"line\nbreak*?[", S_IFREG},
    {"none", 0},
    {"0123456789012345678901234567890123456789012345678901234567890123456789"
     "012345678901234567890123456789012345678901234567890123456789",
     S_IFDIR},
    {"c", S_IFREG},
    {"d", S_IFREG},
    {"e", S_IFREG}};

constexpr int first_descriptor = 1000;

constexpr std::size_t memory_files = 4, form_files = 2; // the form's are there even without bytes

// The number of the file in memory with a path; memory_files = there is none.
std::size_t memory_file(std::string_view path) {
    constexpr const char *paths[memory_files] = {fuzz::form_path, fuzz::text_path,
                                                 fuzz::picture_path, fuzz::font_path};
    const auto found = std::find(std::begin(paths), std::end(paths), path);
    return static_cast<std::size_t>(found - std::begin(paths));
}

fuzz::Bytes memory_bytes(std::size_t number) {
    const fuzz::Bytes all[memory_files] = {world().form, world().text, world().picture,
                                           world().font};
    return all[number];
}

bool is_there(std::size_t number) {
    return number < form_files || (number < memory_files && !memory_bytes(number).empty());
}

// The mode of what a path leads to; 0 = there is nothing.
mode_t mode_of(std::string_view path) {
    if (is_there(memory_file(path))) return S_IFREG;
    while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
    const std::string_view name = path.substr(path.rfind('/') + 1);
    if (path == "/" || name == "home") return S_IFDIR;
    for (const Entry &entry : entries) {
        if (name == entry.name) return entry.mode;
    }
    return 0;
}

int fill_status(mode_t mode, off_t size, struct stat *status) {
    *status = {};
    status->st_mode = mode;
    status->st_size = size;
    if (mode == 0) errno = ENOENT;
    return mode == 0 ? -1 : 0;
}

// As a call of the system fails.
bool refused(Call call) {
    const Failure failure = world().fails == nullptr ? Failure::none : world().fails(call);
    errno = failure == Failure::interrupted ? EINTR : EIO;
    return failure != Failure::none;
}

int look_up(const char *path, struct stat *status) {
    return refused(Call::status) ? -1 : fill_status(mode_of(path), 0, status);
}

struct OpenMemory {
    fuzz::Bytes bytes;
    std::size_t place;
};
OpenMemory open_files[memory_files];

OpenMemory &file_of(int descriptor) { return open_files[descriptor - first_descriptor]; }

char *duplicate(const char *string) {
    ++world().live;
    return strdup(string);
}

struct Folder {
    std::size_t next;
    dirent entry;
};
Folder the_folder;

} // namespace

extern "C" {

int __wrap_open(const char *path, int, ...) {
    if (refused(Call::open)) return -1;
    const std::size_t number = memory_file(path);
    if (!is_there(number)) {
        errno = ENOENT;
        return -1;
    }
    open_files[number] = {memory_bytes(number), 0};
    return first_descriptor + static_cast<int>(number);
}
int __wrap_close(int) { return 0; }
int __wrap_fstat(int descriptor, struct stat *status) {
    if (refused(Call::status)) return -1;
    if (descriptor < first_descriptor) return fill_status(S_IFDIR, 0, status);
    return fill_status(S_IFREG, static_cast<off_t>(file_of(descriptor).bytes.size()), status);
}
ssize_t __wrap_read(int descriptor, void *to, std::size_t size) {
    OpenMemory &file = file_of(descriptor);
    std::size_t got = std::min(size, file.bytes.size() - file.place);
    switch (world().fails == nullptr ? Failure::none : world().fails(Call::read)) {
    case Failure::error:
        errno = EIO;
        return -1;
    case Failure::interrupted:
        errno = EINTR;
        return -1;
    case Failure::short_read:
        got = (got + 1) / 2;
        break;
    default:
        break;
    }
    if (got > 0) std::memcpy(to, file.bytes.data() + file.place, got);
    file.place += got;
    return static_cast<ssize_t>(got);
}

int __wrap_stat(const char *path, struct stat *status) { return look_up(path, status); }
int __wrap_lstat(const char *path, struct stat *status) { return look_up(path, status); }
int __wrap_fstatat(int, const char *path, struct stat *status, int) {
    return look_up(path, status);
}
char *__wrap_getcwd(char *, std::size_t) {
    return refused(Call::status) ? nullptr : duplicate("/home");
}
char *__wrap_realpath(const char *path, char *) {
    return refused(Call::status) || mode_of(path) == 0 ? nullptr : duplicate(path);
}

DIR *__wrap_opendir(const char *path) {
    if (refused(Call::folder)) return nullptr;
    if (mode_of(path) != S_IFDIR) {
        errno = ENOENT;
        return nullptr;
    }
    the_folder.next = 0;
    return reinterpret_cast<DIR *>(&the_folder);
}
int __wrap_closedir(DIR *) { return 0; }
int __wrap_dirfd(DIR *) { return 3; }
dirent *__wrap_readdir(DIR *) {
    if (refused(Call::name)) return nullptr;
    errno = 0;
    if (the_folder.next == std::size(entries)) return nullptr;
    std::strcpy(the_folder.entry.d_name, entries[the_folder.next++].name);
    return &the_folder.entry;
}

} // extern "C"
