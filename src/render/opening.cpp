#include "render/opening.h"

#include <cstdlib>
#include <optional>
#include <string>

#include "render/default_font.h"
#include "render/display.h"
#include "render/surface.h"

namespace velumo {
namespace {

constexpr u32 widest = 16383, highest = 16383;
constexpr i64 most_pixels = i64{1} << 26;
constexpr int depth = 32;
constexpr u32 all_flags = VEL_OPEN_RESIZABLE | VEL_OPEN_FULLSCREEN;

constexpr u32 largest_font = 2000, usual_font = 12; // points
constexpr u32 usual_scroll_step = 20;
constexpr vel_colour desk{227, 233, 240}, blue{47, 111, 222}, orange{217, 112, 59};

constexpr const char *driver_variable = "SDL_VIDEODRIVER";
// Of SDL and of what stands in for it on newer systems. All of them show pixels.
constexpr const char *graphical_drivers[] = {"x11", "wayland", "directfb", "kmsdrm", "fbcon"};

// Sets the variable as long as it lives.
class DriverChoice {
public:
    DriverChoice() {
        const char *before = std::getenv(driver_variable);
        if (before != nullptr) before_ = before;
    }
    ~DriverChoice() {
        if (before_)
            setenv(driver_variable, before_->c_str(), 1);
        else
            unsetenv(driver_variable);
    }
    DriverChoice(const DriverChoice &) = delete;
    DriverChoice &operator=(const DriverChoice &) = delete;

    std::string made() const { return before_.value_or(""); }
    static void choose(const char *driver) { setenv(driver_variable, driver, 1); }

private:
    std::optional<std::string> before_;
};

// Forms drawn with letters would be of no use to anybody.
bool draws_with_letters(const std::string &driver) { return driver == "aalib" || driver == "caca"; }

// What stands in for SDL on newer systems says yes to a driver after one that failed, and has
// started none. It would start one that shows nothing later, without a choice.
bool starts_chosen_driver() {
    if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) return false;
    if (SDL_WasInit(SDL_INIT_VIDEO) != 0) return true;
    SDL_SetError("no display is available");
    return false;
}

// Left to itself, SDL would go on to drivers that draw with letters. What is wrong with the first
// driver is what the user wants to know.
bool start_video() {
    const DriverChoice choice;
    const std::string made = choice.made();
    if (draws_with_letters(made)) {
        SDL_SetError("no display is available: SDL_VIDEODRIVER is %s", made.c_str());
        return false;
    }
    if (!made.empty()) return starts_chosen_driver();
    std::string error;
    for (const char *driver : graphical_drivers) {
        choice.choose(driver);
        if (starts_chosen_driver()) return true;
        if (error.empty()) error = SDL_GetError();
    }
    SDL_SetError("%s", error.c_str());
    return false;
}

TTF_Font *open_font(const vel_context &ctx) {
    const int size = static_cast<int>(ctx.font_size == 0 ? usual_font : ctx.font_size);
    if (ctx.font_path != nullptr) return TTF_OpenFont(ctx.font_path, size);
    const auto found = find_default_font();
    if (!found) return nullptr;
    return found->index == 0 ? TTF_OpenFont(found->path.c_str(), size)
                             : TTF_OpenFontIndex(found->path.c_str(), size, found->index);
}

Uint32 mode_flags(u32 open_flags) {
    Uint32 flags = SDL_SWSURFACE;
    if ((open_flags & VEL_OPEN_RESIZABLE) != 0) flags |= SDL_RESIZABLE;
    if ((open_flags & VEL_OPEN_FULLSCREEN) != 0) flags |= SDL_FULLSCREEN;
    return flags;
}

// What was started and opened, and is given back unless it is kept.
class Opening {
public:
    explicit Opening(const vel_context &ctx)
        : ctx_(ctx), had_fonts_(TTF_WasInit() != 0), had_video_(SDL_WasInit(SDL_INIT_VIDEO) != 0) {}
    ~Opening() {
        if (is_kept_) return;
        const std::string error = SDL_GetError();
        if (font_ != nullptr && font_ != ctx_.font) TTF_CloseFont(font_);
        if (!had_fonts_ && TTF_WasInit() != 0) TTF_Quit();
        if (!had_video_ && SDL_WasInit(SDL_INIT_VIDEO) != 0) SDL_QuitSubSystem(SDL_INIT_VIDEO);
        SDL_SetError("%s", error.c_str());
    }
    Opening(const Opening &) = delete;
    Opening &operator=(const Opening &) = delete;

