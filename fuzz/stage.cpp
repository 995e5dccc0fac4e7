#include "stage.h"

#include <cstdlib>
#include <cstring>
#include <sys/mman.h>

#include "world.h"

namespace fuzz {
namespace {

constexpr std::size_t page = 4096;
constexpr int most_columns = 100, most_rows = 80, most_scale = 2;
constexpr std::size_t most_pixels = most_scale * most_columns * most_scale * most_rows;
constexpr std::size_t room = (4 * most_pixels / page + 1) * page;

struct Masks {
    Uint32 r, g, b;
};

Masks masks_of(int depth) {
    if (depth == 15) return {0x7C00, 0x3E0, 0x1F};
    if (depth == 16) return {0xF800, 0x7E0, 0x1F};
    if (depth > 16) return {0xFF0000, 0xFF00, 0xFF};
    return {0, 0, 0};
}

} // namespace

SurfaceShape read_shape(Input &input) {
    constexpr int usual[] = {32, 32, 16, 8, 24, 15, 32, 16};
    const u8 kind = input.byte();
    const int depth = kind < 224 ? usual[kind % std::size(usual)] : kind % 32 + 1;
    const int scale = kind < 224 && (kind & 16) != 0 ? most_scale : 1;
    const int width = scale * (input.byte() % most_columns + 1);
    const int height = scale * (input.byte() % most_rows + 1);
    using Fault = SurfaceShape::Fault;
    const Fault fault = kind == 255   ? Fault::no_pixels
                        : kind == 254 ? Fault::short_rows
                                      : Fault::none;
    return {width, height, depth, (kind & 8) != 0, fault};
}

Stage::Stage() {
    void *const pages =
        mmap(nullptr, room + 2 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) std::abort();
    begin_ = static_cast<u8 *>(pages) + page;
    end_ = begin_ + room;
    if (mprotect(begin_, room, PROT_READ | PROT_WRITE) != 0) std::abort();
}

SDL_Surface *Stage::make_surface(const SurfaceShape &shape) const {
    const int pixel = (shape.depth + 7) / 8;
    const int pitch = (shape.width * pixel + 3) / 4 * 4;
    const auto size = static_cast<std::size_t>(pitch * shape.height);
    u8 *const pixels = shape.at_end ? end_ - size : begin_;
    std::memset(pixels, 0, size);
    const Masks masks = masks_of(shape.depth);
    SDL_Surface *const surface = SDL_CreateRGBSurfaceFrom(
        pixels, shape.width, shape.height, shape.depth, pitch, masks.r, masks.g, masks.b, 0);
    if (shape.fault == SurfaceShape::Fault::no_pixels) surface->pixels = nullptr;
    if (shape.fault == SurfaceShape::Fault::short_rows) surface->pitch /= 2;
    return surface;
}

void Stage::set_up(vel_context &ctx, const SurfaceShape &shape) const {
    const auto width = static_cast<u16>(shape.width), height = static_cast<u16>(shape.height);
    ctx.screen = make_surface(shape);
    ctx.font = lasting_font();
    ctx.screen_width = width, ctx.screen_height = height;
    ctx.screen_rect = {0, 0, width, height};
    ctx.texts_loaded = 1;
}

} // namespace fuzz
