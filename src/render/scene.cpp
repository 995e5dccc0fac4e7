// What is drawn, and in which order: whole screens, windows and the dependents of an object.
#include "render/geometry.h"
#include "render/paint.h"
#include "render/primitives.h"
#include "render/rect.h"

namespace velumo {
namespace {

void format(vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    if (!has_area(o)) return;
    switch (o.type) {
    case VEL_TYPE_CHAIN:
        if (o.master == 0) vel_format_stream_to_linked_objects(&ctx, number);
        break;
    case VEL_TYPE_WINDOW:
    case VEL_TYPE_TEXT:
        vel_format_object_text(&ctx, number);
        break;
    case VEL_TYPE_LABEL:
    case VEL_TYPE_ENTRY:
    case VEL_TYPE_NUMBER:
        vel_format_small_obj(&ctx, number);
        break;
    default:
        break;
    }
}

bool shows_cursor(const vel_context &ctx, u32 number) {
    const u32 type = object_at(ctx, number).type;
    return number == ctx.cursor_object &&
           (type == VEL_TYPE_WINDOW || type == VEL_TYPE_TEXT || type == VEL_TYPE_ENTRY ||
            type == VEL_TYPE_NUMBER || type == VEL_TYPE_CHAIN);
}

void paint_with_cursor(vel_context &ctx, u32 number) {
    vel_evoke_object(&ctx, number);
    if (shows_cursor(ctx, number)) vel_draw_cursor(&ctx, number);
}

// On purpose: top-level windows and top-level texts are not painted here.
bool stands_on_desktop(const vel_object &o) {
    return is_drawable(o) && o.master == 0 && o.type != VEL_TYPE_EMPTY &&
           o.type != VEL_TYPE_WINDOW && o.type != VEL_TYPE_TEXT;
}

void draw_desktop(vel_context &ctx) {
    for (u32 number = VEL_FRAME_BUTTONS + 1; number <= ctx.object_count; ++number) {
        if (!stands_on_desktop(object_at(ctx, number))) continue;
        paint_with_cursor(ctx, number);
        vel_draw_dep_objs(&ctx, number);
    }
}

// The windows under the top of the stack, from the bottom up.
void draw_background_windows(vel_context &ctx) {
    for (u32 entry = std::min<u32>(ctx.window_count, VEL_MAX_WINDOWS); entry > 1; --entry) {
        const u32 number = ctx.window_stack[entry - 1];
        if (number == 0 || number == ctx.active_window) continue;
        const vel_object &o = object_at(ctx, number);
        if (o.type != VEL_TYPE_WINDOW || !is_drawable(o)) continue;
        vel_evoke_object(&ctx, number);
        vel_draw_dep_objs(&ctx, number);
    }
}

void draw_active_window(vel_context &ctx) {
    const u32 window = ctx.active_window;
    if (window == 0 || ctx.window_stack[0] == 0 || object_at(ctx, window).hidden != 0) return;
    vel_evoke_object(&ctx, window);
    vel_draw_selected_box(&ctx, window);
    vel_draw_selected_lines(&ctx, window);
    if (shows_cursor(ctx, window)) vel_draw_cursor(&ctx, window);
    vel_draw_dep_objs(&ctx, window);
}

void draw_frame_buttons(vel_context &ctx) {
    for (u32 button = 1; button <= frame_button_count(ctx); ++button) {
        if (object_at(ctx, button).hidden == 0) vel_evoke_object(&ctx, button);
    }
}

bool is_fitted(const vel_object &o) {
    return o.border_style == VEL_BORDER_FITTED || o.border_style == VEL_BORDER_FRAME_FITTED ||
           o.border_style == VEL_BORDER_SHADOW_FITTED;
}

// Makes an object cover its master's inner area and the master's border inset around it.
void fit(vel_object &o, const vel_object &master, const Axis &axis) {
    const u32 inset = master.border_inset;
    o.*axis.position = master.*axis.position + master.*axis.margin_before - inset;
    o.*axis.size =
        master.*axis.size - master.*axis.margin_before - master.*axis.margin_after + 2 * inset;
}

bool overlaps(const vel_object &o, Span limits, const Axis &axis) {
    const u32 first = o.*axis.position;
    return overlap_of(limits, first, first + o.*axis.size - 1).any();
}

bool shows_inside_masters(const vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    const Limits limits = dependent_limits(ctx, number);
    return overlaps(o, limits.x, horizontal) && overlaps(o, limits.y, vertical);
}

} // namespace
} // namespace velumo

using namespace velumo;

uint32_t vel_draw_all_objects(vel_context *ctx, uint32_t format_first, uint32_t refresh) noexcept {
    if (format_first == 1) {
        for (u32 number = 1; number <= ctx->object_count; ++number) format(*ctx, number);
    }
    draw_desktop(*ctx);
    draw_background_windows(*ctx);
    draw_active_window(*ctx);
    draw_frame_buttons(*ctx);
    if (refresh == 1) update_display(*ctx, ctx->screen_rect);
    return 1;
}

void vel_draw_dep_objs(vel_context *ctx, uint32_t object) noexcept {
    if (!has_dependents(object_at(*ctx, object))) return;
    vel_switch_dep_object(ctx, object);
    walk_dependents(*ctx, object, [ctx](u32 number) {
        const vel_object &o = object_at(*ctx, number);
        if (!is_drawable(o)) return Walk::skip;
        paint_with_cursor(*ctx, number);
        if (!has_dependents(o)) return Walk::skip;
        vel_switch_dep_object(ctx, number);
        return Walk::descend;
    });
}

void vel_switch_dep_object(vel_context *ctx, uint32_t object) noexcept {
    const vel_object &master = object_at(*ctx, object);
    for (const u32 number : dependents_of(master)) {
        vel_object &o = object_at(*ctx, number);
        if (is_fitted(o) && object != 0) {
            fit(o, master, horizontal);
            fit(o, master, vertical);
        }
        if (has_area(o) && o.type != VEL_TYPE_MENU) {
            o.hidden = shows_inside_masters(*ctx, number) ? 0 : 1;
        }
    }
}

void vel_draw_selected_window(vel_context *ctx) noexcept {
    const u32 window = ctx->active_window;
    if (window != 0) {
        vel_evoke_object(ctx, window);
        // On purpose: here the cursor is drawn whatever the window's type.
        if (window == ctx->cursor_object) vel_draw_cursor(ctx, window);
        vel_draw_dep_objs(ctx, window);
    }
    draw_frame_buttons(*ctx);
}

void vel_draw_and_screenup_selected_window(vel_context *ctx) noexcept {
    vel_draw_selected_window(ctx);
    if (ctx->active_window == 0) return;
    const vel_object &o = object_at(*ctx, ctx->active_window);
    update_display(*ctx,
                   sdl_rect(o.x, o.y, cut_size(*ctx, o, horizontal), cut_size(*ctx, o, vertical)));
}

void vel_undraw_object(vel_context *ctx, uint32_t object) noexcept {
    vel_object &o = object_at(*ctx, object);
    keep_window_on_screen(o);
    draw_box(*ctx, o.x, o.y, o.width, o.height, ctx->background_colour);
}
