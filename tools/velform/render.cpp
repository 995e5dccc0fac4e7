#include "render.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <optional>
#include <span>

#include <fmt/format.h>
#include <velumo.h>

#include "files.h"
#include "header.h"
#include "png_file.h"
#include "printable.h"

namespace velform {
namespace {

constexpr std::uint32_t largest_side = 8192;
constexpr std::size_t most_warnings = 100;
constexpr vel_colour mark_colour{0x2F, 0x6F, 0xDE};

// Reads the whole text as a number, or returns nothing.
std::optional<std::uint32_t> number_in(std::string_view text, int base = 10) {
    std::uint32_t number = 0;
    const char *const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number, base);
    if (fault != std::errc{} || stop != end) return std::nullopt;
    return number;
}

struct Size {
    std::uint32_t width, height;
};

Size size_in(std::string_view text) {
    const std::size_t cross = std::min(text.find('x'), text.size());
    const auto width = number_in(text.substr(0, cross));
    const auto height = number_in(text.substr(std::min(cross + 1, text.size())));
    const auto is_good = [](auto side) { return side && *side > 0 && *side <= largest_side; };
    if (!is_good(width) || !is_good(height)) {
        throw WrongUsage(fmt::format("the size must be like 800x600, with sides of at most {}, not "
                                     "'{}'",
                                     largest_side, text));
    }
    return {*width, *height};
}

vel_colour colour_in(std::string_view text) {
    const auto rgb = text.size() == 7 && text[0] == '#' ? number_in(text.substr(1), 16)
                                                        : std::optional<std::uint32_t>{};
    if (!rgb) throw WrongUsage(fmt::format("the background must be like #20a0ff, not '{}'", text));
    const auto part = [&rgb](int shift) { return static_cast<std::uint8_t>(*rgb >> shift); };
    return {part(16), part(8), part(0)};
}

// A context that draws into memory, with all that has to be released.
class Stage {
public:
    Stage(const RenderOptions &options, Size size) {
        ctx_.texts_loaded = 1;
        ctx_.comfort = VEL_COMFORT_ALL;
        ctx_.strict_pictures = options.any_picture ? 0 : 1;
        ctx_.mark_colour_a = ctx_.mark_colour_b = mark_colour;
        ctx_.background_colour = colour_in(options.background);
        if (TTF_Init() != 0) throw FileProblem(fmt::format("no fonts: {}", TTF_GetError()));
        open_screen(size);
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
    ~Stage() { vel_close(&ctx_); }
    Stage(const Stage &) = delete;
    Stage &operator=(const Stage &) = delete;

    vel_context &ctx() { return ctx_; }

private:
    void open_screen(Size size) {
        const auto [width, height] = size;
        ctx_.screen_width = width;
        ctx_.screen_height = height;
        ctx_.screen_rect.w = static_cast<Uint16>(width);
        ctx_.screen_rect.h = static_cast<Uint16>(height);
        ctx_.screen = SDL_CreateRGBSurface(SDL_SWSURFACE, static_cast<int>(width),
                                           static_cast<int>(height), 32, 0xFF0000, 0xFF00, 0xFF, 0);
        if (ctx_.screen == nullptr) return;
        const auto [r, g, b] = ctx_.background_colour;
        SDL_FillRect(ctx_.screen, nullptr, SDL_MapRGB(ctx_.screen->format, r, g, b));
    }

    vel_context ctx_{};
};

void load(vel_context &ctx, const RenderOptions &options) {
    const std::int32_t result =
        vel_load_forms(&ctx, 0, 0, options.form.c_str(), options.text.c_str());
    if (result == VEL_OK) return;
    throw FileProblem(fmt::format("cannot load {} and {}: {}", options.form, options.text,
                                  vel_error_text(result)));
}

// A form need not end its paths.
template <std::size_t size> std::string path_in(const char (&path)[size]) {
    return printable({path, strnlen(path, size)});
}

// What an author would look for in vain on the picture.
void warn_of_missing_files(const vel_context &ctx, std::ostream &err) {
    std::size_t count = 0;
    const auto warn = [&](std::uint32_t number, std::string_view fault, const std::string &path) {
        if (++count > most_warnings) return;
        err << fmt::format("velform: warning: object {}: {} {}\n", number, fault, path);
    };
    for (std::uint32_t number = 1; number <= ctx.object_count; ++number) {
        const vel_object &o = ctx.objects[number];
        const bool is_unused = number <= VEL_FRAME_BUTTONS && o.hidden != 0;
        const bool is_wanted = !is_unused && o.image_path[0] != '\0'; // else the program has it
        if (o.type == VEL_TYPE_PICTURE_UNLOADED && is_wanted) {
            warn(number, "cannot load the picture", path_in(o.image_path));
        }
        if (o.font_choice == 1 && o.own_font == nullptr) {
            warn(number, "cannot open the font", path_in(o.font_path));
        }
    }
    if (count > most_warnings) {
        err << fmt::format("velform: warning: {} more files cannot be loaded\n",
                           count - most_warnings);
    }
}

// Finds windows by number, or by the names in the form's header.
class WindowFinder {
public:
    explicit WindowFinder(const RenderOptions &options) : options_(options) {}

    std::uint32_t find(const vel_context &ctx, const std::string &name) {
        const auto number = number_in(name);
        const std::uint32_t window = number ? *number : names().object(name);
        if (window == 0 || window > ctx.object_count || ctx.objects[window].master != 0 ||
            ctx.objects[window].type != VEL_TYPE_WINDOW) {
            throw WrongUsage(fmt::format("'{}' is no window of the top level", name));
        }
        return window;
    }

private:
    // A form that is drawn by numbers needs no header.
    const HeaderNames &names() {
        if (!names_) names_.emplace(read_file(header_path()));
        return *names_;
    }

    std::string header_path() const {
        if (!options_.header.empty()) return options_.header;
        return std::filesystem::path(options_.form).replace_extension(".h").string();
    }

    const RenderOptions &options_;
    std::optional<HeaderNames> names_;
};

// As a program would: the text that the form has for a chain flows from its head.
void fill_chains(vel_context &ctx) {
    for (std::uint32_t number = 1; number <= ctx.object_count; ++number) {
        vel_object &o = ctx.objects[number];
        if (o.type == VEL_TYPE_CHAIN && o.master == 0 && o.text_index != 0) {
            o.stream = ctx.text_recs[o.text_index].text;
        }
    }
}

void open_window(vel_context &ctx, std::uint32_t window) {
    const std::span opened(ctx.window_stack, ctx.window_count);
    // The stack counts only windows that were hidden before they came onto it.
    if (std::ranges::find(opened, window) == opened.end()) ctx.objects[window].hidden = 1;
    ctx.window_to_activate = window;
    vel_activate_window(&ctx);
}

void open_windows(vel_context &ctx, const RenderOptions &options) {
    WindowFinder finder(options);
    for (const std::string &name : options.activate) open_window(ctx, finder.find(ctx, name));
}

} // namespace

Status render(const RenderOptions &options, std::ostream &err) {
    if (!options.directory.empty()) std::filesystem::current_path(options.directory);
    Stage stage(options, size_in(options.size));
    load(stage.ctx(), options);
    fill_chains(stage.ctx());
    open_windows(stage.ctx(), options);
    warn_of_missing_files(stage.ctx(), err);
    vel_draw_all_objects(&stage.ctx(), 1, 0);
    const OutputFile picture{options.output, png_bytes(*stage.ctx().screen)};
    replace_files({&picture, 1});
    return Status::done;
}

} // namespace velform
