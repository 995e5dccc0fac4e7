// The program as it is started: statuses, outputs, pictures, what stays when something fails.
#include "forms.h"

#include <set>
#include <sys/stat.h>

#include <SDL_image.h>

namespace {

using test::contents;
using test::Folder;
using test::run;
constexpr auto npos = std::string::npos;

// The names of all files and folders below a folder, in order.
std::string names_in(const Folder &folder) {
    std::set<std::string> paths;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(folder.file("")))
        paths.insert(entry.path().string().substr(folder.file("").size()));
    std::string names;
    for (const std::string &path : paths) names += (names.empty() ? "" : " ") + path;
    return names;
}

// The name of the folder in place of each '@'.
std::string in(const Folder &folder, std::string text) {
    for (std::size_t at; (at = text.find("@/")) != std::string::npos;) {
        text.replace(at, 2, folder.file(""));
    }
    return text;
}

const std::string window = "[[window]]\nid = 'main'\nrect = [20, 30, 9, 9]\n";
const std::string good = window + "text = 't'\n";
TEST(Compile, writes_three_files_and_the_pictures_of_the_frame) {
    const std::array<std::string, 5> cases[] = {
        {"", "a.form", "a.text", "a.h", "A_MAIN"},
        {"-o @/b.form", "b.form", "b.text", "b.h", "A_MAIN"},
        {"--form @/x --text @/y --header @/z", "x", "y", "z", "A_MAIN"},
        {"--prefix other", "a.form", "a.text", "a.h", "OTHER_MAIN"},
    };
    for (const auto &[options, form, text, header, constant] : cases) {
        SCOPED_TRACE(options);
        const Folder folder;
        const auto result =
            run("compile " + folder.write("a.toml", good) + " " + in(folder, options));
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(contents(folder.file(form)).size(), 8U * 776);
        EXPECT_EQ(contents(folder.file(text)).size(), 1008U);
        EXPECT_NE(contents(folder.file(header)).find(constant + " = 8,"), std::string::npos);
        EXPECT_EQ(std::ranges::count(names_in(folder), ' '), 3 + 8);
    }
}

TEST(Compile, leaves_the_pictures_that_are_there_and_says_which_are_missing) {
    const std::string label = "[[object]]\ntype = 'label'\nrect = [0, 0, 9, 9]\n";
    // What is missing in the folder of the compiled form, and where the source names it; whether
    // it has pictures of the frame.
    const std::tuple<std::string, std::string, std::string, bool> cases[] = {
        {window, "", "", true},
        {label, "", "", false},
        {"[frame]\npictures = 'my'\n" + window, "my/mode.png", "2:12", false},
        {"[frame]\npictures = 'my'", "", "", false},
        {"[[object]]\ntype = 'picture'\npicture = 'p.png'", "p.png", "3:11", false},
        {"[[object]]\ntype = 'picture'\npicture = 'by_source.png'", "", "", false},
        {label + "font_file = 'f.ttf'", "f.ttf", "4:13", false},
        {"[styles.a]\nfont_file = 'f.ttf'\n" + label + "style = 'a'", "f.ttf", "2:13", false},
    };
    for (const auto &[source, missing, where, has_frame] : cases) {
        SCOPED_TRACE(source);
        const Folder folder, target;
        folder.write("by_source.png");
        if (has_frame) {
            target.fill({"frame/"});
            target.write("frame/move.png", "mine");
        }
        const auto result = run("compile " + folder.write("a.toml", source) + " -o " +
                                target.file("a.form") + " >/dev/null");
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output.empty(), missing.empty()) << result.output;
        const std::string place = "put it at " + target.file(missing) + " [missing-file]\n";
        const bool is_placed = result.output.find("a.toml:" + where + ": warning: the ") != npos;
        EXPECT_TRUE(missing.empty() || is_placed) << result.output;
        EXPECT_TRUE(missing.empty() || result.output.find(place) != std::string::npos);
        EXPECT_EQ(std::ranges::count(names_in(target), ' '), has_frame ? 2 + 8 : 2);
        EXPECT_EQ(contents(target.file("frame/move.png")), has_frame ? "mine" : "");
    }
}

