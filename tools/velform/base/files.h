// Reading a file whole, and replacing several files at once or none.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/status.h"

namespace velform {

// Bytes of a source, a form or any other file that is read: enough for the largest form as raw
// bytes.
inline constexpr std::size_t largest_file = std::size_t{256} << 20;

// Where a file is read, standard input; where one is written, standard output.
inline constexpr std::string_view standard_stream = "-";

// Reads a file, a pipe or a device up to its end. Throws FileProblem, also when it is larger.
std::string read_file(const std::string &path);

struct OutputFile {
    std::string path;
    std::string bytes;
    bool may_make_folder = false; // its own, if it is not there
};

// Either all files are written or, after a FileProblem, all files and folders are as they were.
// What is there keeps its mode and, if it may, its owner; links are followed. Devices and pipes are
// written to first.
void replace_files(std::span<const OutputFile> files);

// "cannot read x: No such file or directory"
[[noreturn]] void fail_at_file(std::string_view what, const std::string &path, int code);

} // namespace velform
