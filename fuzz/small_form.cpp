#include "small_form.h"

#include <cstring>

#include "velumo.h"

namespace fuzz {
namespace {

using Record = vel_object_file_rec;

struct Row {
    u32 type, x, y, width, height, master;
    const char *label;
    u32 text;
};

// The frame buttons; a window with a text, a title and its menu; a file dialog.
constexpr Row rows[] = {{VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "m", 0},
                        {VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "", 0},
                        {VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "", 0},
                        {VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "", 0},
                        {VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "", 0},
                        {VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "", 0},
                        {VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "x", 0},
                        {VEL_TYPE_WINDOW, 12, 26, 80, 50, 0, "", 1},
                        {VEL_TYPE_TEXT, 15, 44, 40, 28, 8, "", 2},
                        {VEL_TYPE_LABEL, 60, 28, 28, 14, 8, "Menu", 0},
                        {VEL_TYPE_MENU, 60, 42, 28, 30, 8, "", 0},
                        {VEL_TYPE_LABEL, 62, 44, 20, 12, 11, "Item", 0},
                        {VEL_TYPE_WINDOW, 14, 26, 80, 50, 0, "", 0},
                        {VEL_TYPE_ENTRY, 16, 28, 70, 12, 13, "/", 0},
                        {VEL_TYPE_PICTURE_UNLOADED, 16, 40, 50, 12, 13, "", 0},
                        {VEL_TYPE_NUMBER, 18, 41, 40, 10, 15, "1", 0},
                        {VEL_TYPE_ENTRY, 16, 54, 50, 12, 13, "", 0},
                        {VEL_TYPE_LABEL, 68, 40, 20, 10, 13, "OK", 0},
                        {VEL_TYPE_LABEL, 68, 54, 20, 10, 13, "No", 0},
                        {VEL_TYPE_LABEL, 16, 67, 20, 8, 13, "Unread", 0}};

void set_rest(u32 number, Record &r) {
    const Row &row = rows[number - 1];
    r.type = row.type;
    r.x = row.x, r.y = row.y, r.width = row.width, r.height = row.height;
    r.fill_r = 250, r.fill_g = 10 * number, r.fill_b = 128;
    r.master = row.master;
    std::strcpy(r.label, row.label);
    r.text_index = row.text;
    r.margin_left = r.margin_top = r.margin_right = r.margin_bottom = 1;
    r.border_style = number % 6;
    r.border_inset = number % 3;
    r.hidden = number < small_window || r.type == VEL_TYPE_WINDOW || r.type == VEL_TYPE_MENU;
    r.editable = number == small_text || number == small_name;
    r.max_chars = r.type == VEL_TYPE_LABEL ? 0 : 20;
    r.window_kind = number == small_dialog ? VEL_WINDOW_REDUCED : VEL_WINDOW_FULL;
}

} // namespace

FormBytes small_form() {
    Record records[std::size(rows)] = {};
    for (u32 number = 1; number <= std::size(rows); ++number) {
        set_rest(number, records[number - 1]);
        const u32 master = rows[number - 1].master;
        if (master == 0) continue;
        *std::find(std::begin(records[master - 1].dep_objs), std::end(records[master - 1].dep_objs),
                   0U) = number;
    }
    records[10 - 1].max_chars = small_menu; // its title
    records[0].text_index = 3;              // of the traits
    vel_text_rec texts[3] = {};
    std::strcpy(texts[0].text, "A window's own text");
    std::strcpy(texts[1].text, "Some words that need a few lines\nand\n\ta second paragraph");
    std::strcpy(
        texts[2].text,
        "velumo traits 1\n10 key=m\n12 key=i\n17 password\n18 default\n19 cancel\n20 disabled");
    FormBytes files;
    const auto *const form = reinterpret_cast<const u8 *>(records);
    const auto *const text = reinterpret_cast<const u8 *>(texts);
    files.form.assign(form, form + sizeof records);
    files.text.assign(text, text + sizeof texts);
    return files;
}

} // namespace fuzz
