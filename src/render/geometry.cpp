#include "render/geometry.h"

#include <new>

#include "model/walk.h"

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
    u32 root = 0;
    for (const u32 master : Masters(ctx, number)) root = master;
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
    for (Steps steps(ctx); object_at(ctx, master).master != 0 && steps.take();) {
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
