// Pixels, lines and boxes on displays of every depth.
#include "support.h"

namespace {

using test::Form;

class Primitives : public test::Form, public testing::WithParamInterface<int> {
protected:
    Primitives() : Form(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Depths, Primitives, testing::Values(8, 16, 32));

// A falling run may end at 0. Lines of one pixel and slanted ones are none, and neither is one from
// -5 to 5, whose end is below its start, unsigned.
TEST_P(Primitives, lines_run_both_ways_with_both_ends) {
    using Case = std::tuple<std::array<uint32_t, 4>, const char *>;
    for (const auto &[ends, box] :
         {Case({10, 5, 7, 5}, "7,5 4x1"), Case({7, 5, 10, 5}, "7,5 4x1"),
          Case({3, 2, 3, 4}, "3,2 1x3"), Case({3, 2, 3, 0}, "3,0 1x3"), Case({4, 4, 4, 4}, ""),
          Case({4, 4, 6, 6}, ""), Case({400, 9, 317, 9}, "317,9 3x1"),
          Case({8, 198, 8, 0x7FFFFFFF}, "8,198 1x2"), Case({0xFFFFFFFB, 5, 5, 5}, ""),
          Case({5, 200, 9, 200}, ""), Case({320, 0, 320, 9}, "")}) {
        clear();
        vel_draw_line(&ctx, ends[0], ends[1], ends[2], ends[3], 255, 0, 0);
        EXPECT_EQ(box_of(test::red), box) << ends[0] << "," << ends[1];
    }
}

TEST_P(Primitives, pixels_outside_the_surface_are_dropped_and_boxes_cut_to_16_bits) {
    using Case = std::pair<uint32_t, uint32_t>;
    for (const auto &[x, y] : {Case(319, 199), Case(320, 0), Case(0, 200), Case(0xFFFFFFFF, 0)}) {
        vel_draw_pixel(&ctx, x, y, 255, 0, 0);
    }
    EXPECT_EQ(box_of(test::red), "319,199 1x1");
    clear();
    vel_draw_box(&ctx, 0x10002, 0x20003, 0x30002, 0x40001, 255, 0, 0);
    EXPECT_EQ(box_of(test::red), "2,3 2x1");
}

TEST_P(Primitives, rectangles_have_no_sides_of_one_pixel) {
    using Case = std::tuple<uint32_t, uint32_t, const char *>;
    for (const auto &[width, height, shown] :
         {Case(1, 4, "5,6 5,7 5,8 5,9"), Case(3, 3, "5,6 6,6 7,6 5,7 7,7 5,8 6,8 7,8")}) {
        clear();
        vel_draw_rectangle(&ctx, 5, 6, width, height, 255, 0, 0);
        EXPECT_EQ(pixels(test::red), shown);
    }
}

class Depth24 : public test::Form {
protected:
    Depth24() : Form(24) {}
};

TEST_F(Depth24, refuses_each_pixel_with_a_line_and_fills_boxes) {
    testing::internal::CaptureStdout();
    vel_draw_line(&ctx, 5, 5, 6, 5, 255, 0, 0);
    vel_draw_box(&ctx, 1, 1, 1, 1, 255, 0, 0);
    ctx.screen->format->BytesPerPixel = 5;
    vel_draw_pixel(&ctx, 5, 5, 255, 0, 0);
    ctx.screen->format->BytesPerPixel = 3;
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "24 bit is not supported ! \n24 bit is not supported ! \n"
              "Error - can't get color depth. \n");
    EXPECT_EQ(box_of(test::red), "1,1 1x1");
    // Also what is covered later: the border's four lines.
    make(8, VEL_TYPE_LABEL, 10, 10, 7, 5).border_style = VEL_BORDER_FRAME;
    make(9, VEL_TYPE_LABEL, 0, 0, 100, 100);
    testing::internal::CaptureStdout();
    vel_draw_all_objects(&ctx, 0, 0);
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 2 * 9 + 2 * 7);
}

// SDL makes them, and writes beside their memory.
TEST_F(Form, surfaces_that_cannot_hold_their_pixels_get_none) {
    SDL_Surface *screen = ctx.screen;
    make(8, VEL_TYPE_LABEL, 1, 1, 50, 40).border_style = VEL_BORDER_FRAME;
    set_label(objects[8], "text");
    std::vector<uint8_t> pixels(100 * 400);
    for (const auto &[depth, pitch] : {std::pair(32, 399), {12, 400}, {20, 400}, {28, 400}}) {
        ctx.screen = SDL_CreateRGBSurfaceFrom(pixels.data(), 100, 100, depth, pitch, 7, 56, 448, 0);
        if (ctx.screen == nullptr) continue; // then SDL has refused it itself
        testing::internal::CaptureStdout();
        vel_evoke_object(&ctx, 8);
        EXPECT_EQ(testing::internal::GetCapturedStdout().substr(0, 34),
                  "Error - can't get color depth. \nEr");
        EXPECT_EQ(pixels, std::vector<uint8_t>(pixels.size())) << depth;
        SDL_FreeSurface(ctx.screen);
    }
    ctx.screen = screen;
}

// SDL 1.2 packs its pixels so that they need a lock; its successors may not.
TEST_F(Form, packed_surfaces_are_locked) {
    SDL_Surface *packed = test::make_surface(8, 8);
    SDL_SetColorKey(packed, SDL_SRCCOLORKEY | SDL_RLEACCEL, 0);
    SDL_BlitSurface(packed, nullptr, ctx.screen, nullptr); // packs
    vel_lock(packed);
    EXPECT_NE(packed->pixels, nullptr);
    vel_unlock(packed);
    EXPECT_EQ(packed->locked, 0U);
    SDL_FreeSurface(packed);
}

} // namespace
