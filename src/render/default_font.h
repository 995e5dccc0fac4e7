// The font that the system has for programs which name none. For opening the display.
#pragma once

#include <optional>
#include <string>

namespace velumo {

struct FontFile {
    std::string path;
    long index; // of the font in a collection
};

// Nothing with SDL's error text, also in a build without fontconfig. Throws std::bad_alloc.
std::optional<FontFile> find_default_font();

} // namespace velumo
