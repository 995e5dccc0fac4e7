// The text cursor: a line one pixel wide.
#include "render/geometry.h"
#include "render/primitives.h"
#include "text/measure.h"

using namespace velumo;

void vel_draw_cursor(vel_context *ctx, uint32_t object) noexcept {
    const vel_object &o = object_at(*ctx, object);
    const u32 height = font_height(font_of(*ctx, o));
    if (height == 0) return;
    const Limits limits = text_limits(*ctx, object);
    // On purpose: limits above and beside are compared unsigned, so a negative one admits nothing.
    if (!(limits.x.before < o.cursor_x && o.cursor_x < limits.x.after)) return;
    const u32 bottom = o.cursor_y + height - 1;
    const bool starts_inside = o.cursor_y > limits.y.before;
    const bool ends_inside = as_signed(bottom) < as_signed(limits.y.after);
    if (starts_inside && !ends_inside && o.cursor_y >= limits.y.after) return;
    if (!starts_inside && ends_inside && as_signed(bottom) <= as_signed(limits.y.before)) return;
    draw_line(*ctx, o.cursor_x, starts_inside ? o.cursor_y : limits.y.before + 1, o.cursor_x,
              ends_inside ? bottom : limits.y.after - 1, colour_of(o.text_r, o.text_g, o.text_b));
}
