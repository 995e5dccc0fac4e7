#include "gallery.h"

namespace velform {
namespace {

constexpr std::string_view objects = R"(
[[window]]
id = "all"
kind = "whole"
rect = [0, 0, 600, 440]
objects = [
    { type = "label", rect = [20, 16, 90, 28], label = "Name" },
    { id = "name", type = "entry", x = 110, y = 16, label = "Ada Lovelace", tip = "The full name" },
    { type = "label", rect = [20, 52, 90, 28], label = "Copies" },
    { type = "number", x = 110, y = 52, label = "12" },
    { type = "label", rect = [20, 88, 90, 28], label = "Colour" },
    { kind = "choice", x = 110, y = 88, rows = ["Red", "Green", "Blue"], value = 1 },
    { kind = "check", x = 15, y = 126, width = 120, label = "Wrap lines", checked = true },
    { kind = "check", x = 145, y = 126, width = 120, label = "Ring a bell" },
    { kind = "radio", x = 15, y = 152, width = 120, label = "Portrait", checked = true },
    { kind = "radio", x = 145, y = 152, width = 120, label = "Landscape" },
    { kind = "slider", x = 15, y = 184, width = 130, value = 30 },
    { kind = "slider", rect = [282, 122, 28, 120], value = 70 },
    { kind = "progress", x = 160, y = 189, width = 110, value = 60 },
    { id = "note", type = "text", rect = [20, 222, 242, 82], text = "A note of several lines, which can be typed into.", editable = true },
    { kind = "scroll_bar", for = "note", rect = [262, 222, 14, 82] },
    { type = "text", rect = [20, 316, 270, 60], text = "A text that cannot be edited has the ground that it is on." },
    { type = "label", x = 20, y = 390, label = "OK", default = true },
    { type = "label", x = 136, y = 390, label = "Cancel", cancel = true },
    { kind = "button", x = 252, y = 390, label = "Disabled", disabled = true },
    { kind = "list", rect = [330, 16, 250, 136], columns = [{ title = "Name" }, { title = "Size", width = 70, align = "right" }], rows = ["letter.txt\t12", "notes.txt\t3", "report.txt\t140", "to do.txt\t1"] },
    { kind = "list", rect = [330, 164, 250, 70], rows = ["One", "Two", "Three"] },
    { kind = "tabs", rect = [330, 250, 250, 126], pages = [
        { title = "General", objects = [{ kind = "check", x = 8, y = 10, label = "On a page" }] },
        { title = "Details" },
    ] },
]
)";

} // namespace

std::string gallery_source(std::string_view theme) {
    return "theme = \"" + std::string(theme) + "\"\n" + std::string(objects);
}

} // namespace velform
