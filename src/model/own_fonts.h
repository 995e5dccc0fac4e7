// The own fonts of objects: opened once for each file and size, checked, and shared. For the
// model's assets.
#pragma once

#include "model/font_gate.h"
#include "model/form_files.h"

namespace velumo {

class OwnFonts;
using FontName = std::pair<std::string, u32>; // the file and its size

// The open font of a file and a size, or null with SDL's error text. What failed in this attempt
// before is not tried again.
class FontOpening {
public:
    FontOpening(vel_context &ctx, u32 objects)
        : ctx_(ctx), objects_(std::min<u32>(objects, VEL_MAX_RECORDS)), files_(ctx) {}

    // Throws std::bad_alloc.
    TTF_Font *open(const char *path, u32 size);

private:
    TTF_Font *open_first(OwnFonts &fonts, const char *path, const FontName &name);

    vel_context &ctx_;
    const u32 objects_; // that have a font of their own, as many as a form can
    FormFiles files_;
    FontGate gate_;
    u32 cost_ = 0;                           // of the fonts whose files were read
    std::map<FontName, std::string> failed_; // with their error texts
};

// Closes the fonts of objects, and those of this library that no object has any more.
void close_own_fonts(vel_context &ctx);

} // namespace velumo