TEST(Compile, embeds_the_pictures_and_on_demand_the_fonts_that_are_there) {
    const std::string label = "[[object]]\ntype = 'label'\nrect = [0, 0, 9, 9]\nfont_file = '";
    const std::string source = "theme = 'none'\n[[object]]\ntype = 'picture'\npicture = 'p\"x'\n" +
                               label + "f.ttf'\n" + label + "missing.ttf'\n";
    for (const bool has_fonts : {false, true}) {
        const Folder folder;
        folder.write("p\"x", "abc"), folder.write("f.ttf", "de");
        const auto result =
            run("compile " + folder.write("a.toml", source) + " --embed " + folder.file("e.c") +
                " --depfile " + folder.file("e.d") + (has_fonts ? " --embed-fonts" : ""));
        EXPECT_EQ(result.status, 0) << result.output;
        const std::string code = contents(folder.file("e.c"));
        const std::string data = "A_FORM = {form, 7760, text, 0, files, ";
        EXPECT_NE(code.find(data + (has_fonts ? "2}" : "1}")), std::string::npos) << code;
        EXPECT_NE(code.find("[] = {\n97,98,99,0};"), std::string::npos);
        EXPECT_EQ(code.find("[] = {\n100,101,0};") != std::string::npos, has_fonts);
        EXPECT_NE(code.find(R"({"p\042x", file_)"), std::string::npos);
        EXPECT_EQ(code.find("missing"), std::string::npos);
        const std::string rule = contents(folder.file("e.d"));
        EXPECT_EQ(rule, folder.file("a.form") + ": " + folder.file("a.toml") + " " +
                            (has_fonts ? folder.file("f.ttf") + " " : "") + folder.file("p\"x") +
                            "\n");
        EXPECT_NE(result.output.find("missing.ttf"), std::string::npos);
    }
    const Folder folder; // one name, two meanings
    const std::string path = folder.write("a.toml", "[[window]]\nid = 'form'\nrect = [0, 0, 9, 9]");
    EXPECT_EQ(run("compile " + path).status, 0);
    EXPECT_EQ(run("compile --embed " + folder.file("e.c") + " " + path).status, 1);
}

TEST(Compile, leaves_all_files_as_they_were_when_anything_fails) {
    // What there was before; an output that is a folder and cannot be replaced; the status.
    const std::tuple<std::string, test::Names, test::Names, int> cases[] = {
        {"x = 1", {"a.form", "a.h", "a.text"}, {}, 1},
        {good, {"a.h", "a.text"}, {"a.form/"}, 3},
        {good, {"a.form", "a.h"}, {"a.text/"}, 3},
        {good, {"a.form", "a.text"}, {"a.h/"}, 3},
        {good, {}, {"a.h/"}, 3},
        {good, {"frame"}, {}, 3}};
    for (const auto &[text, old, blocked, status] : cases) {
        const Folder folder;
        const std::string source = folder.write("a.toml", text);
        for (const std::string &name : old) folder.write(name, "old");
        folder.fill(blocked);
        const std::string before = names_in(folder);
        EXPECT_EQ(run("compile " + source).status, status) << before;
        EXPECT_EQ(names_in(folder), before);
        for (const std::string &name : old) EXPECT_EQ(contents(folder.file(name)), "old") << before;
    }
}

TEST(Compile, keeps_links_modes_and_pipes_and_removes_what_a_killed_run_left) {
    const Folder folder;
    const std::string source = folder.write("a.toml", good), form = folder.write("real.form");
    const std::string pipe = folder.file("pipe"), text = folder.file("a.text");
    std::filesystem::create_symlink("real.form", folder.file("a.form"));
    std::filesystem::create_symlink("nowhere.text", text);
    std::filesystem::permissions(form, std::filesystem::perms::owner_all);
    const std::string stale = folder.write(".velform-" + std::to_string(getuid()) + "-1");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const auto result =
        run("compile " + source + " --header " + pipe + " & cat " + pipe + "; wait");
    EXPECT_NE(result.output.find("A_MAIN = 8,"), std::string::npos) << result.output;
    test::Names links, files;
    for (const auto &entry : std::filesystem::directory_iterator(folder.file(""))) {
        if (entry.is_symlink()) links.push_back(entry.path().filename());
        if (entry.is_regular_file() && !entry.is_symlink())
            files.push_back(entry.path().filename());
    }
    std::ranges::sort(links), std::ranges::sort(files);
    EXPECT_EQ(links, (test::Names{"a.form", "a.text"}));
    EXPECT_EQ(files, (test::Names{"a.toml", "nowhere.text", "real.form"}));
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
    EXPECT_EQ(contents(form).size(), 8U * 776);
    EXPECT_EQ(std::filesystem::status(form).permissions(), std::filesystem::perms::owner_all);
    // What is piped in has no name to make others from, and what is piped out has no folder. Not
    // /dev/stdout, which a fault would replace.
    const Folder links_only;
    const std::string in = links_only.file("in"), out = links_only.file("out");
    std::filesystem::create_symlink("/proc/self/fd/0", in);
    std::filesystem::create_symlink("/proc/self/fd/1", out);
    EXPECT_EQ(run("compile -o " + form + " " + in + " <" + source).status, 0);
    EXPECT_EQ(run("compile " + in + " <" + source).status, 2);
    EXPECT_EQ(run("compile - -o " + form + " <" + source).status, 0);
    const std::string log = folder.write("log", "old");
    EXPECT_EQ(run("compile " + source + " -o " + out + " >>" + log).status, 0);
    EXPECT_EQ(names_in(links_only), "in out");
    EXPECT_EQ(contents(log).size(), 3 + 8U * 776);
}

