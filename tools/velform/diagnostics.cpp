#include "diagnostics.h"

#include <algorithm>

namespace velform {

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

void Diagnostics::print(std::ostream &out, const std::string &file) const {
    std::vector<Entry> sorted = entries_;
    std::ranges::stable_sort(sorted, {}, &Entry::where);
    // One word of a source may become several objects.
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    for (const auto &[where, severity, message] : sorted) {
        out << file << ':' << where.line << ':' << where.column << ": "
            << (severity == Severity::error ? "error" : "warning") << ": " << message << '\n';
    }
}

} // namespace velform
