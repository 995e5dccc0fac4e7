// Sizes and limits of objects inside the screen and their masters.
#include "render/geometry.h"

namespace velumo {
namespace {

// Size of a dependent inside a master whose own usable size is given.
u32 size_inside(const vel_object &object, const vel_object &master, u32 master_size,
                const Axis &axis) {
    const u32 start = object.*axis.position;
    const u32 limit = master.*axis.position + master_size - 1 - master.*axis.margin_after;
    const bool reaches = as_signed(start + object.*axis.size - 1) >= as_signed(limit);
    return reaches ? limit - (start + 1) : object.*axis.size;
}

enum class Climb { master, grandmaster };

// The usable size of a dependent follows from that of an object further up, and so on to the top.
// The objects on the way are gathered first, so that deep nesting needs no deep recursion.
u32 dependent_size(const vel_context &ctx, u32 number, const Axis &axis, Climb climb) {
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
        return {inner.before, is_cut ? end : inner.after};
    }
    case VEL_CLIP_FRAME:
        return {start - 1, end};
    default:
        return {0, is_cut ? end : 0};
    }
}

// The inner area of an object that is the master of a master. A root that the screen cuts ends
// where the screen does, or at its margin when that comes first.
Span parent_area(const vel_object &parent, bool is_cut, u32 cut, const Axis &axis) {
    Span area = inside_margins(parent, parent.*axis.size, axis);
    if (is_cut) {
        const u32 last_shown = parent.*axis.position + cut - 1;
        if (as_signed(last_shown) <= as_signed(area.after)) area.after = last_shown + 1;
    }
    return area;
}

// The limits that one master on the way sets by itself.
// On purpose: here its frame is taken one pixel up and to the left of where it is.
void set_candidate(const vel_object &master, u32 clip_mode, const Axis &axis, Span &candidate) {
    const u32 first = master.*axis.position - 1;
    const u32 last = first + master.*axis.size - 1;
    if (clip_mode == VEL_CLIP_MARGINS) {
        candidate = {first + master.*axis.margin_before - 1, last - master.*axis.margin_after + 1};
    } else if (clip_mode == VEL_CLIP_FRAME) {
        candidate = {first - 1, last + 1};
    }
}

u32 larger(u32 a, u32 b) { return as_signed(a) > as_signed(b) ? a : b; }
u32 smaller(u32 a, u32 b) { return as_signed(a) < as_signed(b) ? a : b; }

// The tightest limits of all masters. A far limit of 0 stands for none so far.
Span nested_limits(const vel_context &ctx, const vel_object &object, u32 root, const Axis &axis) {
    const u32 root_cut = cut_size(ctx, object_at(ctx, root), axis);
    const bool root_is_cut = object_at(ctx, root).*axis.size > root_cut;
    Span limits{0, 0};
    Span candidate{0, 0};
    for (u32 master = object.master; master != root; master = object_at(ctx, master).master) {
        const vel_object &m = object_at(ctx, master);
        set_candidate(m, object.clip_mode, axis, candidate);
        const Span parent =
            parent_area(object_at(ctx, m.master), m.master == root && root_is_cut, root_cut, axis);
        limits.before = larger(limits.before, larger(candidate.before, parent.before));
        const u32 after = smaller(candidate.after, parent.after);
        limits.after = limits.after == 0 ? after : smaller(limits.after, after);
    }
    return limits;
}

Span tighter(Span own, Span outer) {
    return {larger(own.before, outer.before), smaller(own.after, outer.after)};
}

void write_limits(const Limits &limits, u32 *left, u32 *right, u32 *top, u32 *bottom) {
    *left = limits.x.before;
    *right = limits.x.after;
    *top = limits.y.before;
    *bottom = limits.y.after;
}

} // namespace

u32 cut_size(const vel_context &ctx, const vel_object &object, const Axis &axis) {
    const u32 start = object.*axis.position;
    const u32 screen = ctx.*axis.screen_size;
    return screen < start + object.*axis.size - 1 ? screen - start - axis.screen_gap
                                                  : object.*axis.size;
}

Limits dependent_limits(const vel_context &ctx, u32 number) {
    const vel_object &object = object_at(ctx, number);
    const u32 root = vel_search_master(&ctx, number);
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

Overlap overlap_of(Span limits, u32 first, u32 last) {
    return {limits.holds(first), limits.holds(last),
            as_signed(first) <= as_signed(limits.before) &&
                as_signed(last) >= as_signed(limits.after)};
}

Piece visible_piece(Span limits, u32 start, u32 end, u32 full) {
    const Overlap overlap = overlap_of(limits, start, end);
    const u32 first_shown = limits.before + 1;
    const u32 hidden_before = full - (end - limits.before);
    if (overlap.first_in && overlap.last_in) return {Piece::Cut::none, start, 0, full};
    if (overlap.last_in && as_signed(start) <= as_signed(limits.before)) {
        return {Piece::Cut::before, first_shown, hidden_before, end - limits.before};
    }
    if (overlap.first_in && as_signed(end) >= as_signed(limits.after)) {
        return {Piece::Cut::after, start, 0, limits.after - start};
    }
    if (overlap.spans) {
        return {Piece::Cut::both, first_shown, hidden_before,
                room_between(limits.before, limits.after)};
    }
    return {Piece::Cut::hidden, 0, 0, 0};
}

} // namespace velumo

using namespace velumo;

uint32_t vel_p_cutted_w_independent(const vel_context *ctx, uint32_t object) noexcept {
    return cut_size(*ctx, object_at(*ctx, object), horizontal);
}

uint32_t vel_p_cutted_h_independent(const vel_context *ctx, uint32_t object) noexcept {
    return cut_size(*ctx, object_at(*ctx, object), vertical);
}

uint32_t vel_p_cutted_w_dependent(const vel_context *ctx, uint32_t object) noexcept {
    return dependent_size(*ctx, object, horizontal, Climb::master);
}

uint32_t vel_p_cutted_h_dependent(const vel_context *ctx, uint32_t object) noexcept {
    // On purpose: the height of the master is that of the master's master, one level further up
    // than with the width.
    return dependent_size(*ctx, object, vertical, Climb::grandmaster);
}

uint32_t vel_search_master(const vel_context *ctx, uint32_t object) noexcept {
    u32 root = object_at(*ctx, object).master;
    if (root == 0) return 0;
    while (object_at(*ctx, root).master != 0) root = object_at(*ctx, root).master;
    return root;
}

void vel_get_borders_for_dep_object(const vel_context *ctx, uint32_t object, uint32_t *left,
                                    uint32_t *right, uint32_t *top, uint32_t *bottom) noexcept {
    write_limits(dependent_limits(*ctx, object), left, right, top, bottom);
}

void vel_get_borders_for_text(const vel_context *ctx, uint32_t object, uint32_t *left,
                              uint32_t *right, uint32_t *top, uint32_t *bottom) noexcept {
    write_limits(text_limits(*ctx, object), left, right, top, bottom);
}
