#include "text/font_table.h"

#include <cstring>
#include <functional>
#include <string_view>

namespace velumo {
namespace {

constexpr char sampled[] = {'M', 'W', 'g', 'i', '0', '@'};
// It has no glyph, so it kerns with nothing.
constexpr Uint16 separator = 0xFFFF;
constexpr int max_separators = 64;
constexpr std::int16_t unknown_kerning = -0x8000;
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

// What a bold style adds to each glyph of a font that is not bold itself.
int overhang_of(TTF_Font *font) {
    const int style = TTF_GetFontStyle(font);
    if ((style & TTF_STYLE_BOLD) == 0) return 0;
    const int bold = metrics_of(font, 'M').advance;
    TTF_SetFontStyle(font, style & ~TTF_STYLE_BOLD);
    const int plain = metrics_of(font, 'M').advance;
    TTF_SetFontStyle(font, style);
    return bold - plain;
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
      kerns_(TTF_GetFontKerning(look.font) != 0), overhang_(overhang_of(look.font)) {
    // Enough of them on both sides that no glyph between them reaches beyond.
    const int widest = 2 * TTF_FontHeight(look.font);
    const int advance = std::max(metrics_of(look.font, separator).advance, 1);
    separators_ = std::clamp(2 * widest / advance + 1, 2, max_separators);
    separators_width_ = width_between_separators({});
    if (width(probe) != width_asked_of(look.font, probe)) is_exact_ = false;
}

u32 FontTable::width(const char *text) {
    const LineExtent line = extended({}, text, text + std::strlen(text));
    return is_exact_ ? width_of(line) : width_asked_of(look_.font, text);
}

u32 FontTable::growing_width(const char *text) {
    if (std::strncmp(text, grown_, grown_length_) != 0) {
        grown_length_ = 0;
        grown_line_ = {};
    }
    const char *const start = text + grown_length_;
    const std::size_t added = std::strlen(start);
    const LineExtent line = extended(grown_line_, start, start + added);
    if (grown_length_ + added <= sizeof grown_) {
        std::memcpy(grown_ + grown_length_, start, added);
        grown_length_ += static_cast<u32>(added);
        grown_line_ = line;
    }
    return is_exact_ ? width_of(line) : width_asked_of(look_.font, text);
}

// Every character of every line passes here, so that what is unknown is learnt elsewhere.
LineExtent FontTable::extended(LineExtent line, const char *at, const char *end) {
    for (; at != end; ++at) {
        const u8 character = static_cast<u8>(*at);
        const KerningRow *row = kerning_[line.last].get();
        const int known = row == nullptr ? unknown_kerning : (*row)[character];
        line.x += known != unknown_kerning ? known : learn_pair(line.last, character);
        const Glyph &glyph = glyphs_[character];
        line.min_x = std::min(line.min_x, line.x + glyph.min_x);
        line.x += overhang_;
        line.max_x = std::max(line.max_x, line.x + glyph.reach);
        line.x += glyph.advance;
        line.last = character;
    }
    return line;
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

// The font adds the overhang to both, and once more to the line.
void FontTable::learn_glyph(u8 character) {
    const FontLook::Metrics m = metrics_of(look_.font, character);
    const int advance = m.advance - overhang_;
    glyphs_[character] = {m.min_x, std::max(advance, m.max_x - overhang_), advance};
}

int FontTable::measured_kerning(u8 before, u8 character) {
    return width_between_separators({before, character}) - width_between_separators({before}) -
           width_between_separators({character}) + separators_width_;
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
    const int start = overhang_ + a.advance + kerning;
    const int min_x = std::min({0, a.min_x, start + b.min_x});
    const int max_x = std::max({0, overhang_ + a.reach, start + overhang_ + b.reach});
    const char pair[] = {static_cast<char>(before), static_cast<char>(character), '\0'};
    const bool is_small = kerning > unknown_kerning && kerning < -unknown_kerning;
    const u32 expected = width_of({0, min_x, max_x, 0});
    if (!is_small || expected != width_asked_of(look_.font, pair)) is_exact_ = false;
}

} // namespace velumo
