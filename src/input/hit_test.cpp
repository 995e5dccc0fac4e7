// Which object lies under a point.
#include "render/geometry.h"

namespace velumo {
namespace {

// On purpose: objects with these borders let clicks through to what lies under them.
bool lets_clicks_through(const vel_object &o) {
    return o.border_style == VEL_BORDER_FITTED || o.border_style == VEL_BORDER_FRAME_FITTED;
}

bool is_hit(const vel_context &ctx, u32 number, u32 x, u32 y) {
    return vel_in_object(&ctx, number, as_signed(x), as_signed(y)) == 1;
}

u32 innermost_hit(const vel_context &ctx, u32 number, u32 x, u32 y) {
    const u32 dependent = vel_test_dep_objs(&ctx, number, x, y);
    return dependent != 0 ? dependent : number;
}

// The first dependent of one level that is hit, or 0.
u32 hit_dependent(const vel_context &ctx, u32 number, u32 x, u32 y) {
    for (const u32 dependent : dependents_of(object_at(ctx, number))) {
        const vel_object &o = object_at(ctx, dependent);
        if (is_drawable(o) && !lets_clicks_through(o) && is_hit(ctx, dependent, x, y)) {
            return dependent;
        }
    }
    return 0;
}

u32 hit_frame_button(const vel_context &ctx, u32 x, u32 y) {
    const u32 count = std::min<u32>(VEL_FRAME_BUTTONS, ctx.object_count);
    for (u32 number = 1; number <= count; ++number) {
        if (object_at(ctx, number).hidden == 0 && is_hit(ctx, number, x, y)) return number;
    }
    return 0;
}

// On purpose: the window with the highest number wins, whatever the stack says, and its dependents
// are not looked at, so that the first click on a window behind selects the window itself.
u32 hit_other_window(const vel_context &ctx, u32 x, u32 y) {
    for (u32 number = ctx.object_count; number > VEL_FRAME_BUTTONS; --number) {
        const vel_object &o = object_at(ctx, number);
        if (o.hidden == 0 && o.type == VEL_TYPE_WINDOW && is_hit(ctx, number, x, y)) return number;
    }
    return 0;
}

// On purpose: here the lowest number wins.
u32 hit_free_standing(const vel_context &ctx, u32 x, u32 y) {
    for (u32 number = VEL_FRAME_BUTTONS + 1; number <= ctx.object_count; ++number) {
        const vel_object &o = object_at(ctx, number);
        if (o.hidden == 0 && o.type != VEL_TYPE_WINDOW && o.master == 0 &&
            is_hit(ctx, number, x, y)) {
            return innermost_hit(ctx, number, x, y);
        }
    }
    return 0;
}

bool lies_inside(u32 start, u32 size, i32 coordinate) {
    return as_signed(start) < coordinate && coordinate < as_signed(start + size);
}

} // namespace
} // namespace velumo

using namespace velumo;

uint32_t vel_test_all_objects(const vel_context *ctx, uint32_t x, uint32_t y) noexcept {
    if (ctx->objects == nullptr) return 0;
    if (const u32 button = hit_frame_button(*ctx, x, y)) return button;
    // On purpose: the active window is hit even while it is hidden.
    if (is_hit(*ctx, ctx->active_window, x, y)) {
        return innermost_hit(*ctx, ctx->active_window, x, y);
    }
    if (const u32 window = hit_other_window(*ctx, x, y)) return window;
    return hit_free_standing(*ctx, x, y);
}

uint32_t vel_test_dep_objs(const vel_context *ctx, uint32_t object, uint32_t x,
                           uint32_t y) noexcept {
    u32 innermost = 0;
    for (u32 hit = object; (hit = hit_dependent(*ctx, hit, x, y)) != 0;) innermost = hit;
    return innermost;
}

uint32_t vel_in_object(const vel_context *ctx, uint32_t object, int32_t x, int32_t y) noexcept {
    const vel_object &o = object_at(*ctx, object);
    if (o.master != 0 &&
        !dependent_limits(*ctx, object).hold(static_cast<u32>(x), static_cast<u32>(y))) {
        return 0;
    }
    // On purpose: the outermost pixels of an object belong to none.
    return lies_inside(o.x, o.width, x) && lies_inside(o.y, o.height, y) ? 1 : 0;
}
