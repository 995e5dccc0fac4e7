// A surface as the bytes of a PNG file.
#pragma once

#include <string>

#include <SDL.h>

namespace velform {

// Takes a software surface of any depth; alpha is dropped. Throws std::runtime_error.
std::string png_bytes(const SDL_Surface &surface);

} // namespace velform
