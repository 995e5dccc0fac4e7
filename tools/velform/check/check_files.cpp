#include "check/check_form.h"

#include <filesystem>

#include <fmt/format.h>

#include "base/printable.h"
#include "form/record_bytes.h"

namespace velform {
namespace {

std::string path_of(const CheckedForm &form, const CheckedObject &o, Field field) {
    const RecordField &row = record_field(field);
    return std::string(string_at(form.form().bytes(o.number, row), 0, row.size));
}

bool is_there(const std::string &path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

class FilesCheck {
public:
    FilesCheck(const CheckedForm &form, const vel_context &ctx) : form_(form), ctx_(ctx) {}

    void run() const {
        for (const CheckedObject &o : form_.objects()) {
            if (o.number == 0 || o.number > ctx_.object_count) continue;
            if (o.type == VEL_TYPE_PICTURE_UNLOADED) check_picture(o);
            if (means_something(record_field(Field::font_file), o.type)) check_font(o);
        }
    }

private:
    // The compiler writes those that come with it.
    bool is_standard(const CheckedObject &o, const std::string &path) const {
        return form_.source() != nullptr && o.number <= VEL_FRAME_BUTTONS &&
               path == frame_picture_path(standard_frame_folder, o.number);
    }

    void check_picture(const CheckedObject &o) const {
        const std::string path = path_of(form_, o, Field::picture);
        const bool is_loaded = ctx_.objects[o.number].type == VEL_TYPE_PICTURE;
        if (path.empty() || is_loaded || is_standard(o, path)) return;
        if (is_there(path)) {
            form_.report(Rule::picture_not_loaded, o, Field::picture,
                         fmt::format("{} is no picture that can be loaded", printable(path)));
        } else {
            report_missing(o, Field::picture, path);
        }
    }

    void check_font(const CheckedObject &o) const {
        const bool is_own = form_.number(o, Field::font_choice) == 1;
        if (!is_own || ctx_.objects[o.number].own_font != nullptr) return;
        const std::string path = path_of(form_, o, Field::font_file);
        if (path.empty()) {
            form_.report(Rule::missing_file, o, Field::font_file, "the own font has no file");
        } else if (is_there(path)) {
            form_.report(Rule::font_not_loaded, o, Field::font_file,
                         fmt::format("{} is no font that can be loaded in {} points",
                                     printable(path), form_.number(o, Field::font_size)));
        } else {
            report_missing(o, Field::font_file, path);
        }
    }

    void report_missing(const CheckedObject &o, Field field, const std::string &path) const {
        form_.report(Rule::missing_file, o, field,
                     fmt::format("there is no file {}", printable(path)));
    }

    const CheckedForm &form_;
    const vel_context &ctx_;
};

} // namespace

void check_files(const CheckedForm &form, const vel_context &ctx) { FilesCheck(form, ctx).run(); }

} // namespace velform
