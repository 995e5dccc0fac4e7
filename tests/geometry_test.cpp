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
};

TEST_F(Geometry, the_screen_cuts_2_pixels_early_at_the_right_and_5_at_the_bottom) {
    // A last pixel on the screen's size is not cut; beyond it -62 is left.
    for (const auto &[x, y, width, height] : {std::array{600, 400, 38, 75},
                                              {541, 281, 100, 200},
                                              {542, 282, 96, 193},
                                              {700, 0, -62, 200}}) {
        make(8, VEL_TYPE_WINDOW, x, y, 100, 200);
        EXPECT_EQ(vel_p_cutted_w_independent(&ctx, 8), test::u32(width)) << x;
        EXPECT_EQ(vel_p_cutted_h_independent(&ctx, 8), test::u32(height)) << y;
    }
}

// Where the screen cuts the master, at 500 + 138 = 638 and 400 + 75 = 475, margins are not kept
// free.
TEST_F(Geometry, limits_in_a_top_level_master_follow_the_clip_mode) {
    vel_object &m = make(8, VEL_TYPE_WINDOW, 0, 0, 200, 100);
    m.margin_left = m.margin_top = 4;
    m.margin_right = m.margin_bottom = 5;
    vel_object &o = make(9, VEL_TYPE_LABEL, 110, 60, 20, 20, 8);
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, Numbers>;
    for (const auto &[x, y, mode, wanted] :
         {Case(100, 50, 0, {103, 295, 53, 145}), Case(100, 50, 1, {99, 300, 49, 150}),
          Case(100, 50, 2, {0, 0, 0, 0}), Case(500, 400, 0, {503, 638, 403, 475}),
          Case(500, 400, 1, {499, 638, 399, 475}), Case(500, 400, 2, {0, 638, 0, 475})}) {
        m.x = x;
        m.y = y;
        o.clip_mode = mode;
        EXPECT_EQ(limits(9), wanted) << x << " " << mode;
    }
}

// The first master is the window, with its left edge and right margin, the second a panel with its
// left edge.
TEST_F(Geometry, deeper_masters_are_taken_one_pixel_up_and_left) {
    vel_object &m = make(8, VEL_TYPE_WINDOW, 100, 50, 300, 200);
    set_margins(m, 5);
    set_margins(make(9, VEL_TYPE_LABEL, 120, 80, 100, 60, 8), 2);
    vel_object &o = make(10, VEL_TYPE_LABEL, 0, 0, 10, 10, 9);
    const std::tuple<uint32_t, uint32_t, uint32_t, uint32_t, Numbers> cases[] = {
        {100, 5, 120, 0, {120, 217, 80, 137}},
        {100, 5, 120, 1, {118, 219, 78, 139}},   // 119 - 1, 218 + 1
        {100, 5, 120, 2, {104, 0, 54, 0}},       // only the window's edges, and no room
        {500, 5, 600, 0, {600, 638, 80, 137}},   // the screen cuts at 500 + 138 - 1
        {500, 164, 600, 0, {600, 636, 80, 137}}, // the margin comes first, at 500 + 300 - 164
        {500, 163, 600, 0, {600, 638, 80, 137}}};
    for (const auto &[x, right, panel, mode, wanted] : cases) {
        m.x = x;
        m.margin_right = right;
        objects[9].x = panel;
        o.clip_mode = mode;
        EXPECT_EQ(limits(10), wanted) << x << " " << right << " " << mode;
    }
}

// 10: 88..189 and 118..219; 9 as a parent: 109..210, 89..190, as a master 108..209, 88..189; 8 as a
// parent: 99..300.
TEST_F(Geometry, every_master_on_the_way_narrows_the_limits) {
    make(8, VEL_TYPE_WINDOW, 100, 100, 200, 200);
    make(9, VEL_TYPE_LABEL, 110, 90, 100, 100, 8);
    make(10, VEL_TYPE_LABEL, 90, 120, 100, 100, 9);
    make(11, VEL_TYPE_LABEL, 0, 0, 10, 10, 10);
    EXPECT_EQ(limits(11), (Numbers{109, 189, 118, 189}));
    Numbers n{}; // of its text, which ends with its own right and bottom edge
    vel_get_borders_for_text(&ctx, 11, &n[0], &n[1], &n[2], &n[3]);
    EXPECT_EQ(n, (Numbers{109, 10, 118, 10}));
    EXPECT_EQ(vel_search_master(&ctx, 8), 0U);
    EXPECT_EQ(vel_search_master(&ctx, 10), 8U);
}

// The inner edges of the window are at 199 - 10 = 189 and 229 - 15 = 214. Inside 9 the width comes
// from its own, 68, and so from the edge 187; the height from that of 8, 120, so from the edge 249.
TEST_F(Geometry, sizes_inside_masters_climb_by_one_level_or_by_two) {
    vel_object &m = make(8, VEL_TYPE_WINDOW, 100, 110, 100, 120);
    m.margin_right = 10;
    m.margin_bottom = 15;
    make(9, VEL_TYPE_LABEL, 120, 130, 100, 110, 8);
    make(10, VEL_TYPE_LABEL, 130, 135, 200, 200, 9);
    EXPECT_EQ(std::pair(vel_p_cutted_w_dependent(&ctx, 9), vel_p_cutted_h_dependent(&ctx, 9)),
              std::pair(189U - 121, 214U - 131));
    EXPECT_EQ(std::pair(vel_p_cutted_w_dependent(&ctx, 10), vel_p_cutted_h_dependent(&ctx, 10)),
              std::pair(187U - 131, 249U - 136));
}

} // namespace
