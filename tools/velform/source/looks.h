// What an object looks like where its source says nothing of it: which part it plays in a form, and
// what that means in a theme.
#pragma once

#include "source/settings.h"
#include "source/theme.h"

namespace velform {

enum class Role : std::uint8_t {
    by_type, // of an object that the author writes: follows from what it says
    bare,    // has no looks but those that it says
    // Objects of the nine types.
    window,
    caption,
    button,
    main_button,
    title,
    item,
    field,
    number,
    line, // of text, in a field that cannot be typed into
    note,
    text,
    menu,
    chain,
    // Parts.
    check,
    radio,
    list,
    scroll_bar,
    choice,
    slider,
    progress,
    tabs,
    tip,
    whole,
    // Pieces of parts.
    holder,
    box,
    mark,
    mark_cover,
    ring,
    track,
    knob,
    bar,
    thumb,
    sample,
    head,
    row,
    cell,
    arrow,
    marker,
    tab,
    page,
    drop_down,
    drop_down_list
};

// Stands for the colour of the object around it; at the top level for that of the desk.
inline constexpr Colour colour_of_master = -1;

// Empty for roles without looks, and for types in a theme that does not dress them.
Settings looks_of(const Theme &theme, Role role);

} // namespace velform
