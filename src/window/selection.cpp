#include "window/selection.h"

#include "input/events.h"
#include "input/hit_test.h"
#include "input/text_mouse.h"
#include "parts/part.h"
#include "parts/tip.h"
#include "window/dragging.h"
#include "window/key_meaning.h"
#include "window/pointer_states.h"
#include "window/wheel.h"

namespace velumo {
namespace {

// What a key gives; what was picked before, for other events.
u32 follow_key(vel_context &ctx, const Reach &reach, HeldKeys &held, u32 picked) {
    const KeyMeaning meaning = meaning_of_key(ctx, reach, held);
    if (meaning.kind == KeyMeaning::Kind::none) {
        edit_by_key(ctx);
        return picked;
    }
    consume_event(ctx);
    if (meaning.kind == KeyMeaning::Kind::over) return VEL_BUTTON_CLOSE;
    return meaning.object != 0 ? meaning.object : picked;
}

// In a text. A release that selects nothing is then the context's event.
TextPress follow_press(vel_context &ctx) {
    if (!has_comfort(ctx, VEL_COMFORT_TYPING)) return TextPress::elsewhere;
    const bool is_left = is_left_button(ctx.event, Button::pressed);
    if (!is_left && !is_middle_press(ctx.event)) return TextPress::elsewhere;
    const u32 under = object_under(ctx, ctx.event.button.x, ctx.event.button.y);
    consume_event(ctx);
    if (is_left) return press_in_text(ctx, under);
    paste_in_text(ctx, under);
    return TextPress::elsewhere;
}

// On a part. It is changed where it is, and the loop goes on.
TextPress follow_press_on_part(vel_context &ctx) {
    if (!is_left_button(ctx.event, Button::pressed)) return TextPress::elsewhere;
    const u32 under = object_under(ctx, ctx.event.button.x, ctx.event.button.y);
    const u32 part = part_at(ctx, under);
    if (part == 0) return TextPress::elsewhere;
    const Press end = press_part(ctx, part, under);
    if (end == Press::quit) return TextPress::quit;
    return end == Press::end_of_loop ? TextPress::end_of_loop : TextPress::selected;
}

// On the active window, which follows the pointer.
TextPress follow_drag(vel_context &ctx) {
    if (!is_left_button(ctx.event, Button::pressed)) return TextPress::elsewhere;
    return drag_window(ctx, object_under(ctx, ctx.event.button.x, ctx.event.button.y));
}

// The number under a release of the left button; what was picked before, for other events.
u32 dispatch(vel_context &ctx, const Reach &reach, HeldKeys &held, u32 picked) {
    picked = follow_key(ctx, reach, held, picked);
    TextPress press = follow_press_on_part(ctx);
    if (press == TextPress::elsewhere) press = follow_drag(ctx);
    if (press == TextPress::elsewhere) press = follow_press(ctx);
    if (press == TextPress::end_of_loop) return VEL_BUTTON_CLOSE;
    if (!is_left_button(ctx.event, Button::released)) return picked;
    picked = object_under(ctx, ctx.event.button.x, ctx.event.button.y);
    consume_event(ctx);
    return picked;
}

} // namespace

// On purpose: a stop number of 0 ends the loop at once.
u32 select_either(vel_context &ctx, const Reach &reach) {
    const auto is_over = [&](u32 picked) {
        return picked == VEL_BUTTON_CLOSE || ends_loop(ctx, reach, picked);
    };
    if (is_over(0)) return 0;
    begin_loop(ctx);
    PointerStates pointer(ctx, reach);
    Tips tips(ctx);
    HeldKeys held;
    u32 picked = 0;
    while (!is_over(picked)) {
        const Polled polled = poll_event(ctx);
        if (polled == Polled::end_of_loop) return VEL_BUTTON_CLOSE;
        if (polled == Polled::quit) {
            put_quit_back(ctx);
            return 0;
        }
        tips.follow(polled);
        if (polled == Polled::event) {
            if (scroll_by_wheel(ctx, reach)) continue;
            pointer.follow_event();
        }
        // Without a new event the last one is handled again.
        picked = dispatch(ctx, reach, held, picked);
        if (polled == Polled::nothing && !is_over(picked)) rest(ctx);
    }
    return picked;
}

} // namespace velumo
