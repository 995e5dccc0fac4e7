// A surface whose pixels end, or begin, at a page that nobody may touch: SDL itself is not watched
// by the sanitizers. For the targets.
#pragma once

#include <SDL.h>

#include "input.h"
#include "velumo.h"

namespace fuzz {

struct SurfaceShape {
    int width, height, depth;
    bool at_end; // the last pixel is the last byte before the guard; else the first pixel the first
    enum class Fault { none, no_pixels, short_rows } fault = Fault::none;
};

// Widths up to 100, heights up to 80, sometimes twice as much, depths from 1 to 32 and mostly those
// that SDL knows; a few that nobody can draw on.
SurfaceShape read_shape(Input &input);

class Stage {
public:
    Stage();

    // SDL_FreeSurface leaves the pixels alone. They are forgotten when the next one is made.
    SDL_Surface *make_surface(const SurfaceShape &shape) const;
    // Gives a context such a surface as its screen, and what else a form needs.
    void set_up(vel_context &ctx, const SurfaceShape &shape) const;

private:
    u8 *begin_, *end_;
};

} // namespace fuzz
