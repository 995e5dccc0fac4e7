#include "files.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <list>
#include <memory>

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

namespace velform {
namespace {

constexpr std::size_t largest_file = std::size_t{64} << 20;

[[noreturn]] void fail(std::string_view what, const std::string &path, int code) {
    throw FileProblem(fmt::format("cannot {} {}: {}", what, path, std::strerror(code)));
}

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

// The folder of a file. If it was made for the file it goes again, unless something is in it.
class Folder {
public:
    explicit Folder(const OutputFile &file)
        : path_(std::filesystem::path(file.path).parent_path()) {
        std::error_code fault; // shows when the file is written
        is_new_ = file.may_make_folder && std::filesystem::create_directory(path_, fault);
    }
    ~Folder() {
        if (is_new_) rmdir(path_.c_str());
    }
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;

private:
    std::filesystem::path path_;
    bool is_new_ = false;
};

// One file on its way: first next to its place under another name, then in its place, with what
// was there before kept until all files have come so far.
class Replacement {
public:
    explicit Replacement(const OutputFile &file)
        : path_(file.path), fresh_(next_to(file.path, "new")), kept_(next_to(file.path, "old")) {
        write(file.bytes);
    }
    ~Replacement() {
        unlink(fresh_.c_str());
        unlink(kept_.c_str());
    }
    Replacement(const Replacement &) = delete;
    Replacement &operator=(const Replacement &) = delete;

    void put_in_place() {
        had_old_ = link(path_.c_str(), kept_.c_str()) == 0;
        if (!had_old_ && errno != ENOENT) fail("replace", path_, errno);
        if (rename(fresh_.c_str(), path_.c_str()) != 0) fail("replace", path_, errno);
        is_in_place_ = true;
    }

    void take_back() {
        if (!is_in_place_) return;
        if (had_old_) {
            rename(kept_.c_str(), path_.c_str());
        } else {
            unlink(path_.c_str());
        }
    }

private:
    static std::string next_to(const std::string &path, std::string_view suffix) {
        return fmt::format("{}.{}.{}", path, getpid(), suffix);
    }

    void write(const std::string &bytes) {
        const Descriptor file(open(fresh_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
        if (!file.is_open()) fail("write", path_, errno);
        for (std::size_t done = 0; done < bytes.size();) {
            const ssize_t count = ::write(file, bytes.data() + done, bytes.size() - done);
            if (count <= 0) abandon();
            done += static_cast<std::size_t>(count);
        }
        // A full disk may show only now.
        if (fsync(file) != 0 && errno != EINVAL) abandon();
    }

    [[noreturn]] void abandon() {
        const int code = errno;
        unlink(fresh_.c_str());
        fail("write", path_, code);
    }

    std::string path_, fresh_, kept_;
    bool had_old_ = false;
    bool is_in_place_ = false;
};

} // namespace

std::string read_file(const std::string &path) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.is_open()) fail("read", path, errno);
    std::string bytes;
    char block[16384];
    while (bytes.size() <= largest_file) {
        const ssize_t count = read(file, block, sizeof block);
        if (count < 0) fail("read", path, errno);
        if (count == 0) return bytes;
        bytes.append(block, static_cast<std::size_t>(count));
    }
    fail("read", path, EFBIG);
}

void replace_files(std::span<const OutputFile> files) {
    // None of them moves. The folders go last, when nothing is in them.
    std::list<Folder> folders;
    std::list<Replacement> replacements;
    for (const OutputFile &file : files) {
        folders.emplace_back(file);
        replacements.emplace_back(file);
    }
    try {
        for (Replacement &replacement : replacements) replacement.put_in_place();
    } catch (...) {
        for (Replacement &replacement : replacements) replacement.take_back();
        throw;
    }
}

} // namespace velform
