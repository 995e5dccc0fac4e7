// What `velform check` has found, for programs.
#pragma once

#include <ostream>
#include <vector>

#include "base/diagnostics.h"

namespace velform {

struct CheckedFile {
    std::string path;
    bool is_source = true; // else positions are those of place_in_record()
    std::vector<Finding> findings{};
};

// A list of findings.
void print_json(const std::vector<CheckedFile> &files, std::ostream &out);
// The Static Analysis Results Interchange Format, version 2.1.0.
void print_sarif(const std::vector<CheckedFile> &files, std::ostream &out);

} // namespace velform
