#include "window/list.h"

#include <cstring>

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
void limit_scroll(const vel_context &ctx, vel_object &list, List &items) {
    const auto rows = dependents_of(list);
    const u32 distance = row_distance(ctx, rows);
    const u32 count = static_cast<u32>(items.labels.size());
    const u32 shown = static_cast<u32>(rows.size());
    const u32 wanted = as_signed(list.scroll_y) < 0 ? (0 - list.scroll_y) / distance : 0;
    items.first = std::min(wanted, count > shown ? count - shown : 0);
    list.scroll_y = 0 - items.first * distance;
}

void show_item(vel_object &row, const std::string &label, u32 width) {
    std::memcpy(row.label, label.c_str(), label.size() + 1);
    row.hidden = 0;
    row.width = width;
}

// Drawing shows every dependent that has an area, so a row is hidden by its width.
void show_nothing(vel_object &row) {
    row.label[0] = '\0';
    row.hidden = 1;
    row.width = 0;
}

void show_rows(vel_context &ctx, u32 number, List &items) {
    vel_object &list = object_at(ctx, number);
    limit_scroll(ctx, list, items);
    const auto rows = dependents_of(list);
    for (const u32 row : rows) {
        if (object_at(ctx, row).width != 0) items.row_width = object_at(ctx, row).width;
    }
    std::size_t item = items.first;
    for (const u32 row : rows) {
        vel_object &o = object_at(ctx, row);
        if (item < items.labels.size()) {
            show_item(o, items.labels[item], items.row_width);
        } else {
            show_nothing(o);
        }
        ++item;
    }
}

} // namespace

void show_items(vel_context &ctx, u32 list, std::vector<std::string> labels) {
    List &items = state_of(ctx).lists[list];
    items.labels = std::move(labels);
    show_rows(ctx, list, items);
}

std::optional<std::size_t> item_of_row(const vel_context &ctx, u32 row) {
    const u32 list = object_at(ctx, row).master;
    if (row == 0 || ctx.state == nullptr) return {};
    const auto items = ctx.state->lists.find(list);
    if (items == ctx.state->lists.end()) return {};
    const auto rows = dependents_of(object_at(ctx, list));
    const auto found = std::find(rows.begin(), rows.end(), row);
    const std::size_t item = items->second.first + static_cast<std::size_t>(found - rows.begin());
    if (found == rows.end() || item >= items->second.labels.size()) return {};
    return item;
}

bool scroll_lists(vel_context &ctx, u32 window, ListEnd towards) {
    if (ctx.state == nullptr || window == 0) return false;
    bool found = false;
    for (auto &[number, items] : ctx.state->lists) {
        vel_object &list = object_at(ctx, number);
        const bool is_inside = number == window || root_of(ctx, number) == window;
        if (!is_inside || !is_drawable(list)) continue;
        const u32 distance = row_distance(ctx, dependents_of(list));
        const u32 step = std::max(ctx.scroll_step / distance, 1U) * distance;
        // Contents move down towards their start.
        list.scroll_y += towards == ListEnd::first ? step : 0 - step;
        show_rows(ctx, number, items);
        found = true;
    }
    return found;
}

bool scroll_list(vel_context &ctx, u32 list, i32 rows) {
    if (ctx.state == nullptr) return false;
    const auto items = ctx.state->lists.find(list);
    if (items == ctx.state->lists.end()) return false;
    vel_object &o = object_at(ctx, list);
    const auto shown = dependents_of(o);
    if (items->second.labels.size() <= shown.size()) return false;
    o.scroll_y -= as_field(rows) * row_distance(ctx, shown);
    show_rows(ctx, list, items->second);
    return true;
}

} // namespace velumo
