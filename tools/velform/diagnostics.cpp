#include "diagnostics.h"

#include <algorithm>

namespace velform {
namespace {

constexpr std::size_t most_lines = 100; // of errors, and of warnings

void print_rest(std::ostream &out, const std::string &file, std::size_t count, const char *what) {
    if (count > most_lines) out << file << ": " << count - most_lines << " more " << what << '\n';
}

} // namespace

void Diagnostics::error(Position where, std::string message) {
    entries_.push_back({where, Severity::error, std::move(message)});
}

void Diagnostics::warning(Position where, std::string message) {
    entries_.push_back({where, Severity::warning, std::move(message)});
}

bool Diagnostics::has_errors() const {
    return std::ranges::any_of(entries_,
                               [](const Entry &e) { return e.severity == Severity::error; });
}

std::vector<Diagnostics::Entry> Diagnostics::sorted() const {
    std::vector<Entry> entries = entries_;
    std::ranges::stable_sort(entries, {}, &Entry::where);
    // One word of a source may become several objects.
    entries.erase(std::unique(entries.begin(), entries.end()), entries.end());
    return entries;
}

void Diagnostics::print(std::ostream &out, const std::string &file) const {
    std::size_t errors = 0, warnings = 0;
    for (const auto &[where, severity, message] : sorted()) {
        const bool is_error = severity == Severity::error;
        if (++(is_error ? errors : warnings) > most_lines) continue;
        out << file << ':' << where.line << ':' << where.column << ": "
            << (is_error ? "error" : "warning") << ": " << message << '\n';
    }
    print_rest(out, file, errors, "errors");
    print_rest(out, file, warnings, "warnings");
}

} // namespace velform
