#include "render/surface.h"

namespace velumo {
namespace {

struct Stretch {
    u32 first, count;
};

// The coordinates that a line from start to end runs over, as far as they lie below size. The sign
// of the difference gives the direction, and an unsigned comparison the end: a line across 0, from
// a negative coordinate to a positive one, has none.
Stretch visible_stretch(u32 start, u32 end, int size) {
    const bool falling = as_signed(start - end) > 0;
    const u32 first = falling ? end : start;
    const u32 last = std::min(falling ? start : end, static_cast<u32>(size) - 1);
    if ((falling ? start < end : start > end) || first > last) return {0, 0};
    return {first, last - first + 1};
}

bool is_on(const SDL_Surface &surface, Pixel p) {
    return p.x < static_cast<u32>(surface.w) && p.y < static_cast<u32>(surface.h);
}

// The pixels lie on the surface.
void paint_run(vel_context &ctx, const Rect &r, vel_colour colour, Locking locking) {
    const auto end = [](i64 start, i64 length) { return static_cast<i32>(start + length); };
    PaintOp op{.kind = PaintOp::Kind::run, .takes_lock = locking == Locking::by_itself};
    op.colour = colour;
    op.area = {static_cast<i32>(r.x), static_cast<i32>(r.y), end(r.x, r.width), end(r.y, r.height)};
    paint(ctx, op);
}

} // namespace

void draw_pixel(vel_context &ctx, Pixel at, vel_colour colour) {
    if (ctx.screen == nullptr || !is_on(*ctx.screen, at)) return;
    paint_run(ctx, {at.x, at.y, 1, 1}, colour, Locking::by_caller);
}

void draw_line(vel_context &ctx, Pixel from, Pixel to, vel_colour colour, Locking locking) {
    if (ctx.screen == nullptr) return;
    const SDL_Surface &screen = *ctx.screen;
    // On purpose: a slanted line and a line of one pixel draw nothing.
    const bool across = from.x != to.x && from.y == to.y;
    const bool down = from.x == to.x && from.y != to.y;
    const Pixel fixed{across ? 0 : from.x, across ? from.y : 0};
    if (!(across || down) || !is_on(screen, fixed)) return;
    const Stretch seen =
        across ? visible_stretch(from.x, to.x, screen.w) : visible_stretch(from.y, to.y, screen.h);
    if (seen.count == 0) return;
    paint_run(ctx,
              across ? Rect{seen.first, from.y, seen.count, 1}
                     : Rect{from.x, seen.first, 1, seen.count},
              colour, locking);
}

void draw_box(vel_context &ctx, const Rect &rect, vel_colour colour) {
    paint(ctx, box_op(rect, colour));
}

void draw_outline(vel_context &ctx, const Rect &rect, vel_colour colour) {
    const u32 left = as_field(rect.x);
    const u32 top = as_field(rect.y);
    const u32 right = as_field(rect.x + rect.width - 1);
    const u32 bottom = as_field(rect.y + rect.height - 1);
    const Pixel corners[] = {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
    for (std::size_t k = 0; k < std::size(corners); ++k) {
        draw_line(ctx, corners[k], corners[(k + 1) % std::size(corners)], colour,
                  Locking::by_itself);
    }
}

void draw_veil(vel_context &ctx, const Rect &rect, vel_colour colour, u8 opacity) {
    PaintOp op{.kind = PaintOp::Kind::veil, .opacity = opacity, .colour = colour};
    op.area = area_of(sdl_rect(rect));
    paint(ctx, op);
}

void draw_image(vel_context &ctx, SDL_Surface *image, const Patch &patch) {
    if (image == nullptr) return;
    paint(ctx, image_op(image, patch));
}

} // namespace velumo
