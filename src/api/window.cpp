// The exported functions of windows: activation, dialogs, frame actions and the waiting loop.
#include "input/events.h"
#include "window/activation.h"
#include "window/button_actions.h"
#include "window/cursor_start.h"
#include "window/dialogs.h"
#include "window/following.h"
#include "window/frame_actions.h"
#include "window/frame_buttons.h"
#include "window/waiting.h"

using namespace velumo;

void vel_activate_window(vel_context *ctx) noexcept { activate_wanted_window(*ctx); }

void vel_close_win(vel_context *ctx, uint32_t window) noexcept { close_window(*ctx, window); }

void vel_set_operators(vel_context *ctx) noexcept { place_frame_buttons(*ctx); }

void vel_select_window(vel_context *ctx) noexcept { select_wanted_object(*ctx); }

uint32_t vel_decide_window(vel_context *ctx, uint32_t window, uint32_t first,
                           uint32_t last) noexcept {
    return ask_in_window(*ctx, window, first, last);
}

void vel_notice_window(vel_context *ctx, uint32_t window, uint32_t object) noexcept {
    ask_in_window(*ctx, window, object, object);
}

uint32_t vel_wait_for_object(vel_context *ctx) noexcept { return wait_for_object(*ctx); }

uint32_t vel_quit_requested(const vel_context *ctx) noexcept {
    return ctx != nullptr && was_quit_requested(*ctx) ? 1 : 0;
}

void vel_initiate_cursor_win(vel_context *ctx, uint32_t window) noexcept {
    start_cursors(*ctx, window);
}

void vel_initiate_cursor_dep_objs(vel_context *ctx, uint32_t object) noexcept {
    start_cursors_of_dependents(*ctx, object);
}

uint32_t vel_check_cursor_dep_objs(const vel_context *ctx, uint32_t object) noexcept {
    return first_cursor_stop(*ctx, object);
}

void vel_exa_left_pressed(vel_context *ctx) noexcept {
    press_frame_button(*ctx, ctx->window_to_activate);
}

void vel_exa_left_released(vel_context *ctx) noexcept {
    release_frame_button(*ctx, ctx->window_to_activate);
}

void vel_move_window(vel_context *ctx) noexcept { move_window(*ctx); }

void vel_increase_win_w(vel_context *ctx) noexcept {
    resize_window(*ctx, horizontal, Change::more);
}

void vel_increase_win_h(vel_context *ctx) noexcept { resize_window(*ctx, vertical, Change::more); }

void vel_decrease_win_w(vel_context *ctx) noexcept {
    resize_window(*ctx, horizontal, Change::less);
}

void vel_decrease_win_h(vel_context *ctx) noexcept { resize_window(*ctx, vertical, Change::less); }

void vel_scroll_win_right(vel_context *ctx) noexcept { scroll_window(*ctx, Towards::right); }

void vel_scroll_win_left(vel_context *ctx) noexcept { scroll_window(*ctx, Towards::left); }

void vel_scroll_win_down(vel_context *ctx) noexcept { scroll_window(*ctx, Towards::down); }

void vel_scroll_win_up(vel_context *ctx) noexcept { scroll_window(*ctx, Towards::up); }

void vel_update_x_dependent_obj(vel_context *ctx, uint32_t object, uint32_t direction,
                                uint32_t distance) noexcept {
    follow_scroll(*ctx, object, {horizontal, Direction{direction}, distance});
}

void vel_update_y_dependent_obj(vel_context *ctx, uint32_t object, uint32_t direction,
                                uint32_t distance) noexcept {
    follow_scroll(*ctx, object, {vertical, Direction{direction}, distance});
}

void vel_update_dep_objs_after_move(vel_context *ctx, uint32_t object, uint32_t dx,
                                    uint32_t dy) noexcept {
    follow_move(*ctx, object, {dx, dy});
}

void vel_add_difference_toxy_dep_objs(vel_context *ctx, uint32_t object, uint32_t dx,
                                      uint32_t dy) noexcept {
    shift_for_program(*ctx, object, {dx, dy});
}
