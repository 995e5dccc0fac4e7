# Finds SDL 1.2 and its companions; used by our build and by the installed package.
#
# PkgConfig::VELUMO_SDL is what a user of velumo.h needs, PkgConfig::VELUMO_SDL_IMAGE what only the
# library itself needs. Both are imported targets, so their headers count as system headers.

find_package(PkgConfig REQUIRED)
pkg_check_modules(VELUMO_SDL REQUIRED IMPORTED_TARGET GLOBAL sdl SDL_ttf)
pkg_check_modules(VELUMO_SDL_IMAGE REQUIRED IMPORTED_TARGET GLOBAL SDL_image)
