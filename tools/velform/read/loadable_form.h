// What render draws: a form from its files, or from a source that is compiled on the way.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include <velumo.h>

#include "draw/stage.h"
#include "form/embed.h"
#include "form/header.h"
#include "read/read_form.h"

namespace velform {

class LoadableForm {
public:
    // Reads all that is needed at once. Prints what is wrong with a source to err. Throws
    // WrongUsage and FileProblem.
    LoadableForm(const FormPaths &paths, std::ostream &err);
    LoadableForm(const LoadableForm &) = delete;
    LoadableForm &operator=(const LoadableForm &) = delete;

    // Lasts as long as the stage. A source comes with the pictures and fonts in its folder. Throws
    // FileProblem.
    void load_into(Stage &stage) const;
    // Those of the header, or of the source. Throws FileProblem when there is no header.
    const HeaderNames &names();
    bool has_names() const;

private:
    void compile(const std::string &source, std::ostream &err);
    void add_file(const std::string &name, const std::string &place);
    void point_to_data();

    std::string path_, text_path_, header_path_;
    std::string form_, text_; // what the files hold
    std::vector<EmbeddedFile> embedded_;
    std::vector<vel_form_file> files_;
    vel_form_data data_{};
    std::optional<HeaderNames> names_;
};

} // namespace velform
