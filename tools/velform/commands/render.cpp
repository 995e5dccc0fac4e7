#include "commands/render.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <optional>
#include <span>
#include <utility>

#include <unistd.h>

#include <fmt/format.h>
#include <velumo.h>

#include "base/destination.h"
#include "base/files.h"
#include "base/printable.h"
#include "draw/outline.h"
#include "draw/picture_difference.h"
#include "draw/png_file.h"
#include "draw/set_text.h"
#include "draw/states.h"
#include "read/loadable_form.h"
#include "read/object_finder.h"

namespace velform {
namespace {

constexpr std::size_t most_warnings = 100;

// Reads the whole text as a number, or returns nothing.
std::optional<std::uint32_t> number_in(std::string_view text, int base = 10) {
    std::uint32_t number = 0;
    const char *const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number, base);
    if (fault != std::errc{} || stop != end) return std::nullopt;
    return number;
}

vel_colour colour_in(std::string_view text) {
    const auto rgb = text.size() == 7 && text[0] == '#' ? number_in(text.substr(1), 16)
                                                        : std::optional<std::uint32_t>{};
    if (!rgb) throw WrongUsage(fmt::format("the background must be like #20a0ff, not '{}'", text));
    const auto part = [&rgb](int shift) { return static_cast<std::uint8_t>(*rgb >> shift); };
    return {part(16), part(8), part(0)};
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

// As in "focus=name".
ObjectState state_in(std::string_view text, const vel_context &ctx, ObjectFinder &finder) {
    constexpr std::pair<std::string_view, State> states[] = {{"focus", State::focus},
                                                             {"hover", State::hover},
                                                             {"pressed", State::pressed},
                                                             {"disabled", State::disabled}};
    const std::size_t equals = std::min(text.find('='), text.size());
    for (const auto &[name, state] : states) {
        if (text.substr(0, equals) != name || equals == text.size()) continue;
        return {state, finder.find(ctx, std::string(text.substr(equals + 1)))};
    }
    throw WrongUsage(fmt::format("a state must be like focus=name, with focus, hover, pressed or "
                                 "disabled, not '{}'",
                                 text));
}

StageOptions stage_options(const RenderOptions &options) {
    return {size_in(options.size), colour_in(options.background), options.font,
            options.font_size,     options.any_picture,           !options.states.empty()};
}

// How far a window's marks and frame buttons reach beyond it, and a pixel of the ground more.
constexpr int marks_left = 12, marks_top = 26, marks_right = 2, marks_bottom = 2;

// What the display shows of a window with its marks.
Surface cropped(SDL_Surface &screen, const vel_context &ctx, std::uint32_t number) {
    const vel_object &window = ctx.objects[number];
    const auto within = [](std::int64_t place, int size) {
        return static_cast<int>(std::clamp<std::int64_t>(place, 0, size));
    };
    const std::int64_t x = static_cast<std::int32_t>(window.x);
    const std::int64_t y = static_cast<std::int32_t>(window.y);
    const int left = within(x - marks_left, screen.w), top = within(y - marks_top, screen.h);
    const int right = within(x + window.width + marks_right, screen.w);
    const int bottom = within(y + window.height + marks_bottom, screen.h);
    if (left == right || top == bottom)
        throw FileProblem(fmt::format("window {} is not on the display", number));
    Surface picture = new_surface(
        {static_cast<std::uint32_t>(right - left), static_cast<std::uint32_t>(bottom - top)});
    SDL_Rect part{static_cast<Sint16>(left), static_cast<Sint16>(top),
                  static_cast<Uint16>(right - left), static_cast<Uint16>(bottom - top)};
    SDL_BlitSurface(&screen, &part, picture.get(), nullptr);
    return picture;
}

// Draws pictures of a form, each as if the program had just started.
class Renderer {
public:
    Renderer(const RenderOptions &options, std::ostream &err)
        : options_(options), stage_options_(stage_options(options)),
          form_({options.form, options.text, options.header}, err), finder_(form_), err_(err) {}

    // One window, by number or name, or with an empty one the whole display.
    Surface draw(const std::string &window) {
        Stage stage(stage_options_);
        vel_context &ctx = stage.ctx();
        const std::vector<ObjectState> states = prepare(stage);
        const std::uint32_t number = window.empty() ? 0 : finder_.find_window(ctx, window);
        if (number != 0) open_window(ctx, number);
        if (!std::exchange(has_warned_, true)) warn_of_missing_files(ctx, err_);
        Surface picture = drawn(ctx, states);
        if (options_.outline) draw_outlines(ctx, *picture, finder_, options_.font);
        return number == 0 ? std::move(picture) : cropped(*picture, ctx, number);
    }

    std::vector<std::uint32_t> all_windows() {
        Stage stage(stage_options_);
        form_.load_into(stage);
        std::vector<std::uint32_t> windows;
        for (std::uint32_t object = VEL_FRAME_BUTTONS + 1; object <= stage.ctx().object_count;
             ++object) {
            if (is_top_level_window(stage.ctx(), object)) windows.push_back(object);
        }
        return windows;
    }

    std::string name_or_number(std::uint32_t object) {
        const std::string name = finder_.name_of(object);
        return name.empty() ? fmt::format("{}", object) : name;
    }

private:
    std::vector<ObjectState> prepare(Stage &stage) {
        vel_context &ctx = stage.ctx();
        form_.load_into(stage);
        for (const std::string &text : options_.texts) set_text(ctx, finder_, text);
        fill_chains(ctx);
        for (const std::string &name : options_.activate) {
            open_window(ctx, finder_.find_window(ctx, name));
        }
        std::vector<ObjectState> states;
        for (const std::string &text : options_.states) {
            states.push_back(state_in(text, ctx, finder_));
        }
        return states;
    }

    static Surface drawn(vel_context &ctx, const std::vector<ObjectState> &states) {
        if (!states.empty()) return drawn_with_states(ctx, states);
        vel_draw_all_objects(&ctx, 1, 0);
        return copy_of(*ctx.screen);
    }

    const RenderOptions &options_;
    const StageOptions stage_options_;
    LoadableForm form_;
    ObjectFinder finder_;
    std::ostream &err_;
    bool has_warned_ = false;
};

// As in "notes-letter.png" for "notes.png".
std::string with_part(const std::string &path, const std::string &part) {
    const std::filesystem::path file(path);
    const std::string name =
        fmt::format("{}-{}{}", file.stem().string(), part, file.extension().string());
    return (file.parent_path() / name).string();
}

// How far long work has come, on one line of a terminal; nothing elsewhere.
class Progress {
public:
    explicit Progress(std::ostream &err) : err_(err), is_watched_(isatty(STDERR_FILENO) != 0) {}
    ~Progress() {
        if (is_watched_) err_ << new_line << std::flush;
    }
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    void show(std::size_t number, std::size_t count) {
        if (is_watched_)
            err_ << fmt::format("{}file {} of {}", new_line, number, count) << std::flush;
    }

private:
    static constexpr std::string_view new_line = "\r\x1b[K"; // without what was on it

    std::ostream &err_;
    const bool is_watched_;
};

Status render_all_windows(Renderer &renderer, const RenderOptions &options, std::ostream &err) {
    if (is_stream(options.output)) {
        throw WrongUsage("pictures of all windows need a file to be named after, see --output");
    }
    const std::vector<std::uint32_t> windows = renderer.all_windows();
    if (windows.empty()) throw FileProblem(fmt::format("{} has no windows", options.form));
    Progress progress(err);
    std::vector<OutputFile> files;
    for (const std::uint32_t window : windows) {
        progress.show(files.size() + 1, windows.size());
        files.push_back({with_part(options.output, renderer.name_or_number(window)),
                         png_bytes(*renderer.draw(fmt::format("{}", window)))});
    }
    replace_files(files);
    return Status::done;
}

Status compare(SDL_Surface &picture, const RenderOptions &options, std::ostream &out) {
    if (options.output == standard_stream) {
        throw WrongUsage("--compare prints to standard output, so the picture needs a file");
    }
    const Surface other = read_png(options.compare); // before the output takes its place
    std::vector<OutputFile> files{{options.output, png_bytes(picture)}};
    const auto [pixels, difference] = difference_of(picture, *other);
    out << fmt::format("{} pixel{} from {}\n", pixels, pixels == 1 ? " differs" : "s differ",
                       printable(options.compare));
    if (pixels != 0 && !is_stream(options.output)) {
        files.push_back({with_part(options.output, "difference"), png_bytes(*difference)});
    }
    replace_files(files);
    return pixels == 0 ? Status::done : Status::differences;
}

} // namespace

Status render(const RenderOptions &options, std::ostream &out, std::ostream &err) {
    if (!options.directory.empty()) std::filesystem::current_path(options.directory);
    Renderer renderer(options, err);
    if (options.all_windows) return render_all_windows(renderer, options, err);
    const Surface picture = renderer.draw(options.window);
    if (!options.compare.empty()) return compare(*picture, options, out);
    const OutputFile file{options.output, png_bytes(*picture)};
    replace_files({&file, 1});
    return Status::done;
}

} // namespace velform
