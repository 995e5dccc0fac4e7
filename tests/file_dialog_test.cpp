// Lists of folders, and the file dialog, driven by clicks and keys on the dummy display.
#include "support.h"

#include <sys/stat.h>

#include "parts/part.h"

namespace {

using test::Folder;
using test::Names;
using test::Step;
using test::Steps;

// Dialog 8: folder 9, list 10 with rows 11 to 14, name 15, OK 16, cancel 17, message 18.
class FileDialog : public test::Form {
protected:
    FileDialog() {
        make_frame_buttons();
        make_window(8, 20, 30, 200, 165);
        make(9, VEL_TYPE_ENTRY, 24, 34, 190, 16, 8);
        make(10, VEL_TYPE_LABEL, 24, 52, 190, 70, 8);
        make_field(15, 24, 126, 190, 18, 8);
        make(16, VEL_TYPE_LABEL, 24, 172, 60, 18, 8);
        make(17, VEL_TYPE_LABEL, 94, 172, 60, 18, 8);
        set_fill(make(18, VEL_TYPE_LABEL, 24, 148, 190, 16, 8), test::green);
        for (uint32_t k = 11; k < 15; ++k) {
            make(k, VEL_TYPE_ENTRY, 26, 16 * static_cast<int>(k) - 122, 180, 16, 10);
        }
    }
    ~FileDialog() override { std::filesystem::current_path(here_); }

    // Clicks the row that shows a name.
    Step pick(const std::string &shown) {
        return [this, shown] {
            uint32_t row = 11;
            while (row < 14 && shown != objects[row].label) ++row;
            EXPECT_EQ(objects[row].label, shown);
            click_on(row);
        };
    }
    // As if it had been typed, in ISO 8859-1.
    Step type(const std::string &name) {
        return [this, name] { set_label(objects[15], name); };
    }
    Names shown_rows() const {
        Names names;
        for (uint32_t row = 11; row < 15; ++row) {
            const bool is_empty = objects[row].label[0] == '\0';
            EXPECT_EQ(objects[row].width, is_empty ? 0U : 180U);
            EXPECT_EQ(objects[row].hidden, is_empty ? 1U : 0U);
            if (!is_empty) names.emplace_back(objects[row].label);
        }
        return names;
    }
    // The rows that show names, and whether the message shows.
    Step expect_list(const Names &rows, bool has_message = false) {
        return [=, this] {
            EXPECT_EQ(shown_rows(), rows);
            EXPECT_EQ(at(200, 156), has_message ? test::green : test::red);
        };
    }
    Step expect_label(uint32_t number, const std::string &label) {
        return [=, this] { EXPECT_EQ(objects[number].label, label); };
    }
    // What the dialog leaves in path_out, when it ends as it should.
    std::string choose(int32_t result, const std::string &suggestion, const Steps &steps,
                       size_t size = 4096) {
        path_.assign(4096, '\x7E');
        std::strcpy(path_.data(), suggestion.c_str());
        set_steps(steps);
        EXPECT_EQ(vel_choose_file(&ctx, 8, path_.data(), size), result) << suggestion;
        EXPECT_TRUE(all_steps_done()) << suggestion;
        EXPECT_EQ(std::tuple(objects[8].hidden, objects[18].width), std::tuple(1U, 190U));
        return path_.c_str();
    }

