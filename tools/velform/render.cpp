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
#include "states.h"

namespace velform {
namespace {

constexpr std::uint32_t largest_side = 8192;
constexpr std::size_t most_warnings = 100;

// Reads the whole text as a number, or returns nothing.
std::optional<std::uint32_t> number_in(std::string_view text, int base = 10) {
    std::uint32_t number = 0;
    const char *const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number, base);
    if (fault != std::errc{} || stop != end) return std::nullopt;
    return number;
}

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

// Finds objects by number, or by the names in the form's header.
class ObjectFinder {
public:
    explicit ObjectFinder(const RenderOptions &options) : options_(options) {}

    std::uint32_t find(const vel_context &ctx, const std::string &name) {
        const auto number = number_in(name);
        const std::uint32_t object = number ? *number : names().object(name);
        if (object == 0 || object > ctx.object_count) {
            throw WrongUsage(fmt::format("there is no object '{}'", name));
        }
        return object;
    }

    std::uint32_t find_window(const vel_context &ctx, const std::string &name) {
        const std::uint32_t window = find(ctx, name);
        if (ctx.objects[window].master != 0 || ctx.objects[window].type != VEL_TYPE_WINDOW) {
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

std::string drawn(vel_context &ctx, const std::vector<ObjectState> &states) {
    if (!states.empty()) return png_bytes(*drawn_with_states(ctx, states));
    vel_draw_all_objects(&ctx, 1, 0);
    return png_bytes(*ctx.screen);
}

} // namespace

Status render(const RenderOptions &options, std::ostream &err) {
    if (!options.directory.empty()) std::filesystem::current_path(options.directory);
    Stage stage(stage_options(options));
    vel_context &ctx = stage.ctx();
    stage.load(options.form, options.text);
    fill_chains(ctx);
    ObjectFinder finder(options);
    for (const std::string &name : options.activate) {
        open_window(ctx, finder.find_window(ctx, name));
    }
    std::vector<ObjectState> states;
    for (const std::string &text : options.states) {
        states.push_back(state_in(text, ctx, finder));
    }
    warn_of_missing_files(ctx, err);
    const OutputFile picture{options.output, drawn(ctx, states)};
    replace_files({&picture, 1});
    return Status::done;
}

} // namespace velform
