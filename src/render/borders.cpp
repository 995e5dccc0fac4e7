// Borders of objects: four lines at places that the border style tells.
#include <optional>

#include "render/geometry.h"
#include "render/primitives.h"

namespace velumo {
namespace {

// On one axis: where the first and the last line of the border stand.
struct Lines {
    u32 first, last;
};

Lines lines_of(const vel_object &o, const Axis &axis) {
    const u32 start = o.*axis.position;
    const u32 end = start + o.*axis.size - 1;
    switch (o.border_style) {
    case VEL_BORDER_FRAME:
    case VEL_BORDER_FRAME_FITTED:
        return {start + o.*axis.margin_before - o.border_inset - 1,
                end - o.*axis.margin_after + o.border_inset + 1};
    default:
        return {start + o.border_inset, end + o.border_inset};
    }
}

bool has_lines(const vel_object &o) {
    return o.border_style == VEL_BORDER_FRAME || o.border_style == VEL_BORDER_FRAME_FITTED ||
           o.border_style == VEL_BORDER_SHADOW || o.border_style == VEL_BORDER_SHADOW_FITTED;
}

// The screen's limits are exclusive like those of masters, so its outermost pixels carry no border.
Limits border_limits(const vel_context &ctx, u32 number) {
    if (object_at(ctx, number).master != 0) return dependent_limits(ctx, number);
    const SDL_Rect &r = ctx.screen_rect;
    const auto span = [](Sint16 start, Uint16 size) {
        return Span{static_cast<u32>(start), static_cast<u32>(start + size - 1)};
    };
    return {span(r.x, r.w), span(r.y, r.h)};
}

// On one axis: the two lines across it, and how far the other two reach along it.
struct Side {
    Lines lines;
    Overlap overlap;
    u32 from, to;
};

Side side_of(Lines lines, Span limits) {
    const Overlap overlap = overlap_of(limits, lines.first, lines.last);
    return {lines, overlap, overlap.first_in ? lines.first : limits.before + 1,
            overlap.last_in ? lines.last : limits.after - 1};
}

} // namespace
} // namespace velumo

using namespace velumo;

void vel_evoke_borders(vel_context *ctx, uint32_t object) noexcept {
    const vel_object &o = object_at(*ctx, object);
    if (!has_lines(o)) return;
    const Limits limits = border_limits(*ctx, object);
    const Side x = side_of(lines_of(o, horizontal), limits.x);
    const Side y = side_of(lines_of(o, vertical), limits.y);
    const vel_colour colour = colour_of(o.border_r, o.border_g, o.border_b);
    const ScreenLock lock(*ctx);
    const auto down = [&](u32 column) { draw_line(*ctx, column, y.from, column, y.to, colour); };
    const auto across = [&](u32 row) { draw_line(*ctx, x.from, row, x.to, row, colour); };
    if (x.overlap.first_in && y.overlap.any()) down(x.lines.first);
    if (x.overlap.last_in && y.overlap.any()) down(x.lines.last);
    if (y.overlap.first_in && x.overlap.any()) across(y.lines.first);
    if (y.overlap.last_in && x.overlap.any()) across(y.lines.last);
}
