// The file dialog, driven by clicks and keys on the dummy display.
#include "support.h"

#include <functional>
#include <unistd.h>

namespace {

using test::Folder;
using test::Form;

using Steps = std::vector<std::function<void()>>;

// Dialog 8: folder 9, list 10 with rows 11 to 14, name 15, OK 16, cancel 17, message 18. Label 19
// stands on the desktop.
class FileDialog : public Form {
protected:
    FileDialog() : here_(std::filesystem::current_path()) {
        SDL_FreeSurface(ctx.screen);
        SDL_Init(SDL_INIT_VIDEO);
        ctx.screen = SDL_SetVideoMode(320, 200, 32, SDL_SWSURFACE);
        ctx.text_count = 0;
        for (uint32_t button = 1; button <= 7; ++button) {
            make(button, VEL_TYPE_LABEL, 0, 0, 16, 16).hidden = 1;
        }
        make(8, VEL_TYPE_WINDOW, 20, 30, 200, 165).hidden = 1;
        make(9, VEL_TYPE_ENTRY, 24, 34, 190, 16, 8);
        make(10, VEL_TYPE_LABEL, 24, 52, 190, 70, 8);
        make(15, VEL_TYPE_ENTRY, 24, 126, 190, 18, 8).editable = 1;
        make(16, VEL_TYPE_LABEL, 24, 172, 60, 18, 8);
        make(17, VEL_TYPE_LABEL, 94, 172, 60, 18, 8);
        make(18, VEL_TYPE_LABEL, 24, 148, 190, 16, 8);
        for (uint32_t k = 0; k < 4; ++k) {
            make(11 + k, VEL_TYPE_ENTRY, 26, 54 + 16 * static_cast<int>(k), 180, 16, 10);
        }
        make(19, VEL_TYPE_LABEL, 260, 150, 40, 20);
        objects[15].max_chars = 64;
        SDL_Event event;
        while (SDL_PollEvent(&event) != 0) {
        } // what setting the video mode brought
        ctx.application_a[0] = this;
        ctx.idle_hook = [](vel_context *c) {
            static_cast<FileDialog *>(c->application_a[0])->step();
        };
    }
    ~FileDialog() override {
        std::filesystem::current_path(here_);
        TTF_Init();
        vel_context rest{};
        rest.state = ctx.state;
        vel_close(&rest);
        ctx.screen = nullptr;
    }
    void step() {
        if (next_ < steps_.size()) steps_[next_++]();
    }
    static void push_button(bool pressed, int x, int y) {
        SDL_Event event{};
        event.button.type = pressed ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        event.button.button = SDL_BUTTON_LEFT;
        event.button.state = pressed ? SDL_PRESSED : SDL_RELEASED;
        event.button.x = static_cast<Uint16>(x);
        event.button.y = static_cast<Uint16>(y);
        ASSERT_EQ(SDL_PushEvent(&event), 0);
    }
    void click_now(uint32_t number) {
        const vel_object &o = objects[number];
        for (const bool pressed : {true, false}) {
            push_button(pressed, static_cast<int>(o.x + 8), static_cast<int>(o.y + 8));
        }
    }
    std::function<void()> click(uint32_t number) {
        return [this, number] { click_now(number); };
    }
    // Clicks the row that shows a name.
    std::function<void()> pick(const std::string &shown) {
        return [this, shown] {
            for (uint32_t row = 11; row < 15; ++row) {
                if (shown == objects[row].label) return click_now(row);
            }
            ADD_FAILURE() << "no row shows " << shown;
            click_now(17);
        };
    }
    // As if it had been typed, in ISO 8859-1.
    std::function<void()> type(const std::string &name) {
        return [this, name] { std::snprintf(objects[15].label, 65, "%s", name.c_str()); };
    }
    static std::function<void()> key(SDLKey symbol) {
        return [symbol] {
            SDL_Event event{};
            event.type = SDL_KEYDOWN;
            event.key.keysym.sym = symbol;
            SDL_PushEvent(&event);
        };
    }
    std::function<void()> expect_rows(std::vector<std::string> rows) {
        return [this, rows] { rows_are(rows); };
    }
    void rows_are(const std::vector<std::string> &rows) const {
        std::vector<std::string> shown;
        for (uint32_t row = 11; row < 15; ++row) {
            if (objects[row].width != 0) shown.emplace_back(objects[row].label);
        }
        EXPECT_EQ(shown, rows);
    }
    std::function<void()> expect_message(bool visible) {
        return [this, visible] { EXPECT_EQ(objects[18].width, visible ? 190U : 0U) << next_; };
    }
    int32_t run(const std::string &suggestion, Steps steps, size_t size = 4096) {
        steps_ = std::move(steps);
        next_ = 0;
        path.assign(4096, '\x7E');
        suggestion.copy(path.data(), suggestion.size());
        path[suggestion.size()] = '\0';
        const int32_t result = vel_choose_file(&ctx, 8, path.data(), size);
        EXPECT_EQ(next_, steps_.size());
        EXPECT_EQ(objects[8].hidden, 1U);
        EXPECT_EQ(objects[18].width, 190U);
        return result;
    }
    // What path_out holds.
    std::string chosen() const { return path.c_str(); }

