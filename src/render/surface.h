// Pixels, lines and boxes on the screen, and its lock. For all drawing.
#pragma once

#include "render/rect.h"

namespace velumo {

// A place in 32-bit numbers that wrap, as lines are given.
struct Pixel {
    u32 x, y;
};

// Only the low byte of an object's colour component counts.
inline vel_colour colour_of(u32 r, u32 g, u32 b) {
    return {static_cast<u8>(r), static_cast<u8>(g), static_cast<u8>(b)};
}

void lock(SDL_Surface *surface);
void unlock(SDL_Surface *surface);

class ScreenLock {
public:
    explicit ScreenLock(vel_context &ctx) : screen_(ctx.screen) { lock(screen_); }
    ~ScreenLock() { unlock(screen_); }
    ScreenLock(const ScreenLock &) = delete;
    ScreenLock &operator=(const ScreenLock &) = delete;

private:
    SDL_Surface *screen_;
};

// What lies outside the surface is dropped. Pixels and lines want the screen locked.
void draw_pixel(vel_context &ctx, Pixel at, vel_colour colour);
void draw_line(vel_context &ctx, Pixel from, Pixel to, vel_colour colour);
void draw_box(vel_context &ctx, const Rect &rect, vel_colour colour);
// The outermost pixels of a rectangle; takes the lock itself.
void draw_outline(vel_context &ctx, const Rect &rect, vel_colour colour);

} // namespace velumo
