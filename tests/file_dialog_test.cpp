// The file dialog, driven by clicks and keys on the dummy display.
#include "support.h"

namespace {

using test::Folder;
using test::Names;
using test::Step;
using test::Steps;

const std::string euro = "\xE2\x82\xAC";

// Dialog 8: folder 9, list 10 with rows 11 to 14, name 15, OK 16, cancel 17, message 18. Label 19
// is on the desktop.
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
        make(19, VEL_TYPE_LABEL, 260, 150, 40, 20);
    }
    ~FileDialog() override { std::filesystem::current_path(here_); }

    // Clicks the row that shows a name.
    Step pick(const std::string &shown) {
        return [this, shown] {
            for (uint32_t row = 11; row < 15; ++row) {
                if (shown == objects[row].label) return click_on(row);
            }
            ADD_FAILURE() << "no row shows " << shown;
            click_on(17);
        };
    }
    // As if it had been typed, in ISO 8859-1.
    Step type(const std::string &name) {
        return [this, name] { set_label(objects[15], name); };
    }
    Step expect_rows(const Names &rows) {
        return [this, rows] {
            Names shown;
            for (uint32_t row = 11; row < 15; ++row) {
                if (objects[row].width != 0) shown.emplace_back(objects[row].label);
            }
            EXPECT_EQ(shown, rows);
        };
    }
    Step expect_message(bool visible) {
        return [this, visible] {
            EXPECT_EQ(std::tuple(objects[18].width, objects[18].hidden),
                      visible ? std::tuple(190U, 0U) : std::tuple(0U, 1U));
            EXPECT_EQ(at(200, 156), visible ? test::green : test::red);
        };
    }
    Step expect_label(uint32_t number, const std::string &label) {
        return [=, this] { EXPECT_EQ(objects[number].label, label); };
    }
    int32_t run(const std::string &suggestion, const Steps &steps, size_t size = 4096) {
        path_.assign(4096, '\x7E');
        suggestion.copy(path_.data(), suggestion.size());
        path_[suggestion.size()] = '\0';
        set_steps(steps);
        const int32_t result = vel_choose_file(&ctx, 8, path_.data(), size);
        EXPECT_TRUE(all_steps_done()) << suggestion;
        EXPECT_EQ(std::tuple(objects[8].hidden, objects[18].width), std::tuple(1U, 190U));
        return result;
    }
    // What the dialog leaves in path_out, when it ends as it should.
    std::string choose(int32_t result, const std::string &suggestion, const Steps &steps) {
        EXPECT_EQ(run(suggestion, steps), result) << suggestion;
        return path_.c_str();
    }

    const std::filesystem::path here_ = std::filesystem::current_path();
    std::string path_;
};

TEST_F(FileDialog, walks_in_and_out_and_chooses) {
    const Folder folder;
    folder.fill({"sub/below/", "sub/data.csv", "zebra"});
    std::filesystem::create_directory_symlink("sub", folder.file("tie"));
    const Names top{"../", "sub/", "tie/", "zebra"};
    EXPECT_EQ(choose(1, folder.file(""),
                     {expect_rows(top), pick("sub/"), expect_rows({"../", "below/", "data.csv"}),
                      pick("below/"), expect_rows({"../"}), pick("../"), pick("../"),
                      expect_rows(top), expect_label(15, ""), pick("tie/"), pick("data.csv"),
                      expect_label(15, "data.csv"), click(16)}),
              folder.file("tie/data.csv"));
    // A link is left to where it is.
    EXPECT_EQ(
        choose(1, folder.file(""), {pick("tie/"), pick("../"), pick("zebra"), key(SDLK_RETURN)}),
        folder.file("zebra"));
    EXPECT_EQ(choose(0, "/", {[this] { EXPECT_STRNE(objects[11].label, "../"); }, click(17)}), "/");
    EXPECT_EQ(choose(1, "/", {type("x"), key(SDLK_KP_ENTER)}), "/x");
    EXPECT_EQ(choose(1, "/x", {expect_label(15, "x"), expect_label(9, "/"), click(16)}), "/x");
}

