// The width of strings in one font, followed character by character as the font itself adds it up.
// For measuring.
#pragma once

#include <array>
#include <memory>

#include "text/fitting.h"

namespace velumo {

// What can be seen of a font from outside. When it differs, it is another font at the same address,
// or one whose style was changed.
struct FontLook {
    explicit FontLook(TTF_Font *font);
    bool operator==(const FontLook &) const = default;

    struct Metrics {
        int min_x, max_x, min_y, max_y, advance;
        bool operator==(const Metrics &) const = default;
    };
    TTF_Font *font;
    std::array<int, 8> settings;
    std::size_t names;
    std::array<Metrics, 6> samples;
};

// The extent of characters one behind the other, in pixels from the start of the first.
struct Extent {
    int x = 0, min_x = 0, max_x = 0;
    u8 last = 0; // character
};

// As the font itself measures it, each time from the start.
u32 width_asked_of(TTF_Font *font, const char *text);

class FontTable {
public:
    FontTable(const FontLook &look, u32 own_id);

    const u32 id; // no other table of the context ever has the same

    const FontLook &look() const { return look_; }
    // False when the font adds up in another way, so that it is asked each time.
    bool is_exact() const { return is_exact_; }

    // Throws std::bad_alloc.
    u32 width(const char *text);
    // The same, quick for a text that begins as the one of the last call.
    u32 growing_width(const char *text);
    // See measure.h. The line is shorter than its buffer; the next width asked for is mostly that
    // of it with what fits.
    Fitting fitting_words(std::string_view line, std::string_view text, u32 line_width);
    Fitting fitting_characters(std::string_view line, std::string_view text, u32 line_width);

private:
    // Where its pixels begin, and how far they reach beyond where the next character starts, from
    // which both are counted.
    struct Glyph {
        int begin = 0, end = 0;
    };
    using Steps = std::array<std::int16_t, 256>;
    static constexpr std::int16_t unknown_step = -0x8000;
    static const Steps nothing_known;

    // From the start of what follows one character to the start of what follows the next.
    int step(u8 before, u8 character) {
        const int known = known_step(before, character);
        return known != unknown_step ? known : learn_step(before, character);
    }
    // In numbers as wide as addresses, in which the compiler need not keep bytes apart.
    int known_step(std::size_t before, std::size_t character) const {
        return (*rows_[before])[character];
    }
    int learn_step(u8 before, u8 character);
    int learn_glyph(u8 character);
    int kerning_of(u8 before, u8 character);
    Steps &row_of(u8 before);
    int sound(int pixels);
    void extend(Extent &extent, char character);
    Extent extended(const Extent &extent, std::string_view characters);
    enum class Whole { characters, words };
    template <Whole whole>
    u32 follow(Extent &extent, std::string_view characters, i64 room, int beside) const;
    Extent joined(const Extent &line, const Extent &word, char first);
    u32 width_of(const Extent &extent) const {
        const int pixels = std::max(extent.max_x, 0) - std::min(extent.min_x, 0);
        return static_cast<u32>(pixels + 2 * outline_);
    }
    u32 sure_words(Extent &line, std::string_view words, u32 line_width) const;
    Extent grown(std::string_view text);
    void keep_grown(std::string_view added, const Extent &line);
    bool explains_pair(u8 before, u8 character);

    const FontLook look_;
    const int outline_;
    bool kerns_;
    bool is_exact_ = true;
    bool steps_back_ = false; // somewhere
    std::array<Glyph, 256> glyphs_{};
    // Of all that is known: how far the pixels of a character begin before the place where its step
    // does, how far they reach beyond the place where it ends, and by how much a pair is closer.
    int first_begin_ = 0, last_end_ = 0, most_kerned_ = 0;
    std::array<int, 256> indices_{};      // of the glyphs in the font, 0 for none
    std::array<const Steps *, 256> rows_; // each of the steps below, or of nothing known
    std::array<std::unique_ptr<Steps>, 256> steps_{};
    char grown_[VEL_LINE_SIZE] = {}; // the line of the last call, with what fitted
    u32 grown_length_ = 0;
    Extent grown_line_;
};

} // namespace velumo