    const std::filesystem::path here_;
    std::string path;
    Steps steps_;
    std::size_t next_ = 0;
};

TEST_F(FileDialog, walks_in_and_out_and_chooses) {
    const Folder folder;
    std::filesystem::create_directories(folder.file("sub/below"));
    folder.write("sub/data.csv", "");
    folder.write("zebra", "");
    std::filesystem::create_directory_symlink("sub", folder.file("tie"));
    const Steps steps{expect_rows({"../", "sub/", "tie/", "zebra"}),
                      pick("sub/"),
                      expect_rows({"../", "below/", "data.csv"}),
                      pick("below/"),
                      expect_rows({"../"}),
                      pick("../"),
                      pick("../"),
                      expect_rows({"../", "sub/", "tie/", "zebra"}),
                      pick("tie/"),
                      pick("data.csv"),
                      [this] { EXPECT_STREQ(objects[15].label, "data.csv"); },
                      click(16)};
    EXPECT_EQ(run(folder.file(""), steps), 1);
    EXPECT_EQ(chosen(), folder.file("tie/data.csv"));
    // A link is left to where it stands.
    EXPECT_EQ(run(folder.file(""), {pick("tie/"), pick("../"), pick("zebra"), key(SDLK_RETURN)}),
              1);
    EXPECT_EQ(chosen(), folder.file("zebra"));
    EXPECT_EQ(run("/", {[this] { EXPECT_STRNE(objects[11].label, "../"); }, click(17)}), 0);
}

TEST_F(FileDialog, begins_where_the_suggestion_says) {
    const Folder folder;
    std::filesystem::create_directory(folder.file("sub"));
    for (const char *name : {"a.csv", "b.txt", "sub/c.csv", "sub/d*"}) folder.write(name, "");
    std::filesystem::current_path(folder.file(""));
    const std::vector<std::string> top{"../", "sub/", "a.csv", "b.txt"}, sub{"../", "c.csv", "d*"};
    const struct {
        std::string suggestion, name;
        std::vector<std::string> rows;
        bool is_told;
    } cases[] = {
        {"", "", top, false},
        {folder.file("sub/"), "", sub, false},
        {folder.file("sub"), "", sub, false},
        {"sub/", "", sub, false},
        {"sub/../sub/new.csv", "new.csv", sub, false},
        {"new\xC3\xBC", "new\xFC", top, false},
        {"*.csv", "", {"../", "sub/", "a.csv"}, false},
        {"sub/?.csv", "", {"../", "c.csv"}, false},
        {"sub/d*", "d*", sub, false}, // a file of that name
        {"nowhere/", "", top, true},
        {"nowhere/x", "", top, true},
        {"nowhere/*", "", top, true},
        {"a.csv/", "", top, true},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.suggestion);
        EXPECT_EQ(run(c.suggestion, {expect_message(c.is_told), expect_rows(c.rows),
                                     [&] { EXPECT_EQ(objects[15].label, c.name); }, click(17)}),
                  0);
        EXPECT_EQ(chosen(), c.suggestion);
    }
}

