#include "draw/picture_difference.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include <fmt/format.h>
#include <png.h>

#include "base/files.h"

namespace velform {
namespace {

constexpr std::uint32_t longest_side = 8192;
constexpr std::uint32_t red = 0xD61F2C, white = 0xFFFFFF;

std::uint32_t *row_of(const SDL_Surface &surface, int y) {
    return reinterpret_cast<std::uint32_t *>(static_cast<std::uint8_t *>(surface.pixels) +
                                             y * surface.pitch);
}

std::uint32_t rgb_at(const SDL_Surface &surface, int x, int y) {
    std::uint8_t r = 0, g = 0, b = 0;
    SDL_GetRGB(row_of(surface, y)[x], surface.format, &r, &g, &b);
    return std::uint32_t{r} << 16 | std::uint32_t{g} << 8 | b;
}

std::uint32_t paler(std::uint32_t rgb) {
    const auto part = [rgb](int shift) { return 0xC0 + (rgb >> shift & 0xFF) / 4; };
    return part(16) << 16 | part(8) << 8 | part(0);
}

bool has_pixel(const SDL_Surface &surface, int x, int y) { return x < surface.w && y < surface.h; }

} // namespace

Surface read_png(const std::string &path) {
    const std::string bytes = read_file(path);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    const auto fail = [&](const std::string &why) -> Surface {
        png_image_free(&image);
        throw FileProblem(fmt::format("cannot read {} as a picture: {}", path, why));
    };
    if (!png_image_begin_read_from_memory(&image, bytes.data(), bytes.size())) {
        return fail(image.message);
    }
    if (std::max(image.width, image.height) > longest_side) return fail("it is too large");
    image.format = PNG_FORMAT_RGB;
    std::vector<std::uint8_t> rgb(PNG_IMAGE_SIZE(image));
    const png_color ground{0xFF, 0xFF, 0xFF};
    if (!png_image_finish_read(&image, &ground, rgb.data(), 0, nullptr)) {
        return fail(image.message);
    }
    Surface surface = new_surface({image.width, image.height});
    const std::uint8_t *from = rgb.data();
    for (int y = 0; y < surface->h; ++y) {
        for (int x = 0; x < surface->w; ++x, from += 3) {
            row_of(*surface, y)[x] = SDL_MapRGB(surface->format, from[0], from[1], from[2]);
        }
    }
    return surface;
}

PictureDifference difference_of(const SDL_Surface &one, const SDL_Surface &other) {
    const int width = std::max(one.w, other.w), height = std::max(one.h, other.h);
    PictureDifference difference;
    difference.picture =
        new_surface({static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)});
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool are_there = has_pixel(one, x, y) && has_pixel(other, x, y);
            const bool is_nowhere = !has_pixel(one, x, y) && !has_pixel(other, x, y);
            const bool is_same = are_there && rgb_at(one, x, y) == rgb_at(other, x, y);
            if (!is_same && !is_nowhere) ++difference.pixels;
            const std::uint32_t same = is_same ? paler(rgb_at(one, x, y)) : white;
            row_of(*difference.picture, y)[x] = is_same || is_nowhere ? same : red;
        }
    }
    return difference;
}

} // namespace velform
