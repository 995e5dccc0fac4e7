#include "diagnostics.h"

#include <algorithm>

#include "printable.h"

namespace velform {
namespace {

constexpr std::size_t most_lines = 100;    // of errors, and of warnings
constexpr std::size_t most_entries = 5000; // until those that will not be printed are counted only

} // namespace

void Diagnostics::error(Position where, std::string message) {
    add({where, Severity::error, printable(message)});
}

void Diagnostics::warning(Position where, std::string message) {
    add({where, Severity::warning, printable(message)});
}

void Diagnostics::add(Entry entry) {
    if (entries_.size() == most_entries) keep_first();
    entries_.push_back(std::move(entry));
}

void Diagnostics::keep_first() {
    std::array<std::size_t, 2> kept{};
    std::vector<Entry> first;
    for (Entry &entry : sorted()) {
        const auto severity = static_cast<std::size_t>(entry.severity);
        if (kept[severity] < most_lines) {
            ++kept[severity];
            first.push_back(std::move(entry));
        } else {
            ++left_out_[severity];
        }
    }
    entries_ = std::move(first);
}

bool Diagnostics::has_errors() const {
    return std::ranges::any_of(entries_,
                               [](const Entry &e) { return e.severity == Severity::error; });
}

std::vector<Position> Diagnostics::places_of_errors() const {
    std::vector<Position> places;
    for (const Entry &entry : entries_) {
        if (entry.severity == Severity::error) places.push_back(entry.where);
    }
    return places;
}

std::vector<Diagnostics::Entry> Diagnostics::sorted() const {
    std::vector<Entry> entries = entries_;
    std::ranges::stable_sort(entries, {}, &Entry::where);
    // One word of a source may become several objects.
    entries.erase(std::unique(entries.begin(), entries.end()), entries.end());
    return entries;
}

void Diagnostics::print(std::ostream &out, const std::string &file) {
    constexpr std::array names{"error", "warning"};
    const std::string place = printable(file);
    keep_first();
    for (const auto &[where, severity, message] : entries_) {
        out << place << ':' << where.line << ':' << where.column << ": "
            << names[static_cast<std::size_t>(severity)] << ": " << message << '\n';
    }
    for (std::size_t k = 0; k < names.size(); ++k) {
        if (left_out_[k] == 0) continue;
        out << place << ": " << left_out_[k] << " more " << names[k] << "s\n";
    }
}

} // namespace velform
