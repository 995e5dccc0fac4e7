// Reading a file whole, and replacing several files at once or none.
#pragma once

#include <span>
#include <string>

#include "status.h"

namespace velform {

// Throws FileProblem.
std::string read_file(const std::string &path);

struct OutputFile {
    std::string path;
    std::string bytes;
    bool may_make_folder = false; // its own, if it is not there
};

// Either all files are written or, after a FileProblem, all files and folders are as they were.
void replace_files(std::span<const OutputFile> files);

} // namespace velform
