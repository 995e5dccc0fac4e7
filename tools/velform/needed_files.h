// The files that a program with a form opens by itself, seen from the folder of the compiled form.
#pragma once

#include <string>
#include <vector>

#include "files.h"
#include "form.h"

namespace velform {

// Returns the pictures of frame buttons to write: those that come with velform and are not in the
// folder yet. What is there stays, because it may be the author's.
std::vector<OutputFile> frame_pictures_to_write(const Form &form, const std::string &folder);

// Returns the names of all other pictures and fonts that are in none of the folders.
std::vector<std::string> missing_files(const Form &form, const std::vector<std::string> &folders);

} // namespace velform
