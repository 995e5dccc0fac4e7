// Where the frame buttons stand, and what pressing and releasing them does.
#include "render/geometry.h"
#include "window/window.h"

namespace velumo {
namespace {

constexpr u32 row_above_window = 24;

// The row ends at the right edge of the window; the reduced frame has its two buttons at the end.
u32 places_from_end(u32 button, u32 kind) {
    const bool next_to_last = kind == VEL_WINDOW_REDUCED && button == VEL_BUTTON_MOVE;
    return next_to_last ? 2 : VEL_FRAME_BUTTONS + 1 - button;
}

void place_button(vel_context &ctx, u32 button, const vel_object &window) {
    const u32 right = window.x + cut_size(ctx, window, horizontal);
    vel_object &o = object_at(ctx, button);
    o.hidden = 0;
    o.x = right - VEL_FRAME_BUTTON_SIZE * places_from_end(button, window.window_kind);
    o.y = window.y - row_above_window;
}

void switch_mode(vel_context &ctx) {
    switch (ctx.frame_mode) {
    case VEL_MODE_RESIZE:
        ctx.frame_mode = VEL_MODE_SCROLL;
        ctx.mark_colour = ctx.mark_colour_b;
        break;
    case VEL_MODE_SCROLL:
        ctx.frame_mode = VEL_MODE_RESIZE;
        ctx.mark_colour = ctx.mark_colour_a;
        break;
    default:
        return;
    }
    redraw(ctx);
}

struct PressAction {
    u32 button;
    void (*resize)(vel_context *) noexcept;
    void (*scroll)(vel_context *) noexcept;
};
constexpr PressAction press_actions[] = {
    {VEL_BUTTON_HEIGHT_LESS, vel_decrease_win_h, vel_scroll_win_down},
    {VEL_BUTTON_HEIGHT_MORE, vel_increase_win_h, vel_scroll_win_up},
    {VEL_BUTTON_WIDTH_LESS, vel_decrease_win_w, vel_scroll_win_right},
    {VEL_BUTTON_WIDTH_MORE, vel_increase_win_w, vel_scroll_win_left},
};

} // namespace
} // namespace velumo

using namespace velumo;

void vel_set_operators(vel_context *ctx) noexcept {
    const vel_object &window = object_at(*ctx, ctx->active_window);
    const bool has_window = ctx->active_window != 0 && window.hidden == 0;
    if (has_window && window.window_kind >= VEL_WINDOW_PLAIN) return;
    for (u32 button = 1; button <= frame_button_count(*ctx); ++button) {
        object_at(*ctx, button).hidden = 1;
    }
    if (!has_window) return;
    for (const u32 button : buttons_of_frame(*ctx, window.window_kind)) {
        place_button(*ctx, button, window);
    }
}

void vel_exa_left_pressed(vel_context *ctx) noexcept {
    if (ctx->active_window == 0 ||
        object_at(*ctx, ctx->active_window).window_kind != VEL_WINDOW_FULL) {
        return;
    }
    for (const PressAction &action : press_actions) {
        if (action.button != ctx->window_to_activate) continue;
        if (ctx->frame_mode == VEL_MODE_RESIZE) action.resize(ctx);
        if (ctx->frame_mode == VEL_MODE_SCROLL) action.scroll(ctx);
    }
}

void vel_exa_left_released(vel_context *ctx) noexcept {
    switch (ctx->window_to_activate) {
    case VEL_BUTTON_MOVE:
        vel_move_window(ctx);
        break;
    case VEL_BUTTON_MODE:
        switch_mode(*ctx);
        break;
    case VEL_BUTTON_CLOSE:
        vel_close_win(ctx, 0);
        redraw(*ctx);
        break;
    default:
        break;
    }
}
