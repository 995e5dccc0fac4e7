#include "render/pixels.h"

#include <cstdio>

#include "model/guard.h"

namespace velumo {
namespace {

bool must_be_locked(const SDL_Surface *surface) {
    return surface != nullptr && SDL_MUSTLOCK(surface);
}

Uint32 value_of(const SDL_Surface &surface, vel_colour c) {
    return SDL_MapRGB(surface.format, c.r, c.g, c.b);
}

// Each row starts at a whole cell of its size.
template <class Cell> void fill_cells(SDL_Surface &surface, const Area &area, Uint32 value) {
    auto *cells = static_cast<Cell *>(surface.pixels);
    for (i32 y = area.top; y < area.bottom; ++y) {
        const std::size_t row = static_cast<u32>(y) * surface.pitch / sizeof(Cell);
        std::fill(cells + row + area.left, cells + row + area.right, static_cast<Cell>(value));
    }
}

void say_for_each_pixel(const Area &area, const char *message) {
    for (i64 k = 0; k < area.size(); ++k) std::puts(message);
}

constexpr const char *depth_message = "Error - can't get color depth. ";

// SDL makes surfaces of any depth up to 32, and cuts the bytes of a row to 16 bits. What has to be
// locked, or is encoded, may have its pixels elsewhere.
bool holds_pixels(const SDL_Surface &s) {
    constexpr int depths[] = {8, 15, 16, 24, 32};
    const SDL_PixelFormat &f = *s.format;
    const bool has_depth =
        std::find(std::begin(depths), std::end(depths), f.BitsPerPixel) != std::end(depths);
    const bool has_rows = s.w >= 0 && s.h >= 0 && s.pitch >= i64{s.w} * f.BytesPerPixel;
    return has_depth && has_rows && (s.pixels != nullptr || must_be_locked(&s));
}

void refuse(const PaintOp &op, const Area &part) {
    say_for_each_pixel(op.kind == PaintOp::Kind::run ? part : Area{0, 0, 1, 1}, depth_message);
}

} // namespace

void lock(SDL_Surface *surface) {
    if (must_be_locked(surface)) SDL_LockSurface(surface);
}

void unlock(SDL_Surface *surface) {
    if (must_be_locked(surface)) SDL_UnlockSurface(surface);
}

void fill_area(SDL_Surface &screen, const Area &area, vel_colour colour) {
    SDL_Rect rect = sdl_rect(area);
    SDL_FillRect(&screen, &rect, value_of(screen, colour));
}

void fill_run(SDL_Surface &screen, const Area &area, vel_colour colour) {
    if (screen.pixels == nullptr) return;
    const Uint32 value = value_of(screen, colour);
    switch (screen.format->BytesPerPixel) {
    case 1:
        fill_cells<Uint8>(screen, area, value);
        break;
    case 2:
        fill_cells<Uint16>(screen, area, value);
        break;
    // On purpose: pixels of three bytes are refused, with a line for each.
    case 3:
        say_for_each_pixel(area, "24 bit is not supported ! ");
        break;
    case 4:
        fill_cells<Uint32>(screen, area, value);
        break;
    default:
        say_for_each_pixel(area, depth_message);
        break;
    }
}

// Without memory for it there is no veil.
void lay_veil(SDL_Surface &screen, const Area &area, vel_colour colour, u8 opacity) {
    SDL_Rect at = sdl_rect(common(area, area_of(screen)));
    const SDL_PixelFormat &f = *screen.format;
    SDL_Surface *veil = SDL_CreateRGBSurface(SDL_SWSURFACE, at.w, at.h, f.BitsPerPixel, f.Rmask,
                                             f.Gmask, f.Bmask, 0);
    if (veil == nullptr) return;
    SDL_FillRect(veil, nullptr, value_of(*veil, colour));
    SDL_SetAlpha(veil, SDL_SRCALPHA, opacity);
    SDL_UpperBlit(veil, nullptr, &screen, &at);
    SDL_FreeSurface(veil);
}

void blit(SDL_Surface &screen, SDL_Surface *surface, i32 from_x, i32 from_y, const Area &area) {
    constexpr i32 last = 0x7FFF; // that SDL_Rect holds
    if (surface == nullptr || from_x > last || from_y > last) return;
    SDL_Rect to = sdl_rect(area);
    SDL_Rect from = sdl_rect(Rect{from_x, from_y, to.w, to.h});
    SDL_UpperBlit(surface, &from, &screen, &to);
}

void paint_part(SDL_Surface &screen, const PaintOp &op, const Area &part) {
    const bool has_image = op.kind == PaintOp::Kind::image && op.image != nullptr;
    if (is_guarded && !(holds_pixels(screen) && (!has_image || holds_pixels(*op.image)))) {
        return refuse(op, part);
    }
    switch (op.kind) {
    case PaintOp::Kind::box:
        fill_area(screen, part, op.colour);
        break;
    case PaintOp::Kind::run:
        if (op.takes_lock) lock(&screen);
        fill_run(screen, part, op.colour);
        if (op.takes_lock) unlock(&screen);
        break;
    case PaintOp::Kind::veil:
        lay_veil(screen, part, op.colour, op.opacity);
        break;
    case PaintOp::Kind::image:
    case PaintOp::Kind::text:
        blit(screen, op.image, op.from_x + part.left - op.area.left,
             op.from_y + part.top - op.area.top, part);
        break;
    case PaintOp::Kind::block: // its lines are painted one by one
        break;
    }
}

} // namespace velumo
