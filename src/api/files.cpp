// The exported functions of files: the file selector, lists of folders and the file dialog.
#include "files/file_dialog.h"
#include "files/file_selector.h"
#include "files/folder_list.h"

using namespace velumo;

void vel_prepare_fileselector(vel_context *ctx, uint32_t list, uint32_t rows) noexcept {
    make_file_rows(*ctx, list, rows);
}

void vel_read_app_dir(vel_context *ctx) noexcept { read_current_folder(*ctx); }

void vel_load_dir_entries(vel_context *ctx, uint32_t list) noexcept { fill_file_rows(*ctx, list); }

int32_t vel_list_directory(vel_context *ctx, uint32_t list, const char *path,
                           const char *pattern) noexcept {
    if (ctx == nullptr || list == 0 || path == nullptr) return VEL_ERROR_ARGUMENT;
    return list_folder(*ctx, list, path, pattern);
}

const char *vel_listed_name(const vel_context *ctx, uint32_t row) noexcept {
    const ListedName *name = name_of_row(*ctx, row);
    return name == nullptr ? nullptr : name->bytes.c_str();
}

int32_t vel_choose_file(vel_context *ctx, uint32_t window, char *path_out, size_t size) noexcept {
    if (ctx == nullptr || path_out == nullptr) return VEL_ERROR_ARGUMENT;
    return choose_file(*ctx, window, path_out, size);
}
