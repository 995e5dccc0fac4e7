// velform compile: from a source to the files that a program loads.
#pragma once

#include <ostream>
#include <string>

#include "base/status.h"

namespace velform {

struct CompileOptions {
    std::string source;
    std::string form, text, header; // empty: made from the source's or the form's name
    std::string prefix;             // empty: as the source says, or made from its name
    std::string embed;              // C file with all that the form needs; empty: none
    bool embed_fonts = false;
    bool has_colours = false;
    bool lock = false;   // make a lock file, see source_form.h
    std::string depfile; // for make: what the outputs are made of; empty: none
};

// Prints to err what is wrong with the source, and which pictures and fonts are missing. Throws
// WrongUsage and FileProblem.
Status compile(const CompileOptions &options, std::ostream &err);

} // namespace velform
