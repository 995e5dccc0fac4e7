#include "text/font_table.h"

#include <climits>
#include <cstring>
#include <functional>
#include <string_view>

namespace velumo {
namespace {

constexpr char sampled[] = {'M', 'W', 'g', 'i', '0', '@'};
constexpr int most_pixels = 0x3FFF; // of a glyph, so that a step has 16 bits
// No pixels yet, of which the start of a line counts as one.
constexpr Extent nothing{0, INT_MAX / 2, INT_MIN / 2, 0};
// Its pairs kern, its letters overhang: a font that adds up in another way shows it here.
constexpr const char *probe = "AVATo Wafer, fjord \"jgQy./LT'Y\xE4\xDF";

bool find_metrics(TTF_Font *font, Uint16 character, FontLook::Metrics &m) {
    return TTF_GlyphMetrics(font, character, &m.min_x, &m.max_x, &m.min_y, &m.max_y, &m.advance) ==
           0;
}

std::size_t hash_of(const char *name) {
    return std::hash<std::string_view>()(name == nullptr ? "" : name);
}

// The words at the front of a text that have a blank behind them, and their blanks.
std::string_view ended_words(std::string_view text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    const auto *blank = static_cast<const char *>(memrchr(line.data(), ' ', line.size()));
    return blank == nullptr ? std::string_view() : std::string_view(line.data(), blank + 1);
}

} // namespace

constinit const FontTable::Steps FontTable::nothing_known = [] {
    Steps steps{};
    steps.fill(unknown_step);
    return steps;
}();

FontLook::FontLook(TTF_Font *f)
    : font(f), settings{TTF_GetFontStyle(f),   TTF_GetFontOutline(f), TTF_GetFontHinting(f),
                        TTF_GetFontKerning(f), TTF_FontHeight(f),     TTF_FontAscent(f),
                        TTF_FontDescent(f),    TTF_FontLineSkip(f)},
      names(hash_of(TTF_FontFaceFamilyName(f)) * 31 + hash_of(TTF_FontFaceStyleName(f))),
      samples{} {
    for (std::size_t k = 0; k < samples.size(); ++k) {
        find_metrics(f, static_cast<Uint16>(sampled[k]), samples[k]);
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
    rows_.fill(&nothing_known);
    if (width(probe) != width_asked_of(look.font, probe)) is_exact_ = false;
}

u32 FontTable::width(const char *text) {
    const Extent line = extended({}, text);
    return is_exact_ ? width_of(line) : width_asked_of(look_.font, text);
}

u32 FontTable::growing_width(const char *text) {
    const Extent line = grown(text);
    return is_exact_ ? width_of(line) : width_asked_of(look_.font, text);
}

Extent FontTable::grown(std::string_view text) {
    if (!text.starts_with({grown_, grown_length_})) {
        grown_length_ = 0;
        grown_line_ = {};
    }
    const std::string_view added = text.substr(grown_length_);
    if (added.empty()) return grown_line_;
    const Extent line = extended(grown_line_, added);
    keep_grown(added, line);
    return line;
}

void FontTable::keep_grown(std::string_view added, const Extent &line) {
    if (grown_length_ + added.size() > sizeof grown_) return;
    std::copy(added.begin(), added.end(), grown_ + grown_length_);
    grown_length_ += static_cast<u32>(added.size());
    grown_line_ = line;
}

Fitting FontTable::fitting_words(std::string_view line, std::string_view text, u32 line_width) {
    const std::string_view words = ended_words(text);
    // Without one for this line, nothing need be measured.
    if (words.empty()) return {};
    Extent extent = grown(line);
    Fitting fitting;
    u32 &fits = fitting.characters;
    while ((fits += sure_words(extent, words.substr(fits), line_width)) < words.size()) {
        u32 end = fits;
        Extent word = nothing;
        while (words[end] != ' ') extend(word, words[end++]);
        if (end - fits > longest_word) break;
        if (end != fits) {
            fitting.next_is_too_wide = !fits_behind(width_of(extent), width_of(word), line_width);
            if (fitting.next_is_too_wide) break;
            extent = joined(extent, word, words[fits]);
            fits = end;
        }
        Extent longer = extent;
        extend(longer, ' ');
        fitting.next_is_too_wide = width_of(longer) > line_width;
        if (fitting.next_is_too_wide) break;
        extent = longer;
        ++fits;
    }
    if (!is_exact_) return {};
    keep_grown(text.substr(0, fits), extent);
    return fitting;
}

// Goes on by the words at the front that surely fit, by their steps alone, with their blanks.
// Returns how many characters that are.
u32 FontTable::sure_words(Extent &line, std::string_view words, u32 line_width) const {
    // A line and a word on its own both have pixels beside their steps, and a word that kerns with
    // the line is longer on its own.
    const int beside = 2 * (last_end_ - first_begin_ + 2 * outline_) + most_kerned_;
    return follow<Whole::words>(line, words, as_signed(line_width), beside);
}

Fitting FontTable::fitting_characters(std::string_view line, std::string_view text,
                                      u32 line_width) {
    Extent extent = grown(line);
    Fitting fitting;
    while (fitting.characters < text.size()) {
        Extent longer = extent;
        extend(longer, text[fitting.characters]);
        fitting.next_is_too_wide = width_of(longer) > line_width;
        if (fitting.next_is_too_wide) break;
        extent = longer;
        ++fitting.characters;
        const int beside = last_end_ - std::min(extent.min_x, 0) + 2 * outline_;
        fitting.characters +=
            follow<Whole::characters>(extent, text.substr(fitting.characters), line_width, beside);
    }
    if (!is_exact_) return {};
    keep_grown(text.substr(0, fitting.characters), extent);
    return fitting;
}

// Every character of every line passes here, so that what is unknown is learnt elsewhere.
inline void FontTable::extend(Extent &extent, char added) {
    const u8 character = static_cast<u8>(added);
    extent.x += step(extent.last, character);
    const Glyph &glyph = glyphs_[character];
    extent.min_x = std::min(extent.min_x, extent.x + glyph.begin);
    extent.max_x = std::max(extent.max_x, extent.x + glyph.end);
    extent.last = character;
}

Extent FontTable::extended(const Extent &extent, std::string_view characters) {
    Extent longer = extent;
    while (!characters.empty()) {
        extend(longer, characters.front());
        characters.remove_prefix(1);
        characters.remove_prefix(follow<Whole::characters>(longer, characters, INT_MAX, 0));
    }
    return longer;
}

// Goes on by known steps, as long as there is room for what follows and the pixels beside it, and
// returns by how many characters; of words, only by those with a blank behind them. As no step goes
// back, only the first characters of a line can begin before it, with which others deal, and only
// the last can end behind it.
template <FontTable::Whole whole>
inline u32 FontTable::follow(Extent &extent, std::string_view characters, i64 room,
                             int beside) const {
    if (steps_back_ || extent.x + first_begin_ < extent.min_x) return 0;
    const int last_x = static_cast<int>(std::clamp<i64>(room - beside, INT_MIN, INT_MAX));
    const u8 first = extent.last;
    std::size_t last = first;
    int x = extent.x, ended_x = x;
    std::size_t count = 0, ended = 0;
    for (; count < characters.size(); ++count) {
        const std::size_t character = static_cast<u8>(characters[count]);
        const int step = known_step(last, character);
        if (step == unknown_step || x + step > last_x) break;
        x += step;
        last = character;
        if (whole == Whole::characters) continue;
        if (character == ' ') {
            ended = count + 1;
            ended_x = x;
        } else if (count - ended == longest_word) {
            break;
        }
    }
    if (whole == Whole::words) {
        count = ended;
        x = ended_x;
        last = count == 0 ? first : ' ';
    }
    extent.x = x;
    extent.last = static_cast<u8>(last);
    for (std::size_t k = count; k != 0 && x + last_end_ > extent.max_x;) {
        const u8 character = static_cast<u8>(characters[--k]);
        extent.max_x = std::max(extent.max_x, x + glyphs_[character].end);
        x -= known_step(k == 0 ? first : static_cast<u8>(characters[k - 1]), character);
    }
    return static_cast<u32>(count);
}

// A line with a word behind it that begins with the character first.
inline Extent FontTable::joined(const Extent &line, const Extent &word, char first) {
    const u8 character = static_cast<u8>(first);
    const int start = line.x + step(line.last, character) - step('\0', character);
    return {start + word.x, std::min(line.min_x, start + word.min_x),
            std::max(line.max_x, start + word.max_x), word.last};
}

// After NUL, the start of a line, a step is the advance of the character alone.
[[gnu::noinline]] int FontTable::learn_step(u8 before, u8 character) {
    const bool is_first = before == '\0';
    const int advance = is_first ? learn_glyph(character) : this->step('\0', character);
    const int kerning = is_first ? 0 : kerning_of(before, character);
    const int step = advance + kerning;
    row_of(before)[character] = static_cast<std::int16_t>(step);
    first_begin_ = std::min(first_begin_, step + glyphs_[character].begin);
    most_kerned_ = std::max(most_kerned_, -kerning);
    if (step < 0) steps_back_ = true;
    if ((is_first || kerning != 0) && !explains_pair(before, character)) is_exact_ = false;
    return step;
}

// Returns its advance.
int FontTable::learn_glyph(u8 character) {
    FontLook::Metrics m{};
    // A string with a character that has none has no width.
    if (!find_metrics(look_.font, character, m)) is_exact_ = false;
    const int advance = sound(m.advance);
    const Glyph glyph{sound(m.min_x) - advance, std::max(sound(m.max_x) - advance, 0)};
    glyphs_[character] = glyph;
    indices_[character] = TTF_GlyphIsProvided(look_.font, character);
    last_end_ = std::max(last_end_, glyph.end);
    return advance;
}

// What is so large that it cannot be added up shows that the font is another.
int FontTable::sound(int pixels) {
    if (std::abs(pixels) <= most_pixels) return pixels;
    is_exact_ = false;
    return 0;
}

// The one before is known. What has no glyph kerns with nothing.
int FontTable::kerning_of(u8 before, u8 character) {
    const int left = indices_[before], right = indices_[character];
    if (!kerns_ || left == 0 || right == 0) return 0;
    return sound(TTF_GetFontKerningSize(look_.font, left, right));
}

FontTable::Steps &FontTable::row_of(u8 before) {
    std::unique_ptr<Steps> &row = steps_[before];
    if (row == nullptr) {
        row = std::make_unique<Steps>();
        *row = nothing_known;
        rows_[before] = row.get();
    }
    return *row;
}

// A character or a pair that the rule does not explain shows that it is not the font's.
bool FontTable::explains_pair(u8 before, u8 character) {
    const char pair[] = {static_cast<char>(before), static_cast<char>(character), '\0'};
    const char *shown = before == '\0' ? pair + 1 : pair;
    return width_of(extended({}, shown)) == width_asked_of(look_.font, shown);
}

} // namespace velumo
