// How velform ends.
#pragma once

#include <stdexcept>

namespace velform {

// The exit status of the process.
enum class Status {
    done = 0,
    faulty_source = 1,
    differences = 1,
    wrong_usage = 2,
    file_problem = 3
};

// Arguments that make no sense; what() says why.
class WrongUsage : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A file that cannot be read or written; what() says which and why.
class FileProblem : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace velform
