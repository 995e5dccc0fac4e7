// Boxes, runs of pixels, veils and surfaces onto the screen. For painting.
#pragma once

#include "render/paint_op.h"

namespace velumo {

void lock(SDL_Surface *surface);
void unlock(SDL_Surface *surface);

void fill_area(SDL_Surface &screen, const Area &area, vel_colour colour);
// Pixel by pixel into the memory of the surface; the area lies on it.
void fill_run(SDL_Surface &screen, const Area &area, vel_colour colour);
void lay_veil(SDL_Surface &screen, const Area &area, vel_colour colour, u8 opacity);
// A part of a surface, as large as the area; nothing when there is no surface.
void blit(SDL_Surface &screen, SDL_Surface *surface, i32 from_x, i32 from_y, const Area &area);

// A part of what an operation paints, all of it when the part is its area. A text is the image that
// it was rendered to. A surface that cannot hold the pixels of its size and depth gets none, with a
// line on standard output.
void paint_part(SDL_Surface &screen, const PaintOp &op, const Area &part);

} // namespace velumo