    const std::filesystem::path here_ = std::filesystem::current_path();
    std::string path_;
};

class FolderList : public FileDialog {
protected:
    int32_t list(const Folder &folder, const char *pattern = nullptr) {
        return vel_list_directory(&ctx, 10, folder.file("").c_str(), pattern);
    }
    // All names, by scrolling from the start to the end.
    Names all_names(int32_t count) {
        open(8);
        objects[10].scroll_y = 0;
        vel_scroll_win_down(&ctx);
        Names names;
        for (int32_t k = 0; k < count; ++k, vel_scroll_win_up(&ctx)) {
            const Names shown = shown_rows();
            names.resize((0 - objects[10].scroll_y) / 16);
            names.insert(names.end(), shown.begin(), shown.end());
        }
        return names;
    }
};

// Links are what they lead to.
TEST_F(FolderList, folders_come_first_and_all_in_order) {
    const Folder folder;
    folder.fill({"b", "A", "a", "a.b", "B10", "b1", "_", ".hidden", "Zz", "x/", "Y/", ".git/"});
    std::filesystem::create_symlink("b", folder.file("to_file"));
    std::filesystem::create_symlink("x", folder.file("to_folder"));
    std::filesystem::create_symlink("nothing", folder.file("to_nothing"));
    mkfifo(folder.file("pipe").c_str(), 0600);
    EXPECT_EQ(all_names(list(folder)), (Names{"../", "to_folder/", "x/", "Y/", "_", "A", "a", "a.b",
                                              "b", "b1", "B10", "to_file", "Zz"}));
    const int32_t count = vel_list_directory(&ctx, 10, "/", nullptr);
    EXPECT_NE(all_names(count).front(), "../"); // only the root has no parent
}

TEST_F(FolderList, patterns_choose_among_files_but_not_folders) {
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

TEST_F(FolderList, names_are_shown_in_latin1_and_cut_but_kept) {
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
            EXPECT_EQ(objects[12].label, is_folder ? shown.substr(0, 63) + "/" : shown);
            EXPECT_EQ(vel_listed_name(&ctx, 12), name);
        }
    }
    for (const uint32_t no_row : {0U, 8U, 10U, 13U, 15U})
        EXPECT_EQ(vel_listed_name(&ctx, no_row), nullptr);
}

TEST_F(FolderList, frame_actions_scroll_names_in_their_window_only) {
    const Folder folder;
    for (int k = 10; k < 20; ++k) folder.write(std::to_string(k));
    open(8);
    list(folder);
    using Case = std::tuple<uint32_t, void (*)(vel_context *) noexcept, const char *>;
    for (const auto &[step, scroll, first] :
         {Case(0, &vel_scroll_win_up, "10"), Case(15, &vel_scroll_win_up, "11"),
          Case(32, &vel_scroll_win_up, "13"), Case(47, &vel_scroll_win_down, "11"),
          Case(1, &vel_scroll_win_left, "11")}) {
        ctx.scroll_step = step;
        test::updates().clear();
        scroll(&ctx);
        EXPECT_STREQ(objects[11].label, first) << step;
        EXPECT_EQ(std::tuple(objects[10].y, test::updates().size()), std::tuple(52U, 1U));
    }
    // Without the list the window scrolls by itself.
    objects[10].width = 0;
    vel_scroll_win_up(&ctx);
    EXPECT_EQ(objects[10].y, 51U);
    EXPECT_STREQ(objects[11].label, "11");
}

// The list is a part, so one click selects and a second one enters; the path can be typed.
TEST_F(FileDialog, made_by_the_form_tool_has_a_list_and_a_path_to_type) {
    const Folder folder;
    folder.fill({"one/", "one/inner", "only", "other"});
    ctx.comfort = VEL_COMFORT_ALL;
    for (const uint32_t k : {20U, 21U, 22U}) make(k, VEL_TYPE_EMPTY, 0, 0, 0, 0);
    const uint32_t pieces[] = {20, 21, 22, 11, 12, 13, 14};
    std::copy(std::begin(pieces), std::end(pieces), objects[10].dep_objs);
    for (uint32_t k = 11; k < 15; ++k) objects[k].type = VEL_TYPE_LABEL;
    velumo::state_of(ctx).traits[10].part = velumo::list_part;
    velumo::start_parts(ctx);
    objects[9].editable = 1;
    objects[9].max_chars = 64;
    const auto type_path = [&](const std::string &path) {
        return [=, this] { ctx.cursor_object = 9, set_label(objects[9], path); };
    };
    const std::string path = choose(
        1, folder.file(""),
        {expect_list({"../", "one/", "only", "other"}), pick("other"), expect_label(15, "other"),
         pick("one/"), expect_label(15, "other"), [this] { click_on(12), click_on(12); },
         expect_list({"../", "inner"}), type_path(folder.file("on")), key(SDLK_TAB),
         expect_label(9, folder.file("on")), // "one/" and "only" have no more in common
         type_path(folder.file("ot")), key(SDLK_TAB), expect_label(9, folder.file("other")),
         key(SDLK_RETURN)});
    EXPECT_EQ(path, folder.file("other"));
}

