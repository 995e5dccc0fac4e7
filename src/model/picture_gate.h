// Whether a picture file is whole and of a size that fits into memory, before it is decoded. For
// loading pictures.
#pragma once

#include <SDL.h>

#include "model/bytes.h"

namespace velumo {

constexpr i64 most_pixels = i64{1} << 26; // of a picture

enum class PictureFormat { png, bmp, jpeg, other };
PictureFormat picture_format(Bytes file);

// The pixels of a PNG, BMP or JPEG picture, or as many as take as long to decode; 0 when a part of
// it is missing or impossible.
i64 pixels_to_decode(PictureFormat format, Bytes file);

// Whether the library can draw what SDL_image made of a file.
bool is_drawable_picture(const SDL_Surface &picture);

} // namespace velumo
