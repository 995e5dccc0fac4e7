#include "render/borders.h"

#include "model/types.h"
#include "render/limits.h"
#include "render/surface.h"

namespace velumo {
namespace {

// On one axis: from the first line of the border to the last.
Span lines_of(const vel_object &o, const Axis &axis) {
    const u32 start = o.*axis.position;
    const u32 end = start + o.*axis.size - 1;
    if (border_of(o).lines == BorderLines::frame) {
        return stretch(start + o.*axis.margin_before - o.border_inset - 1,
                       end - o.*axis.margin_after + o.border_inset + 1);
    }
    // On purpose: the shadow is the whole outline moved right and down, also where the object's own
    // body was.
    return stretch(start + o.border_inset, end + o.border_inset);
}

// The screen's limits are exclusive like those of masters, so its outermost pixels carry no border.
Limits border_limits(const vel_context &ctx, u32 number) {
    if (object_at(ctx, number).master != 0) return dependent_limits(ctx, number);
    const SDL_Rect &r = ctx.screen_rect;
    const auto span = [](Sint16 start, Uint16 size) { return Span{start + 1, start + size - 1}; };
    return {span(r.x, r.w), span(r.y, r.h)};
}

// On one axis: the two lines across it, and how far the other two reach along it.
struct Side {
    Span lines;
    Overlap overlap;
    Span seen;
};

Side side_of(Span lines, Span limits) {
    const Overlap overlap = overlap_of(limits, lines);
    return {
        lines,
        overlap,
        {overlap.first_in ? lines.begin : limits.begin, overlap.last_in ? lines.end : limits.end}};
}

} // namespace

void paint_border(vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    if (border_of(o).lines == BorderLines::none) return;
    const Limits limits = border_limits(ctx, number);
    const Side x = side_of(lines_of(o, horizontal), limits.x);
    const Side y = side_of(lines_of(o, vertical), limits.y);
    const vel_colour colour = colour_of(o.border_r, o.border_g, o.border_b);
    const auto line = [&](i64 x1, i64 y1, i64 x2, i64 y2) {
        draw_line(ctx, {as_field(x1), as_field(y1)}, {as_field(x2), as_field(y2)}, colour,
                  Locking::by_itself);
    };
    const auto down = [&](i64 column) { line(column, y.seen.begin, column, y.seen.end - 1); };
    const auto across = [&](i64 row) { line(x.seen.begin, row, x.seen.end - 1, row); };
    if (x.overlap.first_in && y.overlap.any()) down(x.lines.begin);
    if (x.overlap.last_in && y.overlap.any()) down(x.lines.end - 1);
    if (y.overlap.first_in && x.overlap.any()) across(y.lines.begin);
    if (y.overlap.last_in && x.overlap.any()) across(y.lines.end - 1);
}

} // namespace velumo
