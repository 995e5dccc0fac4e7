// What a program writes into the records after loading: rings of masters and dependents, chains as
// long as the table. Everything ends, and needs no deep stack.
#include <pthread.h>

#include "support.h"

namespace {

class Rings : public test::Form {
protected:
    // A window, and below it objects that come back to the first of them.
    void make_ring(std::uint32_t length) {
        for (std::uint32_t k = 8; k < 14; ++k) objects[k] = {};
        make_window(8, 20, 30, 200, 100);
        for (std::uint32_t k = 9; k < 9 + length; ++k) {
            vel_object &o = make(k, VEL_TYPE_LABEL, 30, 40, 100, 50);
            o.master = k == 9 ? 8 + length : k - 1;
            o.dep_objs[0] = k == 8 + length ? 9 : k + 1;
            o.clip_mode = VEL_CLIP_FRAME;
        }
        for (const std::uint32_t k : {12U, 13U}) { // come into the ring from outside
            vel_object &o = make(k, VEL_TYPE_LABEL, 30, 40, 100, 50);
            o.master = k == 12 ? 9 : 12;
            o.clip_mode = VEL_CLIP_FRAME;
        }
        set_fill(objects[8 + length], test::blue);
        objects[8].dep_objs[0] = 9;
        open(8);
        objects[8].hidden = 0; // it may have been open before
        vel_draw_all_objects(&ctx, 1, 1);
    }

    void use() {
        vel_draw_dep_objs(&ctx, 9);
        vel_draw_and_screenup_selected_window(&ctx);
        vel_p_cutted_w_dependent(&ctx, 9);
        vel_p_cutted_h_dependent(&ctx, 13);
        vel_search_master(&ctx, 13);
        vel_test_dep_objs(&ctx, 8, 60, 60);
        vel_in_object(&ctx, 9, 60, 60);
        vel_initiate_cursor_win(&ctx, 8);
        vel_check_cursor_dep_objs(&ctx, 8);
        vel_update_y_dependent_obj(&ctx, 8, 1, 1);
        vel_add_difference_toxy_dep_objs(&ctx, 8, 0, 0);
        vel_scroll_win_up(&ctx);
    }
};

TEST_F(Rings, end_in_drawing_hit_tests_and_moves) {
    for (const std::uint32_t comfort : {0U, std::uint32_t{VEL_COMFORT_ALL}}) {
        ctx.comfort = comfort;
        for (std::uint32_t length = 1; length <= 3; ++length) {
            make_ring(length);
            EXPECT_EQ(at(100, 81), test::blue) << length; // the last of the ring
            use();
            end_loops_on_quit();
            move_pointer(60, 60);
            push_key(SDLK_TAB);
            push_mouse(true, 60, 60, SDL_BUTTON_WHEELDOWN);
            push_type(SDL_QUIT);
            EXPECT_EQ(vel_wait_for_object(&ctx), 0U);
        }
    }
}

constexpr std::uint32_t deepest = 20000;

void *draw(void *context) {
    auto *ctx = static_cast<vel_context *>(context);
    vel_draw_all_objects(ctx, 1, 1);
    vel_test_all_objects(ctx, 100, 100);
    vel_increase_win_w(ctx);
    return nullptr;
}

TEST_F(Rings, a_chain_as_long_as_the_table_is_drawn_on_a_stack_of_128_kib) {
    std::vector<vel_object> chain(deepest + 1);
    for (std::uint32_t k = 8; k <= deepest; ++k) {
        vel_object &o = chain[k];
        o = make(9, VEL_TYPE_LABEL, 20, 30, 200, 100);
        o.master = k == 8 ? 0 : k - 1;
        o.dep_objs[0] = k == deepest ? 0 : k + 1;
        o.clip_mode = VEL_CLIP_FRAME;
    }
    chain[8].type = VEL_TYPE_WINDOW;
    test::Form::set_fill(chain[deepest], test::blue);
    ctx.objects = chain.data();
    ctx.object_count = deepest;
    open(8);
    pthread_attr_t small;
    pthread_attr_init(&small);
    pthread_attr_setstacksize(&small, 128 * 1024);
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &small, draw, &ctx), 0);
    pthread_join(thread, nullptr);
    EXPECT_EQ(at(100, 100), test::blue);
}

} // namespace
