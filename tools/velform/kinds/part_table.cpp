#include <algorithm>

#include "kinds/part_source.h"

namespace velform {
namespace {

constexpr std::string_view check_keys[] = {"checked"};
constexpr std::string_view radio_keys[] = {"checked", "group"};
constexpr std::string_view list_keys[] = {"columns", "rows", "row_height", "many"};
constexpr std::string_view scroll_bar_keys[] = {"for"};
constexpr std::string_view choice_keys[] = {"rows", "row_height", "value"};
constexpr std::string_view slider_keys[] = {"min", "max", "step", "value"};
constexpr std::string_view progress_keys[] = {"min", "max", "value", "endless"};
constexpr std::string_view tabs_keys[] = {"pages", "page", "value"};

constexpr PartRow part_rows[] = {
    {"button",
     "a button",
     PartKind::button,
     Role::button,
     {},
     true,
     true,
     "A label that is pressed, whatever its border."},
    {"caption",
     "a caption",
     PartKind::caption,
     Role::caption,
     {},
     true,
     true,
     "A label that is no button, whatever its border."},
    {"check", "a check", PartKind::check, Role::check, check_keys, true, false,
     "A box that is on or off, and its caption."},
    {"radio", "a radio button", PartKind::radio, Role::radio, radio_keys, true, false,
     "One of several of which one is on, and its caption."},
    {"list", "a list", PartKind::list, Role::list, list_keys, false, false,
     "Rows and columns, with a scroll bar."},
    {"scroll_bar", "a scroll bar", PartKind::scroll_bar, Role::scroll_bar, scroll_bar_keys, false,
     false, "Scrolls a text, a chain or a window; vertical when it is higher than wide."},
    {"choice", "a choice", PartKind::choice, Role::choice, choice_keys, false, false,
     "A field that opens a list to choose from."},
    {"slider", "a slider", PartKind::slider, Role::slider, slider_keys, false, false,
     "A value in a range; vertical when it is higher than wide."},
    {"progress", "a progress bar", PartKind::progress, Role::progress, progress_keys, false, false,
     "How far something has come; grows upwards when it is higher than wide."},
    {"tabs", "a set of tabs", PartKind::tabs, Role::tabs, tabs_keys, false, false,
     "Pages of objects, of which one shows."},
    {"whole",
     "a whole X window",
     PartKind::whole,
     Role::whole,
     {},
     false,
     true,
     "The whole display instead of a window on it: in `window` and `windows` only."},
};

constexpr PartKey keys[] = {
    {"kind", "one of the names below", "Makes the object a part."},
    {"checked", "`true`, `false`", "Whether it is on at first."},
    {"group", "string",
     "Radio buttons of the same group in a window belong together; without it, "
     "those in the same object."},
    {"columns",
     "list of tables with `title`, `width`, `align` and `picture`, the width of pictures",
     "At most 20; those without a `width` share what is left. Without titles there is no row of "
     "them."},
    {"rows", "list of strings",
     "Fixed rows, with a tab between columns; 999 characters in all, with one for each end of a "
     "row. Without them the program supplies rows."},
    {"row_height", "12 to 200", "22 unless it is said."},
    {"for", "`id` of an object", "What a scroll bar scrolls."},
    {"pages", "list of tables with `title`, `key` and lists of objects",
     "At most 49 pages. `[[window.object.page]]` is another way to write one."},
};

const PartRow &row_of(PartKind kind) { return *std::ranges::find(part_rows, kind, &PartRow::kind); }

} // namespace

std::span<const PartRow> part_table() { return part_rows; }
std::span<const PartKey> part_keys() { return keys; }
Role role_of(PartKind kind) { return row_of(kind).role; }
std::string_view name_with_article(PartKind kind) { return row_of(kind).article; }

} // namespace velform
