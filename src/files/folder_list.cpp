#include "files/folder_list.h"

#include <ctime>
#include <new>

#include "files/folder_reading.h"
#include "model/traits.h"
#include "parts/list_part.h"
#include "text/encoding.h"

namespace velumo {
namespace {

// As in "12 KB".
std::string text_of_size(std::int64_t bytes) {
    constexpr const char *units[] = {"B", "KB", "MB", "GB", "TB"};
    std::size_t unit = 0;
    while (bytes >= 10000 && unit + 1 < std::size(units)) {
        bytes = (bytes + 512) / 1024;
        ++unit;
    }
    return std::to_string(bytes) + ' ' + units[unit];
}

// As in "2026-03-31 17:05", in the user's time.
std::string text_of_time(std::int64_t seconds) {
    const auto time = static_cast<std::time_t>(seconds);
    std::tm parts{};
    char text[32] = "";
    if (localtime_r(&time, &parts) == nullptr) return "";
    return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &parts)};
}

std::string text_of(const ListedName &name, u32 column) {
    if (column == 0) return label_of(name);
    if (column > 2 || name.bytes == "..") return "";
    if (column == 2) return text_of_time(name.changed);
    return name.is_folder ? "" : text_of_size(name.size);
}

} // namespace

i32 list_folder(vel_context &ctx, u32 list, const char *path, const char *pattern) try {
    auto names = read_folder(path, pattern);
    if (!names) return VEL_ERROR_FOLDER;
    auto &shown = state_of(ctx).folders[list];
    const auto count = static_cast<u32>(names->size());
    // The list shows the names where they lie in the end.
    const auto show = [&shown](u32 row, u32 column, vel_cell &cell) {
        if (row >= shown.size()) return;
        const std::string label = text_of(shown[row], column);
        cell.text[label.copy(cell.text, sizeof cell.text - 1)] = '\0';
    };
    shown.swap(*names);
    try {
        if (traits_of(ctx, list).part == list_part)
            show_list(ctx, list, count, show);
        else
            show_items(ctx, list, count, show);
    } catch (const std::bad_alloc &) {
        shown.swap(*names);
        throw;
    }
    return as_signed(count);
} catch (const std::bad_alloc &) {
    return VEL_ERROR_MEMORY;
}

std::string label_of(const ListedName &name) {
    std::string label = latin1_of(name.bytes);
    label.resize(std::min(label.size(), longest_label - (name.is_folder ? 1 : 0)));
    if (name.is_folder) label += '/';
    return label;
}

const std::vector<ListedName> *names_of(const vel_context &ctx, u32 list) {
    if (ctx.state == nullptr) return nullptr;
    const auto found = ctx.state->folders.find(list);
    return found == ctx.state->folders.end() ? nullptr : &found->second;
}

const ListedName *name_of_row(const vel_context &ctx, u32 row) {
    const auto item = item_of_row(ctx, row);
    const auto *names = item ? names_of(ctx, object_at(ctx, row).master) : nullptr;
    return names != nullptr && *item < names->size() ? &(*names)[*item] : nullptr;
}

} // namespace velumo
