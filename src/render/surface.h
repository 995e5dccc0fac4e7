// Pixels, lines, boxes, pictures and lines of text, painted at once or with the picture that is
// being made. For all drawing.
#pragma once

#include "render/colour.h"
#include "render/painting.h"

namespace velumo {

// A place in 32-bit numbers that wrap, as lines are given.
struct Pixel {
    u32 x, y;
};

// What lies outside the surface is dropped.
void draw_pixel(vel_context &ctx, Pixel at, vel_colour colour);
enum class Locking { by_caller, by_itself };
void draw_line(vel_context &ctx, Pixel from, Pixel to, vel_colour colour, Locking locking);
void draw_box(vel_context &ctx, const Rect &rect, vel_colour colour);
// The outermost pixels of a rectangle; takes the lock itself.
void draw_outline(vel_context &ctx, const Rect &rect, vel_colour colour);
void draw_veil(vel_context &ctx, const Rect &rect, vel_colour colour, u8 opacity);
void draw_image(vel_context &ctx, SDL_Surface *image, const Patch &patch);

} // namespace velumo
