// Whether a font is fit for use. SDL_ttf writes outside of its memory with fonts whose numbers are
// out of proportion. For own fonts.
#pragma once

#include "model/bytes.h"

namespace velumo {

constexpr u32 max_font_size = 2000;

// Compressed files are refused: nobody knows how much is in them, or what.
bool may_be_font(Bytes file);

// For the fonts of one call. The instructions of a damaged font may run for long, so there is an
// end to the time of all of them; a sound font takes about a thousandth of a second.
class FontGate {
public:
    // The metrics of the font and of its characters lie within bounds of its size, and no pair of
    // characters goes back to the left.
    bool is_sound(TTF_Font *font, u32 size, Bytes file);

private:
    double seconds_left_ = 0.25; // of the processor, and some for each font
};

} // namespace velumo
