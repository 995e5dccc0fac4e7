#include "model/pictures.h"

#include <SDL_image.h>
#include <cstring>
#include <new>
#include <strings.h>

#include "model/guard.h"
#include "model/picture_gate.h"

namespace velumo {
namespace {

// Of one call: a form could show one large picture a thousand times.
constexpr i64 most_pixels_in_all = 2 * most_pixels;

struct StreamCloser {
    void operator()(SDL_RWops *stream) const { SDL_RWclose(stream); }
};
using Stream = std::unique_ptr<SDL_RWops, StreamCloser>;

const char *extension_of(const char *path) {
    const char *dot = std::strrchr(path, '.');
    return dot == nullptr ? "" : dot + 1;
}

// SDL_image takes what is named so for one, whatever it holds.
bool is_named_tga(const char *path) { return strcasecmp(extension_of(path), "tga") == 0; }

PictureFormat format_of(Bytes file, const char *path) {
    return is_named_tga(path) ? PictureFormat::other : picture_format(file);
}

// With its palette, transparent colour and opacity. SDL's own conversion to the same format paints
// pixel by pixel, and refuses a palette that is all black.
SDL_Surface *copy_of(const SDL_Surface &s) {
    const SDL_PixelFormat &f = *s.format;
    SDL_Surface *copy = SDL_CreateRGBSurface(SDL_SWSURFACE, s.w, s.h, f.BitsPerPixel, f.Rmask,
                                             f.Gmask, f.Bmask, f.Amask);
    if (copy == nullptr) return nullptr;
    const auto row_of = [](const SDL_Surface &surface, int y) {
        return static_cast<u8 *>(surface.pixels) + std::ptrdiff_t{y} * surface.pitch;
    };
    for (int y = 0; y < s.h; ++y) {
        std::memcpy(row_of(*copy, y), row_of(s, y),
                    static_cast<std::size_t>(s.w * f.BytesPerPixel));
    }
    if (f.palette != nullptr) {
        SDL_SetColors(copy, f.palette->colors, 0, f.palette->ncolors);
        copy->format->palette->ncolors = f.palette->ncolors;
    }
    SDL_SetColorKey(copy, s.flags & (SDL_SRCCOLORKEY | SDL_RLEACCEL), f.colorkey);
    SDL_SetAlpha(copy, s.flags & (SDL_SRCALPHA | SDL_RLEACCEL), f.alpha);
    return copy;
}

SDL_Surface *decode(PictureFormat format, SDL_RWops *stream, const char *path) {
    switch (format) {
    case PictureFormat::png:
        return IMG_LoadPNG_RW(stream);
    case PictureFormat::bmp:
        return IMG_LoadBMP_RW(stream);
    case PictureFormat::jpeg:
        return IMG_isJPG(stream) != 0 ? IMG_LoadJPG_RW(stream) : nullptr;
    case PictureFormat::other:
        break;
    }
    return IMG_LoadTyped_RW(stream, 0, const_cast<char *>(extension_of(path)));
}

} // namespace

SDL_Surface *PictureLoading::load(const char *path) {
    if (is_guarded || is_in_program(ctx_, path)) return load_checked(path);
    return File(path, Access::read_only).size() ? IMG_Load(path) : nullptr;
}

// Each object has pixels of its own, which the program may change. Without memory there are none.
SDL_Surface *PictureLoading::load_checked(const char *path) try {
    const auto [known, is_new] = known_.try_emplace(name_of(path), nullptr);
    if (is_new) return known->second = load_first(path);
    SDL_Surface *first = known->second;
    if (first == nullptr || !has_room_for(i64{first->w} * first->h)) return nullptr;
    SDL_Surface *copy = copy_of(*first);
    if (copy != nullptr) pixels_ += i64{copy->w} * copy->h;
    return copy;
} catch (const std::bad_alloc &) {
    return nullptr;
}

// A form could name one file in a thousand ways.
std::string PictureLoading::name_of(const char *path) const {
    const std::string file = is_in_program(ctx_, path) ? path : identity_of(path);
    return is_named_tga(path) ? "tga " + file : file;
}

bool PictureLoading::has_room_for(i64 pixels) const {
    return pixels_ + pixels <= most_pixels_in_all;
}

SDL_Surface *PictureLoading::load_first(const char *path) {
    const FileContent content = files_.read(path);
    if (content.error != FileError::none || content.size == 0) return nullptr;
    const PictureFormat format = format_of(content.bytes(), path);
    if (format == PictureFormat::other && ctx_.strict_pictures != 0) return nullptr;
    const i64 pixels = pixels_to_decode(format, content.bytes());
    if (format != PictureFormat::other && pixels == 0) return nullptr;
    if (!has_room_for(pixels)) return nullptr;
    const Stream stream(SDL_RWFromConstMem(content.bytes().data(), static_cast<int>(content.size)));
    if (stream == nullptr) return nullptr;
    SDL_Surface *picture = decode(format, stream.get(), path);
    if (picture != nullptr && !is_drawable_picture(*picture)) {
        SDL_FreeSurface(picture);
        picture = nullptr;
    }
    // Of what is not checked before, nobody knows how long it took to fail.
    constexpr i64 pixels_of_a_failure = i64{1} << 20;
    pixels_ += pixels != 0          ? pixels
               : picture != nullptr ? i64{picture->w} * picture->h
                                    : pixels_of_a_failure;
    return picture;
}

} // namespace velumo
