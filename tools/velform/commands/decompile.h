// velform decompile: from the files of a form back to a source.
#pragma once

#include <ostream>
#include <string>

#include "base/status.h"
#include "decompile/decompiler.h"

namespace velform {

struct DecompileOptions {
    std::string form;
    std::string text;   // empty: the form's name with .text, if that is there
    std::string header; // with the names of the objects; empty: the form's name with .h, if there
    std::string output; // empty: to out
};

// What a header of the compiler's says; none of any other.
KnownNames names_in(const std::string &header);

// The shortest source found that becomes the same bytes again.
std::string source_for(const FormBytes &bytes, const KnownNames &names);

// Throws WrongUsage and FileProblem.
Status decompile(const DecompileOptions &options, std::ostream &out);

} // namespace velform
