// velform diff: what changed from one form to another, in words.
#pragma once

#include "base/status.h"
#include "read/read_form.h"

namespace velform {

struct DiffOptions {
    // The two, sources or form description files; or what git gives an external diff: the path, and
    // of either version a file, its hash and its mode.
    std::vector<std::string> files;
    bool for_git = false; // differences are no reason to end with 1
};

// Prints what is wrong with sources to err. Throws WrongUsage and FileProblem.
Status diff(const DiffOptions &options, std::ostream &out, std::ostream &err);

} // namespace velform
