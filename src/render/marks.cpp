// The marks of the active window: an outline and a square left of its corner.
#include "render/geometry.h"
#include "render/paint.h"
#include "render/primitives.h"

namespace velumo {
namespace {

constexpr u32 mark_size = 10;

void draw_outline(vel_context &ctx, const vel_object &o, vel_colour colour) {
    draw_rectangle(ctx, o.x - 1, o.y - 1, cut_size(ctx, o, horizontal) + 2,
                   cut_size(ctx, o, vertical) + 2, colour);
}

void draw_square(vel_context &ctx, const vel_object &o, vel_colour colour) {
    draw_box(ctx, o.x - mark_size, o.y - 1, mark_size, mark_size, colour);
}

// On purpose: drawing the marks moves objects of every type, less far down than erasing them does,
// and the outline and the square differ in the row where they begin to.
void make_room(vel_object &o, i32 last_row_moved) {
    if (as_signed(o.x) < as_signed(horizontal.window_start)) o.x = horizontal.window_start;
    if (as_signed(o.y) <= last_row_moved) o.y = 2;
}

} // namespace
} // namespace velumo

using namespace velumo;

void vel_draw_selected_lines(vel_context *ctx, uint32_t object) noexcept {
    if (names_nothing(*ctx, object)) return;
    vel_object &o = object_at(*ctx, object);
    make_room(o, 0);
    draw_outline(*ctx, o, ctx->mark_colour);
}

void vel_draw_selected_box(vel_context *ctx, uint32_t object) noexcept {
    if (names_nothing(*ctx, object)) return;
    vel_object &o = object_at(*ctx, object);
    make_room(o, 1);
    draw_square(*ctx, o, ctx->mark_colour);
}

void vel_undraw_selected_lines(vel_context *ctx, uint32_t object) noexcept {
    if (names_nothing(*ctx, object)) return;
    vel_object &o = object_at(*ctx, object);
    keep_window_on_screen(o);
    draw_outline(*ctx, o, ctx->background_colour);
}

void vel_undraw_selected_box(vel_context *ctx, uint32_t object) noexcept {
    if (names_nothing(*ctx, object)) return;
    vel_object &o = object_at(*ctx, object);
    keep_window_on_screen(o);
    draw_square(*ctx, o, ctx->background_colour);
}
