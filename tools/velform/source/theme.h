// The themes: which colours a form has where its source says none.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace velform {

using Colour = std::int64_t; // 0xRRGGBB, as a setting holds it

struct Theme {
    std::string_view name;
    bool dresses_types; // else only parts and file dialogs have looks
    Colour desk;        // what programs paint the bare display with
    Colour window, ink, muted, warning;
    Colour line, edge;   // around windows and menus; around what can be used
    Colour field, paper; // the ground of what can be typed into; that of lists and menus
    Colour button, button_ink;
    Colour accent, accent_ink, accent_edge; // the default answer
    Colour selected, selected_ink;
    Colour mark, track; // what is on, moves or fills; what it moves in
    Colour head;        // titles of columns, and tabs
    Colour tip, tip_ink;

    auto colours() const {
        return std::array{desk,       window,      ink,      muted,        warning,    line,
                          edge,       field,       paper,    button,       button_ink, accent,
                          accent_ink, accent_edge, selected, selected_ink, mark,       track,
                          head,       tip,         tip_ink};
    }
};

inline constexpr std::string_view standard_theme = "light";

// "none" is the last one.
std::span<const Theme> themes();
// Returns null when there is none.
const Theme *find_theme(std::string_view name);

} // namespace velform