TEST_F(FileDialog, what_is_typed_is_a_file_a_folder_or_a_pattern) {
    const Folder folder;
    std::filesystem::create_directory(folder.file("sub"));
    for (const char *name : {"a.csv", "sub/c.csv", "sub/d"}) folder.write(name, "");
    const std::pair<std::string, std::string> files[] = {{"new", "new"},
                                                         {"gr\xFC\xDF", "grüß"},
                                                         {"sub/new", "sub/new"},
                                                         {"sub/../new", "new"},
                                                         {"./a.csv", "a.csv"},
                                                         {folder.file("x"), "x"},
                                                         {"sub/./c.csv", "sub/c.csv"}};
    for (const auto &[typed, file] : files) {
        EXPECT_EQ(run(folder.file(""), {type(typed), click(16)}), 1) << typed;
        EXPECT_EQ(chosen(), folder.file(file));
    }
    for (const char *typed : {"sub", "sub/", "./sub"}) {
        EXPECT_EQ(
            run(folder.file(""),
                {type(typed), click(16), expect_rows({"../", "c.csv", "d"}), type(".."),
                 key(SDLK_KP_ENTER), expect_rows({"../", "sub/", "a.csv"}), click(16), // no name
                 type("sub/*.csv"), click(16), expect_rows({"../", "c.csv"}), click(17)}),
            0);
    }
    // Nothing to go to: told, and gone with the next step that succeeds.
    for (const char *typed : {"nowhere/new", "a.csv/new", "new/", "nowhere/*"}) {
        EXPECT_EQ(run(folder.file(""), {expect_message(false), type(typed), click(16),
                                        expect_message(true), expect_rows({"../", "sub/", "a.csv"}),
                                        pick("sub/"), expect_message(false), click(17)}),
                  0)
            << typed;
    }
}

TEST_F(FileDialog, chooses_the_bytes_of_a_name_whatever_its_row_shows) {
    const std::string euro = "\xE2\x82\xAC";
    const struct {
        std::string name, shown;
    } cases[] = {{std::string(63, 'x'), std::string(63, 'x')},
                 {std::string(64, 'x'), std::string(64, 'x')},
                 {std::string(65, 'x'), std::string(64, 'x')},
                 {std::string(255, 'x'), std::string(64, 'x')},
                 {"5 " + euro, "5 ?"},
                 {"\xE4", "?"},
                 {"a\nb", "a?b"}};
    for (const auto &c : cases) {
        const Folder folder;
        folder.write(c.name, "");
        for (const Steps &steps :
             {Steps{pick(c.shown), click(16)}, Steps{type(c.shown), click(16)}}) {
            EXPECT_EQ(run(folder.file(""), steps), 1);
            EXPECT_EQ(chosen(), folder.file(c.name));
        }
        EXPECT_EQ(run(folder.file(c.name), {key(SDLK_RETURN)}), 1);
        EXPECT_EQ(chosen(), folder.file(c.name));
    }
}

TEST_F(FileDialog, names_that_look_alike_are_told_apart_by_their_rows) {
    const Folder folder;
    const std::string shown(64, 'x');
    for (const char *end : {"1", "2", "3"}) folder.write(shown + end, "");
    EXPECT_EQ(run(folder.file(""), {click(13), click(16)}), 1);
    EXPECT_EQ(chosen(), folder.file(shown + "2"));
}

