// What happens between a press of the left button and its release. For the parts.
#pragma once

#include "input/events.h"

namespace velumo {

// How a press on a part ends.
enum class Press {
    done,    // the part has shown what there was to show
    changed, // the user has changed the part, which the loop returns
    quit,    // the program is closed; the event is waiting again
    end_of_loop
};

// Hands on where the pointer is until the button is released; `rested` is called every 50 ms.
// Other events are dropped. The release is used up.
template <class Moved, class Rested> Press drag(vel_context &ctx, Moved moved, Rested rested) {
    constexpr std::chrono::milliseconds rest_every{50};
    std::chrono::milliseconds next_rest = now() + rest_every;
    consume_event(ctx);
    for (;;) {
        const Polled polled = poll_event(ctx);
        if (polled == Polled::end_of_loop || !has_objects(ctx)) return Press::end_of_loop;
        if (polled == Polled::quit || ctx.event.type == SDL_QUIT) {
            put_quit_back(ctx);
            return Press::quit;
        }
        if (polled == Polled::event) {
            const SDL_Event event = ctx.event;
            consume_event(ctx);
            if (is_left_button(event, Button::released)) {
                moved(i64{event.button.x}, i64{event.button.y});
                return Press::done;
            }
            if (event.type == SDL_MOUSEMOTION) moved(i64{event.motion.x}, i64{event.motion.y});
        } else {
            rest(ctx, rest_every);
        }
        if (now() < next_rest || !has_objects(ctx)) continue;
        next_rest = now() + rest_every;
        rested();
    }
}

} // namespace velumo
