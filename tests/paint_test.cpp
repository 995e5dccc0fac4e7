// One object on the screen: body, picture, text, border, cursor.
#include "support.h"

namespace {

class Paint : public test::Form {
protected:
    ~Paint() override { SDL_FreeSurface(wanted_); }

    // A white object, so that only its text shows. Its line buffer is that of text 1.
    vel_object &make_white(uint32_t type, int x, int y, uint32_t width, uint32_t height,
                           uint32_t master = 0) {
        vel_object &o = make(9, type, x, y, width, height, master);
        set_fill(o, test::white);
        o.text_index = 1;
        set_text(1, "x");
        return o;
    }
    // Paints object 9 on an empty screen and compares that with a text at a place, seen through a
    // rectangle. Returns the first pixel that is not as it should be.
    std::string differs_from(const std::string &text, int x, int y,
                             SDL_Rect clip = {0, 0, 320, 200}) {
        clear();
        vel_evoke_object(&ctx, 9);
        SDL_SetClipRect(wanted_, nullptr);
        test::fill(wanted_, test::white);
        SDL_SetClipRect(wanted_, &clip);
        SDL_Surface *rendered = TTF_RenderText_Blended(ctx.font, text.c_str(), {0, 0, 255, 0});
        SDL_Rect to{static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
        SDL_BlitSurface(rendered, nullptr, wanted_, &to);
        SDL_FreeSurface(rendered);
        return difference(wanted_);
    }
    std::string box_painted(uint32_t number) {
        clear();
        vel_evoke_object(&ctx, number);
        return box_of(test::red);
    }

    SDL_Surface *wanted_ = test::make_surface(320, 200);
};

// The master admits 103 to 152 and 53 to 102.
TEST_F(Paint, dependents_are_cut_by_their_master) {
    set_margins(make(8, VEL_TYPE_LABEL, 100, 50, 56, 56), 3);
    const std::tuple<uint32_t, int, int, uint32_t, uint32_t, const char *> cases[] = {
        {1, 0, 0, 300, 190, "103,53 50x50"},
        {2, 10, 60, 20, 6, ""},
        {2, 153, 60, 5, 6, ""},
        {4, 110, 60, 5, 6, ""},
        {0, 110, 60, 5, 6, ""}};
    for (const auto &[type, x, y, width, height, box] : cases) {
        make(9, type, x, y, width, height).master = 8;
        EXPECT_EQ(box_painted(9), box) << x << "," << y;
    }
    objects[9].master = 0; // an empty object has a body there
    EXPECT_EQ(box_painted(9), "110,60 5x6");
    make(10, VEL_TYPE_WINDOW, 310, 192, 20, 10);
    EXPECT_EQ(box_painted(10), "310,192 8x3"); // cut by the screen
    make(7, VEL_TYPE_LABEL, 30, 40, 20, 10);
    EXPECT_EQ(box_painted(7), "30,40 16x16");
}

TEST_F(Paint, a_cut_picture_shows_the_part_that_lies_inside) {
    SDL_Surface *picture = test::make_surface(90, 80);
    for (int k = 0; k < 90 * 80; ++k) {
        SDL_Rect one{static_cast<Sint16>(k % 90), static_cast<Sint16>(k / 90), 1, 1};
        SDL_FillRect(picture, &one, static_cast<Uint32>((k % 90) << 16 | (k / 90) << 8 | 1));
    }
    make(8, VEL_TYPE_LABEL, 100, 50, 50, 45);
    vel_object &o = make(9, VEL_TYPE_PICTURE, 0, 0, 90, 80, 8);
    o.image = picture;
    using Case = std::tuple<int, int, uint32_t, SDL_Rect>;
    for (const auto &[x, y, master, shown] :
         {Case(110, 60, 8, {110, 60, 40, 35}), Case(90, 40, 8, {100, 50, 50, 45}),
          Case(20, -20, 8, {100, 50, 10, 10}), Case(30, 20, 0, {30, 20, 90, 80})}) {
        clear();
        o.x = test::u32(x);
        o.y = test::u32(y);
        o.master = master;
        vel_evoke_object(&ctx, 9);
        test::fill(wanted_, test::white);
        SDL_SetClipRect(wanted_, &shown);
        SDL_Rect to{static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
        SDL_BlitSurface(picture, nullptr, wanted_, &to);
        SDL_SetClipRect(wanted_, nullptr);
        EXPECT_EQ(difference(wanted_), "") << x << "," << y;
    }
}

// The first line is cut one pixel off at the left and at the top, later ones only at the left. One
// that is wider than its limits begins at their start and ends a pixel early.
TEST_F(Paint, text_lines_are_cut_on_all_four_sides) {
    const std::string wide = "Wide line, wider than the room";
    const int w = static_cast<int>(width_of("Wg")), h = static_cast<int>(height());
    const std::tuple<uint32_t, std::string, int, int, int, int, int> cases[] = {
        // shown at 0: not at all
        {0, "Wg", 98, 60, 50, 99, 60},   {0, "Wg", 148, 60, 50, 148, 60},
        {0, "Wg", 110, 49, 50, 110, 50}, {0, "Wg", 110, 99, 50, 110, 99},
        {0, "Wg", 98 - w, 60, 50, 0, 0}, {0, "Wg", 110, 48 - h, 50, 0, 0},
        {0, "Wg", 110, 49, 8, 110, 50},  {1, "Wg", 110, 49, 50, 110, 49},
        {0, wide, 90, 60, 50, 103, 60},  {0, wide, 110, 60, 50, 110, 60}};
    for (const auto &[number, text, x, y, rows, shown_x, shown_y] : cases) {
        objects[8] = {};
        set_margins(make(8, VEL_TYPE_LABEL, 100, 50, 56, test::u32(rows) + 6), 3);
        vel_object &o = make_white(VEL_TYPE_TEXT, 0, 0, 300, 190, 8);
        o.number_of_lines = number;
        o.scroll_x = test::u32(x);
        o.scroll_y = test::u32(y) - number * height();
        *line(1, 0) = '\0';
        std::strcpy(line(1, number), text.c_str());
        const bool spans = text == wide && x < 103;
        const SDL_Rect room{103, 53, static_cast<Uint16>(spans ? 49 : 50),
                            static_cast<Uint16>(rows)};
        EXPECT_EQ(differs_from(shown_x == 0 ? " " : text, shown_x, shown_y, room), "")
            << number << " at " << x << "," << y << " in " << rows;
    }
}

TEST_F(Paint, lines_of_a_centred_window_leave_their_offset) {
    vel_object &o = make_white(VEL_TYPE_WINDOW, 20, 30, 0, 100);
    o.margin_left = 10;
    std::strcpy(line(1, 0), "Wg");
    // Type, kind, centred, room left, offset: 7 as it was before.
    const std::tuple<uint32_t, uint32_t, uint32_t, int, int> cases[] = {
        {1, 1, 1, 111, 50}, {1, 1, 1, 1, -4},  {1, 1, 1, -9, 7},
        {1, 1, 0, 110, 7},  {1, 0, 1, 110, 7}, {3, 1, 1, 110, 7}};
    for (const auto &[type, kind, centred, room_left, offset] : cases) {
        o.type = type;
        o.window_kind = kind;
        o.centred = centred;
        o.width = width_of("Wg") + test::u32(room_left);
        o.scroll_x = 7;
        const bool spans = offset < 0; // it begins at the edge and ends a pixel early
        const SDL_Rect room{30, 30, static_cast<Uint16>(o.width - (spans ? 11 : 10)), 100};
        EXPECT_EQ(differs_from("Wg", spans ? 30 : 30 + offset, 30, room), "");
        EXPECT_EQ(o.scroll_x, test::u32(offset)) << type << kind << centred << room_left;
    }
}

TEST_F(Paint, border_styles_place_their_lines_over_body_and_text) {
    vel_object &o = make(8, VEL_TYPE_LABEL, 100, 100, 50, 14);
    set_label(o, "WWWWWWWWWW");
    set_margins(o, 3);
    o.border_b = 254;
    using Case = std::tuple<uint32_t, uint32_t, std::array<uint32_t, 4>>;
    for (const auto &[style, inset, outline] :
         {Case(1, 1, {101, 101, 48, 12}), Case(3, 0, {102, 102, 46, 10}),
          Case(4, 3, {103, 103, 50, 14}), Case(1, 0xFFFFFFFE, {104, 104, 42, 6})}) {
        clear();
        vel_draw_rectangle(&ctx, outline[0], outline[1], outline[2], outline[3], 0, 0, 254);
        const std::string wanted = pixels({0, 0, 254});
        clear();
        o.border_style = style;
        o.border_inset = inset;
        vel_evoke_object(&ctx, 8);
        EXPECT_EQ(pixels({0, 0, 254}), wanted) << style;
    }
}

// The master admits 100 to 105 and 50 to 54. At top level screen_rect limits, exclusively.
TEST_F(Paint, border_lines_end_at_their_limits) {
    make(8, VEL_TYPE_LABEL, 100, 50, 6, 5);
    ctx.screen_rect = {10, 9, 20, 20};
    const std::tuple<uint32_t, int, int, uint32_t, uint32_t, const char *> cases[] = {
        {8, 101, 48, 3, 5, "101,50 103,50 101,51 103,51 101,52 102,52 103,52"}, // no top line
        {8, 99, 51, 3, 2, "100,51 101,51 100,52 101,52"},                       // no left line
        {8, 104, 49, 9, 9, "104,50 104,51 104,52 104,53 104,54"}, // left line only, across
        {8, 90, 52, 50, 9, "100,52 101,52 102,52 103,52 104,52 105,52"},
        {0, 10, 26, 4, 4, "11,26 12,26 13,26 13,27"},
        {0, 27, 9, 4, 4, "27,10 27,11 27,12 28,12"}};
    for (const auto &[master, x, y, width, height, shown] : cases) {
        clear();
        vel_object &o = make(9, VEL_TYPE_PICTURE_UNLOADED, x, y, width, height);
        o.master = master;
        o.border_style = VEL_BORDER_SHADOW;
        o.border_b = 255;
        vel_evoke_borders(&ctx, 9);
        EXPECT_EQ(pixels(test::blue), shown) << x << "," << y;
    }
}

// The area runs from the column 11 to 199.
TEST_F(Paint, the_cursor_is_cut_by_the_text_area) {
    make(8, VEL_TYPE_LABEL, 11, 60, 189, 140);
    vel_object &o = make(9, VEL_TYPE_ENTRY, 11, 0, 189, 0, 8);
    const int h = static_cast<int>(height());
    // Where it is, the area, and the rows that show; one pixel only is no line.
    for (const auto &[x, y, top, bottom, first, last] : {std::array{11, 100, 91, 180, 100, 99 + h},
                                                         {199, 100, 91, 180, 100, 99 + h},
                                                         {10, 100, 91, 180, 1, 0},
                                                         {200, 100, 91, 180, 1, 0},
                                                         {50, 100, 106, 180, 106, 99 + h},
                                                         {50, 100, 103, 108, 103, 107},
                                                         {50, 100, 91, 99 + h, 100, 98 + h},
                                                         {50, 100, 91, 100, 1, 0},
                                                         {50, 93 - h, 91, 180, 91, 92}}) {
        clear();
        o.y = test::u32(top);
        o.height = test::u32(bottom - top);
        o.cursor_x = test::u32(x);
        o.cursor_y = test::u32(y);
        vel_draw_cursor(&ctx, 9);
        EXPECT_EQ(box_of(test::blue),
                  last < first ? "" : test::text_of(x, first, 1, last - first + 1))
            << x << "," << y << " in " << top << " to " << bottom;
    }
    clear();
    o.font_choice = 1; // its own font is none
    vel_draw_cursor(&ctx, 9);
    EXPECT_EQ(box_of(test::blue), "");
}

} // namespace
