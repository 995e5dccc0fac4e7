// Where an output goes: into a file, which is replaced as a whole, or through a device or a pipe.
#pragma once

#include <string>

namespace velform {

struct Destination {
    std::string path;        // what all links lead to; it need not be there
    bool is_stream = false;  // a device, a pipe or an open descriptor
    int own_descriptor = -1; // of this process, as /dev/stdout names one
};

// Throws FileProblem for what can be neither: a folder, a socket, a disk.
Destination destination_of(const std::string &path);

// Whether a path names a device, a pipe or a descriptor, next to which no files belong.
bool is_stream(const std::string &path);

} // namespace velform
