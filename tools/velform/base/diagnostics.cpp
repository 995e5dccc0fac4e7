#include "base/diagnostics.h"

#include <algorithm>

#include <fmt/format.h>

#include "base/printable.h"
#include "base/quoted_line.h"

namespace velform {
namespace {

constexpr std::size_t most_lines = 100;    // of errors, and of warnings
constexpr std::size_t most_entries = 5000; // until those that will not be printed are counted only

std::string in_colour(const Report &report, int colour, std::string_view words) {
    if (!report.has_colours) return std::string(words);
    return fmt::format("\x1b[1;{}m{}\x1b[m", colour, words);
}

void print_finding(std::ostream &out, const Report &report, const Finding &finding) {
    constexpr int red = 31, magenta = 35, cyan = 36;
    const auto &[where, rule, message] = finding;
    const Severity severity = severity_of(finding);
    const std::string place =
        report.place ? report.place(where) : fmt::format(":{}:{}", where.line, where.column);
    out << printable(report.file) << place << ": "
        << in_colour(report, severity == Severity::error ? red : magenta, word_for(severity))
        << ": " << message;
    if (report.names_all_rules || rule != Rule::invalid_source)
        out << " [" << in_colour(report, cyan, row_of(rule).name) << ']';
    out << '\n';
    if (!report.source.empty()) out << quoted_line(report.source, where.line, where.column);
}

} // namespace

void Diagnostics::error(Position where, std::string message, Rule rule) {
    add({where, rule, printable(message)});
}

void Diagnostics::warning(Position where, Rule rule, std::string message) {
    add({where, rule, printable(message)});
}

void Diagnostics::add(Finding finding) {
    if (findings_.size() == most_entries) keep_first();
    findings_.push_back(std::move(finding));
}

void Diagnostics::keep_first() {
    std::array<std::size_t, 2> kept{};
    std::vector<Finding> first;
    for (Finding &finding : findings()) {
        const auto severity = static_cast<std::size_t>(severity_of(finding));
        if (kept[severity] < most_lines) {
            ++kept[severity];
            first.push_back(std::move(finding));
        } else {
            ++left_out_[severity];
        }
    }
    findings_ = std::move(first);
}

bool Diagnostics::has_errors() const {
    return std::ranges::count(findings_, Severity::error, severity_of) != 0;
}

std::vector<Position> Diagnostics::places_of_errors() const {
    std::vector<Position> places;
    for (const Finding &finding : findings_) {
        if (severity_of(finding) == Severity::error) places.push_back(finding.where);
    }
    return places;
}

std::vector<Finding> Diagnostics::findings() const {
    std::vector<Finding> findings = findings_;
    std::ranges::stable_sort(findings, {}, &Finding::where);
    // One word of a source may become several objects.
    findings.erase(std::unique(findings.begin(), findings.end()), findings.end());
    return findings;
}

void Diagnostics::remove_if(const std::function<bool(const Finding &)> &is_unwanted) {
    std::erase_if(findings_, is_unwanted);
}

void Diagnostics::print(std::ostream &out, const Report &report) {
    keep_first();
    for (const Finding &finding : findings_) print_finding(out, report, finding);
    for (const Severity severity : {Severity::error, Severity::warning}) {
        const std::size_t count = left_out_[static_cast<std::size_t>(severity)];
        if (count == 0) continue;
        out << printable(report.file) << ": " << count << " more " << word_for(severity) << "s\n";
    }
}

} // namespace velform