TEST_F(FileDialog, begins_where_the_suggestion_says) {
    const Folder folder;
    folder.fill({"sub/", "a.csv", "b.txt", "sub/c.csv", "sub/d*"});
    std::filesystem::current_path(folder.file(""));
    const Names top{"../", "sub/", "a.csv", "b.txt"}, sub{"../", "c.csv", "d*"};
    const std::tuple<std::string, std::string, Names, bool> cases[] = {
        {"", "", top, false},
        {folder.file("sub/"), "", sub, false},
        {"sub", "", sub, false},
        {"sub/", "", sub, false},
        {"sub/../sub/new.csv", "new.csv", sub, false},
        {"new\xC3\xBC", "new\xFC", top, false},
        {"*.csv", "", {"../", "sub/", "a.csv"}, false},
        {"sub/?.csv", "", {"../", "c.csv"}, false},
        {"sub/d*", "d*", sub, false}, // a file of that name
        {"nowhere/", "", top, true},
        {"nowhere/x", "", top, true},
        {"nowhere/*", "", top, true},
        {"a.csv/", "", top, true}};
    for (const auto &[suggestion, name, rows, has_message] : cases) {
        EXPECT_EQ(choose(0, suggestion,
                         {expect_message(has_message), expect_rows(rows), expect_label(15, name),
                          click(17)}),
                  suggestion);
    }
    // A working folder that is gone gives way to the root.
    folder.fill({"work/"});
    std::filesystem::current_path(folder.file("work"));
    std::filesystem::remove(folder.file("work"));
    choose(0, "nowhere/",
           {expect_message(true), type("etc"), click(16), expect_message(false),
            expect_label(9, "/etc"), click(17)});
}

TEST_F(FileDialog, what_is_typed_is_a_file_a_folder_or_a_pattern) {
    const Folder folder;
    folder.fill({"sub/", "a.csv", "sub/c.csv", "sub/d"});
    using Case = std::pair<std::string, std::string>;
    for (const auto &[typed, file] :
         {Case("new", "new"), Case("gr\xFC\xDF", "grüß"), Case("sub/new", "sub/new"),
          Case("sub/../new", "new"), Case("./a.csv", "a.csv"), Case(folder.file("x"), "x"),
          Case("sub/./c.csv", "sub/c.csv")}) {
        EXPECT_EQ(choose(1, folder.file(""), {type(typed), click(16)}), folder.file(file));
    }
    const Names top{"../", "sub/", "a.csv"};
    for (const char *typed : {"sub", "sub/", "./sub"}) {
        choose(0, folder.file(""),
               {type(typed), click(16), expect_rows({"../", "c.csv", "d"}), expect_label(15, ""),
                type(".."), key(SDLK_KP_ENTER), expect_rows(top), click(16), // no name
                type("sub/*.csv"), click(16), expect_rows({"../", "c.csv"}), click(17)});
    }
    // Where there is nothing to go to, the message shows until the next step that succeeds.
    for (const char *typed : {"nowhere/new", "a.csv/new", "new/", "nowhere/*"}) {
        choose(0, folder.file(""),
               {expect_message(false), type(typed), click(16), expect_message(true),
                expect_rows(top), pick("sub/"), expect_message(false), click(17)});
    }
}

TEST_F(FileDialog, chooses_the_bytes_of_a_name_whatever_its_row_shows) {
    const auto x = [](std::size_t count) { return std::string(count, 'x'); };
    using Case = std::pair<std::string, std::string>;
    for (const auto &[name, shown] :
         {Case(x(64), x(64)), Case(x(65), x(64)), Case(x(255), x(64)), Case("5 " + euro, "5 ?"),
          Case("\xE4", "?"), Case("a\nb", "a?b")}) {
        const Folder folder;
        folder.fill({name});
        for (const Step &step : {pick(shown), type(shown)}) {
            EXPECT_EQ(choose(1, folder.file(""), {step, click(16)}), folder.file(name));
        }
        EXPECT_EQ(choose(1, folder.file(name), {key(SDLK_RETURN)}), folder.file(name));
    }
    const Folder folder; // names that look alike are different rows
    folder.fill({x(64) + "1", x(64) + "2", x(64) + "3"});
    EXPECT_EQ(choose(1, folder.file(""), {click(13), click(16)}), folder.file(x(64) + "2"));
}

TEST_F(FileDialog, a_folder_that_cannot_be_read_changes_nothing) {
    const Folder folder;
    folder.fill({"gone/", "file/", "last"});
    const Step rows = expect_rows({"../", "file/", "gone/", "last"});
    EXPECT_EQ(choose(1, folder.file(""),
                     {[&] { std::filesystem::remove(folder.file("gone")); }, pick("gone/"),
                      expect_message(true), rows, pick("last"),
                      [&] {
                          std::filesystem::remove(folder.file("file"));
                          folder.write("file");
                      },
                      pick("file/"), expect_message(true), rows, click(16)}),
              folder.file("last"));
    // Neither does one that is typed while the list is scrolled.
    folder.fill({"m", "n", "o"});
    choose(0, folder.file(""),
           {click(VEL_BUTTON_HEIGHT_MORE), type("nowhere/*"), click(16), expect_message(true),
            expect_rows({"file", "last", "m", "n"}), click(VEL_BUTTON_HEIGHT_MORE),
            expect_rows({"last", "m", "n", "o"}), click(17)});
}