TEST_F(FileDialog, frame_buttons_reach_every_name) {
    for (const int files : {0, 1, 3, 4, 97, 150}) {
        SCOPED_TRACE(files);
        const Folder folder;
        std::string last;
        for (int k = 0; k < files; ++k) folder.write(last = std::to_string(1000 + k), "");
        Steps steps{click(VEL_BUTTON_HEIGHT_LESS)};
        for (int k = 0; k <= files; ++k) steps.push_back(click(VEL_BUTTON_HEIGHT_MORE));
        if (files == 0) {
            steps.insert(steps.end(), {expect_rows({"../"}), click(17)});
        } else {
            steps.insert(steps.end(), {pick(last), click(16)});
        }
        EXPECT_EQ(run(folder.file(""), steps), files == 0 ? 0 : 1);
        EXPECT_EQ(chosen(), folder.file(last));
        EXPECT_EQ(objects[8].height, 165U);
    }
}

TEST_F(FileDialog, a_folder_that_cannot_be_read_changes_nothing) {
    const Folder folder;
    for (const char *name : {"gone", "file"}) std::filesystem::create_directory(folder.file(name));
    folder.write("last", "");
    const auto rows = expect_rows({"../", "file/", "gone/", "last"});
    const Steps steps{[&] { std::filesystem::remove(folder.file("gone")); },
                      pick("gone/"),
                      expect_message(true),
                      rows,
                      [&] { EXPECT_EQ(at(200, 156), test::red); },
                      pick("last"),
                      [&] {
                          std::filesystem::remove(folder.file("file"));
                          folder.write("file", "");
                      },
                      pick("file/"),
                      expect_message(true),
                      rows,
                      click(16)};
    EXPECT_EQ(run(folder.file(""), steps), 1);
    EXPECT_EQ(chosen(), folder.file("last"));
    // So does one that is typed while the list is scrolled.
    for (const char *name : {"m", "n", "o"}) folder.write(name, "");
    EXPECT_EQ(run(folder.file(""),
                  {click(VEL_BUTTON_HEIGHT_MORE), type("nowhere/*"), click(16),
                   expect_message(true), expect_rows({"file", "last", "m", "n"}),
                   click(VEL_BUTTON_HEIGHT_MORE), expect_rows({"last", "m", "n", "o"}), click(17)}),
              0);
    // A working folder that is gone gives way to the root.
    std::filesystem::create_directory(folder.file("work"));
    std::filesystem::current_path(folder.file("work"));
    std::filesystem::remove(folder.file("work"));
    EXPECT_EQ(run("nowhere/", {expect_message(true), type("etc"), click(16), expect_message(false),
                               [this] { EXPECT_STREQ(objects[9].label, "/etc"); }, click(17)}),
              0);
}

TEST_F(FileDialog, ends_leave_all_behind_it_as_it_was) {
    const Folder folder;
    folder.write("a", "");
    const auto push_quit = [] {
        SDL_Event event{};
        event.type = SDL_QUIT;
        SDL_PushEvent(&event);
    };
    const struct {
        std::function<void()> end;
        bool quits, filtered;
    } cases[] = {{click(17), false, false},
                 {key(SDLK_ESCAPE), false, false},
                 {click(VEL_BUTTON_CLOSE), false, false},
                 {push_quit, true, false},
                 {push_quit, false, true}};
    for (const auto &c : cases) {
        ctx.event_filter = c.filtered ? [](vel_context *, SDL_Event *e) -> uint32_t {
            return e->type == SDL_QUIT ? VEL_FILTER_END_LOOP : VEL_FILTER_PASS;
        }
        : vel_event_filter{};
        ctx.frame_mode = VEL_MODE_RESIZE;
        ctx.mark_colour = test::blue;
        EXPECT_EQ(
            run(folder.file(""),
                {click(19), [this] { push_button(true, 250, 10), push_button(false, 250, 10); },
                 [this] { EXPECT_EQ(ctx.frame_mode, VEL_MODE_SCROLL); }, pick("a"), c.end}),
            0);
        EXPECT_EQ(chosen(), folder.file(""));
        EXPECT_EQ(ctx.frame_mode, VEL_MODE_RESIZE);
        EXPECT_EQ(ctx.mark_colour, test::blue);
        EXPECT_EQ(ctx.window_count, 0U);
        EXPECT_EQ(at(30, 100), test::white);
        // The end of the program reaches the application's own loop.
        if (!c.quits) steps_ = {click(19)}, next_ = 0;
        EXPECT_EQ(vel_wait_for_object(&ctx), c.quits ? 0U : 19U);
    }
}

