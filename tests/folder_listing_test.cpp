// Lists of folders: which names they show, in which order, and how they scroll.
#include "support.h"

#include <sys/stat.h>

namespace {

using test::Folder;
using test::Names;

// List 9 with rows 10 to 13, 18 pixels apart, in window 8.
class FolderListing : public test::Form {
protected:
    FolderListing() {
        make_window(8, 20, 30, 200, 120);
        make(9, VEL_TYPE_LABEL, 25, 40, 110, 80, 8);
        for (uint32_t k = 0; k < 4; ++k) {
            make(10 + k, VEL_TYPE_ENTRY, 27, 42 + 18 * static_cast<int>(k), 100, 16, 9);
        }
        open(8);
    }
    int32_t list(const Folder &folder, const char *pattern = nullptr) {
        return vel_list_directory(&ctx, 9, folder.file("").c_str(), pattern);
    }
    Names rows() const {
        Names names;
        for (uint32_t k = 10; k < 14; ++k) {
            EXPECT_EQ(objects[k].width, objects[k].label[0] != '\0' ? 100U : 0U);
            EXPECT_EQ(objects[k].hidden, objects[k].label[0] != '\0' ? 0U : 1U);
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
            const Names shown = rows();
            names.resize((0 - objects[9].scroll_y) / 18);
            names.insert(names.end(), shown.begin(), shown.end());
        }
        return names;
    }
};

// Links are what they lead to.
TEST_F(FolderListing, folders_come_first_and_all_in_order) {
    const Folder folder;
    folder.fill({"b", "A", "a", "a.b", "B10", "b1", "_", ".hidden", "Zz", "x/", "Y/", ".git/"});
    std::filesystem::create_symlink("b", folder.file("to_file"));
    std::filesystem::create_symlink("x", folder.file("to_folder"));
    std::filesystem::create_symlink("nothing", folder.file("to_nothing"));
    mkfifo(folder.file("pipe").c_str(), 0600);
    EXPECT_EQ(all_names(list(folder)), (Names{"../", "to_folder/", "x/", "Y/", "_", "A", "a", "a.b",
                                              "b", "b1", "B10", "to_file", "Zz"}));
    vel_list_directory(&ctx, 9, "/", nullptr); // only the root has no parent
    EXPECT_STRNE(objects[10].label, "../");
}

TEST_F(FolderListing, patterns_choose_among_files_but_not_folders) {
    const Folder folder;
    const Names all{"a.csv", "b.CSV", "c.txt", "f"};
    folder.fill(all);
    folder.fill({"sub/"});
    using Case = std::pair<const char *, Names>;
    for (const auto &[pattern, files] :
         {Case(nullptr, all), Case("", all), Case("*.csv", {"a.csv"}),
          Case("*.txt;*.csv", {"a.csv", "c.txt"}), Case(";?;", {"f"}), Case(";", {})}) {
        Names names = all_names(list(folder, pattern));
        ASSERT_GE(names.size(), 2U);
        EXPECT_EQ(names[0] + names[1], "../sub/");
        EXPECT_EQ(Names(names.begin() + 2, names.end()), files) << files.size();
    }
}

TEST_F(FolderListing, names_are_shown_in_latin1_and_cut_but_kept) {
    const std::pair<std::string, std::string> cases[] = {
        {"\xC3\xBC\xC3\xBF \xC2\xA0~", "\xFC\xFF \xA0~"},
        {"\xE2\x82\xAC\xF0\x9F\x98\x80z", "??z"},
        {"\xC3z\xBC", "?z?"},       // cut short, and without a beginning
        {"\xC4\x80\xC0\xAF", "??"}, // the first after ISO 8859-1, and too long a form
        {"a\nb\x7F\xC2\x85", "a?b??"},
        {std::string(64, 'y'), std::string(64, 'y')},
        {std::string(255, 'x'), std::string(64, 'x')}};
    for (const auto &[name, shown] : cases) {
        for (const bool is_folder : {false, true}) {
            const Folder folder;
            folder.fill({name + (is_folder ? "/" : "")});
            list(folder);
            EXPECT_EQ(objects[11].label, is_folder ? shown.substr(0, 63) + "/" : shown);
            EXPECT_EQ(vel_listed_name(&ctx, 11), name);
        }
    }
    for (const uint32_t no_row : {0U, 8U, 9U, 12U, 14U})
        EXPECT_EQ(vel_listed_name(&ctx, no_row), nullptr);
}

TEST_F(FolderListing, frame_actions_scroll_names_in_their_window_only) {
    const Folder folder;
    for (int k = 10; k < 20; ++k) folder.write(std::to_string(k));
    list(folder);
    using Case = std::tuple<uint32_t, void (*)(vel_context *) noexcept, const char *>;
    for (const auto &[step, scroll, first] :
         {Case(0, &vel_scroll_win_up, "10"), Case(17, &vel_scroll_win_up, "11"),
          Case(36, &vel_scroll_win_up, "13"), Case(53, &vel_scroll_win_down, "11"),
          Case(1, &vel_scroll_win_left, "11")}) {
        ctx.scroll_step = step;
        test::updates().clear();
        scroll(&ctx);
        EXPECT_STREQ(objects[10].label, first) << step;
        EXPECT_EQ(std::tuple(objects[9].y, test::updates().size()), std::tuple(40U, 1U));
    }
    // Without the list the window scrolls by itself.
    objects[9].width = 0;
    vel_scroll_win_up(&ctx);
    EXPECT_EQ(objects[9].y, 39U);
    EXPECT_STREQ(objects[10].label, "11");
}

} // namespace
