#include "needed_files.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "frame_pictures.h"

namespace velform {
namespace {

namespace fs = std::filesystem;

bool is_frame_button(const FormObject &object) { return object.number <= VEL_FRAME_BUTTONS; }

// The buttons show only at a window.
bool shows_frame_buttons(const Form &form) {
    return std::ranges::any_of(form.objects, [](const FormObject &object) {
        return object.master == 0 && object.type() == VEL_TYPE_WINDOW;
    });
}

bool is_in(const std::string &folder, const std::string &name) {
    std::error_code ignored;
    return fs::exists(fs::path(folder) / name, ignored);
}

bool has_own_picture(const FormObject &object) {
    return object.type() == VEL_TYPE_PICTURE_UNLOADED;
}

bool has_standard_picture(const FormObject &object) {
    return is_frame_button(object) && has_own_picture(object) &&
           object.settings[Field::picture]->string() ==
               frame_picture_path(standard_frame_folder, object.number);
}

std::vector<std::string> files_of(const FormObject &object) {
    std::vector<std::string> files;
    if (has_own_picture(object) && !has_standard_picture(object)) {
        files.push_back(object.settings[Field::picture]->string());
    }
    const bool has_font = means_something(record_field(Field::font_file), object.type());
    if (has_font && object.value(Field::font_choice) == 1) {
        files.push_back(object.settings[Field::font_file]->string());
    }
    return files;
}

} // namespace

std::vector<OutputFile> frame_pictures_to_write(const Form &form, const std::string &folder) {
    std::vector<OutputFile> pictures;
    if (!shows_frame_buttons(form)) return pictures;
    for (std::uint32_t button = 1; button <= VEL_FRAME_BUTTONS; ++button) {
        const FormObject &object = form.object(button);
        if (!has_standard_picture(object)) continue;
        const std::string &name = object.settings[Field::picture]->string();
        if (is_in(folder, name)) continue;
        pictures.push_back({.path = (fs::path(folder) / name).string(),
                            .bytes = std::string(frame_picture(frame_button_names[button - 1])),
                            .may_make_folder = true});
    }
    return pictures;
}

std::vector<std::string> missing_files(const Form &form, const std::vector<std::string> &folders) {
    const bool with_frame = shows_frame_buttons(form);
    std::set<std::string> missing;
    for (const FormObject &object : form.objects) {
        if (is_frame_button(object) && !with_frame) continue;
        for (std::string &file : files_of(object)) {
            const bool is_there = std::ranges::any_of(
                folders, [&file](const std::string &folder) { return is_in(folder, file); });
            if (!is_there) missing.insert(std::move(file));
        }
    }
    return {missing.begin(), missing.end()};
}

} // namespace velform
