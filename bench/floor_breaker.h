// The least that breaking a text into lines needs: a width that grows character by character,
// exactly as TTF_SizeText has it. For library.cpp, which compares the library with it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <SDL_ttf.h>

namespace office {

class FloorBreaker {
public:
    explicit FloorBreaker(TTF_Font *font);

    // Lines of words that are at most so many pixels wide.
    int count_lines(const std::string &text, int width);

private:
    struct Glyph {
        int left, reach, advance; // the reach is where the glyph or its advance ends
    };
    // The width of a line so far. Copying it remembers the line before a word.
    struct Width {
        int x = 0, left = 0, right = 0;
        unsigned char last = 0;
    };
    static constexpr int characters = 256;
    static constexpr std::int16_t unknown = -1000;

    int bold_overhang() const;
    int pixels(const Width &width) const { return width.right - width.left + outline_; }
    void add(Width &width, char character);
    int kerning(unsigned char first, unsigned char second);
    int width_between_separators(unsigned char first, unsigned char second) const;

    TTF_Font *font_;
    int overhang_, outline_; // of synthetic bold, and on both sides
    Glyph glyphs_[characters]{};
    int alone_[characters]{}; // widths between separators
    int separators_ = 0;      // the width of the separators alone
    std::vector<std::int16_t> kernings_;
};

} // namespace office
