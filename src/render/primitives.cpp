// Pixels, lines, boxes and outlines on the screen.
#include "render/primitives.h"

#include <cstdio>
#include <cstring>

#include "render/rect.h"

namespace velumo {
namespace {

// Pixels of one row or column from (x, y) on.
struct Run {
    u32 x, y, count;
    bool down;
};

template <class Cell> void store(u8 *pixels, std::size_t offset, u32 value) {
    const auto cell = static_cast<Cell>(value);
    std::memcpy(pixels + offset, &cell, sizeof cell);
}

// Writes one pixel. Its row starts at a whole cell of its size.
void put_pixel(SDL_Surface &surface, u32 x, u32 y, u32 value) {
    auto *pixels = static_cast<u8 *>(surface.pixels);
    const u32 row = y * surface.pitch;
    switch (surface.format->BytesPerPixel) {
    case 1:
        store<std::uint8_t>(pixels, std::size_t{row} + x, value);
        break;
    case 2:
        store<std::uint16_t>(pixels, (std::size_t{row >> 1} + x) * 2, value);
        break;
    // On purpose: pixels of three bytes are refused, with a line for each.
    case 3:
        std::puts("24 bit is not supported ! ");
        break;
    case 4:
        store<std::uint32_t>(pixels, (std::size_t{row >> 2} + x) * 4, value);
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
    for (u32 k = 0; k < run.count; ++k) {
        put_pixel(surface, run.down ? run.x : run.x + k, run.down ? run.y + k : run.y, value);
    }
}

struct Stretch {
    u32 first, count;
};

// The coordinates that a line from start to end runs over, as far as they lie below size. The
// direction is told by the signed difference and the end by unsigned comparison, so a line across
// 0, from a negative coordinate to a positive one, has none.
Stretch visible_stretch(u32 start, u32 end, int size) {
    const bool falling = as_signed(start - end) > 0;
    const u32 first = falling ? end : start;
    const u32 last = std::min(falling ? start : end, static_cast<u32>(size) - 1);
    if ((falling ? start < end : start > end) || first > last) return {0, 0};
    return {first, last - first + 1};
}

bool is_on(const SDL_Surface &surface, u32 x, u32 y) {
    return x < static_cast<u32>(surface.w) && y < static_cast<u32>(surface.h);
}

bool must_be_locked(const SDL_Surface *surface) {
    return surface != nullptr && SDL_MUSTLOCK(surface);
}

} // namespace
} // namespace velumo

using namespace velumo;

void vel_lock(SDL_Surface *surface) noexcept {
    if (must_be_locked(surface)) SDL_LockSurface(surface);
}

void vel_unlock(SDL_Surface *surface) noexcept {
    if (must_be_locked(surface)) SDL_UnlockSurface(surface);
}

void vel_draw_pixel(vel_context *ctx, uint32_t x, uint32_t y, uint8_t red, uint8_t green,
                    uint8_t blue) noexcept {
    if (ctx->screen == nullptr || !is_on(*ctx->screen, x, y)) return;
    put_run(*ctx->screen, {x, y, 1, false}, {red, green, blue});
}

void vel_draw_line(vel_context *ctx, uint32_t x1, uint32_t y1, uint32_t x2, uint32_t y2,
                   uint8_t red, uint8_t green, uint8_t blue) noexcept {
    if (ctx->screen == nullptr) return;
    SDL_Surface &screen = *ctx->screen;
    // On purpose: a slanted line and a line of one pixel draw nothing.
    const bool across = x1 != x2 && y1 == y2;
    const bool down = x1 == x2 && y1 != y2;
    if (!(across || down) || !is_on(screen, across ? 0 : x1, across ? y1 : 0)) return;
    const Stretch seen =
        across ? visible_stretch(x1, x2, screen.w) : visible_stretch(y1, y2, screen.h);
    const Run run{across ? seen.first : x1, across ? y1 : seen.first, seen.count, down};
    put_run(screen, run, {red, green, blue});
}

void vel_draw_box(vel_context *ctx, uint32_t x, uint32_t y, uint32_t width, uint32_t height,
                  uint8_t red, uint8_t green, uint8_t blue) noexcept {
    if (ctx->screen == nullptr) return;
    SDL_Rect rect = sdl_rect(x, y, width, height);
    SDL_FillRect(ctx->screen, &rect, SDL_MapRGB(ctx->screen->format, red, green, blue));
}

void vel_draw_rectangle(vel_context *ctx, uint32_t x, uint32_t y, uint32_t width, uint32_t height,
                        uint8_t red, uint8_t green, uint8_t blue) noexcept {
    const u32 x2 = x + width - 1;
    const u32 y2 = y + height - 1;
    const vel_colour colour{red, green, blue};
    const ScreenLock lock(*ctx);
    draw_line(*ctx, x, y, x2, y, colour);
    draw_line(*ctx, x2, y, x2, y2, colour);
    draw_line(*ctx, x2, y2, x, y2, colour);
    draw_line(*ctx, x, y2, x, y, colour);
}
