// A form as C data, with the files that it opens, so that a program needs none of them. For
// compile.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "form/form.h"

namespace velform {

// The name in C of a form's data.
std::string name_of_data(std::string_view prefix);

// What is at `path` in a form.
struct EmbeddedFile {
    std::string path, bytes;
};

// The pictures of the form, and its fonts if wanted, that are in one of the folders; pictures of
// frame buttons also without. Throws FileProblem.
std::vector<EmbeddedFile> files_to_embed(const Form &form, const std::vector<std::string> &folders,
                                         bool with_fonts);

// Valid C11: the definition of the data.
std::string embedded_form(const Form &form, std::string_view prefix,
                          const std::vector<EmbeddedFile> &files);

} // namespace velform
