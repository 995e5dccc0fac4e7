#include "window/frame_actions.h"

#include <optional>

#include "input/event_key.h"
#include "input/events.h"
#include "model/following.h"
#include "parts/list.h"
#include "render/marks.h"
#include "render/scene.h"
#include "window/anchors.h"
#include "window/frame_buttons.h"

namespace velumo {
namespace {

constexpr u32 resize_step = 4;
// On purpose: the size is compared before the step, so a window may end up to 3 pixels smaller.
constexpr u32 no_shrinking_from = 20;
constexpr u32 screen_margin = 50;
constexpr u32 screens_to_scroll = 5;
constexpr i64 key_step = 8;
constexpr i64 small_key_step = 1;
constexpr i64 corner_in_sight = 20; // pixels of a window that stay on the screen

// Drops all events up to the one wanted. False when the filter or the user's closing the program
// ends the loop.
template <class Wanted> bool wait_for(vel_context &ctx, Wanted is_wanted) {
    for (;;) {
        switch (poll_event(ctx)) {
        case Polled::end_of_loop:
            return false;
        case Polled::quit:
            put_quit_back(ctx);
            return false;
        case Polled::nothing:
            rest(ctx);
            break;
        case Polled::event:
            if (is_wanted(ctx.event)) return true;
            break;
        }
    }
}

bool wait_for_press(vel_context &ctx) {
    return wait_for(ctx,
                    [](const SDL_Event &event) { return is_left_button(event, Button::pressed); });
}

std::optional<SDL_keysym> wait_for_key(vel_context &ctx) {
    if (!wait_for(ctx, [](const SDL_Event &event) { return event.type == SDL_KEYDOWN; })) return {};
    const SDL_keysym key = key_of(ctx.event);
    consume_event(ctx);
    return key;
}

void move_to(vel_context &ctx, u32 x, u32 y) {
    vel_object &o = object_at(ctx, ctx.active_window);
    const Shift by{std::max(x, horizontal.window_start) - o.x,
                   std::max(y, vertical.window_start) - o.y};
    shift_object(o, by);
    if (o.editable == 1) shift_cursor(o, by);
    follow_move(ctx, ctx.active_window, by);
}

struct KeySteps {
    i64 x, y;
};

KeySteps steps_of(const SDL_keysym &key) {
    const i64 step = (key.mod & KMOD_SHIFT) != 0 ? small_key_step : key_step;
    switch (key.sym) {
    case SDLK_LEFT:
        return {-step, 0};
    case SDLK_RIGHT:
        return {step, 0};
    case SDLK_UP:
        return {0, -step};
    case SDLK_DOWN:
        return {0, step};
    default:
        return {0, 0};
    }
}

u32 place_after(const vel_context &ctx, const vel_object &o, i64 step, const Axis &axis) {
    return as_field(place_in_sight(ctx, as_signed(o.*axis.position) + step, axis));
}

void move_by_key(vel_context &ctx, const SDL_keysym &key) {
    const vel_object &o = object_at(ctx, ctx.active_window);
    const KeySteps steps = steps_of(key);
    if (steps.x == 0 && steps.y == 0) return;
    show_moved(ctx, place_after(ctx, o, steps.x, horizontal),
               place_after(ctx, o, steps.y, vertical));
}

struct Scroll {
    const Axis &axis;
    Direction contents;
    Direction own_cursor;
};

Scroll scroll_of(Towards towards) {
    switch (towards) {
    case Towards::right:
        return {horizontal, Direction::forward, Direction::forward};
    case Towards::left:
        // On purpose: here alone the window's own cursor moves against its contents.
        return {horizontal, Direction::back, Direction::forward};
    case Towards::down:
        return {vertical, Direction::forward, Direction::forward};
    case Towards::up:
        break;
    }
    return {vertical, Direction::back, Direction::back};
}

// On purpose: the range is lopsided, from one range back to two on.
bool may_scroll(const vel_context &ctx, const vel_object &o, const Scroll &scroll) {
    const i32 offset = as_signed(o.*scroll.axis.scroll);
    const u32 range = o.*scroll.axis.scroll_max;
    const u32 screens = screens_to_scroll * ctx.*scroll.axis.screen_size;
    if (scroll.contents == Direction::forward) {
        return offset < as_signed(range == 0 ? screens : 2 * range);
    }
    return offset > as_signed(0 - (range == 0 ? screens : range));
}

bool scroll_lists_in_window(vel_context &ctx, Towards towards) {
    const bool is_vertical = towards == Towards::up || towards == Towards::down;
    return is_vertical && scroll_lists(ctx, ctx.active_window,
                                       towards == Towards::down ? ListEnd::first : ListEnd::last);
}

} // namespace

void show_moved(vel_context &ctx, u32 x, u32 y) {
    erase_object(ctx, ctx.active_window);
    erase_frame_before_move(ctx, ctx.active_window);
    move_to(ctx, x, y);
    place_frame_buttons(ctx);
    show_all(ctx);
}

void show_resized(vel_context &ctx, i64 wider, i64 higher) {
    erase_object(ctx, ctx.active_window);
    erase_frame_before_move(ctx, ctx.active_window);
    stretch(ctx, ctx.active_window, {{0, wider}, {0, higher}});
    place_frame_buttons(ctx);
    show_all(ctx);
}

i64 place_in_sight(const vel_context &ctx, i64 place, const Axis &axis) {
    const i64 last = std::max<i64>(i64{ctx.*axis.screen_size} - corner_in_sight, axis.window_start);
    return std::clamp<i64>(place, axis.window_start, last);
}

void resize_window(vel_context &ctx, const Axis &axis, SizeStep change) {
    if (names_nothing(ctx, ctx.active_window)) return;
    u32 &size = object_at(ctx, ctx.active_window).*axis.size;
    erase_marks(ctx, ctx.active_window);
    erase_object(ctx, ctx.active_window);
    const u32 before = size;
    if (change == SizeStep::more && size < ctx.*axis.screen_size - screen_margin)
        size += resize_step;
    if (change == SizeStep::less && size > no_shrinking_from) size -= resize_step;
    const Change by{0, i64{size} - before};
    stretch_dependents(ctx, ctx.active_window,
                       &axis == &horizontal ? Stretch{by, {}} : Stretch{{}, by});
    // On purpose: the redraw comes also when a limit refuses the change.
    show_all(ctx);
}

void move_window(vel_context &ctx) {
    begin_loop(ctx);
    if (names_nothing(ctx, ctx.active_window) || !wait_for_press(ctx)) return;
    const u32 x = ctx.event.button.x;
    const u32 y = ctx.event.button.y;
    show_moved(ctx, x, y);
}

void move_window_by_keys(vel_context &ctx) {
    if (names_nothing(ctx, ctx.active_window)) return;
    const u32 x = object_at(ctx, ctx.active_window).x;
    const u32 y = object_at(ctx, ctx.active_window).y;
    begin_loop(ctx);
    while (const auto key = wait_for_key(ctx)) {
        if (key->sym == SDLK_RETURN || key->sym == SDLK_KP_ENTER) return;
        if (key->sym == SDLK_ESCAPE) {
            show_moved(ctx, x, y);
            return;
        }
        move_by_key(ctx, *key);
    }
}

void scroll_window(vel_context &ctx, Towards towards) {
    if (names_nothing(ctx, ctx.active_window)) return;
    if (!scroll_lists_in_window(ctx, towards)) {
        const Scroll scroll = scroll_of(towards);
        vel_object &o = object_at(ctx, ctx.active_window);
        if (!may_scroll(ctx, o, scroll)) return;
        step(o.*scroll.axis.scroll, scroll.contents, ctx.scroll_step);
        if (o.editable == 1) step(o.*scroll.axis.cursor, scroll.own_cursor, ctx.scroll_step);
        follow_scroll(ctx, ctx.active_window, {scroll.axis, scroll.contents, ctx.scroll_step});
    }
    show_active_window(ctx);
}

} // namespace velumo
