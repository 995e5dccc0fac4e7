// What a form source says, object by object, before styles and numbers are worked out.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <toml++/toml.h>
#include <velumo.h>

#include "source/looks.h"
#include "source/raw.h"
#include "source/settings.h"

namespace velform {

struct StyleUse {
    std::string name;
    Position where;
};

// A style, or the part of an object that a style can have as well.
struct Block {
    Position where;
    std::vector<StyleUse> styles; // later ones win over earlier ones
    Settings own;                 // wins over all styles
};

struct ObjectSource : Block {
    std::string id; // empty when it has none
    Position id_where;
    std::optional<std::uint32_t> default_type;
    std::vector<ObjectSource> objects;
    RawObject raw;

    // Of parts and their pieces.
    Role role = Role::by_type;
    bool is_made = false;             // not written by the author, who cannot change it
    std::string alias;                // a name for the tool's own links, which no id can be
    std::string rows;                 // the text of a list: a line for each row
    std::optional<Setting> scrolls;   // id or alias of what a scroll bar is for
    bool scrolls_master = false;      // a scroll bar is for the object around it
    std::optional<std::string> group; // of a radio button; empty: those of one master
};

// The object with all that is in it.
std::size_t count_of(const ObjectSource &object);
// Those of them that the tool has made.
std::size_t count_of_pieces(const ObjectSource &object);

// What a program loads of a file.
inline constexpr std::size_t most_records = 65536;

// Where the pictures of the frame buttons are, unless the source names another folder.
inline constexpr std::string_view standard_frame_folder = "frame";

// Empty records of the form, for objects that a program makes.
struct SpareRun {
    std::string name;
    Position where;
    std::uint32_t count;
};

struct FormSource {
    std::optional<std::string> prefix; // of the names in the header
    Position prefix_where;
    const Theme *theme = find_theme(standard_theme);
    std::string frame_pictures{standard_frame_folder};
    Position frame_pictures_where;
    std::map<std::string, Block, std::less<>> styles;
    std::array<ObjectSource, VEL_FRAME_BUTTONS> frame_buttons;
    std::vector<ObjectSource> objects;
    ObjectSource tip_label; // for forms that have tips
    std::vector<SpareRun> spare;
    RawForm raw;
};

// Names of the frame buttons, from button 1 on.
inline constexpr std::array<std::string_view, VEL_FRAME_BUTTONS> frame_button_names{
    "move", "height_less", "height_more", "mode", "width_less", "width_more", "close"};

inline std::string frame_picture_path(std::string_view folder, std::size_t button) {
    return std::string(folder) + "/" + std::string(frame_button_names[button - 1]) + ".png";
}

// Whatever is wrong is reported and left out.
FormSource read_form_source(const toml::table &root, Diagnostics &diagnostics);

} // namespace velform