    // The font comes first: a display that would not stay does not flash up.
    i32 open(u32 width, u32 height) {
        if (!had_fonts_ && TTF_Init() != 0) return VEL_ERROR_FONT;
        font_ = ctx_.font != nullptr ? ctx_.font : open_font(ctx_);
        if (font_ == nullptr) return VEL_ERROR_FONT;
        if (!had_video_ && !start_video()) return VEL_ERROR_DISPLAY;
        screen_ = SDL_SetVideoMode(static_cast<int>(width), static_cast<int>(height), depth,
                                   mode_flags(ctx_.open_flags));
        return screen_ == nullptr ? VEL_ERROR_DISPLAY : VEL_OK;
    }

    void keep(vel_context &ctx) {
        is_kept_ = true;
        ctx.font = font_;
        ctx.screen = screen_;
    }

private:
    const vel_context &ctx_;
    const bool had_fonts_, had_video_;
    TTF_Font *font_ = nullptr;
    SDL_Surface *screen_ = nullptr;
    bool is_kept_ = false;
};

void set_if_unset(vel_colour &colour, vel_colour to) {
    if (colour.r == 0 && colour.g == 0 && colour.b == 0) colour = to;
}

void set_what_is_unset(vel_context &ctx) {
    set_if_unset(ctx.background_colour, desk);
    set_if_unset(ctx.mark_colour_a, blue);
    set_if_unset(ctx.mark_colour_b, orange);
    ctx.mark_colour = ctx.mark_colour_a;
    if (ctx.scroll_step == 0) ctx.scroll_step = usual_scroll_step;
    if (ctx.comfort == 0) ctx.comfort = VEL_COMFORT_ALL;
    ctx.texts_loaded = 1;
}

void note_screen_size(vel_context &ctx) {
    ctx.screen_width = static_cast<u32>(ctx.screen->w);
    ctx.screen_height = static_cast<u32>(ctx.screen->h);
    ctx.screen_rect = {0, 0, static_cast<Uint16>(ctx.screen->w),
                       static_cast<Uint16>(ctx.screen->h)};
}

} // namespace

bool is_display_size(u32 width, u32 height) {
    return width >= 1 && width <= widest && height >= 1 && height <= highest &&
           i64{width} * height <= most_pixels;
}

i32 open_display(vel_context &ctx, u32 width, u32 height, const char *title) {
    const bool is_right = ctx.screen == nullptr && is_display_size(width, height) &&
                          ctx.font_size <= largest_font && (ctx.open_flags & ~all_flags) == 0;
    if (!is_right) return VEL_ERROR_ARGUMENT;
    Opening opening(ctx);
    const i32 result = opening.open(width, height);
    if (result != VEL_OK) return result;
    opening.keep(ctx);
    SDL_WM_SetCaption(title, title);
    note_screen_size(ctx);
    set_what_is_unset(ctx);
    clear_screen(ctx);
    update_display(ctx, ctx.screen_rect);
    return VEL_OK;
}

bool set_display_size(vel_context &ctx, u32 width, u32 height) {
    constexpr Uint32 kept = SDL_RESIZABLE | SDL_FULLSCREEN | SDL_NOFRAME;
    const SDL_Surface *screen = ctx.screen;
    if (screen == nullptr || screen != SDL_GetVideoSurface()) return true;
    // A surface that SDL converts for the display does not know that it is resizable.
    const Uint32 flags = mode_flags(ctx.open_flags) | (screen->flags & kept);
    const int old_width = screen->w, old_height = screen->h;
    const int bits = screen->format->BitsPerPixel;
    ctx.screen = SDL_SetVideoMode(static_cast<int>(width), static_cast<int>(height), bits, flags);
    if (ctx.screen != nullptr) return true;
    ctx.screen = SDL_SetVideoMode(old_width, old_height, bits, flags);
    return false;
}

void clear_screen(vel_context &ctx) {
    if (ctx.screen == nullptr) return;
    draw_box(ctx, {0, 0, ctx.screen->w, ctx.screen->h}, ctx.background_colour);
}

} // namespace velumo
