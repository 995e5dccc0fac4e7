#include "source/source_form.h"

#include <filesystem>
#include <utility>

#include <fmt/format.h>

#include "base/destination.h"
#include "base/files.h"
#include "form/form_builder.h"
#include "form/form_check.h"
#include "form/header.h"
#include "source/identifier.h"
#include "source/toml_text.h"

namespace velform {

std::string lock_path_of(const std::string &source) {
    if (is_stream(source)) return {};
    return std::filesystem::path(source).replace_extension(".form.lock").string();
}

SourceForm::SourceForm(std::string path, const std::string &bytes, bool makes_lock)
    : path_(std::move(path)) {
    read_lock_file(makes_lock);
    const auto root = parse_toml(bytes, diagnostics_);
    if (!root) return;
    source_ = read_form_source(*root, diagnostics_);
    const bool has_lock = !lock_path_.empty() && !lock_diagnostics_.has_errors();
    form_ = build_form(source_, diagnostics_, has_lock ? &lock_ : nullptr);
    check_form(form_, diagnostics_);
}

void SourceForm::read_lock_file(bool makes_lock) {
    const std::string path = lock_path_of(path_);
    std::error_code ignored;
    const bool is_there = !path.empty() && std::filesystem::exists(path, ignored);
    if (!is_there && !makes_lock) return;
    lock_path_ = path;
    if (!is_there) return;
    old_lock_ = read_file(path);
    lock_ = read_lock(old_lock_, lock_diagnostics_);
}

void SourceForm::print_diagnostics(std::ostream &err, bool has_colours) {
    lock_diagnostics_.print(err, {.file = lock_path_, .has_colours = has_colours});
    diagnostics_.print(err, {.file = path_, .has_colours = has_colours});
}

void SourceForm::refuse_errors(std::ostream &err) {
    if (!has_errors()) return;
    print_diagnostics(err);
    throw FileProblem(fmt::format("cannot read {}: the source has errors", path_));
}

std::string SourceForm::prefix(const std::string &named_after) {
    if (!source_.prefix || source_.prefix->empty()) return prefix_for(named_after);
    std::string prefix = upper_case(*source_.prefix);
    if (prefix == "VEL") {
        diagnostics_.error(source_.prefix_where, "the prefix VEL is the library's; choose another");
    }
    return prefix;
}

std::optional<std::string> SourceForm::changed_lock() const {
    if (lock_path_.empty()) return {};
    std::string text = lock_text(lock_);
    if (text == old_lock_) return {};
    return text;
}

} // namespace velform
