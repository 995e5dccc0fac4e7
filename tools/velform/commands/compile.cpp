#include "commands/compile.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <set>

#include <fmt/format.h>

#include "base/destination.h"
#include "base/files.h"
#include "check/allowances.h"
#include "check/check_form.h"
#include "form/embed.h"
#include "form/header.h"
#include "form/needed_files.h"
#include "form/records.h"
#include "source/identifier.h"
#include "source/source_form.h"
#include "source/toml_text.h"

namespace velform {
namespace {

namespace fs = std::filesystem;

std::string with_suffix(const std::string &path, const char *suffix) {
    return fs::path(path).replace_extension(suffix).string();
}

// Names are made from those of files only: there is no place next to a device or a pipe.
CompileOptions with_all_paths(CompileOptions options) {
    if (options.form.empty()) {
        if (is_stream(options.source)) {
            throw WrongUsage("a source that is no file needs a name for the form, see --form");
        }
        options.form = with_suffix(options.source, ".form");
    }
    const std::string &named = is_stream(options.form) ? options.source : options.form;
    if ((options.text.empty() || options.header.empty()) && is_stream(named)) {
        throw WrongUsage("without a source or form that is a file, the text file and the header "
                         "need names, see --text and --header");
    }
    if (options.text.empty()) options.text = with_suffix(named, ".text");
    if (options.header.empty()) options.header = with_suffix(named, ".h");
    return options;
}

// Of those that are files.
bool name_different_files(const CompileOptions &o) {
    std::set<fs::path> paths;
    for (const std::string &path :
         {o.source, lock_path_of(o.source), o.form, o.text, o.header, o.embed, o.depfile}) {
        if (!path.empty() && !is_stream(path) && !paths.insert(fs::weakly_canonical(path)).second)
            return false;
    }
    return true;
}

std::string folder_of(const std::string &path) { return fs::path(path).parent_path().string(); }

// A name as make reads it.
std::string for_make(const std::string &path) {
    std::string name;
    for (const char c : path) {
        if (c == ' ' || c == '#' || c == '\\') name += '\\';
        if (c == '$') name += '$';
        name += c;
    }
    return name;
}

// A rule for make without a recipe: the form depends on the source, its lock file and what is
// embedded.
std::string dependencies(const CompileOptions &options, const SourceForm &source,
                         const std::vector<std::string> &folders) {
    std::string rule = for_make(options.form) + ":";
    if (!is_stream(options.source)) rule += fmt::format(" {}", for_make(options.source));
    if (!source.lock_path().empty()) rule += fmt::format(" {}", for_make(source.lock_path()));
    std::set<std::string> read;
    for (const NeededFile &file : needed_files(source.form())) {
        const bool is_embedded = !options.embed.empty() && (!file.is_font || options.embed_fonts);
        const std::string place = place_in(folders, file.name);
        if (is_embedded && !place.empty()) read.insert(for_make(place));
    }
    for (const std::string &place : read) rule += " " + place;
    return rule + '\n';
}

void report_missing(const CompileOptions &options, const std::vector<std::string> &folders,
                    SourceForm &source) {
    // Nobody knows where a form will be that goes through a pipe.
    if (is_stream(options.form)) return;
    for (const NeededFile &file : missing_files(source.form(), folders)) {
        source.diagnostics().warning(
            file.where, Rule::missing_file,
            fmt::format("the {} '{}' is not there; put it at {}", file.is_font ? "font" : "picture",
                        file.name, (fs::path(folder_of(options.form)) / file.name).string()));
    }
}

// What it returns counts only when nothing is wrong.
std::vector<OutputFile> outputs_of(const CompileOptions &options, SourceForm &source,
                                   std::string_view bytes) {
    const Form &form = source.form();
    const std::string prefix =
        options.prefix.empty()
            ? source.prefix(is_stream(options.source) ? options.form : options.source)
            : upper_case(options.prefix);
    std::string header = header_text(form, prefix, source.diagnostics(), !options.embed.empty());
    const std::string folder = folder_of(options.form);
    const std::vector<std::string> folders = {folder, folder_of(options.source)};
    report_missing(options, folders, source);
    if (!source.has_errors()) {
        const ReadForm read(form);
        check_types(CheckedForm(read, &form, source.diagnostics()));
    }
    apply_allowances(bytes, Allowed::of_some_rules, source.diagnostics());
    if (source.has_errors()) return {};
    std::vector<OutputFile> outputs;
    // First, so that make does not find it newer than what is made with it.
    if (auto lock = source.changed_lock()) {
        outputs.push_back({source.lock_path(), std::move(*lock)});
    }
    outputs.push_back({options.form, form_file_bytes(form)});
    outputs.push_back({options.text, text_file_bytes(form)});
    outputs.push_back({options.header, std::move(header)});
    if (!options.embed.empty()) {
        const auto files = files_to_embed(form, folders, options.embed_fonts);
        outputs.push_back({options.embed, embedded_form(form, prefix, files)});
    }
    if (!options.depfile.empty()) {
        outputs.push_back({options.depfile, dependencies(options, source, folders)});
    }
    if (is_stream(options.form)) return outputs;
    std::ranges::move(frame_pictures_to_write(form, folder), std::back_inserter(outputs));
    return outputs;
}

} // namespace

Status compile(const CompileOptions &given, std::ostream &err) {
    const CompileOptions options = with_all_paths(given);
    if (!name_different_files(options)) {
        throw WrongUsage("the source and the outputs must be different files");
    }
    if (options.lock && lock_path_of(options.source).empty()) {
        throw WrongUsage("a source that is no file can have no lock file");
    }
    if (!options.prefix.empty() && !is_identifier(options.prefix)) {
        throw WrongUsage("the prefix must be a letter followed by letters, digits and '_', "
                         "255 characters at most");
    }
    const std::string bytes = read_file(options.source);
    SourceForm source(options.source, bytes, options.lock);
    const std::vector<OutputFile> outputs = outputs_of(options, source, bytes);
    source.print_diagnostics(err, options.has_colours);
    if (source.has_errors()) return Status::faulty_source;
    replace_files(outputs);
    return Status::done;
}

} // namespace velform
