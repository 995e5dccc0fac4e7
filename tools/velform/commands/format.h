// velform format: sources in their standard layout.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "base/status.h"

namespace velform {

struct FormatOptions {
    std::vector<std::string> sources; // what is no file is formatted to out
    bool only_checks = false;
};

// Prints to err what is wrong with sources, of which none is written then, and with only_checks to
// out which of them would change. Throws FileProblem.
Status format(const FormatOptions &options, std::ostream &out, std::ostream &err);

} // namespace velform
