// What the library sees of the world outside: events, pointer, clock, fonts, files and folders. The
// linker puts all of it in place of the real ones (see CMakeLists.txt), so that a run waits for
// nothing, finds the same on every machine and reads its form from memory. For the targets.
#pragma once

#include <SDL.h>
#include <SDL_ttf.h>

#include "input.h"

namespace fuzz {

inline constexpr const char *form_path = "memory/form", *text_path = "memory/text",
                            *picture_path = "memory/picture", *font_path = "memory/font";

// What can fail, for fault loops.
enum class Call { memory, open, status, read, folder, name };
enum class Failure { none, error, interrupted, short_read };

struct World {
    Failure (*fails)(Call) = nullptr; // asked before each call; null = nothing fails
    unsigned long events = 0;         // that were polled
    unsigned long complaints = 0;     // lines that the library printed
    long live = 0;                    // pieces of memory and surfaces that were not freed

    Bytes form, text, picture, font;           // what these files hold
    bool (*next_event)(SDL_Event &) = nullptr; // false = none is waiting
    SDL_Surface *display = nullptr;            // what SDL_GetVideoSurface returns
    int pointer_x = 0, pointer_y = 0, modifiers = 0;
    std::uint64_t milliseconds = 1000000; // goes on while a loop rests
};

World &world();

inline bool fails(Call call) {
    return world().fails != nullptr && world().fails(call) != Failure::none;
}

// SDL, the fonts and files that all runs share. The targets call it by themselves.
void set_up_world();

// A font that stays open whatever closes it, and the bytes of its file.
TTF_Font *lasting_font(int size = 10);
Bytes font_bytes();

} // namespace fuzz
