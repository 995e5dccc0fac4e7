// Lists of folders: which names they show, in which order, and how they scroll.
#include "support.h"

#include <sys/stat.h>

namespace {

using test::Folder;
using test::Form;

using Names = std::vector<std::string>;

// List 9 with rows 10 to 13, 18 pixels apart, in window 8.
class FolderListing : public Form {
protected:
    FolderListing() {
        ctx.text_count = 0;
        make(8, VEL_TYPE_WINDOW, 20, 30, 200, 120).hidden = 1;
        make(9, VEL_TYPE_LABEL, 25, 40, 110, 80, 8);
        for (uint32_t k = 0; k < 4; ++k) {
            make(10 + k, VEL_TYPE_ENTRY, 27, 42 + 18 * static_cast<int>(k), 100, 16, 9);
        }
        ctx.window_to_activate = 8;
        vel_activate_window(&ctx);
    }
    ~FolderListing() override {
        // vel_close() would release the form's tables, too, which are the test's own.
        TTF_Init();
        vel_context rest{};
        rest.state = ctx.state;
        vel_close(&rest);
    }
    int32_t list(const Folder &folder, const char *pattern = nullptr) {
        return vel_list_directory(&ctx, 9, folder.file("").c_str(), pattern);
    }
    Names rows() const {
        Names names;
        for (uint32_t k = 10; k < 14; ++k) {
            EXPECT_EQ(objects[k].width, objects[k].label[0] != '\0' ? 100U : 0U);
            if (objects[k].width != 0) names.emplace_back(objects[k].label);
        }
        return names;
    }
    // All names, by scrolling from the start to the end.
    Names all_names(int32_t count) {
        objects[9].scroll_y = 0;
        vel_scroll_win_down(&ctx);
        Names names;
        for (int32_t k = 0; k < count; ++k, vel_scroll_win_up(&ctx)) {
            const uint32_t first = (0 - objects[9].scroll_y) / 18;
            for (uint32_t row = 0; row < rows().size(); ++row) {
                names.resize(std::max<std::size_t>(names.size(), first + row + 1));
                names[first + row] = rows()[row];
            }
        }
        return names;
    }
    static void make_folder(const std::string &path) { std::filesystem::create_directory(path); }
};

TEST_F(FolderListing, folders_come_first_and_all_in_order) {
    const Folder folder;
    for (const char *name :
         {"b", "A", "a", "a.b", "B10", "b1", "_", "z\xC3\xA4", ".hidden", "Zz"}) {
        folder.write(name, "");
    }
    for (const char *name : {"x", "Y", "-", ".git"}) make_folder(folder.file(name));
    const int32_t count = list(folder);
    EXPECT_EQ(count, 13);
    EXPECT_EQ(rows(), (Names{"../", "-/", "x/", "Y/"}));
    EXPECT_EQ(all_names(count), (Names{"../", "-/", "x/", "Y/", "_", "A", "a", "a.b", "b", "b1",
                                       "B10", "Zz", "z\xE4"}));
}

TEST_F(FolderListing, patterns_choose_among_files_but_not_folders) {
    const Folder folder;
    for (const char *name : {"a.csv", "b.CSV", "c.txt", "d;e", "f"}) folder.write(name, "");
    make_folder(folder.file("sub"));
    const std::pair<const char *, Names> cases[] = {
        {nullptr, {"a.csv", "b.CSV", "c.txt", "d;e", "f"}},
        {"", {"a.csv", "b.CSV", "c.txt", "d;e", "f"}},
        {"*.csv", {"a.csv"}},
        {"*.txt;*.csv", {"a.csv", "c.txt"}},
        {";?;", {"f"}},
        {"*.[cC][sS][vV]", {"a.csv", "b.CSV"}},
        {"sub", {}},
        {"*/*", {}},
        {";", {}},
    };
    for (const auto &[pattern, files] : cases) {
        SCOPED_TRACE(pattern == nullptr ? "null" : pattern);
        const int32_t count = list(folder, pattern);
        Names names = all_names(count);
        ASSERT_GE(names.size(), 2U);
        EXPECT_EQ(names[0] + names[1], "../sub/");
        EXPECT_EQ(Names(names.begin() + 2, names.end()), files);
    }
}

TEST_F(FolderListing, links_are_what_they_lead_to) {
    const Folder folder;
    folder.write("file", "");
    make_folder(folder.file("sub"));
    std::filesystem::create_symlink("file", folder.file("to_file"));
    std::filesystem::create_symlink("sub", folder.file("to_folder"));
    std::filesystem::create_symlink("nothing", folder.file("to_nothing"));
    std::filesystem::create_symlink("to_itself", folder.file("to_itself"));
    mkfifo(folder.file("pipe").c_str(), 0600);
    EXPECT_EQ(list(folder), 5);
    EXPECT_EQ(all_names(5), (Names{"../", "sub/", "to_folder/", "file", "to_file"}));
    // Only the root has no parent.
    vel_list_directory(&ctx, 9, "/", nullptr);
    EXPECT_STRNE(objects[10].label, "../");
}

TEST_F(FolderListing, names_are_shown_in_latin1_and_cut_but_kept) {
    const std::string u = "\xC3\xBC", euro = "\xE2\x82\xAC", long_name(255, 'x');
    const struct {
        std::string name, shown;
    } cases[] = {
        {u + u, "\xFC\xFC"},
        {"\xC3\xBF", "\xFF"},
        {"a" + euro + "b", "a?b"},
        {"\xF0\x9F\x98\x80z", "?z"},
        {"\xE4", "?"}, // ISO 8859-1 in the file system
        {"\xC3"
         "a\xBC",
         "?a?"},           // cut short, and without a beginning
        {"\xC4\x80", "?"}, // the first behind ISO 8859-1
        {"\xC0\xAF", "?"}, // too long a form of a slash
        {"a\nb\x7F\xC2\x85", "a?b??"},
        {std::string(63, 'y'), std::string(63, 'y')},
        {std::string(64, 'y'), std::string(64, 'y')},
        {std::string(65, 'y'), std::string(64, 'y')},
        {long_name, std::string(64, 'x')},
    };
    for (const auto &c : cases) {
        const Folder files, folders;
        files.write(c.name, "");
        ASSERT_EQ(list(files), 2) << c.name;
        EXPECT_EQ(objects[11].label, c.shown);
        EXPECT_EQ(vel_listed_name(&ctx, 11), c.name);
        make_folder(folders.file(c.name));
        list(folders);
        EXPECT_EQ(objects[11].label, c.shown.substr(0, 63) + "/");
        EXPECT_EQ(vel_listed_name(&ctx, 11), c.name);
    }
    EXPECT_STREQ(vel_listed_name(&ctx, 10), "..");
    for (const uint32_t no_row : {0U, 8U, 9U, 12U, 14U}) {
        EXPECT_EQ(vel_listed_name(&ctx, no_row), nullptr);
    }
}

TEST_F(FolderListing, folders_of_any_size_scroll_between_their_ends) {
    for (const int files : {0, 1, 2, 3, 4, 97, 150}) {
        SCOPED_TRACE(files);
        const Folder folder;
        Names expected{"../"};
        for (int k = 0; k < files; ++k) {
            expected.push_back(std::to_string(1000 + k) + std::string(60, 'f'));
            folder.write(expected.back(), "");
        }
        const std::size_t shown = std::min<std::size_t>(expected.size(), 4);
        objects[9].scroll_y = static_cast<uint32_t>(-100000);
        ASSERT_EQ(list(folder), files + 1);
        EXPECT_EQ(rows(), Names(expected.end() - static_cast<int>(shown), expected.end()));
        EXPECT_EQ(objects[9].scroll_y, 0 - 18 * static_cast<uint32_t>(expected.size() - shown));
        objects[9].scroll_y = 100;
        list(folder);
        EXPECT_EQ(rows(), Names(expected.begin(), expected.begin() + static_cast<int>(shown)));
        EXPECT_EQ(all_names(files + 1), expected);
    }
}

TEST_F(FolderListing, frame_actions_scroll_names_in_their_window_only) {
    const Folder folder;
    for (int k = 10; k < 30; ++k) folder.write(std::to_string(k), "");
    list(folder);
    const struct {
        uint32_t step;
        void (*scroll)(vel_context *) noexcept;
        const char *first;
    } cases[] = {{0, vel_scroll_win_up, "10"},    {17, vel_scroll_win_up, "11"},
                 {36, vel_scroll_win_up, "13"},   {53, vel_scroll_win_down, "11"},
                 {1, vel_scroll_win_down, "10"},  {1, vel_scroll_win_down, "../"},
                 {1, vel_scroll_win_down, "../"}, {1, vel_scroll_win_left, "../"}};
    for (const auto &c : cases) {
        ctx.scroll_step = c.step;
        c.scroll(&ctx);
        EXPECT_STREQ(objects[10].label, c.first) << c.step;
        EXPECT_EQ(objects[9].y, 40U);
    }
    EXPECT_EQ(at(22, 100), test::red); // the window was drawn
    // Without the list the window scrolls by itself.
    objects[9].width = 0;
    vel_scroll_win_up(&ctx);
    EXPECT_EQ(objects[9].y, 39U);
    EXPECT_STREQ(objects[10].label, "../");
}

TEST_F(FolderListing, what_cannot_be_read_changes_nothing) {
    const Folder folder;
    const std::string file = folder.write("file", "");
    list(folder);
    const std::vector<vel_object> before = objects;
    const struct {
        vel_context *context;
        uint32_t list;
        std::string path;
        int32_t result;
    } cases[] = {{&ctx, 9, folder.file("nothing"), VEL_ERROR_FOLDER},
                 {&ctx, 9, file, VEL_ERROR_FOLDER},
                 {&ctx, 9, "", VEL_ERROR_FOLDER},
                 {&ctx, 0, "/", VEL_ERROR_ARGUMENT},
                 {nullptr, 9, "/", VEL_ERROR_ARGUMENT}};
    for (const auto &c : cases) {
        EXPECT_EQ(vel_list_directory(c.context, c.list, c.path.c_str(), nullptr), c.result);
    }
    EXPECT_EQ(vel_list_directory(&ctx, 9, nullptr, nullptr), VEL_ERROR_ARGUMENT);
    EXPECT_EQ(std::memcmp(objects.data(), before.data(), objects.size() * sizeof(vel_object)), 0);
    EXPECT_STREQ(vel_listed_name(&ctx, 11), "file");
    EXPECT_STREQ(vel_error_text(VEL_ERROR_FOLDER), "the folder cannot be read");
    // A list without rows only counts.
    EXPECT_EQ(vel_list_directory(&ctx, 13, folder.file("").c_str(), nullptr), 2);
}

} // namespace
