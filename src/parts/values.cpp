#include "parts/values.h"

#include "input/hit_test.h"
#include "model/axis.h"
#include "model/traits.h"
#include "model/walk.h"
#include "parts/show.h"
#include "render/geometry.h"
#include "render/scene.h"

namespace velumo {
namespace {

enum CheckPiece : u32 { box_of_check, mark_of_check };
enum SliderPiece : u32 { track_of_slider, knob_of_slider };
enum ProgressPiece : u32 { bar_of_progress };

constexpr i64 parts_of_block = 4; // an endless progress shows a block of one part
constexpr i32 steps_across = 20;  // that it takes to the other end
constexpr i64 steps_of_a_page = 10;

bool is_kind(const vel_context &ctx, u32 object, std::initializer_list<Part> kinds) {
    return std::find(kinds.begin(), kinds.end(), traits_of(ctx, object).part) != kinds.end();
}

// A piece that the form left out is the empty record, which shows nothing.
vel_object &piece(vel_context &ctx, u32 part, u32 place) {
    return object_at(ctx, object_at(ctx, part).dep_objs[place]);
}

Span room_of(const vel_object &o, const Axis &axis) {
    return inside_margins(o, o.*axis.size, axis);
}

struct Range {
    i64 least, most;

    i64 cut(i64 value) const { return std::clamp(value, least, most); }
    i64 size() const { return most - least; }
};
Range range_of(const Traits &t) { return {t.least, std::max(t.least, t.most)}; }

// How far a value is from the start, out of so many pixels. Values grow to the right and upwards.
i64 place_of(const Traits &t, const Axis &axis, i64 pixels) {
    const Range range = range_of(t);
    pixels = std::min(pixels, longest_part);
    if (range.size() == 0 || pixels <= 0) return 0;
    const i64 place = (range.cut(t.value) - range.least) * pixels / range.size();
    return &axis == &vertical ? pixels - place : place;
}

// --- Check boxes and radio buttons

bool share_group(const vel_context &ctx, u32 a, u32 b) {
    const i32 group = traits_of(ctx, a).group;
    if (!is_kind(ctx, b, {radio_part}) || group != traits_of(ctx, b).group) return false;
    return group != 0 || object_at(ctx, a).master == object_at(ctx, b).master;
}

// The radio buttons of a group in the order of their numbers.
std::vector<u32> group_of(const vel_context &ctx, u32 radio) {
    std::vector<u32> group;
    for (const auto &[number, traits] : ctx.state->traits) {
        if (share_group(ctx, radio, number)) group.push_back(number);
    }
    return group;
}

void check_only(vel_context &ctx, u32 radio) {
    for (const u32 other : group_of(ctx, radio)) {
        own_traits(ctx, other).value = other == radio ? 1 : 0;
        show_mark(ctx, other);
    }
}

void toggle(vel_context &ctx, u32 check) {
    const bool is_radio = is_kind(ctx, check, {radio_part});
    set_checked(ctx, check, is_radio || traits_of(ctx, check).value == 0);
    show_part(ctx, check);
}

bool is_within(const vel_context &ctx, u32 part, i64 x, i64 y) {
    const u32 under = object_under(ctx, x, y);
    if (under == part) return true;
    for (const u32 master : Masters(ctx, under)) {
        if (master == part) return true;
    }
    return false;
}

// --- Sliders

void place_knob(vel_context &ctx, u32 slider) {
    const vel_object &o = object_at(ctx, slider);
    const u32 number = o.dep_objs[knob_of_slider];
    if (number == 0) return;
    const Axis &axis = longer_axis(o);
    vel_object &knob = object_at(ctx, number);
    const Span room = room_of(o, axis);
    const i64 pixels = room.end - room.begin - as_signed(knob.*axis.size);
    knob.*axis.position = as_field(room.begin + place_of(traits_of(ctx, slider), axis, pixels));
}

// The nearest step to a place on the slider, where the middle of the knob goes.
i32 value_at(vel_context &ctx, u32 slider, i64 coordinate) {
    const vel_object &o = object_at(ctx, slider);
    const Axis &axis = longer_axis(o);
    const Traits &t = traits_of(ctx, slider);
    const Range range = range_of(t);
    const Span room = room_of(o, axis);
    const i64 knob = as_signed(piece(ctx, slider, knob_of_slider).*axis.size);
    const i64 pixels = std::min(room.end - room.begin - knob, longest_part);
    if (pixels <= 0) return t.value;
    const i64 place = std::clamp<i64>(coordinate - knob / 2 - room.begin, 0, pixels);
    const i64 along = &axis == &vertical ? pixels - place : place;
    const i64 step = std::max<i64>(t.step, 1);
    const i64 exact = along * range.size() / pixels;
    const i64 value = along == pixels ? range.most : range.least + (exact + step / 2) / step * step;
    return static_cast<i32>(range.cut(value));
}

// --- Progress

Span bar_extent(const Traits &t, const Axis &axis, Span room) {
    const i64 length = std::max<i64>(room.end - room.begin, 0);
    if (t.endless) {
        const i64 block = length / parts_of_block;
        const i64 phase = t.value % (2 * steps_across);
        const i64 step = phase > steps_across ? 2 * steps_across - phase : phase;
        const i64 start = room.begin + (length - block) * step / steps_across;
        return {start, start + block};
    }
    const i64 place = room.begin + place_of(t, axis, length);
    return &axis == &vertical ? Span{place, room.end} : Span{room.begin, place};
}

void place_bar(vel_context &ctx, u32 progress) {
    const vel_object &o = object_at(ctx, progress);
    const u32 number = o.dep_objs[bar_of_progress];
    if (number == 0) return;
    const Axis &axis = longer_axis(o);
    const Span extent = bar_extent(traits_of(ctx, progress), axis, room_of(o, axis));
    vel_object &bar = object_at(ctx, number);
    bar.*axis.position = as_field(extent.begin);
    bar.*axis.size = as_field(extent.end - extent.begin);
}

void advance(vel_context &ctx, u32 progress) {
    Traits &t = own_traits(ctx, progress);
    t.value = static_cast<i32>((std::max(t.value, 0) + i64{1}) % (2 * steps_across));
    place_bar(ctx, progress);
}

} // namespace

void show_mark(vel_context &ctx, u32 check) {
    const u32 number = object_at(ctx, check).dep_objs[mark_of_check];
    if (number == 0) return;
    vel_object &mark = object_at(ctx, number);
    mark.width = traits_of(ctx, check).value != 0 ? mark.height : 0;
}

bool has_value(const vel_context &ctx, u32 object) {
    return is_kind(ctx, object, {slider_part, progress_part});
}

void set_value(vel_context &ctx, u32 object, i32 value) {
    Traits &t = own_traits(ctx, object);
    if (t.part == progress_part && t.endless) return advance(ctx, object);
    t.value = static_cast<i32>(range_of(t).cut(value));
    place_value(ctx, object);
}

void place_value(vel_context &ctx, u32 object) {
    if (traits_of(ctx, object).part == slider_part)
        place_knob(ctx, object);
    else
        place_bar(ctx, object);
}

void set_checked(vel_context &ctx, u32 object, bool checked) {
    own_traits(ctx, object).value = checked ? 1 : 0;
    if (checked && is_kind(ctx, object, {radio_part}))
        check_only(ctx, object);
    else
        show_mark(ctx, object);
}

Press press_check(vel_context &ctx, u32 check) {
    bool is_inside = true;
    const Press end = drag(
        ctx, [&](i64 x, i64 y) { is_inside = is_within(ctx, check, x, y); }, [] {});
    if (end != Press::done || !is_inside) return end;
    toggle(ctx, check);
    return Press::changed;
}

Press press_slider(vel_context &ctx, u32 slider) {
    const bool is_vertical = &longer_axis(object_at(ctx, slider)) == &vertical;
    const i32 before = traits_of(ctx, slider).value;
    const auto go_to = [&](i64 x, i64 y) {
        const i32 value = value_at(ctx, slider, is_vertical ? y : x);
        if (value == traits_of(ctx, slider).value) return;
        set_value(ctx, slider, value);
        show_part(ctx, slider);
    };
    go_to(ctx.event.button.x, ctx.event.button.y);
    const Press end = drag(ctx, go_to, [] {});
    const bool has_changed = end == Press::done && traits_of(ctx, slider).value != before;
    return has_changed ? Press::changed : end;
}

std::optional<Press> key_on_check(vel_context &ctx, u32 check, const SDL_keysym &key) {
    const bool is_radio = is_kind(ctx, check, {radio_part});
    const bool is_back = key.sym == SDLK_UP || key.sym == SDLK_LEFT;
    const bool is_on = key.sym == SDLK_DOWN || key.sym == SDLK_RIGHT;
    if (key.sym == SDLK_SPACE || key.sym == SDLK_RETURN || key.sym == SDLK_KP_ENTER) {
        toggle(ctx, check);
        return Press::changed;
    }
    if (!is_radio || (!is_back && !is_on)) return {};
    const std::vector<u32> group = group_of(ctx, check);
    const auto here = std::find(group.begin(), group.end(), check);
    if (here == group.end()) return {};
    const auto place = static_cast<std::size_t>(here - group.begin());
    const u32 next = group[(place + (is_on ? 1 : group.size() - 1)) % group.size()];
    if (!is_enabled(ctx, next)) return Press::done;
    ctx.cursor_object = next;
    toggle(ctx, next);
    return Press::changed;
}

std::optional<Press> key_on_slider(vel_context &ctx, u32 slider, const SDL_keysym &key) {
    const Traits &t = traits_of(ctx, slider);
    const Range range = range_of(t);
    const i64 step = std::max<i64>(t.step, 1);
    const i64 page = std::max(step, range.size() / steps_of_a_page);
    i64 value = t.value;
    switch (key.sym) {
    case SDLK_LEFT:
    case SDLK_DOWN:
        value -= step;
        break;
    case SDLK_RIGHT:
    case SDLK_UP:
        value += step;
        break;
    case SDLK_PAGEDOWN:
        value -= page;
        break;
    case SDLK_PAGEUP:
        value += page;
        break;
    case SDLK_HOME:
        value = range.least;
        break;
    case SDLK_END:
        value = range.most;
        break;
    default:
        return {};
    }
    if (range.cut(value) == t.value) return Press::done;
    set_value(ctx, slider, static_cast<i32>(range.cut(value)));
    show_part(ctx, slider);
    return Press::changed;
}

void move_endless(vel_context &ctx) {
    u32 moved = 0;
    u32 count = 0;
    for (const auto &[number, traits] : ctx.state->traits) {
        if (traits.part != progress_part || !traits.endless) continue;
        const u32 root = root_of(ctx, number);
        const bool is_open = is_drawable(object_at(ctx, root == 0 ? number : root));
        if (!is_open || !is_drawable(object_at(ctx, number))) continue;
        advance(ctx, number);
        moved = number;
        ++count;
    }
    if (count == 1) show_part(ctx, moved);
    if (count > 1) show_all(ctx);
}

} // namespace velumo
