// velform check: finds fault with forms, in sources and in files.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "base/status.h"
#include "draw/stage.h"

namespace velform {

struct CheckOptions {
    std::vector<std::string> files; // sources and form description files
    std::string directory;          // where fonts and pictures are; empty: next to each file
    std::string size = "800x600";
    std::string font = standard_font;
    int font_size = 12;          // as of vel_open_display()
    std::string format = "text"; // or json, sarif
    bool is_strict = false;      // warnings count as errors
    bool has_colours = false;
};

// Prints to err what it finds in words, to out what it finds as data. Throws WrongUsage and
// FileProblem.
Status check(const CheckOptions &options, std::ostream &out, std::ostream &err);

} // namespace velform
