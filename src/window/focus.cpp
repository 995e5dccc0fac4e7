#include "window/focus.h"

#include <new>

#include "model/types.h"
#include "render/geometry.h"
#include "render/scene.h"

namespace velumo {
namespace {

// The visible objects of the active window that take the cursor: itself, then depth first.
std::vector<u32> cursor_stops(const vel_context &ctx) {
    std::vector<u32> stops;
    const u32 window = ctx.active_window;
    if (window == 0) return stops;
    if (is_editable(object_at(ctx, window))) stops.push_back(window);
    walk_dependents(ctx, window, [&](u32 number) {
        const vel_object &o = object_at(ctx, number);
        if (!is_drawable(o)) return Walk::skip;
        if (is_editable(o)) stops.push_back(number);
        return Walk::descend;
    });
    return stops;
}

// The answers that a selection waits for count wherever they are, even without a window.
std::vector<u32> focus_stops(const vel_context &ctx, const Reach &reach) {
    std::vector<u32> stops;
    walk_home(ctx, reach, [&](u32 number) {
        if (can_be_focused(ctx, reach, number)) stops.push_back(number);
        return false;
    });
    if (!reach.selects) return stops;
    walk_everywhere(ctx, reach, [&](u32 number) {
        if (!is_key_answer(ctx, reach, number)) return false;
        if (std::find(stops.begin(), stops.end(), number) == stops.end()) stops.push_back(number);
        return false;
    });
    return stops;
}

bool is_in_active_window(const vel_context &ctx, u32 number) {
    const u32 window = ctx.active_window;
    return window != 0 && (number == window || root_of(ctx, number) == window);
}

// A picture need not cover what was drawn on it before.
void erase_what_keeps_states(vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    const Body body = type_of(o).body;
    const bool covers_itself = body != Body::picture && body != Body::none;
    if (number != 0 && o.master == 0 && is_drawable(o) && !covers_itself) erase_object(ctx, number);
}

// The first answer to keys that fits; 0 for none.
template <class Fits> u32 find_answer(const vel_context &ctx, const Reach &reach, Fits fits) {
    u32 found = 0;
    const auto is_it = [&](u32 number) {
        if (!is_key_answer(ctx, reach, number) || !fits(number)) return false;
        found = number;
        return true;
    };
    if (reach.selects)
        walk_everywhere(ctx, reach, is_it);
    else
        walk_home(ctx, reach, is_it);
    return found;
}

} // namespace

// Without memory for the list of stops, the focus stays.
void move_focus(vel_context &ctx, const Reach &reach, bool backwards) try {
    const bool has_keys = has_comfort(ctx, VEL_COMFORT_KEYBOARD);
    const std::vector<u32> stops = has_keys ? focus_stops(ctx, reach) : cursor_stops(ctx);
    if (stops.empty()) return;
    const auto here = std::find(stops.begin(), stops.end(), ctx.cursor_object);
    const auto place = static_cast<std::size_t>(here - stops.begin());
    std::size_t next = place + 1;
    if (here == stops.end())
        next = backwards ? stops.size() - 1 : 0;
    else if (backwards)
        next = place + stops.size() - 1;
    set_focus(ctx, stops[next % stops.size()]);
} catch (const std::bad_alloc &) {
}

void set_focus(vel_context &ctx, u32 number) {
    const u32 before = ctx.cursor_object;
    ctx.cursor_object = number;
    if (has_comfort(ctx, VEL_COMFORT_KEYBOARD))
        show_changed(ctx, before, number);
    else
        show_active_window(ctx);
}

void return_focus(vel_context &ctx, u32 number) {
    const u32 top = root_of(ctx, number);
    if (number != 0 && ctx.active_window == (top != 0 ? top : number)) ctx.cursor_object = number;
}

void show_changed(vel_context &ctx, u32 a, u32 b) {
    if ((a == 0 || is_in_active_window(ctx, a)) && (b == 0 || is_in_active_window(ctx, b))) {
        show_active_window(ctx);
        return;
    }
    erase_what_keeps_states(ctx, a);
    erase_what_keeps_states(ctx, b);
    show_all(ctx);
}

void focus_answer(vel_context &ctx, const Reach &reach) {
    if (ctx.cursor_object != 0 && is_in_active_window(ctx, ctx.cursor_object)) return;
    u32 answer = answer_of_kind(ctx, reach, VEL_ANSWER_DEFAULT);
    if (answer == 0) answer = find_answer(ctx, reach, [](u32) { return true; });
    if (answer != 0) ctx.cursor_object = answer;
}

bool has_answer_focus(const vel_context &ctx, const Reach &reach) {
    const auto is_focus = [&ctx](u32 number) { return number == ctx.cursor_object; };
    return is_key_answer(ctx, reach, ctx.cursor_object) && walk_everywhere(ctx, reach, is_focus);
}

u32 answer_of_kind(const vel_context &ctx, const Reach &reach, vel_answer kind) {
    if (kind == VEL_ANSWER_DEFAULT && is_reachable(ctx, reach.on_enter)) return reach.on_enter;
    if (kind == VEL_ANSWER_CANCEL && is_reachable(ctx, reach.on_escape)) return reach.on_escape;
    return find_answer(ctx, reach, [&ctx, kind](u32 number) {
        return traits_of(ctx, number).answer == static_cast<u32>(kind);
    });
}

u32 object_of_key(const vel_context &ctx, const Reach &reach, char key) {
    u32 found = 0;
    walk_everywhere(ctx, reach, [&](u32 number) {
        const bool has_key = traits_of(ctx, number).key == key;
        if (has_key) found = number;
        return has_key;
    });
    return found;
}

} // namespace velumo
