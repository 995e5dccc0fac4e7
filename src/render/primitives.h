// Boxes, lines and the lock of the screen. For all drawing.
#pragma once

#include "model/objects.h"

namespace velumo {

// Only the low byte of an object's colour component counts.
inline vel_colour colour_of(u32 r, u32 g, u32 b) {
    return {static_cast<u8>(r), static_cast<u8>(g), static_cast<u8>(b)};
}

inline void draw_box(vel_context &ctx, u32 x, u32 y, u32 width, u32 height, vel_colour c) {
    vel_draw_box(&ctx, x, y, width, height, c.r, c.g, c.b);
}
inline void draw_line(vel_context &ctx, u32 x1, u32 y1, u32 x2, u32 y2, vel_colour c) {
    vel_draw_line(&ctx, x1, y1, x2, y2, c.r, c.g, c.b);
}
inline void draw_rectangle(vel_context &ctx, u32 x, u32 y, u32 width, u32 height, vel_colour c) {
    vel_draw_rectangle(&ctx, x, y, width, height, c.r, c.g, c.b);
}

class ScreenLock {
public:
    explicit ScreenLock(vel_context &ctx) : screen_(ctx.screen) { vel_lock(screen_); }
    ~ScreenLock() { vel_unlock(screen_); }
    ScreenLock(const ScreenLock &) = delete;
    ScreenLock &operator=(const ScreenLock &) = delete;

private:
    SDL_Surface *screen_;
};

} // namespace velumo
