#include "model/font_gate.h"

#include <array>
#include <ctime>
#include <string_view>

namespace velumo {
namespace {

// Of the size, or of a small size at least, as the sizes of bitmap fonts are mere indexes. A line
// of the largest font is then at most 16,000 pixels high.
constexpr int ems_high = 4, ems_wide = 8;
constexpr u32 small_size = 64;

constexpr double seconds_for_each = 0.002;

double processor_seconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

class FontCheck {
public:
    FontCheck(TTF_Font *font, u32 size, Bytes file, double end)
        : font_(font), size_(size), em_(static_cast<int>(std::max(size, small_size))), file_(file),
          end_(end), shown_(65536) {}

    bool passes() { return has_sound_lines() && has_sound_glyphs() && has_sound_kerning(); }

private:
    struct Shown {
        int advance = -1; // no character shows the glyph
        int before = 0;   // pixels left of its start, in the top row
    };

    bool is_height(int value) const { return value >= 0 && value <= ems_high * em_; }

    bool has_sound_lines() const {
        return is_height(TTF_FontAscent(font_)) && TTF_FontHeight(font_) > 0 &&
               is_height(TTF_FontHeight(font_)) && is_height(std::abs(TTF_FontDescent(font_))) &&
               is_height(std::abs(TTF_FontLineSkip(font_)));
    }

    bool has_sound_glyphs() {
        bool has_missing = false; // they all show the same glyph
        for (Uint16 character = 1; character < 256; ++character) {
            const int glyph = TTF_GlyphIsProvided(font_, character);
            if (glyph == 0 && has_missing) continue;
            has_missing = has_missing || glyph == 0;
            if (!has_sound_glyph(character, glyph) || processor_seconds() > end_) return false;
        }
        // The first character of a line is moved to where there is room, the others are not.
        return most_before_ <= least_advance_;
    }

    bool has_sound_glyph(Uint16 character, int glyph) {
        int min_x = 0, max_x = 0, min_y = 0, max_y = 0, advance = 0;
        if (TTF_GlyphMetrics(font_, character, &min_x, &max_x, &min_y, &max_y, &advance) != 0) {
            return true; // a line with it is not rendered
        }
        // SDL_ttf writes what reaches beyond the left end of the top row before its memory.
        const bool is_in_top_row = max_y > min_y && max_y >= TTF_FontAscent(font_);
        const int before = is_in_top_row ? std::max(-min_x, 0) : 0;
        shown_[static_cast<std::size_t>(glyph) & 0xFFFF] = {advance, before};
        least_advance_ = std::min(least_advance_, advance);
        most_before_ = std::max(most_before_, before);
        const int width = ems_wide * em_, height = ems_high * em_;
        return min_x >= -width && min_x <= max_x && max_x <= width && min_y >= -height &&
               min_y <= max_y && max_y <= height && advance >= 0 && advance <= width;
    }

    // A pair must not go back by more than its first character advances. A font has one table of
    // pairs at most.
    bool has_sound_kerning() const {
        constexpr u32 collection = 0x74746366, head = 0x68656164, kern = 0x6B65726E;
        const std::size_t start = big_endian(0) == collection ? big_endian(12) : 0;
        std::size_t pairs = 0;
        u32 units = 1;
        for (u32 left = number(start + 4); left != 0; --left) {
            const std::size_t entry = start + 12 + std::size_t{16} * (left - 1);
            const std::size_t table = big_endian(entry + 8);
            if (big_endian(entry) == head) units = std::max<u32>(number(table + 18), 1);
            if (big_endian(entry) != kern) continue;
            if (pairs != 0) return false;
            pairs = table;
        }
        return pairs == 0 || are_sound_pairs(pairs, units);
    }

    // Of all parts of the table, whether the font uses them or not.
    bool are_sound_pairs(std::size_t table, u32 units) const {
        constexpr u32 most_parts = 32; // that fonts may have
        std::size_t part = table + 4;
        for (u32 left = std::min(number(table + 2), most_parts); left != 0; --left) {
            const std::size_t pairs = part + 14;
            const std::size_t room = file_.size() - std::min(file_.size(), pairs);
            const std::size_t count = std::min<std::size_t>(number(part + 6), room / 6);
            for (std::size_t k = 0; k < count; ++k) {
                if (!is_sound_pair(pairs + 6 * k, units)) return false;
            }
            part += std::max<std::size_t>(number(part + 2), 6);
        }
        return true;
    }

    bool is_sound_pair(std::size_t pair, u32 units) const {
        const auto value = static_cast<std::int16_t>(number(pair + 4));
        if (value >= 0) return true;
        const Shown &left = shown_[number(pair)], &right = shown_[number(pair + 2)];
        if (left.advance < 0 || right.advance < 0) return true;
        // Rounded to a whole pixel, as the font does.
        return (i64{-value} * size_ + units / 2) / units + right.before <= left.advance;
    }

    // Beyond the file is nothing.
    u32 number(std::size_t at) const {
        if (at + 2 > file_.size()) return 0;
        return static_cast<u32>(file_[at]) << 8 | file_[at + 1];
    }
    u32 big_endian(std::size_t at) const { return number(at) << 16 | number(at + 2); }

    TTF_Font *const font_;
    const u32 size_;
    const int em_;
    const Bytes file_;
    const double end_;
    std::vector<Shown> shown_; // by glyph
    int least_advance_ = ems_wide * static_cast<int>(max_font_size), most_before_ = 0;
};

} // namespace

bool may_be_font(Bytes file) {
    using Start = std::string_view;
    constexpr std::array refused = {Start("\x1F\x8B"), Start("\x1F\x9D"), Start("BZh"),
                                    Start("wOF"), Start("PFR")};
    const Start text(reinterpret_cast<const char *>(file.data()), file.size());
    return std::none_of(refused.begin(), refused.end(),
                        [text](Start start) { return text.starts_with(start); });
}

bool FontGate::is_sound(TTF_Font *font, u32 size, Bytes file) {
    const double start = processor_seconds(), end = start + seconds_left_ + seconds_for_each;
    const bool passes = FontCheck(font, size, file, end).passes();
    seconds_left_ = std::max(end - processor_seconds(), 0.0);
    return passes;
}

} // namespace velumo
