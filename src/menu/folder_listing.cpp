// The rows of a list as a view of the names of a folder.
#include "menu/folder_listing.h"

#include <cstring>
#include <new>

#include "menu/folder_reading.h"

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

// Settles which name comes first: no row stays empty while there are names before it.
void limit_scroll(const vel_context &ctx, vel_object &list, Listing &listing) {
    const auto rows = dependents_of(list);
    const u32 distance = row_distance(ctx, rows);
    const u32 count = static_cast<u32>(listing.names.size());
    const u32 shown = static_cast<u32>(rows.size());
    const u32 wanted = as_signed(list.scroll_y) < 0 ? (0 - list.scroll_y) / distance : 0;
    listing.first = std::min(wanted, count > shown ? count - shown : 0);
    list.scroll_y = 0 - listing.first * distance;
}

void show_name(vel_object &row, const ListedName &name, u32 width) {
    std::memcpy(row.label, name.label.c_str(), name.label.size() + 1);
    row.hidden = 0;
    row.width = width;
}

// Drawing shows every dependent that has an area, so a row is hidden by its width.
void show_nothing(vel_object &row) {
    row.label[0] = '\0';
    row.hidden = 1;
    row.width = 0;
}

void show_rows(vel_context &ctx, u32 number, Listing &listing) {
    vel_object &list = object_at(ctx, number);
    limit_scroll(ctx, list, listing);
    const auto rows = dependents_of(list);
    for (const u32 row : rows) {
        if (object_at(ctx, row).width != 0) listing.row_width = object_at(ctx, row).width;
    }
    std::size_t place = listing.first;
    for (const u32 row : rows) {
        vel_object &o = object_at(ctx, row);
        if (place < listing.names.size())
            show_name(o, listing.names[place], listing.row_width);
        else
            show_nothing(o);
        ++place;
    }
}

vel_listings &listings_of(vel_context &ctx) {
    if (ctx.listings == nullptr) ctx.listings = new vel_listings;
    return *ctx.listings;
}

i32 list_folder(vel_context &ctx, u32 list, const char *path, const char *pattern) try {
    auto names = read_folder(path, pattern);
    if (!names) return VEL_ERROR_FOLDER;
    Listing &listing = listings_of(ctx).by_list[list];
    listing.names = std::move(*names);
    show_rows(ctx, list, listing);
    return as_signed(static_cast<u32>(listing.names.size()));
} catch (const std::bad_alloc &) {
    return VEL_ERROR_MEMORY;
}

} // namespace

const Listing *listing_of(const vel_context &ctx, u32 list) {
    if (ctx.listings == nullptr) return nullptr;
    const auto found = ctx.listings->by_list.find(list);
    return found == ctx.listings->by_list.end() ? nullptr : &found->second;
}

const ListedName *name_of_row(const vel_context &ctx, u32 row) {
    const u32 list = object_at(ctx, row).master;
    const Listing *listing = listing_of(ctx, list);
    if (row == 0 || listing == nullptr) return nullptr;
    const auto rows = dependents_of(object_at(ctx, list));
    const auto found = std::find(rows.begin(), rows.end(), row);
    const std::size_t place = listing->first + static_cast<std::size_t>(found - rows.begin());
    return found != rows.end() && place < listing->names.size() ? &listing->names[place] : nullptr;
}

bool scroll_listings(vel_context &ctx, u32 window, Towards towards) {
    if (ctx.listings == nullptr || window == 0) return false;
    bool found = false;
    for (auto &[number, listing] : ctx.listings->by_list) {
        vel_object &list = object_at(ctx, number);
        const bool is_inside = number == window || vel_search_master(&ctx, number) == window;
        if (!is_inside || !is_drawable(list)) continue;
        const u32 distance = row_distance(ctx, dependents_of(list));
        const u32 step = std::max(ctx.scroll_step / distance, 1U) * distance;
        // Contents move down towards their start.
        list.scroll_y += towards == Towards::start ? step : 0 - step;
        show_rows(ctx, number, listing);
        found = true;
    }
    return found;
}

} // namespace velumo

using namespace velumo;

int32_t vel_list_directory(vel_context *ctx, uint32_t list, const char *path,
                           const char *pattern) noexcept {
    if (ctx == nullptr || list == 0 || path == nullptr) return VEL_ERROR_ARGUMENT;
    return list_folder(*ctx, list, path, pattern);
}

const char *vel_listed_name(const vel_context *ctx, uint32_t row) noexcept {
    const ListedName *name = name_of_row(*ctx, row);
    return name == nullptr ? nullptr : name->bytes.c_str();
}
