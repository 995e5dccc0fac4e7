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
    Fitting fitting_words(const char *line, std::string_view text, u32 line_width);
    Fitting fitting_characters(const char *line, std::string_view text, u32 line_width);

private:
    struct Glyph {
        int min_x = 0;
        int reach = 0; // the larger of the advance and the last pixel
        int advance = 0;
    };
    using KerningRow = std::array<std::int16_t, 256>;
    static constexpr std::int16_t unknown_kerning = -0x8000;

    int kerning(u8 before, u8 character) {
        const KerningRow *row = kerning_[before].get();
        const int known = row == nullptr ? unknown_kerning : (*row)[character];
        return known != unknown_kerning ? known : learn_pair(before, character);
    }
    int learn_pair(u8 before, u8 character);
    void learn_glyph(u8 character);
    int measured_kerning(u8 before, u8 character);
    int width_between_separators(std::initializer_list<u8> characters) const;
    void extend(Extent &extent, char character);
    Extent extended(Extent extent, std::string_view characters);
    Extent joined(const Extent &line, const Extent &word, char first);
    u32 width_of(const Extent &extent) const {
        const int pixels = std::max(extent.max_x, 0) - std::min(extent.min_x, 0);
        return static_cast<u32>(pixels + 2 * outline_);
    }
    void keep_grown(std::string_view added, const Extent &line);
    void check_pair(u8 before, u8 character, int kerning);

    const FontLook look_;
    const int outline_;
    bool kerns_;
    int separators_ = 0, separators_width_ = 0;
    bool is_exact_ = true;
    std::array<Glyph, 256> glyphs_{};
    std::array<int, 256> between_separators_{}; // widths of what is known
    std::array<std::unique_ptr<KerningRow>, 256> kerning_{};
    char grown_[VEL_LINE_SIZE] = {}; // the line of the last call, with what fitted
    u32 grown_length_ = 0;
    Extent grown_line_;
};

} // namespace velumo
