// Open folders. For reading them.
#pragma once

#include <dirent.h>
#include <memory>

namespace velumo {

struct CloseFolder {
    void operator()(DIR *folder) const { closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

} // namespace velumo
