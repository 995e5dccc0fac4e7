// Where objects, their dependents and their texts may show. For drawing, text layout and hit tests.
#pragma once

#include "model/axis.h"
#include "render/rect.h"

namespace velumo {

// Coordinates on one axis: the first one inside and the first one after it.
struct Span {
    i64 begin, end;

    bool holds(i64 coordinate) const { return begin <= coordinate && coordinate < end; }
};

inline Span tighter(Span a, Span b) { return {std::max(a.begin, b.begin), std::min(a.end, b.end)}; }

// What lies strictly between two numbers of 32 bits, as the interface gives limits.
inline Span between(u32 before, u32 after) {
    return {i64{as_signed(before)} + 1, as_signed(after)};
}

// From one number of 32 bits to another, both included.
inline Span stretch(u32 first, u32 last) { return {as_signed(first), i64{as_signed(last)} + 1}; }

struct Limits {
    Span x, y;

    bool hold(i64 column, i64 row) const { return x.holds(column) && y.holds(row); }
};

// The top-level object that an object hangs on in the end; 0 when it has no master.
u32 root_of(const vel_context &ctx, u32 number);

// Moves a top-level window to x of at least 11 and y of at least 25, so that its marks and frame
// buttons have room. Other objects stay.
void leave_room_for_frame(vel_object &object);

// Size of a top-level object as far as the screen shows it.
u32 cut_size(const vel_context &ctx, const vel_object &object, const Axis &axis);
// The same as a rectangle, of which the display is updated.
Rect cut_rect(const vel_context &ctx, const vel_object &object);

// Size of a dependent inside its masters.
// On purpose: the height looks at every second master only.
enum class Climb { master, grandmaster };
u32 size_in_masters(const vel_context &ctx, u32 number, const Axis &axis, Climb climb);

inline Span extent_of(const vel_object &object, const Axis &axis) {
    const u32 start = object.*axis.position;
    return stretch(start, start + object.*axis.size - 1);
}

// What lies inside an object's margins when its size is as given.
inline Span inside_margins(const vel_object &object, u32 size, const Axis &axis) {
    const u32 start = object.*axis.position;
    return between(start + object.*axis.margin_before - 1,
                   start + size - object.*axis.margin_after);
}

// Which part of an extent lies inside its limits.
struct Overlap {
    bool first_in, last_in, spans;

    bool any() const { return first_in || last_in || spans; }
};
Overlap overlap_of(Span limits, Span extent);

// What limits leave of something that is full pixels long: where it shows, which part of it that
// is, and how much.
struct Piece {
    enum class Cut { hidden, none, before, after, both };
    Cut cut;
    i64 at, from, length;
};
Piece visible_piece(Span limits, Span extent, u32 full);

// Where a part of a surface shows, and which part that is.
struct Patch {
    i64 x, y, from_x, from_y, width, height;
};
inline Patch patch_of(const Piece &x, const Piece &y) {
    return {x.at, y.at, x.from, y.from, x.length, y.length};
}

// Pixels of a span, counted in 32 bits; 0 when it has none.
inline i64 room_in(Span span) { return std::max(as_signed(as_field(span.end - span.begin)), 0); }

} // namespace velumo
