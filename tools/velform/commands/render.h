// velform render: draws a form into a PNG file, without a display.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "base/status.h"
#include "draw/stage.h"

namespace velform {

struct RenderOptions {
    std::string form, text; // the text is empty for a source, or next to the form
    std::string output;
    std::string directory;             // where to work, seen from the current one; may be empty
    std::string header;                // empty: the form's name with .h
    std::vector<std::string> activate; // windows, by number or by name; the last ends in front
    std::vector<std::string> states;   // of objects, as in "focus=name"
    std::vector<std::string> texts;    // to put into objects, as in "name=Words"
    std::string window;                // to draw alone; empty: the whole display
    bool all_windows = false;          // each alone, into a file with its name
    bool outline = false;
    std::string compare; // PNG file; empty: none
    std::string size = "800x600";
    std::string background = "#e3e9f0";
    std::string font = standard_font;
    int font_size = 14;
    bool any_picture = false; // all formats, not only those whose files are checked
};

// Warns on err of fonts and pictures that cannot be loaded, and prints to out how many pixels
// differ from those of another picture. Throws WrongUsage and FileProblem.
Status render(const RenderOptions &options, std::ostream &out, std::ostream &err);

} // namespace velform
