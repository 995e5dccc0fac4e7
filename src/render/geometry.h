// Where objects, their dependents and their texts may show. For drawing, text layout and hit tests.
#pragma once

#include "model/axis.h"

namespace velumo {

// Limits on one axis: the last coordinates outside, before and after what may be used.
struct Span {
    u32 before, after;

    bool holds(u32 coordinate) const {
        return as_signed(before) < as_signed(coordinate) &&
               as_signed(coordinate) < as_signed(after);
    }
};

struct Limits {
    Span x, y;

    bool hold(u32 column, u32 row) const { return x.holds(column) && y.holds(row); }
};

// Size of a top-level object as far as the screen shows it.
u32 cut_size(const vel_context &ctx, const vel_object &object, const Axis &axis);

// What lies inside an object's margins when its size is as given.
inline Span inside_margins(const vel_object &object, u32 size, const Axis &axis) {
    const u32 start = object.*axis.position;
    return {start + object.*axis.margin_before - 1, start + size - object.*axis.margin_after};
}

Limits dependent_limits(const vel_context &ctx, u32 object);
Limits text_limits(const vel_context &ctx, u32 object);

// How a stretch from first to last lies to its limits.
struct Overlap {
    bool first_in, last_in, spans;

    bool any() const { return first_in || last_in || spans; }
};
Overlap overlap_of(Span limits, u32 first, u32 last);

// What limits leave of a stretch: where it shows, which part of it that is, and how much.
struct Piece {
    enum class Cut { hidden, none, before, after, both };
    Cut cut;
    u32 at, from, extent;
};
Piece visible_piece(Span limits, u32 start, u32 end, u32 full);

// Pixels strictly between two limits; 0 when they leave none.
inline u32 room_between(u32 before, u32 after) {
    return static_cast<u32>(std::max(as_signed(after - (before + 1)), 0));
}

} // namespace velumo
