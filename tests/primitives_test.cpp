// Pixels, lines and boxes on surfaces of every depth.
#include "support.h"

namespace {

using test::Form;

class Primitives : public Form, public testing::WithParamInterface<int> {
protected:
    Primitives() : Form(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Depths, Primitives, testing::Values(8, 16, 32));

TEST_P(Primitives, lines_run_both_ways_with_both_ends) {
    const struct {
        uint32_t x1, y1, x2, y2;
        const char *pixels;
    } cases[] = {{10, 5, 7, 5, "7,5 8,5 9,5 10,5"},
                 {7, 5, 10, 5, "7,5 8,5 9,5 10,5"},
                 {3, 2, 3, 4, "3,2 3,3 3,4"},
                 {3, 4, 3, 2, "3,2 3,3 3,4"},
                 {3, 2, 3, 0, "3,0 3,1 3,2"},
                 {1, 0, 0, 0, "0,0 1,0"},
                 {4, 4, 4, 4, ""},
                 {4, 4, 6, 6, ""},
                 {317, 9, 400, 9, "317,9 318,9 319,9"},
                 {400, 9, 317, 9, "317,9 318,9 319,9"},
                 {8, 198, 8, 0x7FFFFFFF, "8,198 8,199"},
                 {0xFFFFFFFB, 5, 5, 5, ""},
                 {5, 5, 0xFFFFFFFB, 5, ""},
                 {320, 5, 330, 5, ""},
                 {5, 200, 9, 200, ""},
                 {320, 0, 320, 9, ""}};
    for (const auto &c : cases) {
        clear();
        vel_draw_line(&ctx, c.x1, c.y1, c.x2, c.y2, 255, 0, 0);
        EXPECT_EQ(pixels(test::red), c.pixels) << c.x1 << "," << c.y1 << " " << c.x2 << "," << c.y2;
    }
}

TEST_P(Primitives, pixels_outside_the_surface_are_dropped) {
    vel_draw_pixel(&ctx, 319, 199, 255, 0, 0);
    for (const auto &[x, y] : {std::pair{320U, 0U}, {0U, 200U}, {0xFFFFFFFFU, 0U}}) {
        vel_draw_pixel(&ctx, x, y, 255, 0, 0);
    }
    EXPECT_EQ(pixels(test::red), "319,199");
}

TEST_P(Primitives, rectangles_have_no_sides_of_one_pixel) {
    const struct {
        uint32_t x, y, width, height;
        const char *pixels;
    } cases[] = {{5, 6, 1, 4, "5,6 5,7 5,8 5,9"},
                 {5, 6, 3, 1, "5,6 6,6 7,6"},
                 {5, 6, 1, 1, ""},
                 {5, 6, 3, 3, "5,6 6,6 7,6 5,7 7,7 5,8 6,8 7,8"}};
    for (const auto &c : cases) {
        clear();
        vel_draw_rectangle(&ctx, c.x, c.y, c.width, c.height, 255, 0, 0);
        EXPECT_EQ(pixels(test::red), c.pixels);
    }
}

TEST_P(Primitives, boxes_are_cut_to_16_bits) {
    vel_draw_box(&ctx, 0x10002, 0x20003, 0x30002, 0x40001, 255, 0, 0);
    EXPECT_EQ(pixels(test::red), "2,3 3,3");
}

class Depth24 : public Form {
protected:
    Depth24() : Form(24) {}
};

TEST_F(Depth24, refuses_each_pixel_with_a_line_and_fills_boxes) {
    testing::internal::CaptureStdout();
    vel_draw_line(&ctx, 5, 5, 7, 5, 255, 0, 0);
    vel_draw_pixel(&ctx, 5, 5, 255, 0, 0);
    vel_draw_box(&ctx, 1, 1, 1, 1, 255, 0, 0);
    std::string wanted;
    for (int k = 0; k < 4; ++k) wanted += "24 bit is not supported ! \n";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), wanted);
    EXPECT_EQ(pixels(test::red), "1,1");
}

TEST_F(Form, an_unknown_depth_is_told) {
    const Uint8 depth = ctx.screen->format->BytesPerPixel;
    ctx.screen->format->BytesPerPixel = 5;
    testing::internal::CaptureStdout();
    vel_draw_pixel(&ctx, 5, 5, 255, 0, 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Error - can't get color depth. \n");
    ctx.screen->format->BytesPerPixel = depth;
}

// SDL 1.2 counts locks and packs pixels, so that they need one; its successors may do neither.
TEST_F(Form, only_surfaces_that_need_it_are_locked) {
    SDL_Surface *packed = test::make_surface(8, 8);
    SDL_SetColorKey(packed, SDL_SRCCOLORKEY | SDL_RLEACCEL, 0);
    SDL_BlitSurface(packed, nullptr, ctx.screen, nullptr); // packs its pixels
    for (SDL_Surface *surface : {packed, ctx.screen}) {
        SDL_LockSurface(surface);
        const auto locks = SDL_MUSTLOCK(surface) ? surface->locked : 0;
        SDL_UnlockSurface(surface);
        vel_lock(surface);
        EXPECT_EQ(surface->locked, locks);
        EXPECT_NE(surface->pixels, nullptr);
        vel_unlock(surface);
        EXPECT_EQ(surface->locked, 0U);
    }
    vel_lock(nullptr);
    vel_unlock(nullptr);
    SDL_FreeSurface(packed);
}

} // namespace