TEST_F(FileDialog, lies_over_another_window_and_its_cursor) {
    const Folder folder;
    make(19, VEL_TYPE_WINDOW, 230, 60, 80, 60).hidden = 1;
    objects.resize(22);
    ctx.objects = objects.data();
    ctx.object_count = 21;
    make(20, VEL_TYPE_ENTRY, 235, 65, 60, 16, 19).editable = 1;
    make(21, VEL_TYPE_ENTRY, 235, 90, 60, 16, 19).editable = 1;
    ctx.window_to_activate = 19;
    vel_activate_window(&ctx);
    ctx.cursor_object = 21;
    EXPECT_EQ(run(folder.file(""), {click(20), [this] { EXPECT_EQ(ctx.active_window, 8U); },
                                    [this] { EXPECT_EQ(ctx.cursor_object, 15U); }, click(17)}),
              0);
    EXPECT_EQ(ctx.active_window, 19U);
    EXPECT_EQ(ctx.cursor_object, 21U);
}

TEST_F(FileDialog, paths_that_do_not_fit_are_not_written) {
    const Folder folder;
    const std::string file = folder.write("a", "");
    const Steps steps{pick("a"), click(16)};
    EXPECT_EQ(run(folder.file(""), steps, file.size()), VEL_ERROR_SIZE);
    EXPECT_EQ(chosen(), folder.file(""));
    EXPECT_EQ(run(folder.file(""), steps, file.size() + 1), 1);
    EXPECT_EQ(chosen(), file);
    EXPECT_EQ(path[file.size() + 1], '\x7E');
    EXPECT_EQ(run(folder.file(""), {}, folder.file("").size()), VEL_ERROR_ARGUMENT); // no NUL
    EXPECT_EQ(run("", {}, 0), VEL_ERROR_ARGUMENT);
    EXPECT_EQ(vel_choose_file(nullptr, 8, path.data(), 9), VEL_ERROR_ARGUMENT);
    EXPECT_EQ(vel_choose_file(&ctx, 8, nullptr, 9), VEL_ERROR_ARGUMENT);
    path[0] = '\0';
    for (const uint32_t no_dialog : {0U, 10U, 19U}) {
        EXPECT_EQ(vel_choose_file(&ctx, no_dialog, path.data(), 9), VEL_ERROR_ARGUMENT);
    }
    ctx.window_count = VEL_MAX_WINDOWS; // no window can be opened any more
    EXPECT_EQ(run("", {}), VEL_ERROR_ARGUMENT);
    ctx.window_count = 0;
    objects[8].dep_objs[5] = 0; // no message
    EXPECT_EQ(run("", {}), VEL_ERROR_ARGUMENT);
    EXPECT_STREQ(vel_error_text(VEL_ERROR_SIZE), "the path is longer than the room for it");
}

TEST_F(FileDialog, long_paths_show_their_end) {
    const Folder folder;
    const std::string deep = std::string(30, 'a') + "/" + std::string(30, 'b') + "/end";
    std::filesystem::create_directories(folder.file(deep));
    run(folder.file(deep), {[this] {
                                const std::string label = objects[9].label;
                                EXPECT_TRUE(label.starts_with("...") && label.ends_with("b/end"));
                                EXPECT_LE(width_of(label), 190U);
                                const std::string more = "...b" + label.substr(3);
                                EXPECT_GT(width_of(more), 190U);
                            },
                            click(17)});
}

} // namespace
