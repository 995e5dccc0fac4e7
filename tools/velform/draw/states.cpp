#include "draw/states.h"

namespace velform {
namespace {

// The lower right corner of an object, where a part has no pieces.
SDL_Event event_on(const vel_object &object, Uint8 type) {
    const auto x = static_cast<Uint16>(object.x + object.width - 2);
    const auto y = static_cast<Uint16>(object.y + object.height - 2);
    SDL_Event event{};
    event.type = type;
    if (type == SDL_MOUSEMOTION) {
        event.motion.x = x, event.motion.y = y;
    } else {
        event.button.button = SDL_BUTTON_LEFT;
        event.button.state = SDL_PRESSED;
        event.button.x = x, event.button.y = y;
    }
    return event;
}

void push(SDL_Event event) { SDL_PushEvent(&event); }

void show(vel_context &ctx, const ObjectState &state) {
    const vel_object &object = ctx.objects[state.object];
    switch (state.state) {
    case State::focus:
        ctx.cursor_object = state.object;
        break;
    case State::disabled:
        vel_set_enabled(&ctx, state.object, 0);
        break;
    case State::pressed:
    case State::hover:
        push(event_on(object, SDL_MOUSEMOTION));
        if (state.state == State::pressed) push(event_on(object, SDL_MOUSEBUTTONDOWN));
        break;
    }
}

// Of a loop that has no events left: keeps the picture and ends the loop.
struct Photograph {
    Surface picture;

    static void take(vel_context *ctx) {
        Surface &picture = static_cast<Photograph *>(ctx->application_a[0])->picture;
        try {
            if (picture == nullptr) picture = copy_of(*ctx->screen);
        } catch (const std::bad_alloc &) {
        }
        SDL_Event end{};
        end.type = SDL_QUIT;
        push(end);
    }
};

} // namespace

Surface drawn_with_states(vel_context &ctx, std::span<const ObjectState> states) {
    SDL_Event of_display;
    while (SDL_PollEvent(&of_display) != 0) continue;
    for (const ObjectState &state : states) show(ctx, state);
    vel_draw_all_objects(&ctx, 1, 0);
    // What is under the pointer shows only while a loop runs.
    Photograph photograph;
    ctx.application_a[0] = &photograph;
    ctx.idle_hook = Photograph::take;
    vel_wait_for_object(&ctx);
    return photograph.picture == nullptr ? copy_of(*ctx.screen) : std::move(photograph.picture);
}

} // namespace velform
