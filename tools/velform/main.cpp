// velform: compiles, renders and documents forms.
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iostream>
#include <sstream>

#include <CLI/CLI.hpp>
#include <fcntl.h>

#include "base/descriptor.h"
#include "base/files.h"
#include "base/printable.h"
#include "base/suggestion.h"
#include "commands/check.h"
#include "commands/compile.h"
#include "commands/decompile.h"
#include "commands/diff.h"
#include "commands/fields_page.h"
#include "commands/format.h"
#include "commands/list.h"
#include "commands/render.h"
#include "commands/schema.h"
#include "commands/themes.h"

using namespace velform;

namespace {

Status print_fields(const std::string &page, std::ostream &out) {
    if (page.empty()) {
        out << field_reference();
    } else {
        const OutputFile file{page, with_field_reference(read_file(page))};
        replace_files({&file, 1});
    }
    return Status::done;
}

// Each command fills its options and says what to run.
class Program {
public:
    explicit Program(std::ostream &out) : out_(out) {
        app_.require_subcommand(1);
        app_.set_help_all_flag("--help-all", "Print the help of all commands");
        add_compile();
        add_check();
        add_decompile();
        add_format();
        add_render();
        add_list();
        add_diff();
        add_themes();
        add_fields();
        add_schema();
        add_version(app_);
        for (CLI::App *command : app_.get_subcommands({})) add_version(*command);
    }

    Status run(int argc, char **argv) {
        if (argc < 2) {
            std::cerr << app_.help();
            return Status::wrong_usage;
        }
        refuse_unknown_command(argv[1]);
        try {
            app_.parse(argc, argv);
        } catch (const CLI::ParseError &e) {
            // Help is no fault; what is wrong names words of the command line.
            if (e.get_exit_code() == 0) return static_cast<Status>(app_.exit(e, out_, std::cerr));
            throw WrongUsage(std::string(e.what()) + "; see velform --help");
        }
        return action_();
    }

private:
    static void add_version(CLI::App &app) {
        app.set_version_flag("--version", "velform " VELFORM_VERSION, "Print the version");
    }

    void refuse_unknown_command(const std::string &word) const {
        if (word.starts_with('-')) return;
        std::vector<std::string> names;
        for (const CLI::App *command : app_.get_subcommands({})) {
            if (command->get_name() == word) return;
            names.push_back(command->get_name());
        }
        const std::vector<std::string_view> known(names.begin(), names.end());
        throw WrongUsage("there is no command '" + word + "'" + did_you_mean(word, known) +
                         "; see velform --help");
    }

    // What a form is drawn on.
    template <class Options> static void add_display(CLI::App &command, Options &options) {
        command.add_option("--size", options.size, "Size of the display")->capture_default_str();
        command.add_option("--font", options.font, "Default font, TrueType")->capture_default_str();
        command.add_option("--font-size", options.font_size, "Points of the default font")
            ->check(CLI::Range(1, 1000))
            ->capture_default_str();
    }

    // For what prints findings.
    void add_colour(CLI::App &command, bool &has_colours) {
        command.add_option("--color", colour_, "Whether findings have colours")
            ->check(CLI::IsMember({"auto", "always", "never"}))
            ->capture_default_str();
        command.parse_complete_callback([this, &has_colours] {
            const char *const refused = std::getenv("NO_COLOR");
            const bool is_wanted =
                isatty(STDERR_FILENO) != 0 && (refused == nullptr || *refused == '\0');
            has_colours = colour_ == "always" || (colour_ == "auto" && is_wanted);
        });
    }

