#include "window/selection.h"

#include "input/events.h"
#include "input/hit_test.h"

namespace velumo {
namespace {

// The number under a release of the left button; what was picked before, for other events.
u32 dispatch(vel_context &ctx, u32 picked) {
    handle_key_event(ctx);
    if (!is_left_button(ctx.event, Button::released)) return picked;
    picked = object_under(ctx, ctx.event.button.x, ctx.event.button.y);
    consume_event(ctx);
    return picked;
}

} // namespace

// On purpose: a stop number of 0 ends the loop at once.
u32 select_either(vel_context &ctx, u32 stop_a, u32 stop_b) {
    const auto is_over = [=](u32 picked) {
        return picked == VEL_BUTTON_CLOSE || picked == stop_a || picked == stop_b;
    };
    u32 picked = 0;
    while (!is_over(picked)) {
        const Polled polled = poll_event(ctx);
        if (polled == Polled::end_of_loop) return VEL_BUTTON_CLOSE;
        // Without a new event the last one is handled again.
        picked = dispatch(ctx, picked);
        if (polled == Polled::nothing && !is_over(picked)) rest(ctx);
    }
    return picked;
}

} // namespace velumo
