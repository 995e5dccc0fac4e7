// What is wrong with a form source, and where; gathered over a whole run and printed in order.
#pragma once

#include <array>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace velform {

// Line and column of a source, both from 1; the column counts characters.
struct Position {
    std::uint32_t line = 1;
    std::uint32_t column = 1;
    auto operator<=>(const Position &) const = default;
};

class Diagnostics {
public:
    void error(Position where, std::string message);
    void warning(Position where, std::string message);
    bool has_errors() const;
    // Of the errors, not counting those that are only counted.
    std::vector<Position> places_of_errors() const;

    // Prints one line each, once, in the order of the source: "file:line:column: error: message";
    // of errors and of warnings only the first hundred, and how many more there are. Words of the
    // source come as printable() makes them.
    void print(std::ostream &out, const std::string &file);

private:
    enum class Severity { error, warning };
    struct Entry {
        Position where;
        Severity severity;
        std::string message;
        bool operator==(const Entry &) const = default;
    };
    void add(Entry entry);
    void keep_first();
    std::vector<Entry> sorted() const;

    std::vector<Entry> entries_;
    std::array<std::size_t, 2> left_out_{}; // of each severity
};

} // namespace velform
