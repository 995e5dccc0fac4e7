#include "commands/check.h"

#include <algorithm>
#include <filesystem>

#include <fcntl.h>
#include <fmt/format.h>

#include "base/descriptor.h"
#include "base/files.h"
#include "check/allowances.h"
#include "check/check_form.h"
#include "check/report.h"
#include "form/header.h"
#include "read/read_form.h"
#include "source/source_form.h"

namespace velform {
namespace {

namespace fs = std::filesystem;

// Until it goes, paths are seen from a folder.
class WorkingFolder {
public:
    explicit WorkingFolder(const fs::path &folder) : before_(fs::current_path()) {
        std::error_code fault;
        if (!folder.empty()) fs::current_path(folder, fault);
        if (fault) fail_at_file("cannot work in", folder.string(), fault.value());
    }
    ~WorkingFolder() {
        std::error_code ignored;
        fs::current_path(before_, ignored);
    }
    WorkingFolder(const WorkingFolder &) = delete;
    WorkingFolder &operator=(const WorkingFolder &) = delete;

private:
    const fs::path before_;
};

// Until it goes, nothing is printed on standard error: the library would say line by line what the
// rules say better.
class SilentErrors {
public:
    SilentErrors() : before_(dup(STDERR_FILENO)) {
        const Descriptor nowhere(open("/dev/null", O_WRONLY));
        if (before_.is_open() && nowhere.is_open()) dup2(nowhere, STDERR_FILENO);
    }
    ~SilentErrors() {
        if (before_.is_open()) dup2(before_, STDERR_FILENO);
    }
    SilentErrors(const SilentErrors &) = delete;
    SilentErrors &operator=(const SilentErrors &) = delete;

private:
    const Descriptor before_;
};

// What is found in one file.
struct Found {
    std::string path;
    std::string source{}; // its text; empty for a form description file
    Diagnostics diagnostics{};
};

class FileCheck {
public:
    FileCheck(const CheckOptions &options, const std::string &path)
        : options_(options), path_(path) {}

    // Also in the lock file of a source.
    std::vector<Found> run() const {
        if (fs::path(path_).extension() == ".text") {
            throw WrongUsage(fmt::format("{} is read with its form; name that alone", path_));
        }
        std::string bytes = read_file(path_);
        if (is_source(path_, bytes)) return check_source_text(bytes);
        Found found{path_};
        const ReadForm read({path_}, std::move(bytes));
        check_all(CheckedForm(read, nullptr, found.diagnostics));
        return {std::move(found)};
    }

private:
    std::vector<Found> check_source_text(const std::string &bytes) const {
        SourceForm source(path_, bytes);
        Diagnostics &diagnostics = source.diagnostics();
        header_text(source.form(), source.prefix(path_), diagnostics);
        const bool is_whole = !source.has_errors();
        if (is_whole) {
            const ReadForm read(source.form());
            const CheckedForm form(read, &source.form(), diagnostics);
            check_source(form, source.source());
            check_all(form);
        }
        apply_allowances(bytes, is_whole ? Allowed::of_all_rules : Allowed::of_some_rules,
                         diagnostics);
        return {{source.lock_path(), source.lock_on_disk(), source.lock_diagnostics()},
                {path_, bytes, diagnostics}};
    }

    void check_all(const CheckedForm &form) const {
        const Size size = size_in(options_.size);
        check_links(form);
        check_types(form);
        check_places(form, {0, 0, size.width, size.height});
        check_use(form);
        check_colours(form);
        check_letters(form);
        check_loaded(form, size);
    }

    void check_loaded(const CheckedForm &form, Size size) const {
        Stage stage({size, {}, options_.font, options_.font_size});
        const fs::path folder = options_.directory.empty() ? fs::path(path_).parent_path()
                                                           : fs::path(options_.directory);
        const WorkingFolder working(folder);
        const SilentErrors silent;
        stage.load(form_data(form.form().form_bytes(), form.form().text_bytes()));
        check_files(form, stage.ctx());
        check_words(form, stage.ctx());
    }

    const CheckOptions &options_;
    const std::string path_;
};

void print_words(Found &found, bool has_colours, std::ostream &err) {
    Report report{found.path, found.source, has_colours};
    report.names_all_rules = true;
    if (found.source.empty()) report.place = place_in_record;
    found.diagnostics.print(err, report);
}

} // namespace

Status check(const CheckOptions &options, std::ostream &out, std::ostream &err) {
    std::vector<CheckedFile> checked;
    bool is_faulty = false;
    for (const std::string &path : options.files) {
        for (Found &found : FileCheck(options, path).run()) {
            const Diagnostics &diagnostics = found.diagnostics;
            is_faulty |= diagnostics.has_errors() || (options.is_strict && !diagnostics.is_empty());
            if (options.format == "text") {
                print_words(found, options.has_colours, err);
            } else {
                checked.push_back({found.path, !found.source.empty(), diagnostics.findings()});
            }
        }
    }
    if (options.format == "json") print_json(checked, out);
    if (options.format == "sarif") print_sarif(checked, out);
    return is_faulty ? Status::faulty_source : Status::done;
}

} // namespace velform
