// The exported functions of windows: activation, dialogs, frame actions and the waiting loop.
#include "api/calls.h"
#include "input/events.h"
#include "model/following.h"
#include "window/activation.h"
#include "window/button_actions.h"
#include "window/cursor_start.h"
#include "window/dialogs.h"
#include "window/frame_actions.h"
#include "window/frame_buttons.h"
#include "window/waiting.h"

using namespace velumo;

namespace {

void resize(vel_context *ctx, const Axis &axis, SizeStep change) {
    in_form(ctx, [&](vel_context &c) { resize_window(c, axis, change); });
}

void follow(vel_context *ctx, u32 object, const ScrollStep &by) {
    in_form(ctx, [&](vel_context &c) { follow_scroll(c, object, by); });
}

} // namespace

void vel_activate_window(vel_context *ctx) noexcept { in_form(ctx, activate_wanted_window); }

void vel_close_win(vel_context *ctx, uint32_t window) noexcept {
    in_form(ctx, close_window, window);
}

void vel_set_operators(vel_context *ctx) noexcept { in_form(ctx, place_frame_buttons); }

void vel_select_window(vel_context *ctx) noexcept { in_form(ctx, select_wanted_object); }

uint32_t vel_decide_window(vel_context *ctx, uint32_t window, uint32_t first,
                           uint32_t last) noexcept {
    return in_form(ctx, ask_in_window, window, first, last);
}

void vel_notice_window(vel_context *ctx, uint32_t window, uint32_t object) noexcept {
    in_form(ctx, ask_in_window, window, object, object);
}

uint32_t vel_wait_for_object(vel_context *ctx) noexcept { return in_form(ctx, wait_for_object); }

uint32_t vel_quit_requested(const vel_context *ctx) noexcept {
    return ctx != nullptr && was_quit_requested(*ctx) ? 1 : 0;
}

void vel_initiate_cursor_win(vel_context *ctx, uint32_t window) noexcept {
    in_form(ctx, start_cursors, window);
}

void vel_initiate_cursor_dep_objs(vel_context *ctx, uint32_t object) noexcept {
    in_form(ctx, start_cursors_of_dependents, object);
}

uint32_t vel_check_cursor_dep_objs(const vel_context *ctx, uint32_t object) noexcept {
    return in_form(ctx, first_cursor_stop, object);
}

void vel_exa_left_pressed(vel_context *ctx) noexcept {
    in_form(ctx, [](vel_context &c) { press_frame_button(c, c.window_to_activate); });
}

void vel_exa_left_released(vel_context *ctx) noexcept {
    in_form(ctx, [](vel_context &c) { release_frame_button(c, c.window_to_activate); });
}

void vel_move_window(vel_context *ctx) noexcept { in_form(ctx, move_window); }

void vel_increase_win_w(vel_context *ctx) noexcept { resize(ctx, horizontal, SizeStep::more); }

void vel_increase_win_h(vel_context *ctx) noexcept { resize(ctx, vertical, SizeStep::more); }

void vel_decrease_win_w(vel_context *ctx) noexcept { resize(ctx, horizontal, SizeStep::less); }

void vel_decrease_win_h(vel_context *ctx) noexcept { resize(ctx, vertical, SizeStep::less); }

void vel_scroll_win_right(vel_context *ctx) noexcept {
    in_form(ctx, scroll_window, Towards::right);
}

void vel_scroll_win_left(vel_context *ctx) noexcept { in_form(ctx, scroll_window, Towards::left); }

void vel_scroll_win_down(vel_context *ctx) noexcept { in_form(ctx, scroll_window, Towards::down); }

void vel_scroll_win_up(vel_context *ctx) noexcept { in_form(ctx, scroll_window, Towards::up); }

void vel_update_x_dependent_obj(vel_context *ctx, uint32_t object, uint32_t direction,
                                uint32_t distance) noexcept {
    follow(ctx, object, {horizontal, Direction{direction}, distance});
}

void vel_update_y_dependent_obj(vel_context *ctx, uint32_t object, uint32_t direction,
                                uint32_t distance) noexcept {
    follow(ctx, object, {vertical, Direction{direction}, distance});
}

void vel_update_dep_objs_after_move(vel_context *ctx, uint32_t object, uint32_t dx,
                                    uint32_t dy) noexcept {
    in_form(ctx, follow_move, object, Shift{dx, dy});
}

void vel_add_difference_toxy_dep_objs(vel_context *ctx, uint32_t object, uint32_t dx,
                                      uint32_t dy) noexcept {
    in_form(ctx, shift_for_program, object, Shift{dx, dy});
}
