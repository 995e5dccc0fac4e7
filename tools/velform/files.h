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
};

// Either all files are written or, after a FileProblem, all are as they were.
void replace_files(std::span<const OutputFile> files);

} // namespace velform
