// Moving, resizing and scrolling the active window, and how its dependents follow.
#include "input/events.h"
#include "menu/folder_listing.h"
#include "model/axis.h"
#include "window/window.h"

namespace velumo {
namespace {

constexpr u32 resize_step = 4;
constexpr u32 least_size = 20;
constexpr u32 screen_margin = 50;
constexpr i32 screens_to_scroll = 5;

enum class Change { less, more };

void undraw_window(vel_context &ctx, u32 window) {
    undraw_marks(ctx, window);
    vel_undraw_object(&ctx, window);
}

// The redraw comes also when a limit refuses the change.
void resize(vel_context &ctx, const Axis &axis, Change change) {
    if (ctx.active_window == 0) return;
    u32 &size = object_at(ctx, ctx.active_window).*axis.size;
    undraw_window(ctx, ctx.active_window);
    if (change == Change::more && size < ctx.*axis.screen_size - screen_margin) size += resize_step;
    if (change == Change::less && size > least_size) size -= resize_step;
    redraw(ctx);
}

// --- Moving

// Drops all events up to the next press of the left button. False when the filter ends the loop.
bool wait_for_press(vel_context &ctx) {
    for (;;) {
        switch (poll_event(ctx)) {
        case Polled::end_of_loop:
            return false;
        case Polled::nothing:
            rest(ctx);
            break;
        case Polled::event:
            if (is_left_button(ctx.event, Button::pressed)) return true;
            break;
        }
    }
}

// On purpose: with a full frame erasing stops at the first button that is hidden.
void undraw_buttons(vel_context &ctx, u32 kind) {
    for (const u32 button : buttons_of_frame(ctx, kind)) {
        if (object_at(ctx, button).hidden == 0) {
            vel_undraw_object(&ctx, button);
        } else if (kind == VEL_WINDOW_FULL) {
            return;
        }
    }
}

void shift(vel_object &o, u32 dx, u32 dy) {
    o.x += dx;
    o.y += dy;
}

void shift_cursor(vel_object &o, u32 dx, u32 dy) {
    o.cursor_x += dx;
    o.cursor_y += dy;
}

void move_to(vel_context &ctx, u32 x, u32 y) {
    vel_object &o = object_at(ctx, ctx.active_window);
    const u32 dx = std::max(x, horizontal.window_start) - o.x;
    const u32 dy = std::max(y, vertical.window_start) - o.y;
    shift(o, dx, dy);
    if (o.editable == 1) shift_cursor(o, dx, dy);
    vel_update_dep_objs_after_move(&ctx, ctx.active_window, dx, dy);
}

// --- Scrolling

enum class Direction : u32 { back = 1, on = 2 };

struct Scroll {
    const Axis &axis;
    Direction contents;
    Direction own_cursor;
};

void step(u32 &coordinate, Direction direction, u32 distance) {
    coordinate += direction == Direction::on ? distance : 0 - distance;
}

// On purpose: the range is lopsided, from one range back to two on.
bool may_scroll(const vel_context &ctx, const vel_object &o, const Scroll &scroll) {
    const i32 offset = as_signed(o.*scroll.axis.scroll);
    const i32 range = as_signed(o.*scroll.axis.scroll_max);
    const u32 screens = screens_to_scroll * ctx.*scroll.axis.screen_size;
    if (scroll.contents == Direction::on) {
        return offset < as_signed(range == 0 ? screens : 2 * static_cast<u32>(range));
    }
    return offset > as_signed(0 - (range == 0 ? screens : static_cast<u32>(range)));
}

// A dependent of a mode that shows on the master's whole frame stays where it is in a top-level
// master.
bool scrolls(const vel_context &ctx, const vel_object &o) {
    return o.clip_mode == VEL_CLIP_MARGINS ||
           (o.clip_mode == VEL_CLIP_FRAME && object_at(ctx, o.master).master != 0);
}

void scroll_dependents(vel_context &ctx, u32 object, u32 direction, u32 distance,
                       const Axis &axis) {
    const bool moves = direction == static_cast<u32>(Direction::back) ||
                       direction == static_cast<u32>(Direction::on);
    walk_dependents(ctx, object, [&](u32 number) {
        vel_object &o = object_at(ctx, number);
        if (!scrolls(ctx, o)) return Walk::skip;
        if (moves) {
            step(o.*axis.position, Direction{direction}, distance);
            if (o.editable == 1) step(o.*axis.cursor, Direction{direction}, distance);
        }
        return Walk::descend;
    });
}

void scroll_window(vel_context &ctx, const Scroll &scroll) {
    if (ctx.active_window == 0) return;
    vel_object &o = object_at(ctx, ctx.active_window);
    if (!may_scroll(ctx, o, scroll)) return;
    step(o.*scroll.axis.scroll, scroll.contents, ctx.scroll_step);
    if (o.editable == 1) step(o.*scroll.axis.cursor, scroll.own_cursor, ctx.scroll_step);
    scroll_dependents(ctx, ctx.active_window, static_cast<u32>(scroll.contents), ctx.scroll_step,
                      scroll.axis);
    vel_draw_and_screenup_selected_window(&ctx);
}

// Lists of folders have more names than rows, so in a window that shows one the names move instead.
void scroll_names_or_window(vel_context &ctx, Towards names, const Scroll &window) {
    if (scroll_listings(ctx, ctx.active_window, names)) {
        vel_draw_and_screenup_selected_window(&ctx);
    } else {
        scroll_window(ctx, window);
    }
}

} // namespace
} // namespace velumo