    void add_compile() {
        CLI::App *command = app_.add_subcommand(
            "compile", "Make the form description file, the text file and a C header of a source");
        command->add_option("source", compile_.source, "Form source, TOML")->required();
        command->add_option("-o,--form", compile_.form,
                            "Form description file [the source's name with .form]");
        command->add_option("--text", compile_.text, "Text file [the form's name with .text]");
        command->add_option("--header", compile_.header, "C header [the form's name with .h]");
        command->add_option("--prefix", compile_.prefix,
                            "What the names in the header begin with [the source's name]");
        CLI::Option *embed = command->add_option(
            "--embed", compile_.embed, "C file to write, with the form and its pictures as data");
        command->add_option("--depfile", compile_.depfile,
                            "File to write with a rule for make: what the form is made of");
        command->add_flag(
            "--lock", compile_.lock,
            "Make a lock file next to the source, so that objects keep their numbers");
        command->add_flag("--embed-fonts", compile_.embed_fonts, "Put the fonts into it as well")
            ->needs(embed);
        add_colour(*command, compile_.has_colours);
        command->callback([this] { action_ = [this] { return compile(compile_, std::cerr); }; });
    }

    void add_check() {
        CLI::App *command =
            app_.add_subcommand("check", "Find fault with forms, in sources and in files");
        command->add_option("files", check_.files, "Form sources and form description files")
            ->required();
        command->add_flag("--strict", check_.is_strict, "Count warnings as errors: exit with 1");
        command->add_option("--format", check_.format, "How findings are printed")
            ->check(CLI::IsMember({"text", "json", "sarif"}))
            ->capture_default_str();
        command->add_option("-C,--directory", check_.directory,
                            "Folder of fonts and pictures [that of each file]");
        add_display(*command, check_);
        add_colour(*command, check_.has_colours);
        command->callback(
            [this] { action_ = [this] { return velform::check(check_, out_, std::cerr); }; });
    }

    void add_decompile() {
        CLI::App *command = app_.add_subcommand(
            "decompile", "Make a source of a form, from which compile makes the same files again");
        command->add_option("form", decompile_.form, "Form description file")->required();
        command->add_option("text", decompile_.text,
                            "Text file [the form's name with .text, if it is there]");
        command->add_option("--header", decompile_.header,
                            "C header with the names [the form's name with .h, if it is there]");
        command->add_option("-o,--output", decompile_.output, "Source to write [standard output]");
        command->callback([this] { action_ = [this] { return decompile(decompile_, out_); }; });
    }

    void add_format() {
        CLI::App *command =
            app_.add_subcommand("format", "Rewrite sources in the standard layout, comments kept");
        command->add_option("sources", format_.sources, "Form sources, TOML")->required();
        command->add_flag("--check", format_.only_checks,
                          "Write nothing, print the sources that are not in it");
        command->callback(
            [this] { action_ = [this] { return format(format_, out_, std::cerr); }; });
    }

    void add_render() {
        CLI::App *command =
            app_.add_subcommand("render", "Draw a form into a PNG file, without a display");
        command->add_option("form", render_.form, "Form source or form description file")
            ->required();
        command->add_option("text", render_.text, "Text file [the form's name with .text]");
        command->add_option("-o,--output", render_.output, "PNG file to write")->required();
        command->add_option("-C,--directory", render_.directory,
                            "Folder to work in; all other files are seen from there");
        command
            ->add_option("--activate", render_.activate,
                         "Window to open, by number or name; may be repeated, the last is in front")
            ->expected(1)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        command
            ->add_option("--state", render_.states,
                         "What an object is in, as in focus=name: focus, hover, pressed or "
                         "disabled; may be repeated")
            ->expected(1)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        add_parts_of_render(*command);
        command->add_option("--header", render_.header,
                            "C header with the names [the form's name with .h]");
        add_display(*command, render_);
        command->add_option("--background", render_.background, "Colour of the bare display")
            ->capture_default_str();
        command->add_flag(
            "--any-picture", render_.any_picture,
            "Load pictures of all formats that SDL_image knows, not only PNG, BMP and "
            "JPEG; only for files that you trust");
        command->callback(
            [this] { action_ = [this] { return render(render_, out_, std::cerr); }; });
    }

    void add_parts_of_render(CLI::App &command) {
        command
            .add_option("--set", render_.texts,
                        "Words to put into an object, as in name=Words; may be repeated")
            ->expected(1)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        CLI::Option *window = command.add_option("--window", render_.window,
                                                 "Window to open and to draw without the rest");
        CLI::Option *all = command
                               .add_flag("--all-windows", render_.all_windows,
                                         "Draw each window, into the output's name with -NAME")
                               ->excludes(window);
        command.add_flag("--outline", render_.outline,
                         "Draw rectangles, margins, limits and names of the objects, too");
        command
            .add_option("--compare", render_.compare,
                        "PNG file to compare with; differences are drawn into the output's name "
                        "with -difference")
            ->excludes(all);
    }

