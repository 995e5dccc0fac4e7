#include "source/looks.h"

#include <algorithm>

#include <velumo.h>

namespace velform {
namespace {

struct Looks {
    Role role;
    Colour Theme::*fill;                   // null: that of the master
    Colour Theme::*ink;                    // null: that of the master
    Colour Theme::*edge;                   // null: no border
    std::int64_t left, right, top, bottom; // margins
    std::int64_t width, height;
    std::int64_t align;
};

constexpr std::int64_t centred = 0, at_left = 1;
constexpr auto of_master = static_cast<Colour Theme::*>(nullptr);
constexpr auto none = static_cast<Colour Theme::*>(nullptr);

// A line of the default font has 15 pixels at 12 points, and 17 at 14: fields leave room for both,
// and within two pixels of an edge there is nothing, because the ring of the focus is there.
constexpr Looks all_looks[] = {
    {Role::window, &Theme::window, &Theme::ink, &Theme::line, 0, 0, 0, 0, 400, 300, centred},
    {Role::caption, of_master, &Theme::ink, none, 0, 0, 0, 0, 120, 28, at_left},
    {Role::button, &Theme::button, &Theme::button_ink, &Theme::edge, 0, 0, 0, 0, 104, 30, centred},
    {Role::main_button, &Theme::accent, &Theme::accent_ink, &Theme::accent_edge, 0, 0, 0, 0, 104,
     30, centred},
    {Role::title, of_master, &Theme::ink, none, 0, 0, 0, 0, 72, 28, centred},
    {Role::item, of_master, &Theme::ink, none, 12, 12, 0, 0, 160, 26, at_left},
    {Role::field, &Theme::field, &Theme::ink, &Theme::edge, 7, 7, 6, 5, 200, 28, centred},
    {Role::number, &Theme::field, &Theme::ink, &Theme::edge, 7, 7, 6, 5, 80, 28, centred},
    {Role::line, of_master, &Theme::ink, none, 0, 0, 6, 5, 200, 28, centred},
    {Role::note, &Theme::field, &Theme::ink, &Theme::edge, 7, 7, 6, 6, 240, 100, centred},
    {Role::text, of_master, &Theme::ink, none, 0, 0, 0, 0, 240, 100, centred},
    {Role::menu, &Theme::window, &Theme::ink, &Theme::line, 0, 0, 0, 0, 162, 110, centred},
    {Role::chain, of_master, &Theme::ink, none, 0, 0, 0, 0, 240, 200, centred},
    {Role::check, of_master, &Theme::ink, none, 26, 4, 0, 0, 180, 24, at_left},
    {Role::radio, of_master, &Theme::ink, none, 26, 4, 0, 0, 180, 24, at_left},
    {Role::list, &Theme::paper, &Theme::ink, &Theme::edge, 0, 0, 0, 0, 240, 180, centred},
    {Role::scroll_bar, &Theme::track, &Theme::ink, none, 2, 2, 2, 2, 14, 160, centred},
    {Role::choice, &Theme::field, &Theme::ink, &Theme::edge, 8, 26, 0, 0, 160, 28, at_left},
    {Role::slider, of_master, &Theme::ink, none, 5, 5, 4, 4, 180, 28, centred},
    {Role::progress, &Theme::field, &Theme::ink, &Theme::edge, 2, 2, 2, 2, 180, 18, centred},
    {Role::tabs, of_master, &Theme::ink, none, 0, 0, 0, 0, 360, 240, centred},
    {Role::tip, &Theme::tip, &Theme::tip_ink, &Theme::line, 7, 7, 4, 4, 120, 24, at_left},
    {Role::whole, &Theme::window, &Theme::ink, none, 0, 0, 0, 0, 800, 600, centred},
    {Role::holder, of_master, of_master, none, 0, 0, 0, 0, 0, 0, centred},
    {Role::box, &Theme::field, of_master, &Theme::edge, 0, 0, 0, 0, 0, 0, centred},
    {Role::mark, &Theme::mark, of_master, none, 0, 0, 0, 0, 0, 0, centred},
    {Role::mark_cover, &Theme::field, of_master, none, 0, 0, 0, 0, 0, 0, centred},
    {Role::ring, &Theme::edge, of_master, none, 0, 0, 0, 0, 0, 0, centred},
    {Role::track, &Theme::track, of_master, none, 0, 0, 0, 0, 0, 0, centred},
    {Role::knob, &Theme::mark, of_master, none, 0, 0, 0, 0, 0, 0, centred},
    {Role::bar, &Theme::mark, of_master, none, 0, 0, 0, 0, 0, 0, centred},
    {Role::thumb, &Theme::edge, of_master, none, 0, 0, 0, 0, 0, 0, centred},
    {Role::sample, &Theme::selected, &Theme::selected_ink, none, 0, 0, 0, 0, 0, 0, centred},
    {Role::head, &Theme::head, &Theme::ink, none, 6, 6, 0, 0, 0, 0, at_left},
    {Role::row, of_master, of_master, none, 6, 6, 0, 0, 0, 0, at_left},
    {Role::cell, of_master, of_master, none, 6, 6, 0, 0, 0, 0, at_left},
    {Role::arrow, &Theme::ink, of_master, none, 0, 0, 0, 0, 0, 0, centred},
    {Role::marker, &Theme::mark, of_master, none, 0, 0, 0, 0, 0, 0, centred},
    {Role::tab, &Theme::head, &Theme::ink, &Theme::edge, 0, 0, 0, 0, 0, 0, centred},
    {Role::page, of_master, &Theme::ink, &Theme::edge, 0, 0, 0, 0, 0, 0, centred},
    {Role::drop_down, &Theme::paper, &Theme::ink, &Theme::edge, 0, 0, 0, 0, 0, 0, centred},
    {Role::drop_down_list, &Theme::paper, &Theme::ink, none, 0, 0, 0, 0, 0, 0, centred},
};

constexpr bool is_of_a_type(Role role) { return role < Role::check; }

void set(Settings &settings, Field field, std::int64_t value) {
    settings[field] = Setting{value, {}};
}

Colour colour_in(const Theme &theme, Colour Theme::*colour) {
    return colour == nullptr ? colour_of_master : theme.*colour;
}

} // namespace

Settings looks_of(const Theme &theme, Role role) {
    Settings settings;
    if (is_of_a_type(role) && !theme.dresses_types) return settings;
    const auto found = std::ranges::find(all_looks, role, &Looks::role);
    if (found == std::end(all_looks)) return settings;
    const Looks &looks = *found;
    set(settings, Field::fill, colour_in(theme, looks.fill));
    set(settings, Field::text_colour, colour_in(theme, looks.ink));
    if (looks.edge != none) {
        // With an inset of 0 its lines are the outline, whatever the margins are.
        set(settings, Field::border, VEL_BORDER_SHADOW);
        set(settings, Field::border_colour, theme.*looks.edge);
    }
    set(settings, Field::margin_left, looks.left);
    set(settings, Field::margin_right, looks.right);
    set(settings, Field::margin_top, looks.top);
    set(settings, Field::margin_bottom, looks.bottom);
    set(settings, Field::width, looks.width);
    set(settings, Field::height, looks.height);
    if (looks.align != centred) set(settings, Field::align, looks.align);
    return settings;
}

} // namespace velform
