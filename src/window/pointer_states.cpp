#include "window/pointer_states.h"

#include <new>

#include "input/events.h"
#include "input/hit_test.h"
#include "parts/part.h"
#include "render/geometry.h"
#include "window/focus.h"
#include "window/title.h"

namespace velumo {

// The pointer may already be on an answer.
PointerStates::PointerStates(vel_context &ctx, const Reach &reach) : ctx_(ctx), reach_(reach) {
    if (!has_comfort(ctx, VEL_COMFORT_STATES)) return;
    int x = 0;
    int y = 0;
    SDL_GetMouseState(&x, &y);
    set(answer_under(x, y), 0);
}

PointerStates::~PointerStates() {
    if (ctx_.state != nullptr && has_objects(ctx_)) set(0, 0);
}

void PointerStates::follow_event() {
    if (!has_comfort(ctx_, VEL_COMFORT_STATES) || ctx_.state == nullptr) return;
    const SDL_Event &event = ctx_.event;
    if (event.type == SDL_MOUSEMOTION) {
        set(answer_under(event.motion.x, event.motion.y), ctx_.state->pressed);
    } else if (is_left_button(event, Button::pressed)) {
        const u32 answer = answer_under(event.button.x, event.button.y);
        set(answer, answer);
    } else if (is_left_button(event, Button::released)) {
        set(answer_under(event.button.x, event.button.y), 0);
    }
}

void PointerStates::let_go() {
    if (ctx_.state != nullptr && has_objects(ctx_)) set(ctx_.state->hovered, 0);
}

u32 PointerStates::answer_under(int x, int y) const {
    const u32 number = object_under(ctx_, x, y);
    if (reach_.is_dialog && root_of(ctx_, number) != ctx_.active_window) return 0;
    const bool is_title = !reach_.selects && menu_of_title(ctx_, number) != 0;
    const bool is_stop = reach_.selects && ends_loop(ctx_, reach_, number);
    const u32 part = hovered_part(ctx_, number);
    if (part != 0) return part;
    return is_title || is_stop || is_key_answer(ctx_, reach_, number) ? number : 0;
}

// Without memory nothing shows.
void PointerStates::set(u32 hovered, u32 pressed) try {
    vel_state &state = state_of(ctx_);
    // An answer shows that it is pressed while the pointer is on it, too.
    const auto shown = [&state] { return state.hovered == state.pressed ? state.pressed : 0; };
    const u32 hovered_before = state.hovered, pressed_before = shown();
    state.hovered = hovered;
    state.pressed = pressed;
    if (hovered != hovered_before)
        show_changed(ctx_, hovered_before, hovered);
    else if (shown() != pressed_before)
        show_changed(ctx_, hovered, 0);
} catch (const std::bad_alloc &) {
}

} // namespace velumo
