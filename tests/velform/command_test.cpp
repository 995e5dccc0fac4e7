// The program as it is started: statuses, outputs, what stays when something fails.
#include "command.h"

#include <sys/stat.h>

namespace {

using test::Folder;
using test::run;

const char *const good = "[[window]]\nid = \"main\"\nrect = [20, 30, 9, 9]\ntext = \"t\"\n";

TEST(Command, writes_three_files_and_the_pictures_of_the_frame_next_to_the_source) {
    const Folder folder;
    const auto result = run("compile " + folder.write("hello.toml", good));
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(test::contents(folder.file("hello.form")).size(), 8U * 776);
    EXPECT_EQ(test::contents(folder.file("hello.text")).size(), 1008U);
    const std::string header = test::contents(folder.file("hello.h"));
    EXPECT_NE(header.find("HELLO_MAIN = 8,"), std::string::npos) << header;
    EXPECT_EQ(test::names_in(folder), (std::vector<std::string>{"frame", "hello.form", "hello.h",
                                                                "hello.text", "hello.toml"}));
    for (const auto &picture : std::filesystem::directory_iterator(VELFORM_FRAME)) {
        const std::string name = picture.path().filename().string();
        EXPECT_TRUE(test::contents(folder.file("frame/" + name)) ==
                    test::contents(picture.path().string()))
            << name;
    }
}

TEST(Command, leaves_pictures_that_are_there_and_says_which_are_missing) {
    const struct {
        const char *source, *message; // about the folder of the compiled form
        bool has_pictures;
    } cases[] = {
        {"[[window]]\nrect = [20, 30, 9, 9]", "", true},
        {"[[object]]\ntype = \"label\"\nrect = [20, 30, 9, 9]", "", false},
        {"[frame]\npictures = \"my\"\n[[window]]\nrect = [20, 30, 9, 9]", "@/my/mode.png", false},
        {"[frame]\npictures = \"my\"", "", false},
        {"[[object]]\ntype = \"picture\"\npicture = \"p.png\"", "@/p.png", false},
        {"[[object]]\ntype = \"picture\"\npicture = \"beside.png\"", "", false},
        {"[[object]]\ntype = \"label\"\nrect = [0, 0, 9, 9]\nfont_file = \"f.ttf\"", "@/f.ttf",
         false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.source);
        const Folder folder, target;
        const std::string source = folder.write("a.toml", c.source);
        folder.write("beside.png", "");
        if (c.has_pictures) {
            std::filesystem::create_directory(target.file("frame"));
            target.write("frame/move.png", "mine");
        }
        const auto result = run("compile " + source + " -o " + target.file("a.form"));
        EXPECT_EQ(result.status, 0);
        std::string message = c.message;
        if (!message.empty()) message.replace(0, 2, "put it at " + target.file(""));
        EXPECT_NE(result.output.find(message), std::string::npos) << result.output;
        EXPECT_EQ(result.output.empty(), message.empty()) << result.output;
        EXPECT_EQ(std::filesystem::exists(target.file("frame/close.png")), c.has_pictures);
        EXPECT_EQ(test::contents(target.file("frame/move.png")), c.has_pictures ? "mine" : "");
    }
}

TEST(Command, options_name_the_outputs) {
    const struct {
        const char *options;
        std::vector<std::string> files;
        const char *constant;
    } cases[] = {
        {"-o @/b.form", {"b.form", "b.h", "b.text", "frame"}, "A_MAIN"},
        {"--form @/x --text @/y --header @/z", {"frame", "x", "y", "z"}, "A_MAIN"},
        {"--prefix other", {"a.form", "a.h", "a.text", "frame"}, "OTHER_MAIN"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.options);
        const Folder folder;
        std::string options = c.options;
        for (std::size_t at; (at = options.find("@/")) != std::string::npos;) {
            options.replace(at, 2, folder.file(""));
        }
        const auto result = run("compile " + folder.write("a.toml", good) + " " + options);
        EXPECT_EQ(result.status, 0) << result.output;
        auto expected = c.files;
        expected.insert(std::ranges::upper_bound(expected, "a.toml"), "a.toml");
        EXPECT_EQ(test::names_in(folder), expected);
        std::string all;
        for (const std::string &file : c.files) {
            if (file != "frame") all += test::contents(folder.file(file));
        }
        EXPECT_NE(all.find(std::string("    ") + c.constant + " = 8,"), std::string::npos);
    }
}

TEST(Command, ends_with_the_status_that_fits) {
    const Folder folder;
    const std::string source = folder.write("a.toml", good);
    const std::string faulty = folder.write("faulty.toml", "x = 1\n");
    const std::string warned = folder.write("warned.toml", "[[window]]");
    const struct {
        std::string arguments;
        int status;
        std::string message;
    } cases[] = {
        {"--help", 0, "compile"},
        {"", 2, "subcommand"},
        {"compile", 2, "source"},
        {"compile --wrong " + source, 2, "--wrong"},
        {"compile --prefix 9 " + source, 2, "prefix"},
        {"compile -o " + source + " " + source, 2, "different files"},
        {"compile " + source + " -o /dev/null/x", 3, "/dev/null/x"},
        {"compile " + folder.file("missing.toml"), 3, "missing.toml"},
        {"compile " + folder.file(""), 3, "cannot read"},
        {"compile " + faulty, 1, faulty + ":1:1: error: "},
        {"compile " + warned, 0, warned + ":1:1: warning: "},
        {"fields", 0, "| `label` |"},
        {"fields --into " + faulty, 3, "marks"},
    };
    for (const auto &c : cases) {
        const auto result = run(c.arguments);
        EXPECT_EQ(result.status, c.status) << c.arguments << '\n' << result.output;
        EXPECT_NE(result.output.find(c.message), std::string::npos) << c.arguments << '\n'
                                                                    << result.output;
    }
}

TEST(Command, leaves_all_files_as_they_were_when_anything_fails) {
    const struct {
        const char *source, *blocked; // the output that is a folder and cannot be replaced
        int status;
    } cases[] = {{"x = 1", nullptr, 1}, {good, "a.form", 3}, {good, "a.text", 3}, {good, "a.h", 3}};
    for (const auto &c : cases) {
        const Folder folder;
        const std::string source = folder.write("a.toml", c.source);
        for (const char *name : {"a.form", "a.text", "a.h"}) folder.write(name, "old");
        if (c.blocked != nullptr) {
            std::filesystem::remove(folder.file(c.blocked));
            std::filesystem::create_directory(folder.file(c.blocked));
        }
        EXPECT_EQ(run("compile " + source).status, c.status);
        EXPECT_EQ(test::names_in(folder),
                  (std::vector<std::string>{"a.form", "a.h", "a.text", "a.toml"}));
        for (const std::string name : {"a.form", "a.text", "a.h"}) {
            if (c.blocked == nullptr || name != c.blocked) {
                EXPECT_EQ(test::contents(folder.file(name)), "old") << name;
            }
        }
    }
}

TEST(Command, outputs_that_were_not_there_are_gone_again_after_a_failure) {
    const Folder folder;
    std::filesystem::create_directory(folder.file("a.h"));
    EXPECT_EQ(run("compile " + folder.write("a.toml", good)).status, 3);
    EXPECT_EQ(test::names_in(folder), (std::vector<std::string>{"a.h", "a.toml"}));
}

TEST(Command, header_is_valid_in_c_and_in_cpp) {
    const Folder folder;
    const struct {
        const char *name, *source;
    } cases[] = {{"full", good}, {"bare", ""}, {"odd-name", "[[window]]\nid = \"int\""}};
    for (const auto &c : cases) {
        const std::string source = folder.write(std::string(c.name) + ".toml", c.source);
        ASSERT_EQ(run("compile " + source).status, 0);
        const std::string include = std::string("#include \"") + c.name + ".h\"\n";
        const std::string program = include + include + "int main(void) { return 0; }\n";
        const std::string flags = " -Wall -Wextra -Wpedantic -Werror -fsyntax-only ";
        EXPECT_EQ(
            test::shell(VELFORM_C_COMPILER + flags + "-std=c11 " + folder.write("a.c", program))
                .output,
            "");
        EXPECT_EQ(test::shell(VELFORM_CXX_COMPILER + flags + "-std=c++20 " +
                              folder.write("a.cpp", program))
                      .output,
                  "");
    }
}

} // namespace
