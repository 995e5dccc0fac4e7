#include "draw/gallery.h"

#include <fmt/format.h>

namespace velform {
namespace {

constexpr std::string_view gallery_objects = R"(
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
    { type = "text", rect = [20, 316, 270, 60], text = "A text that can only be read." },
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

constexpr int only_disabled = -1; // the kind cannot be used

struct ShownKind {
    std::string_view name, keys;
    int height;
    int piece = 0; // that is used, counted from the object itself
};
constexpr ShownKind kinds[] = {
    {"label", R"(type = "label", label = "A caption")", 28, only_disabled},
    {"button", R"(kind = "button", label = "Open")", 30},
    {"default", R"(type = "label", default = true, label = "Save")", 30},
    {"title", R"(type = "label", menu = "menu", label = "File")", 28},
    {"entry", R"(type = "entry", label = "Ada")", 28},
    {"number", R"(type = "number", label = "12")", 28},
    {"text", R"(type = "text", editable = true, text = "A note of two or more lines")", 46},
    {"check", R"(kind = "check", checked = true, label = "Bold")", 24},
    {"", R"(kind = "check", label = "Italic")", 24},
    {"radio", R"(kind = "radio", checked = true, label = "Left")", 24},
    {"", R"(kind = "radio", label = "Right")", 24},
    {"choice", R"(kind = "choice", rows = ["Red", "Green"])", 28},
    {"slider", R"(kind = "slider", value = 40)", 28},
    {"progress", R"(kind = "progress", value = 60)", 18, only_disabled},
    {"scroll_bar", R"(kind = "scroll_bar", for = "r6")", 14, only_disabled},
    {"list", R"(kind = "list", rows = ["One", "Two", "Three"])", 70},
    {"tabs", R"(kind = "tabs", pages = [{ title = "A" }, { title = "B" }])", 60, 2},
};
constexpr std::string_view columns[] = {"", "hover", "pressed", "focus", "disabled"};
constexpr int first_column = 92, column_width = 132, object_width = 118, gap = 8;

} // namespace

std::string gallery_source(std::string_view theme) {
    return "theme = \"" + std::string(theme) + "\"\n" + std::string(gallery_objects);
}

StatesSheet states_sheet(std::string_view theme) {
    std::string objects;
    const auto add = [&objects](std::string_view id, std::string_view keys, int x, int y, int width,
                                int height) {
        objects += fmt::format("{{ id = \"{}\", {}, rect = [{}, {}, {}, {}] }},\n", id, keys, x, y,
                               width, height);
    };
    StatesSheet sheet{{}, {}, first_column + column_width * int{std::size(columns)}, gap, 0};
    sheet.column_width = column_width;
    for (int k = 1; k < int{std::size(columns)}; ++k) {
        add(fmt::format("c{}", k), fmt::format("type = \"label\", label = \"{}\"", columns[k]),
            first_column + k * column_width, gap, object_width, 20);
    }
    sheet.height += 20 + gap;
    for (const ShownKind &kind : kinds) {
        const std::string id = fmt::format("r{}", sheet.rows.size());
        add("n" + id, fmt::format("type = \"label\", label = \"{}\"", kind.name), gap, sheet.height,
            first_column - 2 * gap, std::min(kind.height, 28));
        add(id, kind.keys, first_column, sheet.height, object_width, kind.height);
        sheet.rows.push_back({id,
                              {first_column, static_cast<Sint16>(sheet.height), object_width,
                               static_cast<Uint16>(kind.height)},
                              kind.piece});
        sheet.height += kind.height + gap;
    }
    sheet.source =
        fmt::format("theme = \"{}\"\n[[window]]\nkind = \"whole\"\nrect = [0, 0, {}, {}]\n"
                    "objects = [\n{}]\n[[object]]\nid = \"menu\"\ntype = \"menu\"\n",
                    theme, sheet.width, sheet.height, objects);
    return sheet;
}

} // namespace velform
