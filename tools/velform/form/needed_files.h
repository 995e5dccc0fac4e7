// The files that a program with a form opens by itself, seen from the folder of the compiled form.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "form/form.h"

namespace velform {

// Returns the pictures of frame buttons to write: those that come with velform and are not in the
// folder yet. What is there stays, because it may be the author's.
std::vector<OutputFile> frame_pictures_to_write(const Form &form, const std::string &folder);

struct NeededFile {
    std::string name;
    Position where; // in the source
    bool is_font;
    std::string_view standard; // the picture that comes with velform for it, or none
};
// All of them, some perhaps twice.
std::vector<NeededFile> needed_files(const Form &form);

// Where a file is in the first folder that has it; empty when none has.
std::string place_in(const std::vector<std::string> &folders, const std::string &name);

// Returns all other pictures and fonts that are in none of the folders, each once.
std::vector<NeededFile> missing_files(const Form &form, const std::vector<std::string> &folders);

} // namespace velform
