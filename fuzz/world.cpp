#include "world.h"

#include <SDL_image.h>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace fuzz {
namespace {

constexpr const char *font_file = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

using Fonts = std::map<std::pair<std::string, int>, TTF_Font *>;

Fonts &fonts() {
    static Fonts &all = *new Fonts; // open to the very end
    return all;
}

bool lasts(const TTF_Font *font) {
    for (const auto &[name, opened] : fonts()) {
        if (opened == font) return true;
    }
    return false;
}

// Opening the same font for every run takes longer than the run. Sizes are few for the same reason.
TTF_Font *open_once(const char *path, int size) {
    TTF_Font *&font = fonts()[{path, size}];
    if (font == nullptr) font = TTF_OpenFont(path, size);
    return font;
}

template <class T> T *counted(T *memory) {
    if (memory != nullptr) ++world().live;
    return memory;
}

} // namespace

World &world() {
    static World the_world;
    return the_world;
}

TTF_Font *lasting_font(int size) { return open_once(font_file, size); }

Bytes font_bytes() {
    static const std::vector<u8> bytes = [] {
        std::ifstream file(font_file, std::ios::binary);
        return std::vector<u8>(std::istreambuf_iterator<char>(file), {});
    }();
    return bytes;
}

void set_up_world() {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    if (SDL_Init(SDL_INIT_VIDEO) != 0 || TTF_Init() != 0) std::abort();
    if (SDL_SetVideoMode(64, 64, 32, SDL_SWSURFACE) == nullptr) std::abort();
    if (lasting_font() == nullptr) std::abort();
}

} // namespace fuzz

using fuzz::Call;
using fuzz::counted;
using fuzz::world;

// All targets have it from here.
extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    fuzz::set_up_world();
    return 0;
}

// The sanitizer's own checks cost more than the library's work.
extern "C" const char *__asan_default_options() {
    return "malloc_context_size=2:quarantine_size_mb=4:max_malloc_fill_size=0:check_printf=0:"
           "intercept_strlen=0:intercept_strchr=0";
}

// In place of std::chrono::steady_clock::now().
std::chrono::steady_clock::time_point
simulated_now() asm("__wrap__ZNSt6chrono3_V212steady_clock3nowEv");
std::chrono::steady_clock::time_point simulated_now() {
    return std::chrono::steady_clock::time_point(std::chrono::milliseconds(world().milliseconds));
}

extern "C" {

// --- Events

int __wrap_SDL_PollEvent(SDL_Event *event) {
    SDL_Event next{};
    if (world().next_event == nullptr || !world().next_event(next)) return 0;
    ++world().events;
    if (event != nullptr) *event = next;
    return 1;
}
void __wrap_SDL_PumpEvents() {}
int __wrap_SDL_PeepEvents(SDL_Event *, int, SDL_eventaction, Uint32) { return 0; }
int __wrap_SDL_PushEvent(SDL_Event *) { return 0; }
Uint8 __wrap_SDL_GetMouseState(int *x, int *y) {
    if (x != nullptr) *x = world().pointer_x;
    if (y != nullptr) *y = world().pointer_y;
    return 0;
}
SDLMod __wrap_SDL_GetModState() { return static_cast<SDLMod>(world().modifiers); }
SDL_Surface *__wrap_SDL_GetVideoSurface() { return world().display; }
// The surface stays as it is, so that the form is larger or smaller than what it is drawn on.
SDL_Surface *__wrap_SDL_SetVideoMode(int, int, int, Uint32) { return world().display; }

// An X server ends a program that shows pixels outside its surface.
void __wrap_SDL_UpdateRects(SDL_Surface *screen, int count, SDL_Rect *rects) {
    for (int k = 0; k < count; ++k) {
        const SDL_Rect &r = rects[k];
        if (r.x < 0 || r.y < 0 || r.x + r.w > screen->w || r.y + r.h > screen->h) std::abort();
    }
}

// --- Time

int __wrap_poll(void *, unsigned long, int timeout) {
    world().milliseconds += static_cast<unsigned>(timeout > 0 ? timeout : 1);
    return 0;
}

// --- What the library prints: read as printf would, and counted

int count_line(const char *format, std::va_list arguments) {
    char line[512];
    ++world().complaints;
    return std::vsnprintf(line, sizeof line, format, arguments);
}
int __wrap_printf(const char *format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const int length = count_line(format, arguments);
    va_end(arguments);
    return length;
}
int __wrap_fprintf(std::FILE *, const char *format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const int length = count_line(format, arguments);
    va_end(arguments);
    return length;
}
int __wrap_puts(const char *line) {
    ++world().complaints;
    return static_cast<int>(std::strlen(line));
}
int __wrap_putchar(int character) { return character; }
std::size_t __wrap_fwrite(const void *, std::size_t, std::size_t count, std::FILE *) {
    ++world().complaints;
    return count;
}

// --- Memory

void *__wrap_malloc(std::size_t size) {
    return fuzz::fails(Call::memory) ? nullptr : counted(std::malloc(size));
}
void *__wrap_calloc(std::size_t count, std::size_t size) {
    return fuzz::fails(Call::memory) ? nullptr : counted(std::calloc(count, size));
}
void __wrap_free(void *memory) {
    if (memory != nullptr) --world().live;
    std::free(memory);
}
SDL_Surface *__wrap_SDL_CreateRGBSurface(Uint32 flags, int width, int height, int depth, Uint32 r,
                                         Uint32 g, Uint32 b, Uint32 a) {
    if (fuzz::fails(Call::memory)) return nullptr;
    return counted(SDL_CreateRGBSurface(flags, width, height, depth, r, g, b, a));
}
SDL_Surface *__wrap_TTF_RenderText_Blended(TTF_Font *font, const char *text, SDL_Color colour) {
    if (fuzz::fails(Call::memory)) return nullptr;
    return counted(TTF_RenderText_Blended(font, text, colour));
}
// Whoever shares a surface frees it, too; the last one counts.
void __wrap_SDL_FreeSurface(SDL_Surface *surface) {
    if (surface != nullptr && surface->refcount == 1) --world().live;
    SDL_FreeSurface(surface);
}

// --- Fonts, and the end of SDL

// A library without guards opens fonts and pictures by their paths.
TTF_Font *__wrap_TTF_OpenFont(const char *path, int size) {
    const bool is_there = std::strcmp(path, fuzz::font_path) == 0 && !world().font.empty();
    return is_there ? fuzz::open_once(fuzz::font_file, size) : nullptr;
}
SDL_Surface *__wrap_IMG_Load(const char *path) {
    const fuzz::Bytes bytes = world().picture;
    if (std::strcmp(path, fuzz::picture_path) != 0 || bytes.empty()) return nullptr;
    return IMG_Load_RW(SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size())), 1);
}
void __wrap_TTF_CloseFont(TTF_Font *font) {
    if (!fuzz::lasts(font)) TTF_CloseFont(font);
}
void __wrap_TTF_Quit() {}
void __wrap_SDL_Quit() {}

} // extern "C"
