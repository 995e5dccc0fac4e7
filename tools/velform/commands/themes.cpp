#include "commands/themes.h"

#include <vector>

#include <fmt/format.h>

#include "base/files.h"
#include "base/suggestion.h"
#include "draw/gallery.h"
#include "draw/png_file.h"
#include "draw/states.h"
#include "form/form_builder.h"
#include "form/header.h"
#include "form/records.h"
#include "source/toml_text.h"

namespace velform {
namespace {

constexpr int font_size = 12;

vel_colour colour_of(Colour rgb) {
    const auto part = [rgb](int shift) { return static_cast<std::uint8_t>(rgb >> shift); };
    return {part(16), part(8), part(0)};
}

// A form that is made only to be drawn.
class CompiledGallery {
public:
    CompiledGallery(const std::string &source, const std::string &theme) : theme_(theme) {
        Diagnostics diagnostics;
        const auto root = parse_toml(source, diagnostics);
        const FormSource read = read_form_source(*root, diagnostics);
        const Form form = build_form(read, diagnostics);
        names_.emplace(header_text(form, "G", diagnostics));
        form_ = form_file_bytes(form);
        text_ = text_file_bytes(form);
    }

    std::uint32_t number(const std::string &id) const { return names_->object(id); }

    Surface drawn(Size size, std::span<const ObjectState> states) const {
        StageOptions options{.size = size, .background = colour_of(find_theme(theme_)->desk)};
        options.font_size = font_size;
        options.takes_events = true;
        Stage stage(options);
        stage.load(form_data(form_, text_));
        stage.ctx().cursor_object = 0; // the focus is where a state says so
        return drawn_with_states(stage.ctx(), states);
    }

private:
    const std::string theme_;
    std::string form_, text_;
    std::optional<HeaderNames> names_;
};

void copy_part(SDL_Surface &from, SDL_Rect part, SDL_Surface &to, int x, int y) {
    SDL_Rect at{static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
    SDL_BlitSurface(&from, &part, &to, &at);
}

Surface all_themes() {
    constexpr Size one{gallery_width, gallery_height};
    Surface all = new_surface({2 * one.width, 2 * one.height});
    int k = 0;
    for (const Theme &theme : themes()) {
        if (!theme.dresses_types) continue;
        const std::string name(theme.name);
        const Surface drawn = CompiledGallery(gallery_source(name), name).drawn(one, {});
        copy_part(*drawn, {0, 0, gallery_width, gallery_height}, *all, k % 2 * gallery_width,
                  k / 2 * gallery_height);
        ++k;
    }
    return all;
}

// Each object is in the first column of its row; the others show it in the other states.
Surface all_states(const std::string &theme) {
    constexpr State columns[] = {State::hover, State::pressed, State::focus, State::disabled};
    const StatesSheet sheet = states_sheet(theme);
    const Size size{static_cast<std::uint32_t>(sheet.width),
                    static_cast<std::uint32_t>(sheet.height)};
    const CompiledGallery gallery(sheet.source, theme);
    Surface all = gallery.drawn(size, {});
    for (const SheetRow &row : sheet.rows) {
        for (int k = 0; k < int{std::size(columns)}; ++k) {
            const bool is_disabled = columns[k] == State::disabled;
            if (row.used_piece < 0 && !is_disabled) continue;
            const auto piece = static_cast<std::uint32_t>(is_disabled ? 0 : row.used_piece);
            const ObjectState state{columns[k], gallery.number(row.id) + piece};
            const Surface drawn = gallery.drawn(size, {&state, 1});
            copy_part(*drawn, row.area, *all, row.area.x + (k + 1) * sheet.column_width,
                      row.area.y);
        }
    }
    return all;
}

} // namespace

Status draw_themes(const ThemesOptions &options) {
    std::vector<std::string_view> names;
    for (const Theme &theme : themes()) names.push_back(theme.name);
    if (!options.states.empty() && find_theme(options.states) == nullptr) {
        throw WrongUsage(fmt::format("there is no theme '{}'{}", options.states,
                                     did_you_mean(options.states, names)));
    }
    const Surface picture = options.states.empty() ? all_themes() : all_states(options.states);
    const OutputFile file{options.output, png_bytes(*picture)};
    replace_files({&file, 1});
    return Status::done;
}

} // namespace velform
