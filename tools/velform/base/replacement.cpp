// How files are replaced: each is written without a name first, and gets one when all are whole.
#include "base/files.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <list>
#include <optional>
#include <set>
#include <vector>

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "base/descriptor.h"
#include "base/destination.h"

namespace velform {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t most_drafts = 16; // names of drafts in a folder
constexpr int most_tries = 500;
constexpr useconds_t between_tries = 20000; // microseconds

fs::path folder_of(const std::string &path) {
    const fs::path folder = fs::path(path).parent_path();
    return folder.empty() ? "." : folder;
}

// The same in each run, so that the next one finds what was left. A folder may be shared by users.
std::string draft_name(const fs::path &folder, std::size_t number) {
    return (folder / fmt::format(".velform-{}-{}", getuid(), number)).string();
}

// A signal that ends the process waits until the files are in their places or as before.
class SignalsHeld {
public:
    SignalsHeld() {
        sigset_t all;
        sigfillset(&all);
        sigprocmask(SIG_SETMASK, &all, &before_);
    }
    ~SignalsHeld() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
    SignalsHeld(const SignalsHeld &) = delete;
    SignalsHeld &operator=(const SignalsHeld &) = delete;

private:
    sigset_t before_{};
};

// One run at a time writes into a folder. Where there are no locks, the names of drafts still keep
// two runs from mixing their bytes.
class FolderLock {
public:
    explicit FolderLock(const fs::path &folder)
        : folder_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        for (int tries = 0; folder_.is_open() && tries < most_tries; ++tries) {
            if (flock(folder_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
            usleep(between_tries);
        }
        if (folder_.is_open()) fail_at_file("write into", folder.string(), EBUSY);
    }

private:
    Descriptor folder_;
};

// The folder of a file. If it was made for the file it goes again, unless something is in it.
class Folder {
public:
    explicit Folder(const OutputFile &file) : path_(fs::path(file.path).parent_path()) {
        std::error_code fault; // shows when the file is written
        is_new_ = file.may_make_folder && fs::create_directory(path_, fault);
    }
    ~Folder() {
        if (is_new_) rmdir(path_.c_str());
    }
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;

private:
    fs::path path_;
    bool is_new_ = false;
};

// What a file was before.
struct Old {
    struct stat status {};
    std::optional<std::string> bytes; // unless it cannot be read
};

std::optional<Old> old_file(const std::string &path) {
    Old old;
    if (stat(path.c_str(), &old.status) != 0) return {};
    try {
        old.bytes = read_file(path);
    } catch (const FileProblem &) { // it can be replaced, but not be brought back
    }
    return old;
}

// The bytes of a file on disk, at first without a name where the file system can do that.
class Draft {
public:
    Draft(std::string path, std::size_t number, const std::string &bytes,
          const std::optional<Old> &old)
        : path_(std::move(path)), name_(draft_name(folder_of(path_), number)), file_(begin()) {
        if (!file_.is_open()) fail_at_file("write", path_, errno);
        if (old) take_over(old->status);
        // A full disk may show only when all is on it.
        if (!write_all(file_, bytes) || (fsync(file_) != 0 && errno != EINVAL)) abandon("write");
    }
    ~Draft() { forget(); }
    Draft(const Draft &) = delete;
    Draft &operator=(const Draft &) = delete;

    void put_in_place() {
        if (!has_name_ && linkat(AT_FDCWD, shown_by_system().c_str(), AT_FDCWD, name_.c_str(),
                                 AT_SYMLINK_FOLLOW) != 0) {
            abandon("write");
        }
        has_name_ = true;
        if (rename(name_.c_str(), path_.c_str()) != 0) abandon("replace");
        has_name_ = false;
    }

private:
    int begin() {
        const int nameless = can_name_later() ? open(folder_of(path_).c_str(),
                                                     O_WRONLY | O_TMPFILE | O_CLOEXEC, 0666)
                                              : -1;
        if (nameless >= 0) return nameless;
        const int named =
            open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        has_name_ = named >= 0;
        return named;
    }

    void take_over(const struct stat &old) {
        // Only root may give a file away; the mode then is that of the writer's own file.
        const bool may_stay = fchown(file_, old.st_uid, old.st_gid) == 0;
        fchmod(file_, old.st_mode & (may_stay ? 07777 : 0777));
    }

    static bool can_name_later() { return access("/proc/self/fd", X_OK) == 0; }
    std::string shown_by_system() const {
        return fmt::format("/proc/self/fd/{}", static_cast<int>(file_));
    }

    void forget() {
        if (has_name_) unlink(name_.c_str());
        has_name_ = false;
    }

    [[noreturn]] void abandon(const char *what) {
        const int code = errno;
        forget();
        fail_at_file(what, path_, code);
    }

    std::string path_, name_;
    bool has_name_ = false;
    Descriptor file_;
};

class Replacement {
public:
    Replacement(const std::string &path, std::size_t number, const std::string &bytes)
        : path_(path), number_(number), old_(old_file(path)), draft_(path, number, bytes, old_) {}

    void put_in_place() {
        draft_.put_in_place();
        is_in_place_ = true;
    }

    void take_back() {
        if (!is_in_place_) return;
        if (!old_) {
            unlink(path_.c_str());
        } else if (old_->bytes) {
            Draft(path_, number_, *old_->bytes, old_).put_in_place();
        }
    }

private:
    std::string path_;
    std::size_t number_;
    std::optional<Old> old_;
    Draft draft_;
    bool is_in_place_ = false;
};

void write_to(const Destination &to, const OutputFile &file) {
    const Descriptor stream(to.own_descriptor >= 0
                                ? dup(to.own_descriptor)
                                : open(to.path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
    if (!stream.is_open() || !write_all(stream, file.bytes)) {
        fail_at_file("write", to.path, errno);
    }
}

// What a run that was killed has left.
void remove_stale_drafts(const std::set<fs::path> &folders) {
    for (const fs::path &folder : folders) {
        for (std::size_t k = 0; k < most_drafts; ++k) unlink(draft_name(folder, k).c_str());
    }
}

void put_all_in_place(std::list<Replacement> &replacements) {
    try {
        for (Replacement &replacement : replacements) replacement.put_in_place();
    } catch (const FileProblem &) {
        for (Replacement &replacement : replacements) {
            try {
                replacement.take_back();
            } catch (const FileProblem &) { // the others may still be taken back
            }
        }
        throw;
    }
}

} // namespace

void replace_files(std::span<const OutputFile> files) {
    std::vector<std::pair<Destination, const OutputFile *>> outputs;
    for (const OutputFile &file : files) outputs.emplace_back(destination_of(file.path), &file);
    std::set<fs::path> locked, used; // in order, so that two runs never wait for each other
    for (const auto &[to, file] : outputs) {
        if (to.is_stream) {
            write_to(to, *file);
            continue;
        }
        std::error_code fault; // shows when the file is written
        const fs::path folder = fs::weakly_canonical(folder_of(to.path), fault);
        used.insert(folder);
        if (!file->may_make_folder) locked.insert(folder);
    }
    const std::list<FolderLock> locks(locked.begin(), locked.end());
    const SignalsHeld held;
    remove_stale_drafts(used);
    // None of them moves. The folders go last, when nothing is in them.
    std::list<Folder> folders;
    std::list<Replacement> replacements;
    for (const auto &[to, file] : outputs) {
        if (to.is_stream) continue;
        folders.emplace_back(*file);
        replacements.emplace_back(to.path, replacements.size(), file->bytes);
    }
    put_all_in_place(replacements);
}

} // namespace velform