TEST_F(FileDialog, ends_leave_all_as_it_was_before) {
    const Folder folder;
    folder.fill({"a"});
    const Step quit = [] { push_type(SDL_QUIT); };
    using Case = std::tuple<Step, bool, bool>;
    for (const auto &[end, quits, is_filtered] :
         {Case(click(17), false, false), Case(key(SDLK_ESCAPE), false, false),
          Case(click(VEL_BUTTON_CLOSE), false, false), Case(quit, true, false),
          Case(quit, false, true)}) {
        ctx.event_filter = nullptr;
        if (is_filtered) end_loops_on_quit();
        ctx.frame_mode = VEL_MODE_RESIZE;
        ctx.mark_colour = test::blue;
        ctx.mark_colour_b = test::green;
        const Step expect_scroll_mode = [this] {
            EXPECT_EQ(ctx.frame_mode, VEL_MODE_SCROLL);
            EXPECT_EQ(at(19, 100), test::green);
        };
        EXPECT_EQ(choose(0, folder.file(""),
                         {click(19), [] { press(250, 10), release(250, 10); }, expect_scroll_mode,
                          pick("a"), end}),
                  folder.file(""));
        EXPECT_EQ(std::tuple(ctx.frame_mode, ctx.window_count), std::tuple(VEL_MODE_RESIZE, 0U));
        EXPECT_EQ(ctx.mark_colour, test::blue);
        EXPECT_EQ(at(30, 100), test::white);
        // The end of the program reaches the application's own loop.
        if (!quits) set_steps({click(19)});
        EXPECT_EQ(vel_wait_for_object(&ctx), quits ? 0U : 19U);
    }
}

TEST_F(FileDialog, lies_over_another_window_and_its_cursor) {
    make_window(19, 230, 60, 80, 60);
    make_field(20, 235, 65, 60, 16, 19);
    make_field(21, 235, 90, 60, 16, 19);
    open(19);
    ctx.cursor_object = 21;
    choose(0, "/",
           {click(20),
            [this] {
                EXPECT_EQ(std::tuple(ctx.active_window, ctx.cursor_object), std::tuple(8U, 15U));
            },
            click(17)});
    EXPECT_EQ(std::tuple(ctx.active_window, ctx.cursor_object), std::tuple(19U, 21U));
}

TEST_F(FileDialog, paths_that_do_not_fit_are_not_written) {
    const Folder folder;
    const std::string file = folder.write("a");
    const Steps steps{pick("a"), click(16)};
    EXPECT_EQ(run(folder.file(""), steps, file.size()), VEL_ERROR_SIZE);
    EXPECT_EQ(path_.c_str(), folder.file(""));
    EXPECT_EQ(run(folder.file(""), steps, file.size() + 1), 1);
    EXPECT_EQ(std::pair(std::string(path_.c_str()), path_[file.size() + 1]),
              std::pair(file, '\x7E'));
    const auto expect_refused = [this](vel_context *context, uint32_t window, char *path,
                                       size_t size) {
        EXPECT_EQ(vel_choose_file(context, window, path, size), VEL_ERROR_ARGUMENT) << window;
    };
    expect_refused(&ctx, 8, path_.data(), file.size()); // no NUL
    expect_refused(&ctx, 8, path_.data(), 0);
    expect_refused(nullptr, 8, path_.data(), 4096);
    expect_refused(&ctx, 8, nullptr, 9);
    for (const uint32_t no_dialog : {0U, 10U, 19U})
        expect_refused(&ctx, no_dialog, path_.data(), 4096);
    ctx.window_count = VEL_MAX_WINDOWS; // no window can be opened any more
    expect_refused(&ctx, 8, path_.data(), 4096);
    ctx.window_count = 0;
    objects[8].dep_objs[5] = 0; // no message
    expect_refused(&ctx, 8, path_.data(), 4096);
}

TEST_F(FileDialog, shows_its_title_and_captions_without_a_redraw_before) {
    set_label(objects[16], "OK\nlost");
    objects[8].text_index = 1;
    set_text(1, "Title");
    choose(0, "/",
           {[this] {
                EXPECT_STREQ(line(1, 0), "Title");
                EXPECT_STREQ(objects[16].label, "OK");
                EXPECT_EQ(objects[16].margin_left, (60 - width_of("OK")) / 2);
                EXPECT_NE(pixels(test::blue), "");
            },
            click(17)});
}

TEST_F(FileDialog, long_paths_show_their_end) {
    const Folder folder;
    const std::string deep = std::string(30, 'a') + "/" + std::string(30, 'b') + "/end";
    folder.fill({deep + "/"});
    set_margins(objects[9], 5);
    choose(0, folder.file(deep),
           {[this] {
                const std::string label = objects[9].label;
                EXPECT_TRUE(label.starts_with("...") && label.ends_with("b/end"));
                EXPECT_LE(width_of(label), 180U);
                EXPECT_GT(width_of("...b" + label.substr(3)), 180U);
            },
            click(17)});
}

} // namespace
