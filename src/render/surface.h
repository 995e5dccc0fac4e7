// Pixels, lines, boxes, pictures and lines of text, painted at once or with the picture that is
// being made. For all drawing.
#pragma once

#include "render/painting.h"

namespace velumo {

// A place in 32-bit numbers that wrap, as lines are given.
struct Pixel {
    u32 x, y;
};

// Only the low byte of an object's colour component counts.
inline vel_colour colour_of(u32 r, u32 g, u32 b) {
    return {static_cast<u8>(r), static_cast<u8>(g), static_cast<u8>(b)};
}
inline vel_colour fill_colour(const vel_object &o) {
    return colour_of(o.fill_r, o.fill_g, o.fill_b);
}
inline vel_colour text_colour(const vel_object &o) {
    return colour_of(o.text_r, o.text_g, o.text_b);
}

// What lies outside the surface is dropped.
void draw_pixel(vel_context &ctx, Pixel at, vel_colour colour);
enum class Locking { by_caller, by_itself };
void draw_line(vel_context &ctx, Pixel from, Pixel to, vel_colour colour, Locking locking);
void draw_box(vel_context &ctx, const Rect &rect, vel_colour colour);
// The outermost pixels of a rectangle; takes the lock itself.
void draw_outline(vel_context &ctx, const Rect &rect, vel_colour colour);
void draw_veil(vel_context &ctx, const Rect &rect, vel_colour colour, u8 opacity);

// Where a part of a surface shows, and which part that is.
struct Patch {
    i64 x, y, from_x, from_y, width, height;
};
void draw_image(vel_context &ctx, SDL_Surface *image, const Patch &patch);
void draw_text(vel_context &ctx, const TextLine &line, const Patch &patch);

} // namespace velumo
