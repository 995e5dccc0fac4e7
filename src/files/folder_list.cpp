#include "files/folder_list.h"

#include <new>

#include "files/folder_reading.h"
#include "text/encoding.h"
#include "window/list.h"

namespace velumo {
i32 list_folder(vel_context &ctx, u32 list, const char *path, const char *pattern) try {
    auto names = read_folder(path, pattern);
    if (!names) return VEL_ERROR_FOLDER;
    std::vector<std::string> labels;
    for (const ListedName &name : *names) labels.push_back(label_of(name));
    auto &shown = state_of(ctx).folders[list];
    show_items(ctx, list, std::move(labels));
    shown = std::move(*names);
    return as_signed(static_cast<u32>(shown.size()));
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
