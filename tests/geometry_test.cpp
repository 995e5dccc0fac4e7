// Sizes and limits: the screen, masters and their margins.
#include "support.h"

namespace {

using Numbers = std::array<uint32_t, 4>;

class Geometry : public test::Form {
protected:
    Geometry() {
        ctx.screen_width = 640;
        ctx.screen_height = 480;
    }
    Numbers limits(uint32_t number) const {
        Numbers n{};
        vel_get_borders_for_dep_object(&ctx, number, &n[0], &n[1], &n[2], &n[3]);
        return n;
    }
    Numbers text_limits(uint32_t number) const {
        Numbers n{};
        vel_get_borders_for_text(&ctx, number, &n[0], &n[1], &n[2], &n[3]);
        return n;
    }
};

TEST_F(Geometry, the_screen_cuts_2_pixels_early_at_the_right_and_5_at_the_bottom) {
    const struct {
        int x, y;
        uint32_t width, height, cut_width, cut_height;
    } cases[] = {
        {600, 400, 100, 200, 38, 75},
        {541, 281, 100, 200, 100, 200}, // the last pixel lies on the screen's size: not cut
        {542, 282, 100, 200, 96, 193},
        {700, 0, 100, 10, 0xFFFFFFC2, 10}, // -62
    };
    for (const auto &c : cases) {
        make(8, VEL_TYPE_WINDOW, c.x, c.y, c.width, c.height);
        EXPECT_EQ(vel_p_cutted_w_independent(&ctx, 8), c.cut_width) << c.x;
        EXPECT_EQ(vel_p_cutted_h_independent(&ctx, 8), c.cut_height) << c.y;
    }
}

TEST_F(Geometry, limits_in_a_top_level_master_follow_the_clip_mode) {
    set_margins(make(8, VEL_TYPE_WINDOW, 100, 50, 200, 100), 4);
    vel_object &o = make(9, VEL_TYPE_LABEL, 110, 60, 20, 20, 8);
    for (const auto &[mode, wanted] : {std::pair{0U, Numbers{103, 296, 53, 146}},
                                       {1U, Numbers{99, 300, 49, 150}},
                                       {2U, Numbers{0, 0, 0, 0}},
                                       {77U, Numbers{0, 0, 0, 0}}}) {
        o.clip_mode = mode;
        EXPECT_EQ(limits(9), wanted) << mode;
    }
    // Cut by the screen at 500 + 138 = 638 and 400 + 75 = 475: margins there are not kept free.
    objects[8].x = 500;
    objects[8].y = 400;
    for (const auto &[mode, wanted] : {std::pair{0U, Numbers{503, 638, 403, 475}},
                                       {1U, Numbers{499, 638, 399, 475}},
                                       {2U, Numbers{0, 638, 0, 475}}}) {
        o.clip_mode = mode;
        EXPECT_EQ(limits(9), wanted) << mode;
    }
}

TEST_F(Geometry, deeper_masters_are_taken_one_pixel_up_and_left) {
    set_margins(make(8, VEL_TYPE_WINDOW, 100, 50, 300, 200), 5);
    set_margins(make(9, VEL_TYPE_LABEL, 120, 80, 100, 60, 8), 2);
    vel_object &o = make(10, VEL_TYPE_LABEL, 0, 0, 10, 10, 9);
    EXPECT_EQ(limits(10), (Numbers{120, 217, 80, 137}));
    o.clip_mode = 1; // 119 - 1, 218 + 1; the window's margins still limit: 104, 395, 54, 245
    EXPECT_EQ(limits(10), (Numbers{118, 219, 78, 139}));
    o.clip_mode = 2; // only the window's inner left and top edge, and no room
    EXPECT_EQ(limits(10), (Numbers{104, 0, 54, 0}));
    o.clip_mode = 0;
    // A window that the screen cuts at 500 + 138 - 1 ends there, for a panel that reaches further.
    objects[8].x = 500;
    objects[9].x = 600;
    EXPECT_EQ(limits(10), (Numbers{600, 638, 80, 137}));
    // Its margin counts when it comes first: 500 + 300 - 170 = 630.
    objects[8].margin_right = 170;
    EXPECT_EQ(limits(10), (Numbers{600, 630, 80, 137}));
}

TEST_F(Geometry, every_master_on_the_way_narrows_the_limits) {
    make(8, VEL_TYPE_WINDOW, 100, 100, 200, 200);
    make(9, VEL_TYPE_LABEL, 110, 90, 100, 100, 8);
    make(10, VEL_TYPE_LABEL, 90, 120, 100, 100, 9);
    make(11, VEL_TYPE_LABEL, 0, 0, 10, 10, 10);
    // 10: 88..189 and 118..219; 9 as a parent: 109..210, 89..190, as a master 108..209, 88..189;
    // 8 as a parent: 99..300.
    EXPECT_EQ(limits(11), (Numbers{109, 189, 118, 189}));
}

TEST_F(Geometry, sizes_inside_masters_climb_by_one_level_or_by_two) {
    set_margins(make(8, VEL_TYPE_WINDOW, 100, 100, 100, 100), 10); // inner edge at 199 - 10 = 189
    make(9, VEL_TYPE_LABEL, 120, 120, 100, 100, 8);
    make(10, VEL_TYPE_LABEL, 130, 130, 200, 200, 9);
    EXPECT_EQ(vel_p_cutted_w_dependent(&ctx, 9), 68U); // 189 - 121
    EXPECT_EQ(vel_p_cutted_h_dependent(&ctx, 9), 68U);
    // Width: 9 is 68 wide, so its edge is 120 + 68 - 1 = 187, and 187 - 131 = 56.
    EXPECT_EQ(vel_p_cutted_w_dependent(&ctx, 10), 56U);
    // Height: that of 8 as a dependent of nothing is its own, 100, so the edge of 9 is 219.
    EXPECT_EQ(vel_p_cutted_h_dependent(&ctx, 10), 88U);
}

TEST_F(Geometry, roots_and_text_areas) {
    set_margins(make(8, VEL_TYPE_WINDOW, 100, 50, 200, 100), 4);
    set_margins(make(9, VEL_TYPE_TEXT, 90, 60, 60, 200, 8), 3);
    make(10, VEL_TYPE_TEXT, 100, 60, 20, 20, 9);
    EXPECT_EQ(vel_search_master(&ctx, 8), 0U);
    EXPECT_EQ(vel_search_master(&ctx, 10), 8U);
    EXPECT_EQ(text_limits(8), (Numbers{103, 296, 53, 146}));
    EXPECT_EQ(text_limits(9), (Numbers{103, 147, 62, 146})); // own 92 and 257 are wider
}

} // namespace
