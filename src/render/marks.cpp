#include "render/marks.h"

#include "render/geometry.h"
#include "render/surface.h"

namespace velumo {
namespace {

constexpr i64 mark_size = 10;

Rect outline_of(const vel_context &ctx, const vel_object &o) {
    const Rect window = cut_rect(ctx, o);
    return {window.x - 1, window.y - 1, window.width + 2, window.height + 2};
}

Rect square_of(const vel_object &o) {
    return {o.x - mark_size, i64{o.y} - 1, mark_size, mark_size};
}

// On purpose: drawing the marks moves objects of every type, less far down than erasing them does,
// and the outline and the square differ in the row where they begin to.
void make_room(vel_object &o, i32 last_row_moved) {
    if (as_signed(o.x) < as_signed(horizontal.window_start)) o.x = horizontal.window_start;
    if (as_signed(o.y) <= last_row_moved) o.y = 2;
}

} // namespace

void draw_mark_outline(vel_context &ctx, u32 window) {
    if (names_nothing(ctx, window)) return;
    vel_object &o = object_at(ctx, window);
    make_room(o, 0);
    draw_outline(ctx, outline_of(ctx, o), ctx.mark_colour);
}

void draw_mark_square(vel_context &ctx, u32 window) {
    if (names_nothing(ctx, window)) return;
    vel_object &o = object_at(ctx, window);
    make_room(o, 1);
    draw_box(ctx, square_of(o), ctx.mark_colour);
}

void erase_mark_outline(vel_context &ctx, u32 window) {
    if (names_nothing(ctx, window)) return;
    vel_object &o = object_at(ctx, window);
    leave_room_for_frame(o);
    draw_outline(ctx, outline_of(ctx, o), ctx.background_colour);
}

void erase_mark_square(vel_context &ctx, u32 window) {
    if (names_nothing(ctx, window)) return;
    vel_object &o = object_at(ctx, window);
    leave_room_for_frame(o);
    draw_box(ctx, square_of(o), ctx.background_colour);
}

} // namespace velumo
