// Which objects keys may reach in a loop, and which of them are answers. For focus, keys and
// titles.
#pragma once

#include "model/traits.h"
#include "model/walk.h"

namespace velumo {

// What a loop waits for.
struct Reach {
    bool is_dialog = false; // nothing outside the active window is reached
    bool selects = false;   // one of the two answers alone ends it
    u32 answers[2] = {0, 0};
    u32 on_enter = 0, on_escape = 0; // answers, and what these keys give
    u32 on_tab = 0;                  // the object that Tab gives while it has the focus
};

bool is_frame_button(u32 number);
// Painted with the desktop, so that it can be reached without a window.
bool is_on_desktop(const vel_context &ctx, u32 number);

// Whether the keyboard presses an object; whether it may also have the focus.
bool is_key_answer(const vel_context &ctx, const Reach &reach, u32 number);
bool can_be_focused(const vel_context &ctx, const Reach &reach, u32 number);
// Whether a press by key or pointer ends the loop with the object.
bool ends_loop(const vel_context &ctx, const Reach &reach, u32 number);

// Visible and enabled: itself, not what contains it.
bool is_reachable(const vel_context &ctx, u32 number);

// An object and then its dependents, depth first, as far as they can be reached. The visitor
// returns whether the walk is over, which is the result.
template <class Visitor>
bool walk_reachable_in(const vel_context &ctx, u32 top, Steps &steps, Visitor visit) {
    if (visit(top)) return true;
    bool is_over = false;
    walk_dependents(ctx, top, steps, [&](u32 number) {
        if (!is_reachable(ctx, number)) return Walk::skip;
        is_over = visit(number);
        return is_over ? Walk::stop : Walk::descend;
    });
    return is_over;
}

// The same for the desktop, without windows and menus.
template <class Visitor>
bool walk_reachable_desktop(const vel_context &ctx, Steps &steps, Visitor visit) {
    for (u32 number = VEL_FRAME_BUTTONS + 1; number <= ctx.object_count; ++number) {
        if (is_on_desktop(ctx, number) && walk_reachable_in(ctx, number, steps, visit)) return true;
    }
    return false;
}

// Where Tab goes: the active window, or the desktop when there is none.
template <class Visitor> bool walk_home(const vel_context &ctx, const Reach &reach, Visitor visit) {
    Steps steps(ctx);
    if (ctx.active_window != 0) return walk_reachable_in(ctx, ctx.active_window, steps, visit);
    return !reach.is_dialog && walk_reachable_desktop(ctx, steps, visit);
}

// Where Alt goes: the active window, then the desktop.
template <class Visitor>
bool walk_everywhere(const vel_context &ctx, const Reach &reach, Visitor visit) {
    Steps steps(ctx);
    const u32 window = ctx.active_window;
    if (window != 0 && walk_reachable_in(ctx, window, steps, visit)) return true;
    return !reach.is_dialog && walk_reachable_desktop(ctx, steps, visit);
}

} // namespace velumo
