// Polling of events and resting when there are none. For every loop of the library.
#pragma once

#include "model/clock.h"
#include "model/objects.h"

namespace velumo {

enum class Polled { event, nothing, end_of_loop, quit };

// Fetches the next event into the context's event and shows it to the event filter. When none is
// waiting, the event stays as it was; selection loops and menus then handle it again. With
// VEL_COMFORT_KEYBOARD every loop ends when the user closes the program.
Polled poll_event(vel_context &ctx);

// For a loop that was ended by that: the one around it, and the program's own, see the event, too.
void put_quit_back(vel_context &ctx);

// A loop begins that the user has not closed the program in.
inline void begin_loop(vel_context &ctx) {
    if (ctx.state != nullptr) ctx.state->quit_requested = false;
}

inline bool was_quit_requested(const vel_context &ctx) {
    return ctx.state != nullptr && ctx.state->quit_requested;
}

// For a loop whose poll found nothing: calls the idle hook and waits for the next event, but no
// longer than the time given.
inline constexpr std::chrono::milliseconds longest_rest{50};
void rest(vel_context &ctx, std::chrono::milliseconds longest = longest_rest);

inline void consume_event(vel_context &ctx) { ctx.event.type = SDL_NOEVENT; }

enum class Button { pressed, released };
bool is_left_button(const SDL_Event &event, Button state);
bool is_middle_press(const SDL_Event &event);

// Hands the context's event to key translation and editor when it comes from the keyboard.
void handle_key_event(vel_context &ctx);

} // namespace velumo
