#include "render/cursor.h"

#include "render/limits.h"
#include "render/surface.h"
#include "text/measure.h"

namespace velumo {
namespace {

// It flashes after a key that was refused, until a loop rests or the next key comes.
vel_colour cursor_colour(const vel_context &ctx, const vel_object &o) {
    const bool flashes = ctx.state != nullptr && ctx.state->refusal.flash_ends.count() != 0;
    return flashes ? ctx.mark_colour : text_colour(o);
}

} // namespace

void draw_cursor(vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    const u32 height = font_height(font_of(ctx, o));
    if (height == 0) return;
    const Limits limits = text_limits(ctx, number);
    const u32 left = as_field(limits.x.begin - 1), right = as_field(limits.x.end);
    const u32 above = as_field(limits.y.begin - 1), below = as_field(limits.y.end);
    // On purpose: here the limits at the sides and the top are compared unsigned, so a negative one
    // admits nothing.
    if (!(left < o.cursor_x && o.cursor_x < right)) return;
    const u32 bottom = o.cursor_y + height - 1;
    const bool starts_inside = o.cursor_y > above;
    const bool ends_inside = as_signed(bottom) < as_signed(below);
    if (starts_inside && !ends_inside && o.cursor_y >= below) return;
    if (!starts_inside && ends_inside && as_signed(bottom) <= as_signed(above)) return;
    // On purpose: without the lock, which the caller takes where the screen needs it.
    draw_line(ctx, {o.cursor_x, starts_inside ? o.cursor_y : above + 1},
              {o.cursor_x, ends_inside ? bottom : below - 1}, cursor_colour(ctx, o),
              Locking::by_caller);
}

} // namespace velumo
