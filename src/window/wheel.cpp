#include "window/wheel.h"

#include "input/events.h"
#include "input/hit_test.h"
#include "model/types.h"
#include "model/walk.h"
#include "render/geometry.h"
#include "render/scene.h"
#include "text/lines.h"
#include "text/measure.h"
#include "window/following.h"
#include "window/list.h"

namespace velumo {
namespace {

constexpr i32 lines_of_a_notch = 3;

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

// A length on one axis that shows a part of something longer.
struct View {
    Span area, contents;

    bool fits() const { return contents.begin >= area.begin && contents.end <= area.end; }
    // How far the contents may move, at most by a step.
    i64 room(Direction direction, i64 step) const {
        const i64 hidden =
            direction == Direction::forward ? area.begin - contents.begin : contents.end - area.end;
        return std::clamp<i64>(hidden, 0, step);
    }
};

class Wheel {
public:
    Wheel(vel_context &ctx, Direction contents, bool is_sideways)
        : ctx_(ctx), contents_(contents), axis_(is_sideways ? horizontal : vertical),
          is_sideways_(is_sideways) {}

    // Scrolls the object or the nearest of its masters that can be, though it may be at its end.
    bool scroll_from(u32 number) {
        if (number != 0 && scroll_one(number)) return true;
        for (const u32 master : Masters(ctx_, number)) {
            if (scroll_one(master)) return true;
        }
        return false;
    }

private:
    bool scroll_one(u32 number) {
        return scroll_text(number) || scroll_items(number) || scroll_contents(number);
    }

    Span area_of(const vel_object &o) const {
        return inside_margins(o, o.master == 0 ? cut_size(ctx_, o, axis_) : o.*axis_.size, axis_);
    }

    // --- Lines

    bool has_lines(const vel_object &o) const {
        const TextKind kind = type_of(o).text;
        return kind == TextKind::paragraphs || kind == TextKind::chain;
    }

    Span lines_of(const vel_object &o) const {
        const i64 top = as_signed(o.y + o.margin_top + o.scroll_y);
        TTF_Font *font = font_of(ctx_, o);
        if (font == nullptr || !has_lines(o) || text_of(ctx_, o) == 0) return {top, top};
        return {top, top + (i64{std::min(o.number_of_lines, last_line)} + 1) * line_pitch(font, o)};
    }

    bool scroll_text(u32 number) {
        vel_object &o = object_at(ctx_, number);
        const View view{area_of(o), lines_of(o)};
        const bool is_alone = o.type != VEL_TYPE_WINDOW || !has_scrolling_dependents(o);
        if (is_sideways_ || !has_lines(o) || !is_alone || view.fits()) return false;
        const i64 distance =
            view.room(contents_, i64{lines_of_a_notch} * line_pitch(font_of(ctx_, o), o));
        scroll_object(o, as_field(distance));
        return true;
    }

    void scroll_object(vel_object &o, u32 distance) {
        step(o.*axis_.scroll, contents_, distance);
        if (o.editable == 1) step(o.*axis_.cursor, contents_, distance);
    }

    bool scroll_items(u32 number) {
        const bool to_start = contents_ == Direction::forward;
        return !is_sideways_ &&
               scroll_list(ctx_, number, to_start ? -lines_of_a_notch : lines_of_a_notch);
    }

    // --- Windows

    bool scrolls_along(const vel_object &o) const {
        return has_area(o) && o.type != VEL_TYPE_MENU && !border_of(o).is_fitted &&
               scrolls_with_master(ctx_, o);
    }

    bool has_scrolling_dependents(const vel_object &window) const {
        const auto dependents = dependents_of(window);
        return std::any_of(dependents.begin(), dependents.end(),
                           [this](u32 number) { return scrolls_along(object_at(ctx_, number)); });
    }

    View view_of(const vel_object &window) const {
        View view{area_of(window), {0, 0}};
        view.contents = is_sideways_ ? Span{view.area.begin, view.area.begin} : lines_of(window);
        for (const u32 number : dependents_of(window)) {
            const vel_object &o = object_at(ctx_, number);
            if (!scrolls_along(o)) continue;
            const Span extent = extent_of(o, axis_);
            view.contents = {std::min(view.contents.begin, extent.begin),
                             std::max(view.contents.end, extent.end)};
        }
        return view;
    }

    bool scroll_contents(u32 number) {
        vel_object &o = object_at(ctx_, number);
        if (o.type != VEL_TYPE_WINDOW) return false;
        const View view = view_of(o);
        if (view.fits()) return false;
        const u32 distance = as_field(view.room(contents_, ctx_.scroll_step));
        scroll_object(o, distance);
        follow_scroll(ctx_, number, {axis_, contents_, distance});
        return true;
    }

    vel_context &ctx_;
    const Direction contents_;
    const Axis &axis_;
    const bool is_sideways_;
};

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
    Wheel wheel(ctx, is_up ? Direction::forward : Direction::back, is_sideways);
    if (!wheel.scroll_from(number)) return true;
    if (top == ctx.active_window)
        show_active_window(ctx);
    else
        show_all(ctx);
    return true;
}

} // namespace velumo