TEST_F(FileDialog, walks_in_and_out_and_chooses) {
    const Folder folder;
    folder.fill({"sub/below/", "sub/data.csv", "zebra"});
    std::filesystem::create_directory_symlink("sub", folder.file("tie"));
    EXPECT_EQ(choose(1, folder.file(""),
                     {pick("sub/"), expect_list({"../", "below/", "data.csv"}), pick("below/"),
                      pick("../"), pick("../"), expect_list({"../", "sub/", "tie/", "zebra"}),
                      pick("tie/"), pick("data.csv"), expect_label(15, "data.csv"), click(16)}),
              folder.file("tie/data.csv"));
    // A link is left to where it is.
    const Steps link{pick("tie/"), pick("../"), pick("zebra"), key(SDLK_RETURN)};
    EXPECT_EQ(choose(1, folder.file(""), link), folder.file("zebra"));
    EXPECT_EQ(choose(1, "/", {type("x"), key(SDLK_KP_ENTER)}), "/x");
    EXPECT_EQ(choose(1, "/x", {expect_label(15, "x"), expect_label(9, "/"), click(16)}), "/x");
}

TEST_F(FileDialog, follows_what_is_suggested_or_typed_to_a_file_a_folder_or_a_pattern) {
    const Folder folder;
    folder.fill({"sub/", "a.csv", "b.txt", "sub/c.csv", "sub/d*"});
    std::filesystem::current_path(folder.file(""));
    const Names top{"../", "sub/", "a.csv", "b.txt"}, sub{"../", "c.csv", "d*"};
    const std::tuple<std::string, std::string, Names, bool> cases[] = {
        {"", "", top, false},
        {"sub", "", sub, false},
        {"sub/../sub/new", "sub/new", sub, false},
        {folder.file("sub/new"), "sub/new", sub, false},
        {"sub/d*", "sub/d*", sub, false}, // a file of that name
        {"*.csv", "", {"../", "sub/", "a.csv"}, false},
        {"nowhere/x", "", top, true},
        {"nowhere/*", "", top, true}};
    for (const auto &[path, file, rows, has_message] : cases) {
        const std::string name = std::filesystem::path(file).filename();
        const Step list = expect_list(rows, has_message);
        EXPECT_EQ(choose(0, path, {list, expect_label(15, name), click(17)}), path);
        if (!name.empty()) {
            EXPECT_EQ(choose(1, "", {type(path), click(16)}), folder.file(file));
        } else {
            const Step label = expect_label(15, has_message ? path : "");
            choose(0, "", {type(path), click(16), list, label, click(17)});
        }
    }
    const Step expect_pattern = expect_list({"../", "sub/", "a.csv"});
    choose(0, "sub/*.csv", {type(".."), click(16), expect_pattern, click(17)});
    EXPECT_EQ(choose(1, "\xC3\xBC", {expect_label(15, "\xFC"), type("\xDF"), click(16)}),
              folder.file("\xC3\x9F"));
    // A working folder that is gone gives way to the root.
    std::filesystem::current_path(folder.file("sub"));
    std::filesystem::remove_all(folder.file("sub"));
    choose(0, "nowhere/", {type("etc"), click(16), expect_label(9, "/etc"), click(17)});
}

TEST_F(FileDialog, chooses_the_bytes_of_a_name_whatever_its_row_shows) {
    const Folder folder;
    const std::string long_name(64, 'x'), euro = "5 \xE2\x82\xAC";
    folder.fill({euro, long_name + "1", long_name + "2"});
    for (const Step &step : {pick("5 ?"), type("5 ?")})
        EXPECT_EQ(choose(1, folder.file(""), {step, click(16)}), folder.file(euro));
    for (const std::string &name : {euro, long_name + "2"})
        EXPECT_EQ(choose(1, folder.file(name), {key(SDLK_RETURN)}), folder.file(name));
    // Names that look alike are different rows.
    EXPECT_EQ(choose(1, folder.file(""), {click(14), click(16)}), folder.file(long_name + "2"));
}

