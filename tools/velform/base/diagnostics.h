// What is wrong with a form, and where; gathered over a whole run and printed in order.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "base/rules.h"

namespace velform {

// Line and column of a source, both from 1; the column counts characters.
struct Position {
    std::uint32_t line = 1;
    std::uint32_t column = 1;
    auto operator<=>(const Position &) const = default;
};

struct Finding {
    Position where;
    Rule rule;
    std::string message; // one line, printable
    bool operator==(const Finding &) const = default;
};

// How findings are printed.
struct Report {
    std::string file;
    std::string_view source{}; // whose lines are printed, with a mark; empty: none are
    bool has_colours = false;
    bool names_all_rules = false; // also that of sources that cannot be compiled
    // What stands for a position after the name of the file, as in ":12:8"; null: line and column.
    std::function<std::string(Position)> place{};
};

class Diagnostics {
public:
    void error(Position where, std::string message, Rule rule = Rule::invalid_source);
    void warning(Position where, Rule rule, std::string message);
    bool has_errors() const;
    bool is_empty() const { return findings_.empty(); }
    // Of the errors, not counting those that are only counted.
    std::vector<Position> places_of_errors() const;
    // In the order of the source, each once.
    std::vector<Finding> findings() const;
    void remove_if(const std::function<bool(const Finding &)> &is_unwanted);

    // Prints one line each, once, in the order of the source: "file:line:column: error: message";
    // warnings have their rule, too. Of errors and of warnings only the first hundred, and how many
    // more there are. Words of the source come as printable() makes them.
    void print(std::ostream &out, const Report &report);

private:
    void add(Finding finding);
    void keep_first();

    std::vector<Finding> findings_;
    std::array<std::size_t, 2> left_out_{}; // of each severity
};

inline Severity severity_of(const Finding &finding) { return row_of(finding.rule).severity; }
inline std::string_view word_for(Severity severity) {
    return severity == Severity::error ? "error" : "warning";
}

} // namespace velform
