// Paths of files as bytes. For the file dialog.
#pragma once

#include <string>
#include <string_view>

namespace velumo {

// The folder that the process works in; the root when that folder is gone.
std::string working_folder();

// A relative path starts from the folder.
std::string joined(const std::string &folder, std::string_view path);

struct SplitPath {
    std::string folder; // "/" for what is in the root
    std::string name;
};
// At the last slash; the path must have one.
SplitPath split(const std::string &path);

bool exists(const std::string &path);
bool is_folder(const std::string &path);
bool has_wildcard(std::string_view name);

// Without links and dots; the path itself when there is no such file.
std::string canonical(const std::string &path);

} // namespace velumo
