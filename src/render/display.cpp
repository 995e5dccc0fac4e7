#include "render/display.h"

namespace velumo {
namespace {

// Keeps the part of a line from start, length pixels long, that lies on 0 to size - 1.
void cut_to(int size, Sint16 &start, Uint16 &length) {
    const int first = std::clamp<int>(start, 0, size);
    const int end = std::clamp<int>(start + length, first, size);
    start = static_cast<Sint16>(first);
    length = static_cast<Uint16>(end - first);
}

} // namespace

void update_display(const vel_context &ctx, SDL_Rect rect) {
    update_display(ctx, std::span(&rect, 1));
}

void update_display(const vel_context &ctx, std::span<SDL_Rect> rects) {
    const SDL_Surface *display = SDL_GetVideoSurface();
    if (display == nullptr || ctx.screen == nullptr) return;
    // An X server ends a program that shows pixels outside its surface.
    for (SDL_Rect &rect : rects) {
        cut_to(std::min(display->w, ctx.screen->w), rect.x, rect.w);
        cut_to(std::min(display->h, ctx.screen->h), rect.y, rect.h);
    }
    const auto end = std::remove_if(rects.begin(), rects.end(),
                                    [](const SDL_Rect &r) { return r.w == 0 || r.h == 0; });
    const auto count = static_cast<int>(end - rects.begin());
    if (count != 0) SDL_UpdateRects(ctx.screen, count, rects.data());
}

} // namespace velumo
