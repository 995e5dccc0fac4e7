// Opening, raising and closing windows, and what the user selects in them.
#include "window/stack.h"
#include "window/window.h"

namespace velumo {
namespace {

// The look of a window that is active no more.
void undraw_frame(vel_context &ctx, u32 window) {
    undraw_marks(ctx, window);
    for (const u32 button : buttons_of_frame(ctx, object_at(ctx, window).window_kind)) {
        if (object_at(ctx, button).hidden == 0) vel_undraw_object(&ctx, button);
    }
}

// The look of a window that closes: its buttons are erased whatever their state.
void remove_frame(vel_context &ctx, u32 window) {
    undraw_marks(ctx, window);
    for (const u32 button : buttons_of_frame(ctx, object_at(ctx, window).window_kind)) {
        vel_undraw_object(&ctx, button);
        object_at(ctx, button).hidden = 1;
    }
}

// False when the stack is full.
bool put_in_front(vel_context &ctx, u32 window) {
    vel_object &o = object_at(ctx, window);
    const bool opens = o.hidden == 1;
    if (opens) {
        o.hidden = 0;
        // On purpose: a full stack refuses silently, and the window stays marked as visible.
        if (ctx.window_count >= VEL_MAX_WINDOWS) return false;
    }
    const auto entry = find_window(ctx, window);
    if (entry == 0U) return true;
    if (entry) remove_entry(ctx, *entry);
    push_window(ctx, window);
    // On purpose: only windows that were closed are counted.
    if (opens) ++ctx.window_count;
    return true;
}

void place_cursor_in(vel_context &ctx, u32 window) {
    switch (object_at(ctx, window).editable) {
    case 0:
        ctx.cursor_object = vel_check_cursor_dep_objs(&ctx, window);
        break;
    case 1:
        ctx.cursor_object = window;
        break;
    default:
        break;
    }
}

// A cursor that was placed once stays where it is.
void start_cursor(vel_object &o) {
    if (o.cursor_x != 0 || o.cursor_y != 0) return;
    o.cursor_x = o.x + o.margin_left;
    o.cursor_y = o.y + o.margin_top;
    o.cursor_line = 0;
    o.cursor_column = 0;
}

void activate(vel_context &ctx, u32 window) {
    ctx.window_to_activate = window;
    vel_activate_window(&ctx);
}

void open_dialog(vel_context &ctx, u32 window) {
    activate(ctx, window);
    redraw(ctx);
}

} // namespace
} // namespace velumo

using namespace velumo;

void vel_activate_window(vel_context *ctx) noexcept {
    const u32 window = ctx->window_to_activate;
    const u32 before = ctx->active_window;
    if (window == before || !is_top_level_window(object_at(*ctx, window))) return;
    if (!put_in_front(*ctx, window)) return;
    vel_initiate_cursor_win(ctx, window);
    if (before != 0) undraw_frame(*ctx, before);
    ctx->active_window = window;
    ctx->window_to_activate = 0;
    place_cursor_in(*ctx, window);
    vel_set_operators(ctx);
}

void vel_close_win(vel_context *ctx, uint32_t window) noexcept {
    if (window == 0) window = ctx->active_window;
    vel_object &o = object_at(*ctx, window);
    const auto entry = find_window(*ctx, window);
    if (window == 0 || o.hidden != 0 || !entry) return;
    remove_entry(*ctx, *entry);
    if (ctx->window_count != 0) --ctx->window_count;
    o.hidden = 1;
    vel_undraw_object(ctx, window);
    if (window != ctx->active_window) return;
    remove_frame(*ctx, window);
    // On purpose: a cursor in a dependent of the window stays where it is.
    if (ctx->cursor_object == window) ctx->cursor_object = 0;
    ctx->active_window = 0;
    const u32 next = ctx->window_stack[*entry];
    if (next != 0) activate(*ctx, next);
}

void vel_select_window(vel_context *ctx) noexcept {
    const u32 number = ctx->window_to_activate;
    const vel_object &o = object_at(*ctx, number);
    if (is_top_level_window(o)) {
        vel_activate_window(ctx);
        redraw(*ctx);
    } else if (takes_cursor(o)) {
        ctx->cursor_object = number;
        vel_draw_and_screenup_selected_window(ctx);
    }
}

uint32_t vel_decide_window(vel_context *ctx, uint32_t window, uint32_t first,
                           uint32_t last) noexcept {
    open_dialog(*ctx, window);
    const u32 answer = vel_get_mouse_selection(ctx, as_signed(first), as_signed(last));
    vel_close_win(ctx, 0);
    return answer;
}

void vel_notice_window(vel_context *ctx, uint32_t window, uint32_t object) noexcept {
    open_dialog(*ctx, window);
    vel_get_mono_mouse_selection(ctx, as_signed(object));
    vel_close_win(ctx, 0);
}

void vel_initiate_cursor_win(vel_context *ctx, uint32_t window) noexcept {
    vel_object &o = object_at(*ctx, window);
    if (o.editable == 1) start_cursor(o);
    vel_initiate_cursor_dep_objs(ctx, window);
}

void vel_initiate_cursor_dep_objs(vel_context *ctx, uint32_t object) noexcept {
    walk_dependents(*ctx, object, [ctx](u32 number) {
        vel_object &o = object_at(*ctx, number);
        if (!has_area(o)) return Walk::skip;
        if (o.editable == 1 && o.type != VEL_TYPE_EMPTY) start_cursor(o);
        return Walk::descend;
    });
}

uint32_t vel_check_cursor_dep_objs(const vel_context *ctx, uint32_t object) noexcept {
    u32 found = 0;
    walk_dependents(*ctx, object, [ctx, &found](u32 number) {
        const vel_object &o = object_at(*ctx, number);
        if (!has_area(o)) return Walk::skip;
        if (o.editable == 1) {
            found = number;
            return Walk::stop;
        }
        return o.editable == 0 ? Walk::descend : Walk::skip;
    });
    return found;
}
