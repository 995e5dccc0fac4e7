// Memory from malloc and calloc, which programs release with free. For tables, files and paths.
#pragma once

#include <cstdlib>
#include <memory>

namespace velumo {

struct FreeDeleter {
    void operator()(void *memory) const { std::free(memory); }
};
template <class T> using Table = std::unique_ptr<T[], FreeDeleter>;

} // namespace velumo
