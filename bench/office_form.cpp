#include "office_form.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

namespace office {
namespace {

constexpr std::array<std::string_view, 33> words{
    "lorem",   "ipsum", "dolor",   "sit", "amet",     "office", "form",   "ledger", "Total",
    "account", "by",    "quarter", "of",  "invoice",  "the",    "number", "and",    "customer",
    "Payment", "date",  "to",      "pay", "delivery", "street", "in",     "town",   "Value",
    "added",   "tax",   "is",      "due", "within",   "days"};

constexpr int longest_text = 999;
constexpr int desk_items = 20, desk_columns = 5;
constexpr int frame_buttons = 7, rows = 12, buttons = 4;
constexpr int row_distance = 25, field_height = 23;

class Random {
public:
    explicit Random(unsigned seed) : state_(seed) {}
    unsigned next() {
        state_ = state_ * 1664525U + 1013904223U;
        return state_ >> 8;
    }

private:
    unsigned state_;
};

// Words with single blanks between them, filled up to the length or one character less. Where few
// characters are left, the last word is cut.
std::string prose(std::size_t length, unsigned seed) {
    constexpr std::size_t small_rest = 4;
    Random random(seed);
    std::string text;
    for (;;) {
        const std::string_view word = words[random.next() % words.size()];
        const std::size_t room = length - text.size() - (text.empty() ? 0 : 1);
        // Wraps to a huge number when not even a blank fits.
        if (room < 2 || room > length) return text;
        if (word.size() > room && room > small_rest) continue;
        if (!text.empty()) text += ' ';
        text += word.substr(0, room);
    }
}

std::string numbered(const char *format, int a, int b = 0) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, a, b);
    return text.data();
}

class Builder {
public:
    std::vector<Item> build() {
        for (int k = 0; k < desk_items; ++k) add_desk_item(k);
        for (window_ = 0; window_ < window_count; ++window_) add_window();
        return std::move(items_);
    }

private:
    void add(Kind kind, int x, int y, int w, int h, std::string text = "") {
        items_.push_back({kind, window_, x, y, w, h, std::move(text)});
    }

    void add_desk_item(int k) {
        const int x = 10 + k % desk_columns * 158, y = 10 + k / desk_columns * 148;
        constexpr int edge = 2, size = picture_size + 2 * edge;
        if (k % 2 == 0)
            add(Kind::label, x, y, 140, field_height, numbered("Desktop label %02d", k));
        else
            add(k % 4 == 1 ? Kind::picture : Kind::translucent_picture, x, y, size, size);
    }

    // Five windows one behind the other; the front one is larger, has two columns of fields and the
    // text area.
    void add_window() {
        const bool in_front = window_ == window_count - 1;
        const int x = in_front ? 230 : 8 + 36 * window_, y = in_front ? 10 : 8 + 44 * window_;
        const int w = in_front ? 562 : 350, h = in_front ? 582 : 378;
        add(Kind::window, x, y, w, h);
        add(Kind::title, x + 3, y + 3, w - 6, 22, numbered("Window %d: customer ledger", window_));
        add_frame_buttons(x, y, w);
        const int left = x + 11, columns = in_front ? 2 : 1;
        int top = y + 31;
        add_rows(left, top, columns);
        top += rows / columns * row_distance + 4;
        if (in_front) top = add_text_area(left, top);
        for (int k = 0; k < buttons; ++k)
            add(Kind::button, left + k * 82, top, 78, 25, numbered("Button %d", k));
    }

    void add_frame_buttons(int x, int y, int w) {
        for (int k = 0; k < frame_buttons; ++k) {
            const int left = k == 0 ? x + 6 : x + w - 4 - 18 * k;
            add(Kind::frame_button, left, y + 6, frame_button_size, frame_button_size);
        }
    }

    void add_rows(int left, int top, int columns) {
        const int field_width = columns == 2 ? 166 : 226;
        for (int k = 0; k < rows; ++k) {
            const int x = left + k % columns * 272, y = top + k / columns * row_distance;
            add(Kind::label, x, y, 98, field_height, numbered("Label %02d-%02d", window_, k));
            add(Kind::entry, x + 102, y, field_width, field_height,
                numbered("Entry %02d-%02d text", window_, k));
        }
    }

    int add_text_area(int left, int top) {
        constexpr int area_height = area_lines_in_sight * line_height + 8;
        add(Kind::text_area, left, top, 540, area_height);
        return top + area_height + 6;
    }

    int window_ = -1;
    std::vector<Item> items_;
};

std::uint32_t alpha_at(int x, int y) {
    constexpr int inside = 400, outside = 560; // squares of radii
    const int dx = x - picture_size / 2, dy = y - picture_size / 2;
    const int square = dx * dx + dy * dy;
    if (square < inside) return 255;
    if (square > outside) return 0;
    return static_cast<std::uint32_t>(255 - (square - inside) * 255 / (outside - inside));
}

} // namespace

std::vector<Item> items() { return Builder().build(); }

std::string area_line(int line) { return prose(60, 77U + 131U * static_cast<unsigned>(line)); }

std::string area_text() {
    std::string text = area_line(0);
    for (int line = 1; line < area_lines; ++line) text += '\n' + area_line(line);
    return text;
}

std::string long_text() {
    std::string text = prose(longest_text, 4242);
    text.resize(longest_text, 'x');
    return text;
}

std::string long_text_with_room() { return long_text().substr(0, longest_text - 1); }

std::vector<std::uint32_t> picture(bool translucent) {
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < picture_size; ++y) {
        for (int x = 0; x < picture_size; ++x) {
            const std::uint32_t alpha = translucent ? alpha_at(x, y) : 255;
            const auto red = static_cast<std::uint32_t>(x * 5);
            const auto green = static_cast<std::uint32_t>(y * 5);
            const auto blue = static_cast<std::uint32_t>((x ^ y) * 4);
            pixels.push_back(alpha << 24 | red << 16 | green << 8 | blue);
        }
    }
    return pixels;
}

} // namespace office