    void add_list() {
        CLI::App *command = app_.add_subcommand("list", "Print the objects of a form as a tree");
        command->add_option("form", list_.form.form, "Form source or form description file")
            ->required();
        command->add_option("text", list_.form.text, "Text file [the form's name with .text]");
        command->add_option("--header", list_.form.header,
                            "C header with the names [the form's name with .h]");
        command->add_flag("--json", list_.json, "Print JSON instead");
        command->add_flag("--all", list_.all, "Print the frame buttons, too; JSON has them always");
        command->callback([this] { action_ = [this] { return list(list_, out_, std::cerr); }; });
    }

    void add_diff() {
        CLI::App *command =
            app_.add_subcommand("diff", "Say in words what changed from one form to another");
        command->add_option("forms", diff_.files, "Two form sources or form description files")
            ->required();
        command->add_flag("--git", diff_.for_git, "Take the arguments of an external diff of git");
        command->callback([this] { action_ = [this] { return diff(diff_, out_, std::cerr); }; });
    }

    void add_themes() {
        CLI::App *command =
            app_.add_subcommand("themes", "Draw a form with every kind of object in all themes");
        command->add_option("-o,--output", themes_.output, "PNG file to write")->required();
        command->add_option("--states", themes_.states,
                            "Theme of which to draw every kind in every state instead");
        command->callback([this] { action_ = [this] { return draw_themes(themes_); }; });
    }

    void add_fields() {
        CLI::App *command = app_.add_subcommand(
            "fields", "Print the reference of keys and record fields, as Markdown");
        command->add_option("--into", page_,
                            "Page whose part between the marks is to be replaced instead");
        command->callback([this] { action_ = [this] { return print_fields(page_, out_); }; });
    }

    void add_schema() {
        CLI::App *command =
            app_.add_subcommand("schema", "Print the JSON Schema of form sources, for editors");
        command->callback(
            [this] { action_ = [this] { return out_ << source_schema(), Status::done; }; });
    }

    std::ostream &out_;
    CLI::App app_{"Compiles forms for programs with Velumo, and draws them."};
    CheckOptions check_;
    CompileOptions compile_;
    DecompileOptions decompile_;
    FormatOptions format_;
    RenderOptions render_;
    ListOptions list_;
    DiffOptions diff_;
    ThemesOptions themes_;
    std::string page_;
    std::string colour_ = "auto";
    std::function<Status()> action_;
};

Status guarded_run(int argc, char **argv) {
    const auto fail = [](std::string_view why, Status status) {
        std::cerr << "velform: " << printable(why) << '\n';
        return status;
    };
    try {
        std::ostringstream out;
        const Status status = Program(out).run(argc, argv);
        if (write_all(STDOUT_FILENO, out.str())) return status;
        const std::string why = "cannot write to standard output: ";
        return fail(why + std::strerror(errno), Status::file_problem);
    } catch (const WrongUsage &e) {
        return fail(e.what(), Status::wrong_usage);
    } catch (const std::bad_alloc &) {
        return fail("there is not enough memory", Status::file_problem);
    } catch (const std::exception &e) {
        return fail(e.what(), Status::file_problem);
    }
}

// Limits and readers that have gone are faults of writing, not the end of the process. A standard
// descriptor that is closed would become that of the next file.
void prepare_process() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    for (int descriptor = 0; descriptor <= 2; ++descriptor) {
        // Open the wrong way round, so that using it still fails.
        const int flags = descriptor == 0 ? O_WRONLY : O_RDONLY;
        if (fcntl(descriptor, F_GETFD) < 0) open("/dev/null", flags);
    }
}

} // namespace

int main(int argc, char **argv) {
    prepare_process();
    return static_cast<int>(guarded_run(argc, argv));
}
