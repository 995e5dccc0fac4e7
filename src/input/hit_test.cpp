#include "input/hit_test.h"

#include "model/traits.h"
#include "model/types.h"
#include "model/walk.h"
#include "render/limits.h"

namespace velumo {
namespace {

// On purpose: the outermost pixels of an object belong to none.
Span inner_pixels(u32 start, u32 size) { return between(start, start + size); }

// A click, and the limits of the masters that were looked at.
class Click {
public:
    Click(const vel_context &ctx, i64 x, i64 y) : ctx_(ctx), x_(x), y_(y), masters_(ctx) {}

    bool hits(u32 number) {
        const vel_object &o = object_at(ctx_, number);
        return inner_pixels(o.x, o.width).holds(x_) && inner_pixels(o.y, o.height).holds(y_) &&
               (o.master == 0 || dependent_limits(ctx_, number, limits()).hold(x_, y_));
    }

    u32 innermost_dependent(u32 master) {
        u32 innermost = 0;
        Steps steps(ctx_);
        for (u32 hit = master; (hit = dependent_of(hit)) != 0 && steps.take();) innermost = hit;
        return innermost;
    }
    u32 innermost(u32 number) {
        const u32 dependent = innermost_dependent(number);
        return dependent != 0 ? dependent : number;
    }

private:
    // The first dependent of one level that is hit, or 0.
    u32 dependent_of(u32 number) {
        for (const u32 dependent : dependents_of(object_at(ctx_, number))) {
            const vel_object &o = object_at(ctx_, dependent);
            if (is_drawable(o) && is_enabled(ctx_, dependent) &&
                !border_of(o).lets_clicks_through && hits(dependent)) {
                return dependent;
            }
        }
        return 0;
    }

    NestedLimits &limits() {
        return masters_.limits() == nullptr ? own_limits_ : *masters_.limits();
    }

    const vel_context &ctx_;
    const i64 x_, y_;
    const KnownMasters masters_;
    NestedLimits own_limits_; // in a context without a state
};

u32 hit_frame_button(const vel_context &ctx, Click &click) {
    // On purpose: only loaded buttons are hit, also where a table made by hand shows more.
    const u32 count = std::min<u32>(VEL_FRAME_BUTTONS, ctx.object_count);
    for (u32 number = 1; number <= count; ++number) {
        if (object_at(ctx, number).hidden == 0 && is_enabled(ctx, number) && click.hits(number)) {
            return number;
        }
    }
    return 0;
}

// On purpose: the window with the highest number wins, whatever the stack says, and its dependents
// are not looked at, so that the first click on a background window selects the window itself.
u32 hit_other_window(const vel_context &ctx, Click &click) {
    for (u32 number = ctx.object_count; number > VEL_FRAME_BUTTONS; --number) {
        const vel_object &o = object_at(ctx, number);
        if (o.hidden == 0 && o.type == VEL_TYPE_WINDOW && click.hits(number)) return number;
    }
    return 0;
}

// On purpose: here the lowest number wins.
u32 hit_free_standing(const vel_context &ctx, Click &click) {
    for (u32 number = VEL_FRAME_BUTTONS + 1; number <= ctx.object_count; ++number) {
        const vel_object &o = object_at(ctx, number);
        if (o.hidden == 0 && o.type != VEL_TYPE_WINDOW && o.master == 0 &&
            is_enabled(ctx, number) && click.hits(number)) {
            return click.innermost(number);
        }
    }
    return 0;
}

} // namespace

u32 object_under(const vel_context &ctx, i64 x, i64 y) {
    if (ctx.objects == nullptr) return 0;
    Click click(ctx, x, y);
    if (const u32 button = hit_frame_button(ctx, click)) return button;
    // On purpose: the active window is hit even while it is hidden.
    if (click.hits(ctx.active_window)) return click.innermost(ctx.active_window);
    if (const u32 window = hit_other_window(ctx, click)) return window;
    return hit_free_standing(ctx, click);
}

u32 dependent_under(const vel_context &ctx, u32 master, i64 x, i64 y) {
    return Click(ctx, x, y).innermost_dependent(master);
}

bool is_hit(const vel_context &ctx, u32 number, i64 x, i64 y) {
    return Click(ctx, x, y).hits(number);
}

} // namespace velumo
