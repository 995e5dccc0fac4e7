#include "form/needed_files.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "form/frame_pictures.h"

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

std::string_view standard_picture(const FormObject &object) {
    if (!has_standard_picture(object)) return {};
    return frame_picture(frame_button_names[object.number - 1]);
}

void add_files_of(const FormObject &object, std::vector<NeededFile> &files) {
    const auto add = [&](Field field, std::string_view standard) {
        const Setting &name = *object.settings[field];
        const bool is_said = name.where != Setting{}.where;
        files.push_back({name.string(), is_said ? name.where : object.source->where,
                         field == Field::font_file, standard});
    };
    // The program supplies the pictures of a list.
    if (has_own_picture(object) && !object.settings[Field::picture]->string().empty()) {
        add(Field::picture, standard_picture(object));
    }
    const bool has_font = means_something(record_field(Field::font_file), object.type());
    if (has_font && object.value(Field::font_choice) == 1) add(Field::font_file, {});
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
                            .bytes = std::string(standard_picture(object)),
                            .may_make_folder = true});
    }
    return pictures;
}

std::vector<NeededFile> needed_files(const Form &form) {
    const bool with_frame = shows_frame_buttons(form);
    std::vector<NeededFile> files;
    for (const FormObject &object : form.objects) {
        if (!is_frame_button(object) || with_frame) add_files_of(object, files);
    }
    return files;
}

std::string place_in(const std::vector<std::string> &folders, const std::string &name) {
    const auto folder = std::ranges::find_if(
        folders, [&name](const std::string &tried) { return is_in(tried, name); });
    return folder == folders.end() ? std::string() : (fs::path(*folder) / name).string();
}

std::vector<NeededFile> missing_files(const Form &form, const std::vector<std::string> &folders) {
    std::vector<NeededFile> missing;
    std::set<std::string> names;
    for (const NeededFile &file : needed_files(form)) {
        const bool is_there = !file.standard.empty() || !place_in(folders, file.name).empty();
        if (!is_there && names.insert(file.name).second) missing.push_back(file);
    }
    return missing;
}

} // namespace velform
