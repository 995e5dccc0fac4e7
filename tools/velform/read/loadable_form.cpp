#include "read/loadable_form.h"

#include <filesystem>

#include <fmt/format.h>

#include "base/destination.h"
#include "base/files.h"
#include "form/needed_files.h"
#include "form/records.h"
#include "source/source_form.h"

namespace velform {
namespace {

namespace fs = std::filesystem;

std::string next_to(const std::string &form, const char *suffix) {
    return fs::path(form).replace_extension(suffix).string();
}

} // namespace

LoadableForm::LoadableForm(const FormPaths &paths, std::ostream &err) : path_(paths.form) {
    form_ = read_file(path_);
    if (is_source(path_, form_)) {
        refuse_companions(paths);
        compile(form_, err);
    } else {
        if (is_stream(path_) && (paths.text.empty() || paths.text == path_)) {
            throw WrongUsage("a form that is no file needs a text file with another name");
        }
        text_path_ = paths.text.empty() ? next_to(path_, ".text") : paths.text;
        text_ = read_file(text_path_);
        header_path_ = paths.header.empty() ? next_to(path_, ".h") : paths.header;
    }
    point_to_data();
}

void LoadableForm::compile(const std::string &bytes, std::ostream &err) {
    SourceForm source(path_, bytes);
    const std::string prefix = source.prefix(path_);
    const std::string header = header_text(source.form(), prefix, source.diagnostics());
    source.refuse_errors(err);
    const std::string folder = fs::path(path_).parent_path().string();
    for (const NeededFile &needed : needed_files(source.form())) {
        const std::string place = place_in({folder}, needed.name);
        if (!place.empty()) {
            add_file(needed.name, place);
        } else if (!needed.standard.empty()) {
            embedded_.push_back({needed.name, std::string(needed.standard)});
        }
    }
    form_ = form_file_bytes(source.form());
    text_ = text_file_bytes(source.form());
    names_.emplace(header);
}

// What cannot be read is left to the library, which says so. A pipe would be waited for.
void LoadableForm::add_file(const std::string &name, const std::string &place) {
    std::error_code ignored;
    if (!fs::is_regular_file(place, ignored)) return;
    try {
        embedded_.push_back({name, read_file(place)});
    } catch (const FileProblem &) {
    }
}

// From the files where it can, which the library then names in its messages.
void LoadableForm::load_into(Stage &stage) const {
    if (text_path_.empty() || is_stream(path_) || is_stream(text_path_)) {
        stage.load(data_);
    } else {
        stage.load(path_, text_path_);
    }
}

void LoadableForm::point_to_data() {
    for (const EmbeddedFile &file : embedded_) {
        files_.push_back({file.path.c_str(), bytes_of(file.bytes), file.bytes.size()});
    }
    data_ = form_data(form_, text_);
    data_.files = files_.data();
    data_.file_count = files_.size();
}

const HeaderNames &LoadableForm::names() {
    if (!names_) names_.emplace(read_file(header_path_));
    return *names_;
}

bool LoadableForm::has_names() const {
    std::error_code ignored;
    return names_ || fs::is_regular_file(header_path_, ignored);
}

} // namespace velform
