// The workload that the library, the floor and the other toolkits share: an office form of 243
// items on 800 by 600 pixels. Described once and without a toolkit, for every program of the
// comparison.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace office {

inline constexpr int width = 800, height = 600;
inline constexpr int font_size = 14, line_height = 17;
inline constexpr const char *font_path = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
inline constexpr const char *font_name = "DejaVu Sans";
inline constexpr int window_count = 6;
inline constexpr int area_lines = 40, area_lines_in_sight = 20;
inline constexpr int picture_size = 48, frame_button_size = 16;

// Where the caret stands in the long text, and the width that the text is broken to.
inline constexpr int caret_index = 300, area_line_width = 532;

namespace colour { // 0xRRGGBB
inline constexpr std::uint32_t desk = 0x5A7EA0, face = 0xD4D0C8, entry = 0xFFFFFF, title = 0xA0B4D0;
inline constexpr std::uint32_t light = 0xFFFFFF, dark = 0x808080, black = 0x000000;
} // namespace colour

enum class Kind {
    label,
    picture,
    translucent_picture,
    window,
    title,
    frame_button,
    entry,
    button,
    text_area
};

struct Item {
    Kind kind;
    int window; // 0 to 5; -1 on the desk
    int x, y, width, height;
    std::string text;
};

// In painter's order. A window stands before what is in it; the last one is in front.
std::vector<Item> items();

// Line 0 to 39 of the text area, at most 60 characters; all of them with line ends between.
std::string area_line(int line);
std::string area_text();

// 999 characters, as many as a text of the library holds, without line ends.
std::string long_text();

// One less, so that there is room for a key.
std::string long_text_with_room();

// 48 by 48 pixels, 0xAARRGGBB; a translucent one is a disc with a soft edge.
std::vector<std::uint32_t> picture(bool translucent);

} // namespace office
