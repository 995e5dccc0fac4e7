#include "files/folder_reading.h"

#include <cerrno>
#include <fnmatch.h>
#include <sys/stat.h>

#include "files/folder.h"

namespace velumo {
namespace {

// Patterns that are separated by ';'; none of them match all names.
class Patterns {
public:
    explicit Patterns(const char *list) {
        std::string_view rest = list == nullptr ? "" : list;
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find(';'), rest.size());
            patterns_.emplace_back(rest.substr(0, end));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    bool match(const char *name) const {
        const auto matches = [name](const std::string &p) {
            return fnmatch(p.c_str(), name, 0) == 0;
        };
        return patterns_.empty() || std::any_of(patterns_.begin(), patterns_.end(), matches);
    }

private:
    std::vector<std::string> patterns_;
};

// The root is its own parent.
bool is_root(DIR *folder) {
    struct stat own, parent;
    return fstat(dirfd(folder), &own) == 0 && fstatat(dirfd(folder), "..", &parent, 0) == 0 &&
           own.st_dev == parent.st_dev && own.st_ino == parent.st_ino;
}

// Null at the end, where errno is 0, and when the rest cannot be read.
const dirent *next_entry(DIR *folder) {
    errno = 0;
    return readdir(folder);
}

std::optional<ListedName> offer(DIR *folder, const char *name, const Patterns &patterns) {
    const bool is_parent = std::string_view(name) == "..";
    if (is_parent ? is_root(folder) : name[0] == '.') return {};
    // What a symbolic link leads to counts, so one that leads nowhere is left out.
    struct stat status;
    if (fstatat(dirfd(folder), name, &status, 0) != 0) return {};
    const bool is_folder = S_ISDIR(status.st_mode);
    if (!is_folder && (!S_ISREG(status.st_mode) || !patterns.match(name))) return {};
    return ListedName{name, is_folder, status.st_size, status.st_mtime};
}

// Asks no locale, so that a folder looks the same to everybody.
u8 folded(char c) { return static_cast<u8>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c); }

// Folders before files, the parent before all; then by letters whatever their case, then by bytes.
bool comes_before(const ListedName &a, const ListedName &b) {
    if (a.is_folder != b.is_folder) return a.is_folder;
    const bool a_is_parent = a.bytes == "..", b_is_parent = b.bytes == "..";
    if (a_is_parent || b_is_parent) return a_is_parent && !b_is_parent;
    const auto [in_a, in_b] =
        std::mismatch(a.bytes.begin(), a.bytes.end(), b.bytes.begin(), b.bytes.end(),
                      [](char x, char y) { return folded(x) == folded(y); });
    if (in_a == a.bytes.end() && in_b == b.bytes.end()) return a.bytes < b.bytes;
    if (in_a == a.bytes.end() || in_b == b.bytes.end()) return in_a == a.bytes.end();
    return folded(*in_a) < folded(*in_b);
}

} // namespace

std::optional<std::vector<ListedName>> read_folder(const char *path, const char *pattern) {
    const OpenFolder folder(opendir(path));
    if (!folder) return {};
    const Patterns patterns(pattern);
    std::vector<ListedName> names;
    const dirent *entry = nullptr;
    while ((entry = next_entry(folder.get())) != nullptr) {
        if (auto name = offer(folder.get(), entry->d_name, patterns)) {
            names.push_back(std::move(*name));
        }
    }
    if (errno != 0) return {};
    // Folders are small, and a heap sorts with a third of the code.
    std::make_heap(names.begin(), names.end(), comes_before);
    std::sort_heap(names.begin(), names.end(), comes_before);
    return names;
}

std::string common_rest(const std::string &folder, const std::string &beginning) {
    auto names = read_folder(folder.c_str(), nullptr);
    if (!names || beginning.empty()) return {};
    std::erase_if(*names, [&](const ListedName &n) { return !n.bytes.starts_with(beginning); });
    if (names->empty()) return {};
    std::string whole = names->front().bytes;
    for (const ListedName &name : *names) {
        const auto [end, other] =
            std::mismatch(whole.begin(), whole.end(), name.bytes.begin(), name.bytes.end());
        whole.erase(end, whole.end());
    }
    if (names->size() == 1 && names->front().is_folder) whole += '/';
    return whole.substr(beginning.size());
}

} // namespace velumo
