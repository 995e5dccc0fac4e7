#include "parts/rows.h"

#include <cstring>
#include <string_view>

#include "model/traits.h"
#include "text/layout.h"
#include "text/lines.h"

namespace velumo {
namespace {

void copy_colours(const vel_object &from, vel_object &to) {
    to.fill_r = from.fill_r, to.fill_g = from.fill_g, to.fill_b = from.fill_b;
    to.text_r = from.text_r, to.text_g = from.text_g, to.text_b = from.text_b;
}

// Only an object that the program's pictures are for gets one, and gives it back.
void show_picture(vel_context &ctx, const vel_object &cell, SDL_Surface *picture) {
    const u32 number = cell.dep_objs[0];
    vel_object &o = object_at(ctx, number);
    auto &borrowed = state_of(ctx).borrowed_images;
    if (number == 0 || (o.type != VEL_TYPE_PICTURE_UNLOADED && !borrowed.contains(number))) return;
    if (picture != nullptr) borrowed.insert(number);
    o.image = picture;
    o.type = picture == nullptr ? VEL_TYPE_PICTURE_UNLOADED : VEL_TYPE_PICTURE;
    o.width = picture == nullptr ? 0 : static_cast<u32>(picture->w);
    o.height = picture == nullptr ? 0 : static_cast<u32>(picture->h);
    o.y = cell.y + (cell.height - o.height) / 2;
    if (cell.height < o.height) o.y = cell.y;
}

void show_cell(vel_context &ctx, u32 number, const vel_cell &cell) {
    vel_object &o = object_at(ctx, number);
    std::memcpy(o.label, cell.text, sizeof o.label);
    show_picture(ctx, o, cell.picture);
    format_object(ctx, number);
}

// The characters of a text, of which a program may have taken the end.
std::string_view text_of_list(const vel_context &ctx, u32 list) {
    const u32 text = text_of(ctx, object_at(ctx, list));
    if (text == 0) return {};
    const char *characters = ctx.text_recs[text].text;
    return {characters, strnlen(characters, VEL_TEXT_SIZE)};
}

// The piece of a number between separators; nothing beyond the last.
std::string_view piece_of(std::string_view whole, char separator, u32 number) {
    for (; number > 0; --number) {
        const std::size_t end = whole.find(separator);
        if (end == std::string_view::npos) return {};
        whole.remove_prefix(end + 1);
    }
    return whole.substr(0, whole.find(separator));
}

} // namespace

vel_cell cell_of(const List &items, u32 item, u32 column) {
    vel_cell cell{};
    if (items.cell) items.cell(item, column, cell);
    cell.text[sizeof cell.text - 1] = '\0';
    return cell;
}

void show_made_row(vel_context &ctx, u32 list, const List &items, u32 row, u32 item) {
    const vel_object &whole = object_at(ctx, list);
    const bool is_selected = items.selected.has(item);
    const vel_object &look = is_selected ? object_at(ctx, whole.dep_objs[sample_of_list]) : whole;
    vel_object &o = object_at(ctx, row);
    o.hidden = 0;
    copy_colours(look, o);
    // Where many can be selected, an outline shows which one the keys go on from.
    const bool is_current = traits_of(ctx, list).many && items.current == item;
    o.border_style = is_current ? VEL_BORDER_SHADOW : VEL_BORDER_NONE;
    const auto cells = dependents_of(o);
    const bool is_cell = cells.empty() || object_at(ctx, cells[0]).type != VEL_TYPE_LABEL;
    if (is_cell) show_cell(ctx, row, cell_of(items, item, 0));
    for (u32 column = 0; !is_cell && column < cells.size(); ++column) {
        copy_colours(look, object_at(ctx, cells[column]));
        show_cell(ctx, cells[column], cell_of(items, item, column));
    }
}

u32 count_text_rows(const vel_context &ctx, u32 list) {
    std::string_view text = text_of_list(ctx, list);
    if (text.empty()) return 0;
    if (text.ends_with('\n')) text.remove_suffix(1);
    return static_cast<u32>(std::count(text.begin(), text.end(), '\n')) + 1;
}

void read_text_row(const vel_context &ctx, u32 list, u32 row, u32 column, vel_cell &cell) {
    const std::string_view line = piece_of(text_of_list(ctx, list), '\n', row);
    const std::string_view piece = piece_of(line, '\t', column);
    cell.text[piece.copy(cell.text, sizeof cell.text - 1)] = '\0';
}

} // namespace velumo
