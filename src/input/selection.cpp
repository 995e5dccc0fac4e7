// The loops that wait until the user picks one of a few objects.
#include "input/events.h"

namespace velumo {
namespace {

// The number under a release of the left button; what was picked before, for other events.
u32 dispatch(vel_context &ctx, u32 picked) {
    handle_key_event(ctx);
    if (!is_left_button(ctx.event, Button::released)) return picked;
    picked = vel_test_all_objects(&ctx, ctx.event.button.x, ctx.event.button.y);
    consume_event(ctx);
    return picked;
}

// On purpose: the close button ends a loop whatever it waits for, and a stop number of 0 ends it at
// once.
template <class IsStop> u32 select(vel_context &ctx, IsStop is_stop) {
    const auto is_over = [&](u32 picked) { return picked == VEL_BUTTON_CLOSE || is_stop(picked); };
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

} // namespace
} // namespace velumo

using namespace velumo;

uint32_t vel_get_mouse_selection(vel_context *ctx, int32_t stop_a, int32_t stop_b) noexcept {
    return select(*ctx, [=](u32 picked) {
        return as_signed(picked) == stop_a || as_signed(picked) == stop_b;
    });
}

uint32_t vel_get_mono_mouse_selection(vel_context *ctx, int32_t stop) noexcept {
    return select(*ctx, [=](u32 picked) { return as_signed(picked) == stop; });
}
