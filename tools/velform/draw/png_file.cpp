#include "draw/png_file.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <vector>

#include <png.h>

namespace velform {
namespace {

// Three bytes a pixel, row by row.
std::vector<std::uint8_t> rgb_of(const SDL_Surface &surface) {
    std::vector<std::uint8_t> rgb(static_cast<std::size_t>(surface.w) *
                                  static_cast<std::size_t>(surface.h) * 3);
    const int size = surface.format->BytesPerPixel;
    std::uint8_t *to = rgb.data();
    for (int y = 0; y < surface.h; ++y) {
        const auto *row = static_cast<const std::uint8_t *>(surface.pixels) + y * surface.pitch;
        for (int x = 0; x < surface.w; ++x, to += 3) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, row + x * size, static_cast<std::size_t>(size));
            SDL_GetRGB(pixel, surface.format, to, to + 1, to + 2);
        }
    }
    return rgb;
}

} // namespace

std::string png_bytes(const SDL_Surface &surface) {
    const std::vector<std::uint8_t> rgb = rgb_of(surface);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<std::uint32_t>(surface.w);
    image.height = static_cast<std::uint32_t>(surface.h);
    image.format = PNG_FORMAT_RGB;
    std::string bytes(PNG_IMAGE_PNG_SIZE_MAX(image), '\0');
    png_alloc_size_t size = bytes.size();
    if (!png_image_write_to_memory(&image, bytes.data(), &size, 0, rgb.data(), 0, nullptr)) {
        throw std::runtime_error(image.message);
    }
    bytes.resize(size);
    return bytes;
}

} // namespace velform
