#include "input/events.h"

#include <SDL_syswm.h>
#include <new>
#include <poll.h>

#include "clipboard/clipboard.h"
#include "input/caret.h"
#include "input/editor.h"
#include "input/keyboard.h"
#include "input/keys.h"
#include "input/text_cursor.h"
#include "model/traits.h"
#include "render/display.h"

namespace velumo {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds quiet_after{1000};
constexpr milliseconds nap_while_busy{1};
constexpr milliseconds nap_while_quiet{10};

// Descriptor of the connection to the X server; -1 with other drivers.
int x_connection() {
#if defined(SDL_VIDEO_DRIVER_X11)
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    if (SDL_GetVideoSurface() != nullptr && SDL_GetWMInfo(&info) == 1 &&
        info.subsystem == SDL_SYSWM_X11) {
        return ConnectionNumber(info.info.x11.display);
    }
#endif
    return -1;
}

// Without a display nothing ever comes, and without objects there is nothing that it could be for.
// A filter or an idle hook may have closed the context.
bool is_over(const vel_context &ctx) {
    return !has_objects(ctx) || SDL_WasInit(SDL_INIT_VIDEO) == 0;
}

bool event_is_waiting() {
    SDL_Event event;
    SDL_PumpEvents();
    return SDL_PeepEvents(&event, 1, SDL_PEEKEVENT, SDL_ALLEVENTS) > 0;
}

// Of several sizes that wait, only the last one counts.
void join_sizes(SDL_Event &event) {
    SDL_Event later;
    while (SDL_PeepEvents(&later, 1, SDL_GETEVENT, SDL_VIDEORESIZEMASK) > 0) event = later;
}

bool follows_display(const vel_context &ctx) {
    return ctx.event.type == SDL_VIDEORESIZE && ctx.state != nullptr &&
           ctx.state->follow_display != nullptr;
}

// Something covered the display and is gone; what it showed is still on the surface.
void show_again(const vel_context &ctx) {
    if (ctx.screen == nullptr) return;
    update_display(ctx,
                   {0, 0, static_cast<Uint16>(ctx.screen->w), static_cast<Uint16>(ctx.screen->h)});
}

// Without memory for it the loop only rests longer.
void note_event(vel_context &ctx) try {
    state_of(ctx).last_event = now();
} catch (const std::bad_alloc &) {
}

milliseconds nap_length(const vel_context &ctx) {
    const bool is_busy = ctx.state != nullptr && now() - ctx.state->last_event < quiet_after;
    return is_busy ? nap_while_busy : nap_while_quiet;
}

} // namespace

Polled poll_event(vel_context &ctx) {
    if (is_over(ctx)) return Polled::end_of_loop;
    if (has_comfort(ctx, VEL_COMFORT_TYPING)) use_layout();
    serve_clipboard(ctx);
    if (SDL_PollEvent(&ctx.event) == 0) return Polled::nothing;
    note_event(ctx);
    if (ctx.event.type == SDL_VIDEOEXPOSE) show_again(ctx);
    if (follows_display(ctx)) join_sizes(ctx.event);
    u32 verdict = VEL_FILTER_PASS;
    if (ctx.event_filter != nullptr) verdict = ctx.event_filter(&ctx, &ctx.event);
    if (verdict != VEL_FILTER_PASS) consume_event(ctx);
    if (verdict == VEL_FILTER_END_LOOP || is_over(ctx)) return Polled::end_of_loop;
    if (follows_display(ctx)) {
        ctx.state->follow_display(ctx, ctx.event.resize.w, ctx.event.resize.h);
    }
    if (ctx.event.type != SDL_QUIT || !has_comfort(ctx, VEL_COMFORT_KEYBOARD)) return Polled::event;
    if (ctx.state != nullptr) ctx.state->quit_requested = true;
    return Polled::quit;
}

void put_quit_back(vel_context &ctx) {
    SDL_PushEvent(&ctx.event);
    consume_event(ctx);
}

void rest(vel_context &ctx, milliseconds longest) {
    if (end_flash(ctx)) show_object(ctx, ctx.cursor_object);
    if (ctx.idle_hook != nullptr) {
        ctx.idle_hook(&ctx);
        // Drawing in the hook may have read events from the connection already.
        if (event_is_waiting()) return;
    }
    // Those that are -1 are left out.
    pollfd connections[] = {{x_connection(), POLLIN, 0}, {clipboard_connection(ctx), POLLIN, 0}};
    const bool has_connection = connections[0].fd >= 0;
    const milliseconds length = std::min(has_connection ? longest_rest : nap_length(ctx), longest);
    ::poll(connections, std::size(connections), static_cast<int>(length.count()));
    serve_clipboard(ctx);
}

bool is_left_button(const SDL_Event &event, Button state) {
    const bool pressed = state == Button::pressed;
    return event.type == (pressed ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP) &&
           event.button.button == SDL_BUTTON_LEFT &&
           event.button.state == (pressed ? SDL_PRESSED : SDL_RELEASED);
}

bool is_middle_press(const SDL_Event &event) {
    return event.type == SDL_MOUSEBUTTONDOWN && event.button.button == SDL_BUTTON_MIDDLE;
}

void handle_key_event(vel_context &ctx) {
    switch (ctx.event.type) {
    case SDL_KEYDOWN:
        translate_key_press(ctx);
        if (has_comfort(ctx, VEL_COMFORT_TYPING)) edit_text(ctx);
        break;
    case SDL_KEYUP:
        deliver_key(ctx);
        edit_text(ctx);
        break;
    default:
        break;
    }
}

} // namespace velumo