TEST(Compile, leaves_nothing_behind_when_a_file_may_not_grow) {
    const Folder folder;
    const std::string source = folder.write("a.toml", good + std::string(3, '\n'));
    const std::string form = folder.write("a.form", "old");
    const auto result = run("compile " + source, "ulimit -f 1; "); // 512 or 1024 bytes
    EXPECT_EQ(result.status, 3);
    EXPECT_NE(result.output.find("a.form: File too large\n"), std::string::npos) << result.output;
    EXPECT_EQ(names_in(folder), "a.form a.toml");
    EXPECT_EQ(contents(form), "old");
}

TEST(Command, ends_with_the_status_that_fits) {
    const Folder folder;
    folder.write("a.toml", good + "objects = [{ id = 'inner', type = 'window' }]\n");
    folder.write("faulty.toml", "x = 1\n");
    folder.write("warned.toml", "[[window]]");
    folder.write("allowed.toml", "[[window]] # velform: allow window-edge");
    const std::tuple<std::string, int, std::string> cases[] = {
        {"", 2, "compile"},
        {"frobnicate", 2, "there is no command 'frobnicate'; see velform --help"},
        {"rendr a", 2, "did you mean 'render'?"},
        {"--version", 0, "velform 1."},
        {"themes --version", 0, "velform 1."},
        {"compile -o @/a.toml @/a.toml", 2, "different files"},
        {"compile @/missing.toml", 3, "missing.toml: No such file"},
        {"compile @/faulty.toml", 1, "@/faulty.toml:1:1: error: "},
        {"compile @/warned.toml", 0, "@/warned.toml:1:1: warning: "},
        {"fields", 0, "| `label` |"},
        {"fields --into @/faulty.toml", 3, "marks"},
        {"fields >/dev/full", 3, "standard output: No space left"},
        {"fields >&-", 3, "standard output"},
        {"compile /dev/zero -o @/zero.form", 3, "/dev/zero: it is larger than 256 MiB"},
        {"compile @/ -o @/b.form", 3, "Is a directory"},
        {"compile @/$(printf '\\033').toml", 3, "@/\\x1b.toml: No such"},
        {"compile @/a.toml --$(printf '\\033')", 2, "--\\x1b"},
        {"compile @/a.toml", 0, "windows that are opened are at the top level"},
        {"render @/a.form @/a.text -o @/b.png --activate nobody", 2, "'nobody'"},
        {"render @/a.form @/a.text -o @/b.png --activate inner", 2, "'inner'"},
        {"render @/a.form @/a.text -o @/b.png --state glow=main", 2, "like focus=name"},
        {"render @/a.form @/a.text -o @/b.png --state hover=nobody", 2, "'nobody'"},
        {"themes -o @/b.png --states drak", 2, "did you mean 'dark'?"},
        {"render @/a.form @/a.text -o @/b.png --font @/none.ttf", 3, "none.ttf"},
        {"render @/a.form @/a.text -o @/none/b.png", 3, "none/b.png"},
        {"render @/faulty.toml -o @/b.png", 3, "@/faulty.toml:1:1: error: "},
        {"render @/a.toml @/a.text -o @/b.png", 2, "texts and names in itself"},
        {"render @/a.toml -o - --all-windows", 2, "named after"},
        {"render @/a.toml -o - --compare @/a.png", 2, "needs a file"},
        {"render - -o - <@/a.toml", 0, "PNG"},
        {"render - -o @/b.png <@/a.form", 2, "text file"},
        {"list - <@/a.toml", 0, "    8  main  window"},
        {"list - <&-", 3, "cannot read standard input: "},
        {"diff @/faulty.toml - </dev/null", 3, "error: "},
        {"diff - @/a.toml <@/a.toml", 0, ""},
        {"diff - -", 2, "standard input"},
        {"decompile - @/a.text -o - <@/a.form", 0, "[[window]]"},
        {"check @/warned.toml", 0, "     1 | [[window]]"},
        {"check --strict - <@/warned.toml", 1, "-:1:1: warning: "},
        {"check @/missing.toml @/faulty.toml", 3, "missing.toml: No such"},
        {"check --color=always @/warned.toml 2>&1 | grep -c '\\[1;35mwarning.*edge'", 0, "2"},
        {"compile @/allowed.toml 2>&1 | grep -c window-edge", 1, "0"},
        {"check @/a.text", 2, "with its form"},
        {"list /dev/zero", 3, "/dev/zero: it is larger than 256 MiB"},
    };
    for (const auto &[arguments, status, message] : cases) {
        const auto result = run(in(folder, arguments));
        EXPECT_EQ(result.output.find('\033'), std::string::npos);
        SCOPED_TRACE(arguments + '\n' + result.output);
        EXPECT_EQ(result.status, status);
        EXPECT_NE(result.output.find(in(folder, message)), std::string::npos);
    }
    EXPECT_FALSE(std::filesystem::exists(folder.file("b.png")));
}

