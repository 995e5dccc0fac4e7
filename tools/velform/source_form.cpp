#include "source_form.h"

#include <filesystem>
#include <utility>

#include "destination.h"
#include "files.h"
#include "form_builder.h"
#include "form_check.h"
#include "toml_text.h"

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
    std::error_code none;
    const bool is_there = !path.empty() && std::filesystem::exists(path, none);
    if (!is_there && !makes_lock) return;
    lock_path_ = path;
    if (!is_there) return;
    old_lock_ = read_file(path);
    lock_ = read_lock(old_lock_, lock_diagnostics_);
}

void SourceForm::print_diagnostics(std::ostream &err, const Report &report) {
    Report for_lock = report;
    for_lock.file = lock_path_;
    for_lock.source = old_lock_;
    if (report.source.empty()) for_lock.source = {};
    lock_diagnostics_.print(err, for_lock);
    diagnostics_.print(err, report);
}

std::optional<std::string> SourceForm::changed_lock() const {
    if (lock_path_.empty()) return {};
    std::string text = lock_text(lock_);
    if (text == old_lock_) return {};
    return text;
}

} // namespace velform
