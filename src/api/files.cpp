// The exported functions of files: the file selector, lists of folders and the file dialog.
#include "api/calls.h"
#include "files/file_dialog.h"
#include "files/file_selector.h"
#include "files/folder_list.h"

using namespace velumo;

void vel_prepare_fileselector(vel_context *ctx, uint32_t list, uint32_t rows) noexcept {
    in_form(ctx, make_file_rows, list, rows);
}

void vel_read_app_dir(vel_context *ctx) noexcept {
    if (ctx != nullptr) read_current_folder(*ctx);
}

void vel_load_dir_entries(vel_context *ctx, uint32_t list) noexcept {
    in_form(ctx, fill_file_rows, list);
}

int32_t vel_list_directory(vel_context *ctx, uint32_t list, const char *path,
                           const char *pattern) noexcept {
    if (!has_form(ctx) || names_nothing(*ctx, list) || path == nullptr) return VEL_ERROR_ARGUMENT;
    return list_folder(*ctx, list, path, pattern);
}

const char *vel_listed_name(const vel_context *ctx, uint32_t row) noexcept {
    const ListedName *name = in_form(ctx, name_of_row, row);
    return name == nullptr ? nullptr : name->bytes.c_str();
}

int32_t vel_choose_file(vel_context *ctx, uint32_t window, char *path_out, size_t size) noexcept {
    if (!has_form(ctx) || path_out == nullptr) return VEL_ERROR_ARGUMENT;
    return choose_file(*ctx, window, path_out, size);
}
