#include "files/folder_list.h"

#include <new>

#include "files/folder_reading.h"
#include "parts/list.h"
#include "text/encoding.h"

namespace velumo {
i32 list_folder(vel_context &ctx, u32 list, const char *path, const char *pattern) try {
    auto names = read_folder(path, pattern);
    if (!names) return VEL_ERROR_FOLDER;
    auto &shown = state_of(ctx).folders[list];
    const auto count = static_cast<u32>(names->size());
    // The list shows the names where they lie in the end.
    const auto show = [&shown](u32 row, u32, vel_cell &cell) {
        if (row >= shown.size()) return;
        const std::string label = label_of(shown[row]);
        cell.text[label.copy(cell.text, sizeof cell.text - 1)] = '\0';
    };
    shown.swap(*names);
    try {
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
