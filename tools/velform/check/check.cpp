#include "check/check.h"

#include <algorithm>
#include <filesystem>

#include "check/allowances.h"
#include "check/check_form.h"
#include "check/report.h"
#include "files.h"
#include "form_builder.h"
#include "form_check.h"
#include "header.h"
#include "identifier.h"
#include "read_form.h"
#include "toml_text.h"

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

const unsigned char *data_of(const std::string &bytes) {
    return reinterpret_cast<const unsigned char *>(bytes.data());
}

std::string place_of(std::string path) {
    if (path == "-") path = "/dev/stdin";
    return path;
}

class FileCheck {
public:
    FileCheck(const CheckOptions &options, const std::string &path, std::ostream &err)
        : options_(options), path_(path), place_(place_of(path)), err_(err) {}

    Diagnostics run() {
        bytes_ = read_file(place_);
        if (is_source()) {
            check_source_text();
        } else {
            const ReadForm read({place_}, err_);
            const CheckedForm form(read, nullptr, diagnostics_);
            check_all(form);
        }
        return std::move(diagnostics_);
    }

    bool is_source() const { return velform::is_source(path_, bytes_); }
    const std::string &bytes() const { return bytes_; }

private:
    void check_source_text() {
        if (const auto root = parse_toml(bytes_, diagnostics_)) {
            const FormSource source = read_form_source(*root, diagnostics_);
            const Form form = build_form(source, diagnostics_);
            check_form(form, diagnostics_);
            const std::string prefix =
                source.prefix ? upper_case(*source.prefix) : prefix_for(path_);
            header_text(form, prefix, diagnostics_);
            if (!diagnostics_.has_errors()) {
                const ReadForm read(form);
                const CheckedForm checked(read, &form, diagnostics_);
                check_source(checked, source);
                check_all(checked);
            }
        }
        const bool is_whole = !diagnostics_.has_errors();
        apply_allowances(bytes_, is_whole ? Allowed::of_all_rules : Allowed::of_some_rules,
                         diagnostics_);
    }

    void check_all(const CheckedForm &form) {
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
        const std::string &records = form.form().form_bytes(), &texts = form.form().text_bytes();
        const fs::path folder = options_.directory.empty() ? fs::path(path_).parent_path()
                                                           : fs::path(options_.directory);
        const WorkingFolder working(folder);
        stage.load({data_of(records), records.size(), data_of(texts), texts.size(), nullptr, 0});
        check_files(form, stage.ctx());
        check_words(form, stage.ctx());
    }

    const CheckOptions &options_;
    const std::string path_, place_; // as it was named, and what that means
    std::ostream &err_;
    Diagnostics diagnostics_;
    std::string bytes_;
};

} // namespace

Status check(const CheckOptions &options, std::ostream &out, std::ostream &err) {
    std::vector<CheckedFile> checked;
    bool is_faulty = false;
    for (const std::string &path : options.files) {
        FileCheck file(options, path, err);
        Diagnostics found = file.run();
        is_faulty |= found.has_errors() || (options.is_strict && !found.is_empty());
        if (options.format == "text") {
            Report report{path, file.bytes(), options.has_colours};
            report.names_all_rules = true;
            if (!file.is_source()) report.source = {}, report.place = place_in_record;
            found.print(err, report);
        } else {
            checked.push_back({path, file.is_source(), found.findings()});
        }
    }
    if (options.format == "json") print_json(checked, out);
    if (options.format == "sarif") print_sarif(checked, out);
    return is_faulty ? Status::faulty_source : Status::done;
}

} // namespace velform
