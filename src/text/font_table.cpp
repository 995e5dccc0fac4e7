#include "text/font_table.h"

#include <climits>
#include <cstring>
#include <functional>
#include <string_view>

namespace velumo {
namespace {

constexpr char sampled[] = {'M', 'W', 'g', 'i', '0', '@'};
// It has no glyph, so it kerns with nothing.
constexpr Uint16 separator = 0xFFFF;
constexpr int max_separators = 64;
// No pixels yet, of which the start of a line counts as one.
constexpr Extent nothing{0, INT_MAX / 2, INT_MIN / 2, 0};
// Its pairs kern, its letters overhang: a font that adds up in another way shows it here.
constexpr const char *probe = "AVATo Wafer, fjord \"jgQy./LT'Y\xE4\xDF";

FontLook::Metrics metrics_of(TTF_Font *font, Uint16 character) {
    FontLook::Metrics m{};
    TTF_GlyphMetrics(font, character, &m.min_x, &m.max_x, &m.min_y, &m.max_y, &m.advance);
    return m;
}

std::size_t hash_of(const char *name) {
    return std::hash<std::string_view>()(name == nullptr ? "" : name);
}

} // namespace

FontLook::FontLook(TTF_Font *f)
    : font(f), settings{TTF_GetFontStyle(f),   TTF_GetFontOutline(f), TTF_GetFontHinting(f),
                        TTF_GetFontKerning(f), TTF_FontHeight(f),     TTF_FontAscent(f),
                        TTF_FontDescent(f),    TTF_FontLineSkip(f)},
      names(hash_of(TTF_FontFaceFamilyName(f)) * 31 + hash_of(TTF_FontFaceStyleName(f))),
      samples{} {
    for (std::size_t k = 0; k < samples.size(); ++k) {
        samples[k] = metrics_of(f, static_cast<Uint16>(sampled[k]));
    }
}

u32 width_asked_of(TTF_Font *font, const char *text) {
    int width = 0;
    TTF_SizeText(font, text, &width, nullptr);
    return static_cast<u32>(width);
}

FontTable::FontTable(const FontLook &look, u32 own_id)
    : id(own_id), look_(look), outline_(std::max(TTF_GetFontOutline(look.font), 0)),
      kerns_(TTF_GetFontKerning(look.font) != 0) {
    // Enough of them on both sides that no glyph between them reaches beyond.
    const int widest = 2 * TTF_FontHeight(look.font);
    const int advance = std::max(metrics_of(look.font, separator).advance, 1);
    separators_ = std::clamp(2 * widest / advance + 1, 2, max_separators);
    separators_width_ = width_between_separators({});
    if (width(probe) != width_asked_of(look.font, probe)) is_exact_ = false;
}

u32 FontTable::width(const char *text) {
    const Extent line = extended({}, text);
    return is_exact_ ? width_of(line) : width_asked_of(look_.font, text);
}

u32 FontTable::growing_width(const char *text) {
    if (std::strncmp(text, grown_, grown_length_) != 0) {
        grown_length_ = 0;
        grown_line_ = {};
    }
    const std::string_view added = text + grown_length_;
    const Extent line = extended(grown_line_, added);
    keep_grown(added, line);
    return is_exact_ ? width_of(line) : width_asked_of(look_.font, text);
}

void FontTable::keep_grown(std::string_view added, const Extent &line) {
    if (grown_length_ + added.size() > sizeof grown_) return;
    std::copy(added.begin(), added.end(), grown_ + grown_length_);
    grown_length_ += static_cast<u32>(added.size());
    grown_line_ = line;
}

Fitting FontTable::fitting_words(const char *line, std::string_view text, u32 line_width) {
    // Without a word for this line, nothing need be measured.
    const auto is_end = [](char character) { return character == ' ' || character == '\n'; };
    const auto first_end = std::find_if(text.begin(), text.end(), is_end);
    if (first_end == text.end() || *first_end == '\n') return {};
    u32 width = growing_width(line);
    Extent extent = grown_line_;
    Fitting fitting;
    for (u32 begin = 0, end = 0; end < text.size(); begin = ++end) {
        Extent word = nothing;
        while (end < text.size() && !is_end(text[end])) {
            extend(word, text[end++]);
        }
        if (end == text.size() || text[end] == '\n' || end - begin > longest_word) break;
        Extent longer = extent;
        if (end != begin) {
            fitting.next_is_too_wide = !fits_behind(width, width_of(word), line_width);
            if (fitting.next_is_too_wide) break;
            longer = joined(extent, word, text[begin]);
        }
        extend(longer, ' ');
        width = width_of(longer);
        if (width > line_width) break;
        extent = longer;
        fitting.characters = end + 1;
    }
    if (!is_exact_) return {};
    keep_grown(text.substr(0, fitting.characters), extent);
    return fitting;
}

Fitting FontTable::fitting_characters(const char *line, std::string_view text, u32 line_width) {
    growing_width(line);
    Extent extent = grown_line_;
    Fitting fitting;
    for (const char character : text) {
        Extent longer = extent;
        extend(longer, character);
        fitting.next_is_too_wide = width_of(longer) > line_width;
        if (fitting.next_is_too_wide) break;
        extent = longer;
        ++fitting.characters;
    }
    if (!is_exact_) return {};
    keep_grown(text.substr(0, fitting.characters), extent);
    return fitting;
}

// Every character of every line passes here, so that what is unknown is learnt elsewhere.
inline void FontTable::extend(Extent &extent, char added) {
    const u8 character = static_cast<u8>(added);
    const int start = extent.x + kerning(extent.last, character);
    const Glyph &glyph = glyphs_[character];
    extent.min_x = std::min(extent.min_x, start + glyph.min_x);
    extent.max_x = std::max(extent.max_x, start + glyph.reach);
    extent.x = start + glyph.advance;
    extent.last = character;
}

Extent FontTable::extended(Extent extent, std::string_view characters) {
    for (const char character : characters) extend(extent, character);
    return extent;
}

// A line with a word behind it that begins with the character first.
Extent FontTable::joined(const Extent &line, const Extent &word, char first) {
    const int start = line.x + kerning(line.last, static_cast<u8>(first));
    return {start + word.x, std::min(line.min_x, start + word.min_x),
            std::max(line.max_x, start + word.max_x), word.last};
}

// Returns the kerning of a character after another, or after NUL at the start of a line.
[[gnu::noinline]] int FontTable::learn_pair(u8 before, u8 character) {
    std::unique_ptr<KerningRow> &row = kerning_[before];
    if (row == nullptr) {
        row = std::make_unique<KerningRow>();
        row->fill(unknown_kerning);
    }
    learn_glyph(character);
    const int kerning = kerns_ && before != 0 ? measured_kerning(before, character) : 0;
    if (before != 0) check_pair(before, character, kerning);
    (*row)[character] = static_cast<std::int16_t>(kerning);
    return kerning;
}

void FontTable::learn_glyph(u8 character) {
    int &width = between_separators_[character];
    if (width != 0) return;
    width = width_between_separators({character});
    const FontLook::Metrics m = metrics_of(look_.font, character);
    glyphs_[character] = {m.min_x, std::max(m.advance, m.max_x), m.advance};
}

int FontTable::measured_kerning(u8 before, u8 character) {
    return width_between_separators({before, character}) - between_separators_[before] -
           between_separators_[character] + separators_width_;
}

int FontTable::width_between_separators(std::initializer_list<u8> characters) const {
    Uint16 text[2 * max_separators + 3] = {};
    Uint16 *end = std::fill_n(text, separators_, separator);
    end = std::copy(characters.begin(), characters.end(), end);
    std::fill_n(end, separators_, separator);
    int width = 0;
    TTF_SizeUNICODE(look_.font, text, &width, nullptr);
    return width;
}

// A pair that the rule does not explain shows that it is not the font's. Both glyphs are known.
void FontTable::check_pair(u8 before, u8 character, int kerning) {
    const Glyph &a = glyphs_[before], &b = glyphs_[character];
    const int start = a.advance + kerning;
    const int min_x = std::min({0, a.min_x, start + b.min_x});
    const int max_x = std::max({0, a.reach, start + b.reach});
    const char pair[] = {static_cast<char>(before), static_cast<char>(character), '\0'};
    const bool is_small = kerning > unknown_kerning && kerning < -unknown_kerning;
    const u32 expected = width_of({0, min_x, max_x, 0});
    if (!is_small || expected != width_asked_of(look_.font, pair)) is_exact_ = false;
}

} // namespace velumo
