#include "parts/list.h"

#include <cstring>

#include "model/traits.h"
#include "parts/rows.h"
#include "render/geometry.h"

namespace velumo {
namespace {

constexpr u32 gap_below_only_row = 3;

u32 row_distance(const vel_context &ctx, std::span<const u32> rows) {
    if (rows.empty()) return 1;
    const vel_object &first = object_at(ctx, rows[0]);
    const u32 distance =
        rows.size() > 1 ? object_at(ctx, rows[1]).y - first.y : first.height + gap_below_only_row;
    return as_signed(distance) > 0 ? distance : 1;
}

// Settles which item comes first: no row stays empty while there are items before it.
void limit_scroll(vel_object &list, List &items, u32 shown, u32 distance) {
    const u32 wanted = as_signed(list.scroll_y) < 0 ? (0 - list.scroll_y) / distance : 0;
    items.first = std::min(wanted, items.count > shown ? items.count - shown : 0);
    list.scroll_y = 0 - items.first * distance;
}

void show_item(vel_object &row, const List &items, u32 item) {
    const vel_cell cell = cell_of(items, item, 0);
    std::memcpy(row.label, cell.text, std::strlen(cell.text) + 1);
    row.hidden = 0;
    row.width = items.row_width;
}

// Drawing shows every dependent that has an area, so a row is hidden by its width.
void show_nothing(vel_object &row) {
    row.label[0] = '\0';
    row.hidden = 1;
    row.width = 0;
}

// Also those that there is no room for now.
std::span<const u32> all_rows(const vel_context &ctx, u32 list) {
    const auto all = dependents_of(object_at(ctx, list));
    if (traits_of(ctx, list).part != list_part) return all;
    return all.subspan(std::min<std::size_t>(first_row_of_list, all.size()));
}

void show_rows_of(vel_context &ctx, u32 number, List &items) {
    vel_object &list = object_at(ctx, number);
    const auto rows = rows_of(ctx, number);
    limit_scroll(list, items, static_cast<u32>(rows.size()), row_distance(ctx, rows));
    for (const u32 row : rows) {
        if (object_at(ctx, row).width != 0) items.row_width = object_at(ctx, row).width;
    }
    const bool is_made = traits_of(ctx, number).part == list_part;
    items.shown = static_cast<u32>(rows.size());
    for (const u32 row : all_rows(ctx, number).subspan(rows.size())) {
        show_nothing(object_at(ctx, row));
    }
    u32 item = items.first;
    for (const u32 row : rows) {
        vel_object &o = object_at(ctx, row);
        if (item >= items.count) {
            show_nothing(o);
        } else if (is_made) {
            o.width = items.row_width;
            show_made_row(ctx, number, items, row, item);
        } else {
            show_item(o, items, item);
        }
        ++item;
    }
}

} // namespace

void show_items(vel_context &ctx, u32 list, u32 count, List::Cell cell) {
    List &items = state_of(ctx).lists[list];
    items.count = count;
    items.cell = std::move(cell);
    show_rows_of(ctx, list, items);
}

std::span<const u32> rows_of(const vel_context &ctx, u32 list) {
    const auto all = all_rows(ctx, list);
    if (traits_of(ctx, list).part != list_part) return all;
    const i64 end = extent_of(object_at(ctx, list), vertical).end;
    const auto fits = [&](u32 row) { return extent_of(object_at(ctx, row), vertical).end <= end; };
    const auto first_out = std::find_if_not(all.begin(), all.end(), fits);
    return {all.begin(), std::max(first_out, all.begin() + (all.empty() ? 0 : 1))};
}

void fill_list(vel_context &ctx, u32 list) {
    List *items = find_list(ctx, list);
    if (items != nullptr && items->shown != rows_of(ctx, list).size())
        show_rows_of(ctx, list, *items);
}

List *find_list(const vel_context &ctx, u32 list) {
    if (ctx.state == nullptr) return nullptr;
    const auto items = ctx.state->lists.find(list);
    return items == ctx.state->lists.end() ? nullptr : &items->second;
}

std::optional<std::size_t> item_of_row(const vel_context &ctx, u32 row) {
    const u32 list = object_at(ctx, row).master;
    const List *items = row == 0 ? nullptr : find_list(ctx, list);
    if (items == nullptr) return {};
    const auto rows = rows_of(ctx, list);
    const auto found = std::find(rows.begin(), rows.end(), row);
    const std::size_t item = items->first + static_cast<std::size_t>(found - rows.begin());
    if (found == rows.end() || item >= items->count) return {};
    return item;
}

bool scroll_lists(vel_context &ctx, u32 window, ListEnd towards) {
    if (ctx.state == nullptr || window == 0) return false;
    bool found = false;
    for (auto &[number, items] : ctx.state->lists) {
        vel_object &list = object_at(ctx, number);
        const bool is_inside = number == window || root_of(ctx, number) == window;
        if (!is_inside || !is_drawable(list)) continue;
        const u32 distance = row_distance(ctx, rows_of(ctx, number));
        const u32 step = std::max(ctx.scroll_step / distance, 1U) * distance;
        // Contents move down towards their start.
        list.scroll_y += towards == ListEnd::first ? step : 0 - step;
        show_rows_of(ctx, number, items);
        found = true;
    }
    return found;
}

bool scroll_list(vel_context &ctx, u32 list, i64 rows) {
    List *items = find_list(ctx, list);
    const auto shown = rows_of(ctx, list);
    if (items == nullptr || items->count <= shown.size()) return false;
    object_at(ctx, list).scroll_y -= as_field(rows * row_distance(ctx, shown));
    show_rows_of(ctx, list, *items);
    return true;
}

void show_from(vel_context &ctx, u32 list, i64 first) {
    List *items = find_list(ctx, list);
    if (items == nullptr) return;
    const i64 distance = row_distance(ctx, rows_of(ctx, list));
    object_at(ctx, list).scroll_y = as_field(-std::clamp<i64>(first, 0, items->count) * distance);
    show_rows_of(ctx, list, *items);
}

void show_rows(vel_context &ctx, u32 list) {
    if (List *items = find_list(ctx, list)) show_rows_of(ctx, list, *items);
}

} // namespace velumo
