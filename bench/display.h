// A surface to draw on and the font of the office form, in bare SDL. For the programs that use SDL.
#pragma once

#include <algorithm>
#include <cstdlib>

#include <SDL.h>
#include <SDL_ttf.h>

#include "measure.h"
#include "office_form.h"

namespace office {

struct Display {
    SDL_Surface *screen;
    TTF_Font *font;

    Uint32 pixel_of(std::uint32_t colour) const {
        return SDL_MapRGB(screen->format, static_cast<Uint8>(colour >> 16),
                          static_cast<Uint8>(colour >> 8), static_cast<Uint8>(colour));
    }
};

// Ends the program if the font is missing. Nothing shows: drawing stays in memory.
inline Display open_display() {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    measure::demand(SDL_Init(SDL_INIT_VIDEO) == 0 && TTF_Init() == 0, "SDL does not start");
    const Display display{SDL_SetVideoMode(width, height, 32, SDL_SWSURFACE),
                          TTF_OpenFont(font_path, font_size)};
    measure::demand(display.screen != nullptr, "there is no surface to draw on");
    measure::demand(display.font != nullptr, "DejaVu Sans is missing");
    return display;
}

// A surface with an alpha channel, of pixels 0xAARRGGBB.
inline SDL_Surface *surface_of(const std::vector<std::uint32_t> &pixels, int side) {
    SDL_Surface *const surface =
        SDL_CreateRGBSurface(SDL_SWSURFACE, side, side, 32, 0xFF0000, 0xFF00, 0xFF, 0xFF000000);
    measure::demand(surface != nullptr, "out of memory");
    std::copy(pixels.begin(), pixels.end(), static_cast<std::uint32_t *>(surface->pixels));
    return surface;
}

// The same in the format of the display, without an alpha channel.
inline SDL_Surface *opaque_surface_of(const std::vector<std::uint32_t> &pixels, int side) {
    SDL_Surface *const translucent = surface_of(pixels, side);
    SDL_Surface *const opaque = SDL_DisplayFormat(translucent);
    SDL_FreeSurface(translucent);
    measure::demand(opaque != nullptr, "out of memory");
    SDL_SetAlpha(opaque, 0, 255);
    return opaque;
}

inline SDL_Surface *picture_of(Kind kind) {
    if (kind == Kind::translucent_picture) return surface_of(picture(true), picture_size);
    return opaque_surface_of(picture(false), picture_size);
}

} // namespace office
