// Where two pictures differ. For render --compare.
#pragma once

#include <string>

#include "draw/stage.h"

namespace velform {

// Throws FileProblem for what is no PNG file, or too large a one.
Surface read_png(const std::string &path);

struct PictureDifference {
    std::uint64_t pixels = 0; // those that only the larger picture has count as well
    Surface picture;          // the differing ones red on the rest, which is paler
};

// Both are 32 bits deep. Throws std::bad_alloc.
PictureDifference difference_of(const SDL_Surface &one, const SDL_Surface &other);

} // namespace velform
