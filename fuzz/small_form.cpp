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

// Windows 8 and 15, which is a file dialog; the chain's head is object 20.
constexpr Row rows[] = {{VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "m", 0},
                        {VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "", 0},
                        {VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "", 0},
                        {VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "", 0},
                        {VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "", 0},
                        {VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "", 0},
                        {VEL_TYPE_LABEL, 0, 0, 4, 4, 0, "x", 0},
                        {VEL_TYPE_WINDOW, 12, 26, 80, 50, 0, "Win", 1},
                        {VEL_TYPE_LABEL, 15, 28, 30, 14, 8, "Go", 0},
                        {VEL_TYPE_TEXT, 15, 44, 40, 28, 8, "", 2},
                        {VEL_TYPE_ENTRY, 60, 28, 28, 14, 8, "ab", 0},
                        {VEL_TYPE_NUMBER, 60, 44, 28, 14, 8, "12", 0},
                        {VEL_TYPE_LABEL, 60, 60, 28, 14, 8, "Menu", 0},
                        {VEL_TYPE_MENU, 60, 30, 28, 30, 8, "", 0},
                        {VEL_TYPE_WINDOW, 20, 30, 60, 40, 0, "", 0},
                        {VEL_TYPE_ENTRY, 22, 32, 50, 12, 15, "/", 0},
                        {VEL_TYPE_PICTURE_UNLOADED, 22, 44, 50, 12, 15, "", 0},
                        {VEL_TYPE_ENTRY, 24, 45, 40, 10, 17, "row", 0},
                        {VEL_TYPE_LABEL, 62, 32, 20, 10, 14, "Item", 0},
                        {VEL_TYPE_CHAIN, 2, 2, 50, 20, 0, "", 3}};

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
    r.editable = r.type == VEL_TYPE_TEXT || r.type == VEL_TYPE_ENTRY || r.type == VEL_TYPE_NUMBER;
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
    records[12].max_chars = small_menu;
    vel_text_rec texts[3] = {};
    std::strcpy(texts[0].text, "A window's own text");
    std::strcpy(texts[1].text, "Some words that need a few lines\nand\n\ta second paragraph");
    std::strcpy(texts[2].text,
                "velumo traits 1\n9 default key=g\n11 key=e\n12 password\n13 disabled");
    FormBytes files;
    const auto *const form = reinterpret_cast<const u8 *>(records);
    const auto *const text = reinterpret_cast<const u8 *>(texts);
    files.form.assign(form, form + sizeof records);
    files.text.assign(text, text + sizeof texts);
    return files;
}

} // namespace fuzz
