#include "window/activation.h"

#include "model/types.h"
#include "render/geometry.h"
#include "render/scene.h"
#include "window/cursor_start.h"
#include "window/focus.h"
#include "window/frame_buttons.h"
#include "window/stack.h"

namespace velumo {
namespace {

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
    if (entry && *entry == 0) return true;
    if (entry) remove_entry(ctx, *entry);
    push_window(ctx, window);
    // On purpose: only windows that were closed are counted.
    if (opens) ++ctx.window_count;
    return true;
}

void place_cursor_in(vel_context &ctx, u32 window) {
    switch (object_at(ctx, window).editable) {
    case 0:
        ctx.cursor_object = first_cursor_stop(ctx, window);
        if (has_comfort(ctx, VEL_COMFORT_KEYBOARD)) focus_answer(ctx, {});
        break;
    case 1:
        ctx.cursor_object = window;
        break;
    default:
        break;
    }
}

// What closes under the pointer is not under it when it opens again.
void forget_pointer_in(vel_context &ctx, u32 window) {
    if (ctx.state != nullptr && root_of(ctx, ctx.state->hovered) == window) ctx.state->hovered = 0;
}

} // namespace

void activate_wanted_window(vel_context &ctx) {
    const u32 window = ctx.window_to_activate;
    const u32 before = ctx.active_window;
    if (window == before || !is_top_level_window(object_at(ctx, window))) return;
    if (!put_in_front(ctx, window)) return;
    start_cursors(ctx, window);
    if (before != 0) erase_frame(ctx, before);
    ctx.active_window = window;
    ctx.window_to_activate = 0;
    place_cursor_in(ctx, window);
    place_frame_buttons(ctx);
}

void select_wanted_object(vel_context &ctx) {
    const u32 number = ctx.window_to_activate;
    const vel_object &o = object_at(ctx, number);
    if (is_top_level_window(o)) {
        activate_wanted_window(ctx);
        show_all(ctx);
    } else if (is_editable(o)) {
        ctx.cursor_object = number;
        show_active_window(ctx);
    }
}

void close_window(vel_context &ctx, u32 window) {
    if (window == 0) window = ctx.active_window;
    vel_object &o = object_at(ctx, window);
    const auto entry = find_window(ctx, window);
    if (window == 0 || o.hidden != 0 || !entry) return;
    remove_entry(ctx, *entry);
    if (ctx.window_count != 0) --ctx.window_count;
    o.hidden = 1;
    forget_pointer_in(ctx, window);
    erase_object(ctx, window);
    if (window != ctx.active_window) return;
    remove_frame(ctx, window);
    // On purpose: a cursor in a dependent of the window stays where it is.
    if (ctx.cursor_object == window) ctx.cursor_object = 0;
    ctx.active_window = 0;
    const u32 next = ctx.window_stack[*entry];
    if (next != 0) activate(ctx, next);
}

} // namespace velumo
