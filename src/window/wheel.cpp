#include "window/wheel.h"

#include "input/events.h"
#include "input/hit_test.h"
#include "model/types.h"
#include "model/walk.h"
#include "parts/part.h"
#include "parts/scroll_bar.h"
#include "parts/scrolling.h"
#include "render/geometry.h"
#include "render/scene.h"

namespace velumo {
namespace {

bool is_wheel(const SDL_Event &event) {
    return (event.type == SDL_MOUSEBUTTONDOWN || event.type == SDL_MOUSEBUTTONUP) &&
           (event.button.button == SDL_BUTTON_WHEELUP ||
            event.button.button == SDL_BUTTON_WHEELDOWN);
}

// The object under the pointer as it is seen: of background windows the one in front counts, with
// its dependents.
u32 object_seen_under(const vel_context &ctx, i64 x, i64 y) {
    const u32 number = object_under(ctx, x, y);
    if (number == ctx.active_window || !is_top_level_window(object_at(ctx, number))) return number;
    for (u32 entry = 0; entry < std::min<u32>(ctx.window_count, VEL_MAX_WINDOWS); ++entry) {
        const u32 window = ctx.window_stack[entry];
        if (window == 0 || object_at(ctx, window).hidden != 0 || !is_hit(ctx, window, x, y))
            continue;
        const u32 dependent = dependent_under(ctx, window, x, y);
        return dependent != 0 ? dependent : window;
    }
    return number;
}

// Scrolls the object or the nearest of its masters that can be, though it may be at its end. A
// scroll bar is as good as what it scrolls.
bool scroll_from(vel_context &ctx, u32 under, Direction contents, const Axis &axis) {
    const u32 scrolled = scrolled_by(ctx, part_at(ctx, under));
    const u32 number = scrolled == 0 ? under : scrolled;
    const auto scroll_one = [&](u32 at) {
        Scrollable scrollable(ctx, at, axis);
        const bool scrolls =
            scrollable.what() != Scrollable::What::nothing && !scrollable.view().fits();
        if (scrolls) scrollable.move(contents, scrollable.notch());
        return scrolls;
    };
    if (number != 0 && scroll_one(number)) return true;
    for (const u32 master : Masters(ctx, number)) {
        if (scroll_one(master)) return true;
    }
    return false;
}

} // namespace

bool scroll_by_wheel(vel_context &ctx, const Reach &reach) {
    const SDL_Event event = ctx.event;
    if (!has_comfort(ctx, VEL_COMFORT_WHEEL) || !is_wheel(event)) return false;
    consume_event(ctx);
    if (event.type == SDL_MOUSEBUTTONUP) return true;
    const u32 number = object_seen_under(ctx, event.button.x, event.button.y);
    const u32 top = root_of(ctx, number) == 0 ? number : root_of(ctx, number);
    if (reach.is_dialog && top != ctx.active_window) return true;
    const bool is_up = event.button.button == SDL_BUTTON_WHEELUP;
    const bool is_sideways = (SDL_GetModState() & KMOD_SHIFT) != 0;
    const Direction contents = is_up ? Direction::forward : Direction::back;
    if (!scroll_from(ctx, number, contents, is_sideways ? horizontal : vertical)) return true;
    if (top == ctx.active_window)
        show_active_window(ctx);
    else
        show_all(ctx);
    return true;
}

} // namespace velumo