// The message shows until a step succeeds.
TEST_F(FileDialog, a_folder_that_cannot_be_read_changes_nothing) {
    const Folder folder;
    folder.fill({"gone/", "k", "l", "m", "n"});
    const Step remove = [&] { std::filesystem::remove(folder.file("gone")); };
    const Step scroll = click(VEL_BUTTON_HEIGHT_MORE);
    EXPECT_EQ(choose(1, folder.file(""),
                     {remove, pick("gone/"), expect_list({"../", "gone/", "k", "l"}, true), scroll,
                      type("nowhere/*"), click(16), expect_list({"gone/", "k", "l", "m"}, true),
                      scroll, expect_list({"k", "l", "m", "n"}, true), type("."), click(16),
                      expect_list({"../", "k", "l", "m"}), pick("k"), click(16)}),
              folder.file("k"));
}

TEST_F(FileDialog, ends_leave_all_as_it_was_before) {
    make_window(19, 230, 60, 80, 90);
    make_field(20, 235, 65, 60, 16, 19);
    make_field(21, 235, 90, 60, 16, 19);
    make(22, VEL_TYPE_LABEL, 235, 115, 60, 16, 19);
    open(19);
    const Step quit = [] { push_type(SDL_QUIT); };
    const Step expect_open = [this] {
        EXPECT_EQ(std::tuple(ctx.active_window, ctx.cursor_object, ctx.frame_mode),
                  std::tuple(8U, 15U, VEL_MODE_SCROLL));
        EXPECT_EQ(at(19, 100), test::green);
    };
    using Case = std::pair<Step, bool>;
    for (const auto &[end, quits] : {Case(click(17), false), Case(key(SDLK_ESCAPE), false),
                                     Case(click(VEL_BUTTON_CLOSE), false), Case(quit, true)}) {
        ctx.cursor_object = 21;
        ctx.frame_mode = VEL_MODE_RESIZE;
        ctx.mark_colour = test::blue;
        ctx.mark_colour_b = test::green;
        EXPECT_EQ(choose(0, "/", {click(22), expect_open, end}), "/");
        EXPECT_EQ(std::tuple(ctx.active_window, ctx.cursor_object, ctx.frame_mode),
                  std::tuple(19U, 21U, VEL_MODE_RESIZE));
        EXPECT_EQ(ctx.mark_colour, test::blue);
        EXPECT_EQ(at(30, 100), test::white);
        // The end of the program reaches the application's own loop.
        if (!quits) set_steps({click(22)});
        EXPECT_EQ(vel_wait_for_object(&ctx), quits ? 0U : 22U);
    }
}

TEST_F(FileDialog, paths_that_do_not_fit_are_not_written) {
    const Folder folder;
    const std::string file = folder.write("a"), path = folder.file("");
    const Steps steps{pick("a"), click(16)};
    EXPECT_EQ(choose(VEL_ERROR_SIZE, path, steps, file.size()), path);
    EXPECT_EQ(choose(1, path, steps, file.size() + 1), file);
    EXPECT_EQ(path_[file.size() + 1], '\x7E');
    EXPECT_EQ(vel_choose_file(&ctx, 8, path_.data(), file.size()), VEL_ERROR_ARGUMENT); // no NUL
    objects[8].dep_objs[5] = 0; // no message
    EXPECT_EQ(vel_choose_file(&ctx, 8, path_.data(), 4096), VEL_ERROR_ARGUMENT);
}

// Without a redraw before. Of a long path the end shows.
TEST_F(FileDialog, shows_its_title_captions_and_path_at_once) {
    const Folder folder;
    const std::string deep = std::string(30, 'a') + "/" + std::string(30, 'b') + "/end";
    folder.fill({deep + "/"});
    set_margins(objects[9], 5);
    set_label(objects[16], "OK\nlost");
    objects[8].text_index = 1;
    set_text(1, "Title");
    choose(0, folder.file(deep),
           {[this] {
                EXPECT_STREQ(line(1, 0), "Title");
                EXPECT_STREQ(objects[16].label, "OK");
                EXPECT_EQ(objects[16].margin_left, (60 - width_of("OK")) / 2);
                const std::string label = objects[9].label;
                EXPECT_TRUE(label.starts_with("...") && label.ends_with("b/end"));
                EXPECT_LE(width_of(label), 180U);
                EXPECT_GT(width_of("...b" + label.substr(3)), 180U);
            },
            click(17)});
}

} // namespace
