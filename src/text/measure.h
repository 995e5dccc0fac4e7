// The font of an object and the size of texts in it. For drawing, text layout and editing.
#pragma once

#include "text/fitting.h"

namespace velumo {

// Null when the object's own font did not open, and for a font choice that is not supported.
TTF_Font *font_of(const vel_context &ctx, const vel_object &object);

// Pixels; 0 without a font.
u32 font_height(TTF_Font *font);
u32 text_width(const vel_context &ctx, TTF_Font *font, const char *text);
// The same, quick for a text that begins as the one before in its font: a line that grows.
u32 growing_width(const vel_context &ctx, TTF_Font *font, const char *text);

// The words that have a blank behind them, and their blanks; and single characters. Nothing is
// known to fit, nor to be too wide, where the font is asked for each width.
Fitting fitting_words(const vel_context &ctx, TTF_Font *font, std::string_view line,
                      std::string_view text, u32 line_width);
Fitting fitting_characters(const vel_context &ctx, TTF_Font *font, std::string_view line,
                           std::string_view text, u32 line_width);

// Pixels from one line of an object's text to the next.
inline u32 line_pitch(TTF_Font *font, const vel_object &object) {
    return font_height(font) + object.line_spacing;
}

} // namespace velumo