using namespace velumo;

void vel_increase_win_w(vel_context *ctx) noexcept { resize(*ctx, horizontal, Change::more); }
void vel_increase_win_h(vel_context *ctx) noexcept { resize(*ctx, vertical, Change::more); }
void vel_decrease_win_w(vel_context *ctx) noexcept { resize(*ctx, horizontal, Change::less); }
void vel_decrease_win_h(vel_context *ctx) noexcept { resize(*ctx, vertical, Change::less); }

void vel_move_window(vel_context *ctx) noexcept {
    if (ctx->active_window == 0 || !wait_for_press(*ctx)) return;
    const u32 x = ctx->event.button.x;
    const u32 y = ctx->event.button.y;
    vel_undraw_object(ctx, ctx->active_window);
    undraw_marks(*ctx, ctx->active_window);
    undraw_buttons(*ctx, object_at(*ctx, ctx->active_window).window_kind);
    move_to(*ctx, x, y);
    vel_set_operators(ctx);
    redraw(*ctx);
}

void vel_scroll_win_right(vel_context *ctx) noexcept {
    scroll_window(*ctx, {horizontal, Direction::on, Direction::on});
}
void vel_scroll_win_left(vel_context *ctx) noexcept {
    // On purpose: here alone the window's own cursor moves against its contents.
    scroll_window(*ctx, {horizontal, Direction::back, Direction::on});
}
void vel_scroll_win_down(vel_context *ctx) noexcept {
    scroll_names_or_window(*ctx, Towards::start, {vertical, Direction::on, Direction::on});
}
void vel_scroll_win_up(vel_context *ctx) noexcept {
    scroll_names_or_window(*ctx, Towards::end, {vertical, Direction::back, Direction::back});
}

void vel_update_x_dependent_obj(vel_context *ctx, uint32_t object, uint32_t direction,
                                uint32_t distance) noexcept {
    scroll_dependents(*ctx, object, direction, distance, horizontal);
}

void vel_update_y_dependent_obj(vel_context *ctx, uint32_t object, uint32_t direction,
                                uint32_t distance) noexcept {
    scroll_dependents(*ctx, object, direction, distance, vertical);
}

void vel_update_dep_objs_after_move(vel_context *ctx, uint32_t object, uint32_t dx,
                                    uint32_t dy) noexcept {
    walk_dependents(*ctx, object, [=](u32 number) {
        vel_object &o = object_at(*ctx, number);
        shift(o, dx, dy);
        if (takes_cursor(o)) shift_cursor(o, dx, dy);
        return Walk::descend;
    });
}

void vel_add_difference_toxy_dep_objs(vel_context *ctx, uint32_t object, uint32_t dx,
                                      uint32_t dy) noexcept {
    walk_dependents(*ctx, object, [=](u32 number) {
        vel_object &o = object_at(*ctx, number);
        if (!has_area(o)) return Walk::skip;
        shift(o, dx, dy);
        if (o.editable == 1) shift_cursor(o, dx, dy);
        return Walk::descend;
    });
}
