#include "window/button_actions.h"

#include "render/scene.h"
#include "window/activation.h"
#include "window/frame_actions.h"

namespace velumo {
namespace {

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
    show_all(ctx);
}

struct PressAction {
    u32 button;
    const Axis &axis;
    SizeStep change;
    Towards towards;
};
constexpr PressAction press_actions[] = {
    {VEL_BUTTON_HEIGHT_LESS, vertical, SizeStep::less, Towards::down},
    {VEL_BUTTON_HEIGHT_MORE, vertical, SizeStep::more, Towards::up},
    {VEL_BUTTON_WIDTH_LESS, horizontal, SizeStep::less, Towards::right},
    {VEL_BUTTON_WIDTH_MORE, horizontal, SizeStep::more, Towards::left},
};

} // namespace

void press_frame_button(vel_context &ctx, u32 button) {
    const bool has_full_frame = !names_nothing(ctx, ctx.active_window) &&
                                object_at(ctx, ctx.active_window).window_kind == VEL_WINDOW_FULL;
    if (!has_full_frame) return;
    for (const PressAction &action : press_actions) {
        if (action.button != button) continue;
        if (ctx.frame_mode == VEL_MODE_RESIZE) resize_window(ctx, action.axis, action.change);
        if (ctx.frame_mode == VEL_MODE_SCROLL) scroll_window(ctx, action.towards);
    }
}

void release_frame_button(vel_context &ctx, u32 button) {
    switch (button) {
    case VEL_BUTTON_MOVE:
        move_window(ctx);
        break;
    case VEL_BUTTON_MODE:
        switch_mode(ctx);
        break;
    case VEL_BUTTON_CLOSE:
        close_window(ctx, 0);
        show_all(ctx);
        break;
    default:
        break;
    }
}

void use_frame_button(vel_context &ctx, u32 button) {
    press_frame_button(ctx, button);
    if (button == VEL_BUTTON_MOVE)
        move_window_by_keys(ctx);
    else
        release_frame_button(ctx, button);
    if (has_objects(ctx) && ctx.cursor_object == button && object_at(ctx, button).hidden != 0)
        ctx.cursor_object = 0;
}

} // namespace velumo
