// The template of a window for vel_choose_file: a few words of the source become a whole window.
#pragma once

#include <span>
#include <vector>

#include "source/form_source.h"

namespace velform {

// What an entry of `file_dialog` says. Texts that it leaves out are English.
struct FileDialog {
    Position where;
    std::string id;
    Position id_where;
    Settings place; // x, y, width, height
    std::optional<Setting> rows, title, name, ok, cancel, message;
    std::vector<StyleUse> style, row_style, field_style, button_style;
};

// The texts of a dialog by their keys.
struct FileDialogText {
    std::string_view key;
    std::optional<Setting> FileDialog::*text;
};
std::span<const FileDialogText> file_dialog_texts();

// The styles of its parts.
struct FileDialogStyle {
    std::string_view key;
    std::vector<StyleUse> FileDialog::*styles;
};
std::span<const FileDialogStyle> file_dialog_styles();

// The window with all that is in it, in the order that vel_choose_file wants.
struct PartContext;
ObjectSource file_dialog_window(const FileDialog &dialog, PartContext &context);

} // namespace velform
