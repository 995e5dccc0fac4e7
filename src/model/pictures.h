// Pictures of files, checked before and after SDL_image decodes them. For the model's assets.
#pragma once

#include <map>
#include <string>

#include "model/form_files.h"

namespace velumo {

class PictureLoading {
public:
    explicit PictureLoading(const vel_context &ctx) : ctx_(ctx), files_(ctx) {}

    // Null when there is no such picture, or none that the gate lets through. What was loaded
    // before, or was not, is not read again.
    SDL_Surface *load(const char *path);

private:
    SDL_Surface *load_checked(const char *path);
    std::string name_of(const char *path) const;
    SDL_Surface *load_first(const char *path);
    bool has_room_for(i64 pixels) const;

    const vel_context &ctx_;
    FormFiles files_;
    i64 pixels_ = 0;                             // of all that were decoded
    std::map<std::string, SDL_Surface *> known_; // the first of each file, whatever its path
};

} // namespace velumo
