// The program as it is started: statuses, outputs, what stays when something fails.
#include "forms.h"

namespace {

using test::Folder;
using test::run;

std::string contents(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The names of all files and folders below a folder, in order.
std::string names_in(const Folder &folder) {
    std::vector<std::string> paths;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(folder.file(""))) {
        paths.push_back(entry.path().string().substr(folder.file("").size()));
    }
    std::ranges::sort(paths);
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
    const struct {
        const char *options, *form, *text, *header, *constant;
    } cases[] = {
        {"", "a.form", "a.text", "a.h", "A_MAIN"},
        {"-o @/b.form", "b.form", "b.text", "b.h", "A_MAIN"},
        {"--form @/x --text @/y --header @/z", "x", "y", "z", "A_MAIN"},
        {"--prefix other", "a.form", "a.text", "a.h", "OTHER_MAIN"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.options);
        const Folder folder;
        const auto result =
            run("compile " + folder.write("a.toml", good) + " " + in(folder, c.options));
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(contents(folder.file(c.form)).size(), 8U * 776);
        EXPECT_EQ(contents(folder.file(c.text)).size(), 1008U);
        EXPECT_NE(contents(folder.file(c.header)).find(std::string(c.constant) + " = 8,"),
                  std::string::npos);
        EXPECT_EQ(std::ranges::count(names_in(folder), ' '), 3 + 8);
    }
}

TEST(Compile, leaves_the_pictures_that_are_there_and_says_which_are_missing) {
    const std::string label = "[[object]]\ntype = 'label'\nrect = [0, 0, 9, 9]\n";
    const struct {
        std::string source, missing; // in the folder of the compiled form
        bool has_frame;
    } cases[] = {
        {window, "", true},
        {label, "", false},
        {"[frame]\npictures = 'my'\n" + window, "my/mode.png", false},
        {"[frame]\npictures = 'my'", "", false},
        {"[[object]]\ntype = 'picture'\npicture = 'p.png'", "p.png", false},
        {"[[object]]\ntype = 'picture'\npicture = 'by_source.png'", "", false},
        {label + "font_file = 'f.ttf'", "f.ttf", false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.source);
        const Folder folder, target;
        folder.write("by_source.png", "");
        if (c.has_frame) {
            std::filesystem::create_directory(target.file("frame"));
            target.write("frame/move.png", "mine");
        }
        const auto result =
            run("compile " + folder.write("a.toml", c.source) + " -o " + target.file("a.form"));
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output.empty(), c.missing.empty()) << result.output;
        const std::string place = "put it at " + target.file(c.missing) + "\n";
        EXPECT_TRUE(c.missing.empty() || result.output.find(place) != std::string::npos);
        EXPECT_EQ(std::ranges::count(names_in(target), ' '), c.has_frame ? 2 + 8 : 2);
        EXPECT_EQ(contents(target.file("frame/move.png")), c.has_frame ? "mine" : "");
    }
}

TEST(Compile, leaves_all_files_as_they_were_when_anything_fails) {
    const struct {
        std::string source, old, blocked; // the output that is a folder and cannot be replaced
        int status;
    } cases[] = {{"x = 1", "a.form a.h a.text", "", 1},
                 {good, "a.h a.text", "a.form", 3},
                 {good, "a.form a.h", "a.text", 3},
                 {good, "a.form a.text", "a.h", 3},
                 {good, "", "a.h", 3},
                 {good, "frame", "", 3}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.old + " / " + c.blocked);
        const Folder folder;
        const std::string source = folder.write("a.toml", c.source);
        std::istringstream old(c.old);
        for (std::string name; old >> name;) folder.write(name, "old");
        if (!c.blocked.empty()) std::filesystem::create_directories(folder.file(c.blocked));
        const std::string before = names_in(folder);
        EXPECT_EQ(run("compile " + source).status, c.status);
        EXPECT_EQ(names_in(folder), before);
        old = std::istringstream(c.old);
        for (std::string name; old >> name;) EXPECT_EQ(contents(folder.file(name)), "old") << name;
    }
}

TEST(Command, ends_with_the_status_that_fits) {
    const Folder folder;
    folder.write("a.toml", good + "objects = [{ id = 'inner', type = 'window' }]\n");
    folder.write("faulty.toml", "x = 1\n");
    folder.write("warned.toml", "[[window]]");
    const struct {
        std::string arguments;
        int status;
        std::string message;
    } cases[] = {
        {"", 2, "subcommand"},
        {"compile -o @/a.toml @/a.toml", 2, "different files"},
        {"compile @/missing.toml", 3, "missing.toml: No such file"},
        {"compile @/faulty.toml", 1, "@/faulty.toml:1:1: error: "},
        {"compile @/warned.toml", 0, "@/warned.toml:1:1: warning: "},
        {"fields", 0, "| `label` |"},
        {"fields --into @/faulty.toml", 3, "marks"},
        {"compile @/a.toml", 0, ""},
        {"render @/a.form @/a.text -o @/b.png --activate nobody", 2, "'nobody'"},
        {"render @/a.form @/a.text -o @/b.png --activate inner", 2, "'inner'"},
        {"render @/a.form @/a.text -o @/b.png --font @/none.ttf", 3, "none.ttf"},
        {"render @/a.form @/a.text -o @/none/b.png", 3, "none/b.png"},
    };
    for (const auto &c : cases) {
        const auto result = run(in(folder, c.arguments));
        SCOPED_TRACE(c.arguments + '\n' + result.output);
        EXPECT_EQ(result.status, c.status);
        EXPECT_NE(result.output.find(in(folder, c.message)), std::string::npos);
    }
    EXPECT_FALSE(std::filesystem::exists(folder.file("b.png")));
}

} // namespace
