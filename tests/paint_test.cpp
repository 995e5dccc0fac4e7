// One object on the screen: body, picture, text, border, cursor.
#include "support.h"

namespace {

using test::Form;

class Paint : public Form {
protected:
    ~Paint() override { SDL_FreeSurface(picture); }

    // The rectangle that the pixels of a colour fill, as "x,y width x height"; "" for none, and
    // "ragged" when it is not filled.
    std::string box_of(vel_colour c) const {
        int left = 320, top = 200, right = -1, bottom = -1, count = 0;
        for (int y = 0; y < 200; ++y) {
            for (int x = 0; x < 320; ++x) {
                if (!(at(x, y) == c)) continue;
                left = std::min(left, x), right = std::max(right, x);
                top = std::min(top, y), bottom = std::max(bottom, y);
                ++count;
            }
        }
        if (count == 0) return "";
        const int width = right - left + 1, height = bottom - top + 1;
        if (count != width * height) return "ragged";
        return std::to_string(left) + "," + std::to_string(top) + " " + std::to_string(width) +
               "x" + std::to_string(height);
    }

    // What the screen should show: a text at a place, seen through a clip rectangle.
    std::string differs_from(const char *text, int x, int y, SDL_Rect clip) const {
        SDL_Surface *wanted = test::make_surface(320, 200, 32);
        test::fill(wanted, test::white);
        SDL_SetClipRect(wanted, &clip);
        SDL_Surface *rendered = TTF_RenderText_Blended(ctx.font, text, {0, 0, 255, 0});
        SDL_Rect to{static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
        SDL_BlitSurface(rendered, nullptr, wanted, &to);
        const std::string found = test::difference(ctx.screen, wanted);
        SDL_FreeSurface(rendered);
        SDL_FreeSurface(wanted);
        return found;
    }

    SDL_Surface *picture = nullptr;
};

TEST_F(Paint, top_level_windows_are_kept_off_the_corner_and_others_are_not) {
    const struct {
        uint32_t type;
        int x, y;
        const char *box;
    } cases[] = {
        {VEL_TYPE_WINDOW, 0, 0, "11,25 20x10"},   {VEL_TYPE_WINDOW, 10, 24, "11,25 20x10"},
        {VEL_TYPE_WINDOW, 12, 26, "12,26 20x10"}, {VEL_TYPE_WINDOW, 5, -9, "11,25 20x10"},
        {VEL_TYPE_LABEL, 0, 0, "0,0 20x10"},      {VEL_TYPE_MENU, 0, 0, "0,0 20x10"},
        {VEL_TYPE_EMPTY, 0, 0, "0,0 20x10"},      {12, 0, 0, "0,0 20x10"},
        {VEL_TYPE_PICTURE_UNLOADED, 0, 0, ""},    {VEL_TYPE_WINDOW, 310, 192, "310,192 8x3"},
    };
    for (const auto &c : cases) {
        test::fill(ctx.screen, test::white);
        make(8, c.type, c.x, c.y, 20, 10);
        vel_evoke_object(&ctx, 8);
        EXPECT_EQ(box_of(test::red), c.box) << c.type << " at " << c.x;
    }
    test::fill(ctx.screen, test::white);
    make(7, VEL_TYPE_LABEL, 30, 40, 99, 99);
    vel_evoke_object(&ctx, 7);
    EXPECT_EQ(box_of(test::red), "30,40 16x16");
}

TEST_F(Paint, dependents_are_cut_by_their_master) {
    // The master admits 103 to 152 and 53 to 102.
    set_margins(make(8, VEL_TYPE_LABEL, 100, 50, 56, 56), 3);
    make(9, VEL_TYPE_LABEL, 0, 0, 0, 0, 8);
    const struct {
        int x, y;
        uint32_t width, height, type;
        const char *box;
    } cases[] = {
        {110, 60, 5, 6, VEL_TYPE_LABEL, "110,60 5x6"},
        {103, 53, 50, 50, VEL_TYPE_LABEL, "103,53 50x50"},
        {90, 60, 20, 6, VEL_TYPE_LABEL, "103,60 7x6"},    // cut at the left
        {150, 60, 20, 6, VEL_TYPE_LABEL, "150,60 3x6"},   // right
        {110, 40, 5, 20, VEL_TYPE_LABEL, "110,53 5x7"},   // top
        {110, 100, 5, 20, VEL_TYPE_LABEL, "110,100 5x3"}, // bottom
        {0, 0, 300, 190, VEL_TYPE_LABEL, "103,53 50x50"}, // all sides
        {10, 60, 20, 6, VEL_TYPE_LABEL, ""},              // outside
        {110, 60, 5, 6, VEL_TYPE_EMPTY, ""},
        {110, 60, 5, 6, 10, ""},
        {110, 60, 5, 6, VEL_TYPE_PICTURE_UNLOADED, ""},
        {110, 60, 5, 6, VEL_TYPE_WINDOW, "110,60 5x6"},
    };
    for (const auto &c : cases) {
        test::fill(ctx.screen, test::white);
        objects[9].type = c.type;
        objects[9].x = static_cast<uint32_t>(c.x);
        objects[9].y = static_cast<uint32_t>(c.y);
        objects[9].width = c.width;
        objects[9].height = c.height;
        vel_evoke_object(&ctx, 9);
        EXPECT_EQ(box_of(test::red), c.box) << c.x << "," << c.y;
    }
}

TEST_F(Paint, a_cut_picture_shows_the_part_that_lies_inside) {
    picture = test::make_surface(90, 90, 32);
    for (int y = 0; y < 90; ++y) {
        for (int x = 0; x < 90; ++x) {
            SDL_Rect one{static_cast<Sint16>(x), static_cast<Sint16>(y), 1, 1};
            SDL_FillRect(picture, &one, static_cast<Uint32>(x << 16 | y << 8 | 1));
        }
    }
    make(8, VEL_TYPE_LABEL, 100, 50, 50, 50);
    vel_object &o = make(9, VEL_TYPE_PICTURE, 0, 0, 90, 90, 8);
    o.image = picture;
    for (const auto &[x, y] : {std::pair{110, 60}, {90, 30}, {80, 20}}) {
        test::fill(ctx.screen, test::white);
        o.x = static_cast<uint32_t>(x);
        o.y = static_cast<uint32_t>(y);
        vel_evoke_object(&ctx, 9);
        for (const auto &[px, py] : {std::pair{100, 50}, {120, 70}, {149, 99}}) {
            const bool inside = px >= x && py >= y;
            const vel_colour part{static_cast<uint8_t>(px - x), static_cast<uint8_t>(py - y), 1};
            EXPECT_EQ(at(px, py), inside ? part : test::white) << x << "," << y;
        }
        EXPECT_EQ(at(99, 70), test::white);
        EXPECT_EQ(at(150, 70), test::white);
        EXPECT_EQ(at(120, 100), test::white);
    }
}

// A text in a master that admits 103 to 152 and 53 to 102, scrolled across each of its sides.
TEST_F(Paint, text_lines_are_cut_on_all_four_sides) {
    set_margins(make(8, VEL_TYPE_LABEL, 100, 50, 56, 56), 3);
    vel_object &o = make(9, VEL_TYPE_ENTRY, 0, 0, 300, 190, 8);
    o.fill_r = o.fill_g = o.fill_b = 255;
    std::strcpy(o.label, "Wg");
    const int w = static_cast<int>(width_of("Wg")), h = TTF_FontHeight(ctx.font);
    ASSERT_LT(w, 45);
    const struct {
        int x, y;             // where the text starts
        int shown_x, shown_y; // where what shows of it seems to start
    } cases[] = {
        {110, 60, 110, 60},
        {103 - 5, 60, 103 - 5 + 1, 60}, // cut left: what shows is one pixel further right
        {153 - 5, 60, 153 - 5, 60},     // cut right
        {110, 53 - 4, 110, 53 - 4 + 1}, // cut above: the first line shows one pixel lower
        {110, 103 - 4, 110, 103 - 4},   // cut below
        {103 - w - 5, 60, 0, 0},        // outside
        {110, 53 - h - 5, 0, 0},
    };
    const SDL_Rect inner{103, 53, 50, 50};
    for (const auto &c : cases) {
        test::fill(ctx.screen, test::white);
        o.scroll_x = static_cast<uint32_t>(c.x);
        o.scroll_y = static_cast<uint32_t>(c.y);
        vel_evoke_object(&ctx, 9);
        const bool shows = c.shown_x != 0;
        EXPECT_EQ(differs_from(shows ? "Wg" : " ", c.shown_x, c.shown_y, inner), "")
            << c.x << "," << c.y;
    }
}

TEST_F(Paint, a_line_wider_than_its_limits_starts_anew_and_ends_a_pixel_early) {
    set_margins(make(8, VEL_TYPE_LABEL, 100, 50, 56, 56), 3);
    vel_object &o = make(9, VEL_TYPE_TEXT, 0, 0, 300, 190, 8);
    o.fill_r = o.fill_g = o.fill_b = 255;
    o.text_index = 1;
    set_text(1, "x");
    const char *wide = "Wide line, wider than the room";
    std::strcpy(buffers[1].bytes, wide);
    o.scroll_x = 90;
    o.scroll_y = 60;
    vel_evoke_object(&ctx, 9);
    EXPECT_EQ(differs_from(wide, 103, 60, {103, 53, 49, 50}), "");
    // Behind a line that was cut at the left, its source column is taken: the first line ends
    // inside, so 103 - 1 - 90 = 12 columns of it are hidden, and of the second, too.
    std::strcpy(buffers[1].bytes, "Wg");
    std::strcpy(buffers[1].bytes + VEL_LINE_SIZE, wide);
    o.number_of_lines = 1;
    test::fill(ctx.screen, test::white);
    vel_evoke_object(&ctx, 9);
    const auto pitch = static_cast<Sint16>(TTF_FontHeight(ctx.font));
    const auto second = static_cast<Sint16>(60 + pitch);
    SDL_Rect first_row{0, 0, 320, static_cast<Uint16>(second)};
    SDL_FillRect(ctx.screen, &first_row, 0xFFFFFF);
    EXPECT_EQ(differs_from(wide, 103 - 12, second, {103, second, 49, 42}), "");
}

TEST_F(Paint, later_lines_are_cut_above_without_a_shift) {
    set_margins(make(8, VEL_TYPE_LABEL, 100, 50, 100, 56), 3);
    vel_object &o = make(9, VEL_TYPE_TEXT, 0, 0, 300, 190, 8);
    o.fill_r = o.fill_g = o.fill_b = 255;
    o.text_index = 1;
    set_text(1, "x");
    std::strcpy(buffers[1].bytes + VEL_LINE_SIZE, "Wg");
    o.number_of_lines = 1;
    const int pitch = TTF_FontHeight(ctx.font);
    o.scroll_x = 110;
    o.scroll_y = static_cast<uint32_t>(53 - 4 - pitch);
    vel_evoke_object(&ctx, 9);
    EXPECT_EQ(differs_from("Wg", 110, 53 - 4, {103, 53, 94, 50}), "");
}

TEST_F(Paint, captions_show_once_at_the_first_place_that_is_visible) {
    vel_object &o = make(8, VEL_TYPE_LABEL, 20, 30, 200, 100);
    o.fill_r = o.fill_g = o.fill_b = 255;
    std::strcpy(o.label, "Wg");
    const int pitch = TTF_FontHeight(ctx.font);
    o.number_of_lines = 2;
    vel_evoke_object(&ctx, 8);
    EXPECT_EQ(differs_from("Wg", 20, 30, {0, 0, 320, 200}), "");
    o.scroll_y = static_cast<uint32_t>(-pitch - 3);
    for (const bool has_lines : {true, false}) {
        o.number_of_lines = has_lines ? 1 : 0;
        test::fill(ctx.screen, test::white);
        vel_evoke_object(&ctx, 8);
        // The second place starts 3 pixels above the limit; later places are cut without a shift.
        EXPECT_EQ(differs_from(has_lines ? "Wg" : " ", 20, 27, {20, 30, 200, 100}), "");
    }
}

TEST_F(Paint, at_most_40_lines_are_painted_and_centred_ones_leave_their_offset) {
    vel_object &o = make(8, VEL_TYPE_WINDOW, 20, 30, 200, 160);
    o.fill_r = o.fill_g = o.fill_b = 255;
    o.text_index = 1;
    o.number_of_lines = 45;
    o.scroll_y = static_cast<uint32_t>(-40 * TTF_FontHeight(ctx.font));
    set_text(1, "x");
    std::strcpy(buffers[2].bytes, "slot 40");
    vel_evoke_object(&ctx, 8);
    EXPECT_EQ(differs_from(" ", 0, 0, {0, 0, 320, 200}), "");
    o.scroll_y = 0;
    o.number_of_lines = 0;
    o.window_kind = VEL_WINDOW_REDUCED;
    o.centred = 1;
    o.margin_left = 10;
    std::strcpy(buffers[1].bytes, "Wg");
    vel_evoke_object(&ctx, 8);
    const auto free = (200 - 10 - static_cast<int>(width_of("Wg"))) / 2;
    EXPECT_EQ(o.scroll_x, static_cast<uint32_t>(free));
    EXPECT_EQ(differs_from("Wg", 30 + free, 30, {0, 0, 320, 200}), "");
}

TEST_F(Paint, objects_without_a_font_or_a_text_show_none) {
    vel_object &o = make(8, VEL_TYPE_TEXT, 20, 30, 200, 100);
    o.fill_r = o.fill_g = o.fill_b = 255;
    o.text_index = 1;
    std::strcpy(buffers[1].bytes, "line");
    const struct {
        uint32_t type, font_choice;
        const char *text;
        bool shows;
    } cases[] = {
        {VEL_TYPE_TEXT, 0, "x", true},
        {VEL_TYPE_TEXT, 0, "", false}, // by the text, not the line
        {VEL_TYPE_CHAIN, 0, "", true},
        {VEL_TYPE_TEXT, 1, "x", false}, // own font did not open
        {VEL_TYPE_TEXT, 2, "x", false},
        {VEL_TYPE_MENU, 0, "x", false},
        {VEL_TYPE_PICTURE, 0, "x", false},
    };
    for (const auto &c : cases) {
        test::fill(ctx.screen, test::white);
        o.type = c.type;
        o.font_choice = c.font_choice;
        set_text(1, c.text);
        vel_evoke_object(&ctx, 8);
        EXPECT_EQ(differs_from(" ", 0, 0, {0, 0, 320, 200}).empty(), !c.shows) << c.type;
    }
}

TEST_F(Paint, border_styles_place_their_lines) {
    vel_object &o = make(8, VEL_TYPE_PICTURE_UNLOADED, 100, 100, 50, 20);
    set_margins(o, 3);
    o.border_b = 255;
    const struct {
        uint32_t style, inset;
        SDL_Rect outline; // of width 0: no lines
    } cases[] = {
        {VEL_BORDER_NONE, 1, {}},
        {VEL_BORDER_FRAME, 1, {101, 101, 48, 18}},
        {VEL_BORDER_FITTED, 1, {}},
        {VEL_BORDER_FRAME_FITTED, 0, {102, 102, 46, 16}},
        {VEL_BORDER_SHADOW, 3, {103, 103, 50, 20}},
        {VEL_BORDER_SHADOW_FITTED, 0, {100, 100, 50, 20}},
        {6, 1, {}},
    };
    for (const auto &c : cases) {
        test::fill(ctx.screen, test::white);
        o.border_style = c.style;
        o.border_inset = c.inset;
        vel_evoke_borders(&ctx, 8);
        SDL_Surface *wanted = test::make_surface(320, 200, 32);
        test::fill(wanted, test::white);
        if (c.outline.w != 0) {
            SDL_Rect outer = c.outline;
            SDL_Rect inner{static_cast<Sint16>(outer.x + 1), static_cast<Sint16>(outer.y + 1),
                           static_cast<Uint16>(outer.w - 2), static_cast<Uint16>(outer.h - 2)};
            SDL_FillRect(wanted, &outer, 0x0000FF);
            SDL_FillRect(wanted, &inner, 0xFFFFFF);
        }
        EXPECT_EQ(test::difference(ctx.screen, wanted), "") << c.style;
        SDL_FreeSurface(wanted);
    }
}

TEST_F(Paint, border_lines_end_at_their_limits) {
    make(8, VEL_TYPE_LABEL, 100, 50, 6, 5); // admits 100 to 105 and 50 to 54
    vel_object &o = make(9, VEL_TYPE_PICTURE_UNLOADED, 0, 0, 0, 0, 8);
    o.border_style = VEL_BORDER_SHADOW;
    o.border_b = 255;
    const struct {
        int x, y;
        uint32_t width, height;
        const char *pixels;
    } cases[] = {
        {101, 48, 3, 5, "101,50 103,50 101,51 103,51 101,52 102,52 103,52"}, // no top line
        {99, 51, 3, 2, "100,51 101,51 100,52 101,52"},                       // no left line
        {104, 49, 9, 9, "104,50 104,51 104,52 104,53 104,54"}, // left line only, across
        {90, 52, 50, 9, "100,52 101,52 102,52 103,52 104,52 105,52"},
        {90, 40, 50, 50, ""},
    };
    for (const auto &c : cases) {
        test::fill(ctx.screen, test::white);
        o.x = static_cast<uint32_t>(c.x);
        o.y = static_cast<uint32_t>(c.y);
        o.width = c.width;
        o.height = c.height;
        vel_evoke_borders(&ctx, 9);
        EXPECT_EQ(pixels(test::blue), c.pixels) << c.x << "," << c.y;
    }
    // At top level screen_rect limits, exclusively: its outermost pixels carry no line.
    ctx.screen_rect = {10, 10, 20, 20};
    o = objects[0];
    o.border_style = VEL_BORDER_SHADOW;
    o.border_b = 255;
    o.x = 10, o.y = 27, o.width = 4, o.height = 4;
    test::fill(ctx.screen, test::white);
    vel_evoke_borders(&ctx, 9);
    EXPECT_EQ(pixels(test::blue), "11,27 12,27 13,27 13,28");
}

TEST_F(Paint, the_cursor_is_cut_by_the_text_area) {
    make(8, VEL_TYPE_LABEL, 11, 91, 189, 209);
    vel_object &o = make(9, VEL_TYPE_ENTRY, 11, 91, 189, 209, 8);
    const int h = TTF_FontHeight(ctx.font);
    const struct {
        uint32_t x, y;
        int top, area_top, area_bottom, first, last; // last < first: nothing
    } cases[] = {
        {50, 100, 0, 91, 180, 100, 100 + h - 1},
        {50, 100, 0, 106, 180, 106, 100 + h - 1},
        {50, 100, 0, 91, 110, 100, 109},
        {50, 100, 0, 103, 108, 103, 107},
        {50, 100, 0, 91, 101, 1, 0}, // one pixel only is no line
        {50, 70, 0, 91, 180, 1, 0},
        {11, 100, 0, 91, 180, 100, 100 + h - 1},
        {10, 100, 0, 91, 180, 1, 0},
        {199, 100, 0, 91, 180, 100, 100 + h - 1},
        {200, 100, 0, 91, 180, 1, 0},
    };
    for (const auto &c : cases) {
        test::fill(ctx.screen, test::white);
        o.y = static_cast<uint32_t>(c.area_top);
        o.height = static_cast<uint32_t>(c.area_bottom - c.area_top);
        o.cursor_x = c.x;
        o.cursor_y = c.y;
        vel_draw_cursor(&ctx, 9);
        const std::string column = std::to_string(c.x) + ",";
        std::string wanted;
        for (int y = c.first; y <= c.last; ++y) {
            wanted += (wanted.empty() ? "" : " ") + column + std::to_string(y);
        }
        EXPECT_EQ(pixels(test::blue), wanted) << c.x << "," << c.y << " in " << c.area_top;
    }
    o.font_choice = 1; // its own font did not open
    test::fill(ctx.screen, test::white);
    o.cursor_x = 50;
    vel_draw_cursor(&ctx, 9);
    EXPECT_EQ(pixels(test::blue), "");
}

} // namespace
