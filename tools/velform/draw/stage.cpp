#include "draw/stage.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <new>

#include <fmt/format.h>

#include "base/status.h"

namespace velform {
namespace {

constexpr std::uint32_t largest_side = 8192;
constexpr vel_colour mark_colour{0x2F, 0x6F, 0xDE};

Surface owned(SDL_Surface *surface) {
    if (surface == nullptr) throw std::bad_alloc();
    return Surface(surface);
}

// 0 for what is no side.
std::uint32_t side_in(std::string_view digits) {
    std::uint32_t side = 0;
    const char *const end = digits.data() + digits.size();
    const auto [stop, fault] = std::from_chars(digits.data(), end, side);
    return fault == std::errc{} && stop == end && side <= largest_side ? side : 0;
}

// Events come to a loop only with a display, which need not be seen.
SDL_Surface *new_display(Size size) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    if (SDL_Init(SDL_INIT_VIDEO) != 0) throw FileProblem(SDL_GetError());
    return SDL_SetVideoMode(static_cast<int>(size.width), static_cast<int>(size.height), 32,
                            SDL_SWSURFACE);
}

} // namespace

Size size_in(std::string_view text) {
    const std::size_t cross = std::min(text.find('x'), text.size());
    const Size size{side_in(text.substr(0, cross)),
                    side_in(text.substr(std::min(cross + 1, text.size())))};
    if (size.width == 0 || size.height == 0) {
        throw WrongUsage(fmt::format("the size must be like 800x600, with sides of at most {}, not "
                                     "'{}'",
                                     largest_side, text));
    }
    return size;
}

Surface new_surface(Size size) {
    return owned(SDL_CreateRGBSurface(SDL_SWSURFACE, static_cast<int>(size.width),
                                      static_cast<int>(size.height), 32, 0xFF0000, 0xFF00, 0xFF,
                                      0));
}

Surface copy_of(SDL_Surface &surface) {
    return owned(SDL_ConvertSurface(&surface, surface.format, SDL_SWSURFACE));
}

Stage::Stage(const StageOptions &options) {
    ctx_.texts_loaded = 1;
    ctx_.comfort = VEL_COMFORT_ALL;
    ctx_.strict_pictures = options.any_picture ? 0 : 1;
    ctx_.mark_colour_a = ctx_.mark_colour_b = mark_colour;
    ctx_.background_colour = options.background;
    if (TTF_Init() != 0) throw FileProblem(fmt::format("no fonts: {}", TTF_GetError()));
    open_screen(options);
    // A pipe would be waited for.
    if (std::filesystem::is_regular_file(options.font)) {
        ctx_.font = TTF_OpenFont(options.font.c_str(), options.font_size);
    } else {
        SDL_SetError("it is not there, or no file");
    }
    if (ctx_.screen == nullptr || ctx_.font == nullptr) {
        const std::string fault = SDL_GetError();
        vel_close(&ctx_);
        throw FileProblem(fmt::format("cannot open the font {}: {}", options.font, fault));
    }
}

void Stage::open_screen(const StageOptions &options) {
    const auto [width, height] = options.size;
    ctx_.screen_width = width;
    ctx_.screen_height = height;
    ctx_.screen_rect.w = static_cast<Uint16>(width);
    ctx_.screen_rect.h = static_cast<Uint16>(height);
    ctx_.screen =
        options.takes_events ? new_display(options.size) : new_surface(options.size).release();
    if (ctx_.screen == nullptr) return;
    const auto [r, g, b] = ctx_.background_colour;
    SDL_FillRect(ctx_.screen, nullptr, SDL_MapRGB(ctx_.screen->format, r, g, b));
}

void Stage::check(std::int32_t result, const std::string &what) {
    if (result == VEL_OK) return;
    throw FileProblem(fmt::format("cannot load {}: {}", what, vel_error_text(result)));
}

} // namespace velform