TEST(Render, frames_the_window_opened_last_and_outlines_a_button_without_its_picture) {
    const Folder folder;
    folder.write("a.toml", "theme = 'none'\n[[window]]\nid = 'first'\nrect = [50, 50, 200, 100]\n"
                           "[[window]]\nid = 'second'\nrect = [50, 50, 240, 100]\n"
                           "fill = '#ff0000'\nhidden = false");
    ASSERT_EQ(run("compile " + folder.file("a.toml")).status, 0);
    const int left = 250 - 4 * 16, right = left + 15; // the fourth button
    std::filesystem::remove(folder.file("frame/mode.png"));
    const auto result = run("render a.form a.text -o a.png --background '#ffffff' --size 300x400 "
                            "--activate second --activate A_FIRST -C " +
                            folder.file(""));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output,
              "velform: warning: object 4: cannot load the picture frame/mode.png\n");
    SDL_Surface *drawn = IMG_Load(folder.file("a.png").c_str());
    ASSERT_NE(drawn, nullptr);
    EXPECT_EQ(std::pair(drawn->w, drawn->h), std::pair(300, 400));
    for (int k = 0; k < 16; ++k) {
        for (const auto &[x, y] : {std::pair{left, 26 + k}, std::pair{right, 26 + k},
                                   std::pair{left + k, 26}, std::pair{left + k, 41}}) {
            EXPECT_EQ(test::pixel_of(drawn, x, y), (vel_colour{0x93, 0xA1, 0xB5}));
        }
    }
    EXPECT_EQ(test::pixel_of(drawn, left + 8, 34), test::white);
    EXPECT_EQ(test::pixel_of(drawn, 270, 100), test::red); // the second window, below the first
    SDL_FreeSurface(drawn);
}

TEST(Render, draws_the_states_that_it_is_asked_for) {
    const Folder folder;
    folder.write("a.toml", "theme = 'none'\n[[window]]\nid = 'w'\nrect = [20, 30, 90, 60]\n"
                           "objects = [{ type = 'label', rect = [60, 10, 20, 20], focus = "
                           "true }, { id = 'b', type = 'label', rect = [10, 10, 40, 20], "
                           "focus = true }]");
    ASSERT_EQ(run("compile " + folder.file("a.toml")).status, 0);
    // Of white: 24, 56 and 128 of 256 parts black.
    const std::pair<std::string, int> cases[] = {{"", 255},
                                                 {"--state disabled=b", 255},
                                                 {"--state hover=b", 255 - 23},
                                                 {"--state pressed=b", 255 - 55},
                                                 {"--state hover=w --state focus=b", 127}};
    for (const auto &[states, level] : cases) {
        const auto result =
            run("render a.form a.text -o a.png --activate w " + states + " -C " + folder.file(""));
        ASSERT_EQ(result.status, 0) << result.output;
        SDL_Surface *drawn = IMG_Load(folder.file("a.png").c_str());
        const auto grey = static_cast<std::uint8_t>(level);
        EXPECT_EQ(test::pixel_of(drawn, 30, 40), (vel_colour{grey, grey, grey})) << states;
        SDL_FreeSurface(drawn);
    }
}

} // namespace
