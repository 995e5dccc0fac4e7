// Pictures of files, checked before and after SDL_image decodes them. For the model's assets.
#pragma once

#include "model/objects.h"

namespace velumo {

class PictureLoading {
public:
    explicit PictureLoading(const vel_context &ctx) : ctx_(ctx) {}

    // Null when there is no such picture, or none that the gate lets through.
    SDL_Surface *load(const char *path);

private:
    SDL_Surface *load_checked(const char *path);

    const vel_context &ctx_;
    i64 pixels_ = 0; // of all that were loaded
};

} // namespace velumo
