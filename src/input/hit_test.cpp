#include "input/hit_test.h"

#include "model/traits.h"
#include "model/types.h"
#include "render/geometry.h"

namespace velumo {
namespace {

u32 innermost_hit(const vel_context &ctx, u32 number, i64 x, i64 y) {
    const u32 dependent = dependent_under(ctx, number, x, y);
    return dependent != 0 ? dependent : number;
}

// The first dependent of one level that is hit, or 0.
u32 hit_dependent(const vel_context &ctx, u32 number, i64 x, i64 y) {
    for (const u32 dependent : dependents_of(object_at(ctx, number))) {
        const vel_object &o = object_at(ctx, dependent);
        if (is_drawable(o) && is_enabled(ctx, dependent) && !border_of(o).lets_clicks_through &&
            is_hit(ctx, dependent, x, y)) {
            return dependent;
        }
    }
    return 0;
}

u32 hit_frame_button(const vel_context &ctx, i64 x, i64 y) {
    // On purpose: only loaded buttons are hit, also where a table made by hand shows more.
    const u32 count = std::min<u32>(VEL_FRAME_BUTTONS, ctx.object_count);
    for (u32 number = 1; number <= count; ++number) {
        if (object_at(ctx, number).hidden == 0 && is_enabled(ctx, number) &&
            is_hit(ctx, number, x, y)) {
            return number;
        }
    }
    return 0;
}

// On purpose: the window with the highest number wins, whatever the stack says, and its dependents
// are not looked at, so that the first click on a background window selects the window itself.
u32 hit_other_window(const vel_context &ctx, i64 x, i64 y) {
    for (u32 number = ctx.object_count; number > VEL_FRAME_BUTTONS; --number) {
        const vel_object &o = object_at(ctx, number);
        if (o.hidden == 0 && o.type == VEL_TYPE_WINDOW && is_hit(ctx, number, x, y)) return number;
    }
    return 0;
}

// On purpose: here the lowest number wins.
u32 hit_free_standing(const vel_context &ctx, i64 x, i64 y) {
    for (u32 number = VEL_FRAME_BUTTONS + 1; number <= ctx.object_count; ++number) {
        const vel_object &o = object_at(ctx, number);
        if (o.hidden == 0 && o.type != VEL_TYPE_WINDOW && o.master == 0 &&
            is_enabled(ctx, number) && is_hit(ctx, number, x, y)) {
            return innermost_hit(ctx, number, x, y);
        }
    }
    return 0;
}

// On purpose: the outermost pixels of an object belong to none.
Span inner_pixels(u32 start, u32 size) { return between(start, start + size); }

} // namespace

u32 object_under(const vel_context &ctx, i64 x, i64 y) {
    if (ctx.objects == nullptr) return 0;
    if (const u32 button = hit_frame_button(ctx, x, y)) return button;
    // On purpose: the active window is hit even while it is hidden.
    if (is_hit(ctx, ctx.active_window, x, y)) return innermost_hit(ctx, ctx.active_window, x, y);
    if (const u32 window = hit_other_window(ctx, x, y)) return window;
    return hit_free_standing(ctx, x, y);
}

u32 dependent_under(const vel_context &ctx, u32 master, i64 x, i64 y) {
    u32 innermost = 0;
    for (u32 hit = master; (hit = hit_dependent(ctx, hit, x, y)) != 0;) innermost = hit;
    return innermost;
}

bool is_hit(const vel_context &ctx, u32 number, i64 x, i64 y) {
    const vel_object &o = object_at(ctx, number);
    if (o.master != 0 && !dependent_limits(ctx, number).hold(x, y)) return false;
    return inner_pixels(o.x, o.width).holds(x) && inner_pixels(o.y, o.height).holds(y);
}

} // namespace velumo
