#include "render/geometry.h"

#include <new>

namespace velumo {
namespace {

// The sums of this file are those of the records' 32-bit numbers; their signs count only in
// comparisons and in the spans that result.

// Size of a dependent inside a master whose own usable size is given.
u32 size_inside(const vel_object &object, const vel_object &master, u32 master_size,
                const Axis &axis) {
    const u32 start = object.*axis.position;
    const u32 limit = master.*axis.position + master_size - 1 - master.*axis.margin_after;
    const bool reaches = as_signed(start + object.*axis.size - 1) >= as_signed(limit);
    return reaches ? limit - (start + 1) : object.*axis.size;
}

// Limits that a top-level master sets to its direct dependents.
Span direct_limits(const vel_context &ctx, const vel_object &object, const Axis &axis) {
    const vel_object &master = object_at(ctx, object.master);
    const u32 start = master.*axis.position;
    const u32 size = cut_size(ctx, master, axis);
    const u32 end = start + size;
    const bool is_cut = master.*axis.size > size;
    switch (object.clip_mode) {
    case VEL_CLIP_MARGINS: {
        const Span inner = inside_margins(master, size, axis);
        // On purpose: where the screen cuts the master, the margin there is not kept free.
        return is_cut ? Span{inner.begin, as_signed(end)} : inner;
    }
    case VEL_CLIP_FRAME:
        return between(start - 1, end);
    default:
        // On purpose: without limits of its own, an object inside an uncut master shows nowhere.
        return between(0, is_cut ? end : 0);
    }
}

// The inner area of an object that is the master of a master. A root that the screen cuts ends
// where the screen does, or at its margin when that comes first.
Span parent_area(const vel_object &parent, bool is_cut, u32 cut, const Axis &axis) {
    Span area = inside_margins(parent, parent.*axis.size, axis);
    if (is_cut) {
        const u32 last_shown = parent.*axis.position + cut - 1;
        if (as_signed(last_shown) <= area.end) area.end = as_signed(last_shown + 1);
    }
    return area;
}

// The limits that one master on the way sets by itself.
// On purpose: here its frame is taken one pixel up and to the left of where it is, and a clip mode
// without limits of its own keeps those of the master before.
void set_candidate(const vel_object &master, u32 clip_mode, const Axis &axis, Span &candidate) {
    const u32 first = master.*axis.position - 1;
    const u32 last = first + master.*axis.size - 1;
    if (clip_mode == VEL_CLIP_MARGINS) {
        candidate =
            between(first + master.*axis.margin_before - 1, last - master.*axis.margin_after + 1);
    } else if (clip_mode == VEL_CLIP_FRAME) {
        candidate = between(first - 1, last + 1);
    }
}

constexpr Span not_limited_yet{1, 0}; // strictly between 0 and 0
constexpr i64 no_end = 0;             // so far

Span tighter(Span a, Span b) { return {std::max(a.begin, b.begin), std::min(a.end, b.end)}; }

// The tightest limits of all masters.
Span nested_limits(const vel_context &ctx, const vel_object &object, u32 root, const Axis &axis) {
    const u32 root_cut = cut_size(ctx, object_at(ctx, root), axis);
    const bool root_is_cut = object_at(ctx, root).*axis.size > root_cut;
    Span limits = not_limited_yet;
    Span candidate = not_limited_yet;
    for (u32 master = object.master; master != root; master = object_at(ctx, master).master) {
        const vel_object &m = object_at(ctx, master);
        set_candidate(m, object.clip_mode, axis, candidate);
        const Span parent =
            parent_area(object_at(ctx, m.master), m.master == root && root_is_cut, root_cut, axis);
        const Span both = tighter(candidate, parent);
        limits = limits.end == no_end ? Span{std::max(limits.begin, both.begin), both.end}
                                      : tighter(limits, both);
    }
    return limits;
}

void keep_from_edge(vel_object &object, const Axis &axis) {
    u32 &position = object.*axis.position;
    if (as_signed(position) < as_signed(axis.window_start)) position = axis.window_start;
}

} // namespace

void leave_room_for_frame(vel_object &object) {
    if (!is_top_level_window(object)) return;
    keep_from_edge(object, horizontal);
    keep_from_edge(object, vertical);
}

u32 root_of(const vel_context &ctx, u32 number) {
    u32 root = object_at(ctx, number).master;
    if (root == 0) return 0;
    while (object_at(ctx, root).master != 0) root = object_at(ctx, root).master;
    return root;
}

u32 cut_size(const vel_context &ctx, const vel_object &object, const Axis &axis) {
    const u32 start = object.*axis.position;
    const u32 screen = ctx.*axis.screen_size;
    // On purpose: an object whose last pixel is one after the screen's is not cut.
    return screen < start + object.*axis.size - 1 ? screen - start - axis.screen_gap
                                                  : object.*axis.size;
}

Rect cut_rect(const vel_context &ctx, const vel_object &object) {
    return {object.x, object.y, cut_size(ctx, object, horizontal), cut_size(ctx, object, vertical)};
}

// The usable size of a dependent follows from that of an object further up, and so on to the top.
// The objects on the way are gathered first, so that deep nesting needs no deep recursion; without
// memory for them, the size is that of the object alone.
u32 size_in_masters(const vel_context &ctx, u32 number, const Axis &axis, Climb climb) try {
    std::vector<u32> way{number};
    u32 master = object_at(ctx, number).master;
    while (object_at(ctx, master).master != 0) {
        way.push_back(climb == Climb::master ? master : object_at(ctx, master).master);
        master = object_at(ctx, way.back()).master;
    }
    u32 size = cut_size(ctx, object_at(ctx, master), axis);
    for (auto object = way.rbegin(); object != way.rend(); ++object) {
        const vel_object &o = object_at(ctx, *object);
        size = size_inside(o, object_at(ctx, o.master), size, axis);
    }
    return size;
} catch (const std::bad_alloc &) {
    return object_at(ctx, number).*axis.size;
}

Limits dependent_limits(const vel_context &ctx, u32 number) {
    const vel_object &object = object_at(ctx, number);
    const u32 root = root_of(ctx, number);
    if (object.master == root) {
        return {direct_limits(ctx, object, horizontal), direct_limits(ctx, object, vertical)};
    }
    return {nested_limits(ctx, object, root, horizontal),
            nested_limits(ctx, object, root, vertical)};
}

Limits text_limits(const vel_context &ctx, u32 number) {
    const vel_object &object = object_at(ctx, number);
    if (object.master == 0) {
        return {inside_margins(object, cut_size(ctx, object, horizontal), horizontal),
                inside_margins(object, cut_size(ctx, object, vertical), vertical)};
    }
    const Limits outer = dependent_limits(ctx, number);
    return {tighter(inside_margins(object, object.width, horizontal), outer.x),
            tighter(inside_margins(object, object.height, vertical), outer.y)};
}

Overlap overlap_of(Span limits, Span extent) {
    return {limits.holds(extent.begin), limits.holds(extent.end - 1),
            extent.begin < limits.begin && extent.end > limits.end};
}

Piece visible_piece(Span limits, Span extent, u32 full) {
    const Overlap overlap = overlap_of(limits, extent);
    const i64 length_after_begin = extent.end - limits.begin;
    if (overlap.first_in && overlap.last_in) return {Piece::Cut::none, extent.begin, 0, full};
    if (overlap.last_in && extent.begin < limits.begin) {
        return {Piece::Cut::before, limits.begin, full - length_after_begin, length_after_begin};
    }
    if (overlap.first_in && extent.end > limits.end) {
        return {Piece::Cut::after, extent.begin, 0, limits.end - extent.begin};
    }
    if (overlap.spans) {
        return {Piece::Cut::both, limits.begin, full - length_after_begin, room_in(limits)};
    }
    return {Piece::Cut::hidden, 0, 0, 0};
}

} // namespace velumo
