#include "render/surface.h"

#include <cstdio>
#include <cstring>

namespace velumo {
namespace {

// Pixels of one row or column from a place on.
struct Run {
    Pixel start;
    u32 count;
    bool down;
};

template <class Cell> void store(u8 *pixels, std::size_t offset, u32 value) {
    const auto cell = static_cast<Cell>(value);
    std::memcpy(pixels + offset, &cell, sizeof cell);
}

// Writes one pixel. Its row starts at a whole cell of its size.
void put_pixel(SDL_Surface &surface, Pixel at, u32 value) {
    auto *pixels = static_cast<u8 *>(surface.pixels);
    const u32 row = at.y * surface.pitch;
    switch (surface.format->BytesPerPixel) {
    case 1:
        store<std::uint8_t>(pixels, std::size_t{row} + at.x, value);
        break;
    case 2:
        store<std::uint16_t>(pixels, (std::size_t{row >> 1} + at.x) * 2, value);
        break;
    // On purpose: pixels of three bytes are refused, with a line for each.
    case 3:
        std::puts("24 bit is not supported ! ");
        break;
    case 4:
        store<std::uint32_t>(pixels, (std::size_t{row >> 2} + at.x) * 4, value);
        break;
    default:
        std::puts("Error - can't get color depth. ");
        break;
    }
}

// Draws a run that lies on the surface; the colour is mapped once for all of it.
void put_run(SDL_Surface &surface, const Run &run, vel_colour c) {
    if (surface.pixels == nullptr) return;
    const u32 value = SDL_MapRGB(surface.format, c.r, c.g, c.b);
    Pixel at = run.start;
    for (u32 k = 0; k < run.count; ++k) {
        put_pixel(surface, at, value);
        ++(run.down ? at.y : at.x);
    }
}

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

bool must_be_locked(const SDL_Surface *surface) {
    return surface != nullptr && SDL_MUSTLOCK(surface);
}

} // namespace

void lock(SDL_Surface *surface) {
    if (must_be_locked(surface)) SDL_LockSurface(surface);
}

void unlock(SDL_Surface *surface) {
    if (must_be_locked(surface)) SDL_UnlockSurface(surface);
}

void draw_pixel(vel_context &ctx, Pixel at, vel_colour colour) {
    if (ctx.screen == nullptr || !is_on(*ctx.screen, at)) return;
    put_run(*ctx.screen, {at, 1, false}, colour);
}

void draw_line(vel_context &ctx, Pixel from, Pixel to, vel_colour colour) {
    if (ctx.screen == nullptr) return;
    SDL_Surface &screen = *ctx.screen;
    // On purpose: a slanted line and a line of one pixel draw nothing.
    const bool across = from.x != to.x && from.y == to.y;
    const bool down = from.x == to.x && from.y != to.y;
    const Pixel fixed{across ? 0 : from.x, across ? from.y : 0};
    if (!(across || down) || !is_on(screen, fixed)) return;
    const Stretch seen =
        across ? visible_stretch(from.x, to.x, screen.w) : visible_stretch(from.y, to.y, screen.h);
    const Pixel start{across ? seen.first : from.x, across ? from.y : seen.first};
    put_run(screen, {start, seen.count, down}, colour);
}

void draw_box(vel_context &ctx, const Rect &rect, vel_colour c) {
    if (ctx.screen == nullptr) return;
    SDL_Rect r = sdl_rect(rect);
    SDL_FillRect(ctx.screen, &r, SDL_MapRGB(ctx.screen->format, c.r, c.g, c.b));
}

void draw_outline(vel_context &ctx, const Rect &rect, vel_colour colour) {
    const u32 left = as_field(rect.x);
    const u32 top = as_field(rect.y);
    const u32 right = as_field(rect.x + rect.width - 1);
    const u32 bottom = as_field(rect.y + rect.height - 1);
    const ScreenLock lock(ctx);
    draw_line(ctx, {left, top}, {right, top}, colour);
    draw_line(ctx, {right, top}, {right, bottom}, colour);
    draw_line(ctx, {right, bottom}, {left, bottom}, colour);
    draw_line(ctx, {left, bottom}, {left, top}, colour);
}

} // namespace velumo
