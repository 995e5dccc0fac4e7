#include "floor_breaker.h"

#include <algorithm>

namespace office {

FloorBreaker::FloorBreaker(TTF_Font *font)
    : font_(font), overhang_(bold_overhang()), outline_(2 * TTF_GetFontOutline(font)) {
    for (int c = 1; c < characters; ++c) {
        int left = 0, right = 0, advance = 0;
        TTF_GlyphMetrics(font, static_cast<Uint16>(c), &left, &right, nullptr, nullptr, &advance);
        right -= overhang_; // TTF_GlyphMetrics adds it to both
        advance -= overhang_;
        glyphs_[c] = {left, std::max(advance, right), advance};
    }
    if (TTF_GetFontKerning(font) == 0) return;
    kernings_.assign(characters * characters, unknown);
    separators_ = width_between_separators(0, 0);
    for (int c = 1; c < characters; ++c)
        alone_[c] = width_between_separators(static_cast<unsigned char>(c), 0);
}

int FloorBreaker::bold_overhang() const {
    const int style = TTF_GetFontStyle(font_);
    if ((style & TTF_STYLE_BOLD) == 0) return 0;
    int bold = 0, plain = 0;
    TTF_GlyphMetrics(font_, 'M', nullptr, nullptr, nullptr, nullptr, &bold);
    TTF_SetFontStyle(font_, style & ~TTF_STYLE_BOLD);
    TTF_GlyphMetrics(font_, 'M', nullptr, nullptr, nullptr, nullptr, &plain);
    TTF_SetFontStyle(font_, style);
    return bold - plain;
}

// Words and blanks are measured one by one. One that does not fit starts a line; if it is a blank,
// it goes.
int FloorBreaker::count_lines(const std::string &text, int width) {
    int lines = 1;
    std::size_t start = 0, at = 0;
    Width so_far;
    while (at < text.size()) {
        Width with_next = so_far;
        std::size_t end = at;
        if (text[at] == ' ')
            add(with_next, text[end++]);
        else
            while (end < text.size() && text[end] != ' ') add(with_next, text[end++]);
        if (pixels(with_next) > width && at > start) {
            if (text[at] == ' ') at = end;
            start = at;
            so_far = {};
            ++lines;
        } else {
            so_far = with_next;
            at = end;
        }
    }
    return lines;
}

inline void FloorBreaker::add(Width &width, char character) {
    const auto c = static_cast<unsigned char>(character);
    const Glyph &glyph = glyphs_[c];
    width.x += kerning(width.last, c);
    width.left = std::min(width.left, width.x + glyph.left);
    width.x += overhang_;
    width.right = std::max(width.right, width.x + glyph.reach);
    width.x += glyph.advance;
    width.last = c;
}

inline int FloorBreaker::kerning(unsigned char first, unsigned char second) {
    if (kernings_.empty() || first == 0) return 0;
    std::int16_t &known = kernings_[static_cast<std::size_t>(first * characters + second)];
    if (known == unknown) {
        const int apart = alone_[first] + alone_[second] - separators_;
        known = static_cast<std::int16_t>(width_between_separators(first, second) - apart);
    }
    return known;
}

// U+FFFF has no glyph and never kerns, so it keeps what is at the ends out of the width.
int FloorBreaker::width_between_separators(unsigned char first, unsigned char second) const {
    const std::u16string separators(4, u'\uFFFF');
    std::u16string string = separators;
    if (first != 0) string += first;
    if (second != 0) string += second;
    string += separators;
    int width = 0;
    TTF_SizeUNICODE(font_, reinterpret_cast<const Uint16 *>(string.c_str()), &width, nullptr);
    return width;
}

} // namespace office
