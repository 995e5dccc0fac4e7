// Parts, as the user changes them with pointer and keys: what they say afterwards, and where their
// pieces are.
#include "support.h"

#include "parts/part.h"

namespace {

using test::u32;

constexpr uint32_t many_rows = 1000000;

// What row and column show: "0042/1".
void write_numbers(vel_context *, uint32_t, uint32_t row, uint32_t column, vel_cell *cell) {
    std::snprintf(cell->text, sizeof cell->text, "%04u/%u", row, column);
}

class Parts : public test::Form {
protected:
    Parts() {
        ctx.comfort = VEL_COMFORT_ALL;
        make_frame_buttons();
        make_window(8, 20, 30, 280, 160);
        open(8);
    }
    velumo::Traits &part(uint32_t number, velumo::Part kind) {
        velumo::Traits &traits = velumo::state_of(ctx).traits[number];
        traits.part = kind;
        traits.answer = VEL_ANSWER_PLAIN;
        return traits;
    }
    // A list 9 of four rows (13 to 16) of two cells each, below titles, with a bar 12.
    void make_list() {
        make(9, VEL_TYPE_LABEL, 30, 40, 120, 104, 8);
        make(10, VEL_TYPE_LABEL, 30, 40, 0, 20, 9); // how selected rows look
        test::Form::set_fill(objects[10], test::green);
        make(11, VEL_TYPE_LABEL, 32, 42, 100, 20, 9);
        make(21, VEL_TYPE_LABEL, 32, 42, 50, 20, 11);
        make(22, VEL_TYPE_LABEL, 82, 42, 50, 20, 11);
        make(12, VEL_TYPE_LABEL, 134, 62, 14, 80, 9);
        make(23, VEL_TYPE_LABEL, 134, 62, 14, 20, 12);
        for (uint32_t k = 0; k < 4; ++k) {
            const int y = 62 + 20 * static_cast<int>(k);
            make(13 + k, VEL_TYPE_LABEL, 32, y, 100, 20, 9);
            make(24 + k, VEL_TYPE_LABEL, 32, y, 50, 20, 13 + k);
            if (k == 0) make(28, VEL_TYPE_LABEL, 82, y, 50, 20, 13);
        }
        part(9, velumo::list_part);
        part(12, velumo::scroll_bar_part).target = 9;
        velumo::start_parts(ctx);
    }
    // What vel_wait_for_object() returns until the user closes the program.
    std::vector<uint32_t> answers_to(test::Steps steps) {
        steps.push_back([] { push_type(SDL_QUIT); });
        set_steps(std::move(steps));
        std::vector<uint32_t> answers;
        while (const uint32_t answer = vel_wait_for_object(&ctx)) answers.push_back(answer);
        return answers;
    }
    std::vector<uint32_t> selected(uint32_t list) const {
        std::vector<uint32_t> rows;
        for (uint32_t row = vel_list_selected(&ctx, list, 0); row != VEL_NO_ROW;
             row = vel_list_selected(&ctx, list, row + 1)) {
            rows.push_back(row);
        }
        return rows;
    }
    static test::Step keys(std::vector<int> symbols, int modifiers = KMOD_NONE) {
        return [=] {
            for (const int symbol : symbols) push_key(symbol, modifiers);
        };
    }
    test::Step drag(int x, int y, int to_x, int to_y) {
        return [=] { press(x, y), move_pointer(to_x, to_y), release(to_x, to_y); };
    }
};

using Rows = std::vector<uint32_t>;

TEST_F(Parts, a_list_selects_and_scrolls_by_keys) {
    make_list();
    const struct {
        const char *name;
        test::Step keys;
        Rows selected;
        std::string first;
    } cases[] = {
        {"down thrice", keys({SDLK_DOWN, SDLK_DOWN, SDLK_DOWN}), {2}, "0000/0"},
        {"the last", keys({SDLK_END}), {many_rows - 1}, "999996/0"},
        {"up from the last", keys({SDLK_END, SDLK_UP}), {many_rows - 2}, "999996/0"},
        {"to the last", keys({SDLK_END, SDLK_UP, SDLK_PAGEDOWN}), {many_rows - 1}, "999996/0"},
        {"a page", keys({SDLK_HOME, SDLK_PAGEDOWN, SDLK_PAGEDOWN}), {6}, "0003/0"},
        {"up from the first", keys({SDLK_DOWN, SDLK_UP}), {0}, "0000/0"},
        {"typed", keys({SDLK_0, SDLK_1, SDLK_0, SDLK_7}), {107}, "0104/0"},
        {"typed in vain", keys({SDLK_x}), {}, "0000/0"},
    };
    for (const auto &[name, keys, wanted, first] : cases) {
        ASSERT_EQ(vel_list_show(&ctx, 9, many_rows, write_numbers), VEL_OK);
        ctx.cursor_object = 9;
        answers_to({keys});
        EXPECT_EQ(selected(9), wanted) << name;
        EXPECT_EQ(objects[24].label, first) << name;
    }
    EXPECT_STREQ(objects[28].label, "0000/1");
    EXPECT_EQ(vel_list_select(&ctx, 9, 20), VEL_OK);
    EXPECT_EQ(objects[16].fill_g, 255U); // row 20 is the last one in sight, and selected
    EXPECT_EQ(objects[15].fill_g, 0U);
    EXPECT_EQ(vel_list_select(&ctx, 9, many_rows), VEL_ERROR_ARGUMENT);
    EXPECT_EQ(vel_list_show(&ctx, 10, 3, write_numbers), VEL_ERROR_ARGUMENT);
}

TEST_F(Parts, a_list_of_which_many_can_be_selected) {
    make_list();
    velumo::state_of(ctx).traits[9].many = true;
    const struct {
        const char *name;
        test::Steps steps;
        Rows selected;
    } cases[] = {
        {"dragged over", {drag(40, 70, 40, 110)}, {0, 1, 2}},
        {"shift and back",
         {keys({SDLK_DOWN}), keys({SDLK_DOWN, SDLK_DOWN}, KMOD_LSHIFT),
          keys({SDLK_UP}, KMOD_LSHIFT)},
         {0, 1}},
        {"space at another",
         {keys({SDLK_DOWN}), keys({SDLK_DOWN, SDLK_DOWN}, KMOD_LCTRL), keys({SDLK_SPACE})},
         {0, 2}},
        {"space again", {keys({SDLK_DOWN, SDLK_SPACE})}, {}},
        {"all", {keys({SDLK_a}, KMOD_LCTRL)}, {0, 1, 2, 3, 4, 5}},
    };
    for (const auto &[name, steps, wanted] : cases) {
        ASSERT_EQ(vel_list_show(&ctx, 9, 6, write_numbers), VEL_OK);
        ctx.cursor_object = 9;
        answers_to(steps);
        EXPECT_EQ(selected(9), wanted) << name;
    }
    EXPECT_EQ(vel_list_mark(&ctx, 9, 2, 0), VEL_OK);
    EXPECT_EQ(selected(9), (Rows{0, 1, 3, 4, 5}));
    EXPECT_EQ(vel_list_mark(&ctx, 9, 2, 1), VEL_OK);
    EXPECT_EQ(selected(9).size(), 6U);
}

// At most four digits, rounded at each step.
TEST_F(Parts, list_of_a_folder_says_how_large_files_are) {
    make_list();
    make(29, VEL_TYPE_LABEL, 82, 82, 50, 20, 14); // below that of "../"
    const test::Folder folder;
    const std::pair<std::uintmax_t, const char *> cases[] = {
        {0, "0 B"},       {9999, "9999 B"},      {10000, "10 KB"},    {10751, "10 KB"},
        {10752, "11 KB"}, {10239487, "9999 KB"}, {10239488, "10 MB"}, {11274813440, "11 GB"}};
    for (const auto &[size, text] : cases) {
        std::filesystem::resize_file(folder.write("f"), size);
        ASSERT_EQ(vel_list_directory(&ctx, 9, folder.file("").c_str(), ""), 2);
        EXPECT_STREQ(objects[29].label, text) << size;
    }
}

TEST_F(Parts, presses_on_rows_titles_and_the_bar) {
    make_list();
    vel_list_show(&ctx, 9, 100, write_numbers);
    static std::string sorted;
    sorted.clear();
    vel_list_sort_by(&ctx, 9, [](vel_context *, uint32_t, uint32_t column, uint32_t descending) {
        sorted += std::to_string(column) + (descending != 0 ? "v" : "^");
    });
    uint32_t answered = 0;
    const auto note = [&] { answered += vel_list_answered(&ctx, 9); };
    const auto bar_at = [this](int y) { return drag(140, y, 140, y); };
    EXPECT_EQ(answers_to({drag(40, 90, 40, 90), note, drag(40, 90, 40, 90), note}),
              (std::vector<uint32_t>{9, 9}));
    EXPECT_EQ(answered, 1U);
    EXPECT_EQ(selected(9), Rows{1});
    answers_to({drag(90, 50, 90, 50), drag(90, 50, 90, 50), drag(40, 50, 40, 50)});
    EXPECT_EQ(sorted, "1^1v0^");
    EXPECT_STREQ(objects[22].label, "");
    EXPECT_STREQ(objects[21].label, "  ^");
    // The bar of 80 pixels has a thumb of 12, the least; a page of four rows is three.
    EXPECT_EQ(objects[23].height, 12U);
    answers_to({bar_at(120)});
    EXPECT_STREQ(objects[24].label, "0003/0");
    EXPECT_EQ(objects[23].y, 62U + 3 * 68 / 96);
    answers_to({drag(140, 66, 140, 190)});
    EXPECT_STREQ(objects[24].label, "0096/0");
    EXPECT_EQ(objects[23].y, 62U + 68);
    vel_list_select(&ctx, 9, 0);
    vel_draw_all_objects(&ctx, 0, 0);
    EXPECT_EQ(objects[23].y, 62U);
}

TEST_F(Parts, check_boxes_and_radio_buttons) {
    // Check box 9 with mark 11, radio buttons 12, 15 and 18 with marks two numbers further.
    for (const uint32_t k : {9U, 12U, 15U, 18U}) {
        make(k, VEL_TYPE_LABEL, 30, 40 + 10 * static_cast<int>(k - 9), 100, 20, 8);
        make(k + 1, VEL_TYPE_LABEL, 32, 43 + 10 * static_cast<int>(k - 9), 14, 14, k);
        make(k + 2, VEL_TYPE_EMPTY, 32, 43 + 10 * static_cast<int>(k - 9), 14, 14, k);
        part(k, k == 9 ? velumo::check_part : velumo::radio_part).group = k == 18 ? 2 : 1;
    }
    velumo::state_of(ctx).traits[12].value = 1;
    velumo::start_parts(ctx);
    const auto state = [this] {
        std::string marks;
        for (const uint32_t k : {9U, 12U, 15U, 18U}) {
            const bool is_on = vel_get_checked(&ctx, k) != 0;
            EXPECT_EQ(objects[k + 2].width, is_on ? 14U : 0U) << k;
            marks += is_on ? '1' : '0';
        }
        return marks;
    };
    const struct {
        const char *name;
        test::Steps steps;
        std::string state;
    } cases[] = {
        {"at first", {}, "0100"},
        {"a click on the box", {click(10)}, "1100"},
        {"pressed, and let go elsewhere", {drag(40, 45, 200, 100)}, "1100"},
        {"a key", {[this] { ctx.cursor_object = 9; }, keys({SDLK_SPACE})}, "0100"},
        {"another group", {click(18)}, "0101"},
        {"the same group", {click(15)}, "0011"},
        {"round the group", {[this] { ctx.cursor_object = 15; }, keys({SDLK_DOWN})}, "0101"},
        {"a radio button stays", {click(12)}, "0101"},
    };
    for (const auto &[name, steps, wanted] : cases) {
        answers_to(steps);
        EXPECT_EQ(state(), wanted) << name;
    }
    EXPECT_EQ(vel_set_checked(&ctx, 15, 1), VEL_OK);
    EXPECT_EQ(state(), "0011");
    EXPECT_EQ(vel_set_checked(&ctx, 8, 1), VEL_ERROR_ARGUMENT);
}

TEST_F(Parts, sliders_and_progress) {
    // 110 pixels between margins of 5, a knob of 10: a pixel for each of 0 to 100.
    make(9, VEL_TYPE_LABEL, 30, 40, 120, 20, 8);
    objects[9].margin_left = objects[9].margin_right = 5;
    make(10, VEL_TYPE_LABEL, 35, 48, 110, 4, 9);
    make(11, VEL_TYPE_LABEL, 35, 40, 10, 20, 9);
    make(12, VEL_TYPE_LABEL, 200, 40, 10, 100, 8); // progress from below, 200 to 300
    make(13, VEL_TYPE_LABEL, 200, 40, 10, 100, 12);
    part(9, velumo::slider_part).step = 5;
    velumo::Traits &progress = part(12, velumo::progress_part);
    progress.least = 200, progress.most = 300, progress.value = 225;
    velumo::start_parts(ctx);
    EXPECT_EQ(objects[13].y, 40U + 75);
    EXPECT_EQ(objects[13].height, 25U);
    const auto focus = [this] { ctx.cursor_object = 9; };
    const struct {
        const char *name;
        test::Steps steps;
        int32_t value;
    } cases[] = {
        {"pressed, at the middle of the knob", {drag(92, 50, 92, 50)}, 50}, // 92 - 5 - 35 = 52
        {"dragged beyond the end", {drag(92, 50, 300, 190)}, 100},
        {"a step back", {focus, keys({SDLK_LEFT})}, 95},
        {"a page back", {keys({SDLK_PAGEDOWN})}, 85},
        {"to the least and beyond", {keys({SDLK_HOME, SDLK_DOWN})}, 0},
    };
    for (const auto &[name, steps, wanted] : cases) {
        answers_to(steps);
        EXPECT_EQ(vel_get_value(&ctx, 9), wanted) << name;
        EXPECT_EQ(objects[11].x, 35U + static_cast<uint32_t>(wanted)) << name;
    }
    EXPECT_EQ(vel_set_value(&ctx, 9, 1000), VEL_OK);
    EXPECT_EQ(vel_get_value(&ctx, 9), 100);
}

TEST_F(Parts, tabs_show_one_page) {
    // Tabs 9: marker 10, tabs 11 and 12, pages 13 with field 15, and 14 with field 16.
    make(9, VEL_TYPE_LABEL, 30, 40, 200, 120, 8);
    make(10, VEL_TYPE_LABEL, 30, 40, 60, 3, 9);
    for (const uint32_t k : {11U, 12U})
        make(k, VEL_TYPE_LABEL, 60 * static_cast<int>(k) - 630, 40, 60, 20, 9);
    for (const uint32_t k : {13U, 14U}) make(k, VEL_TYPE_LABEL, 30, 60, 200, 100, 9);
    for (const uint32_t k : {15U, 16U}) make_field(k, 40, 70, 100, 24, k - 2);
    for (const uint32_t k : {11U, 12U}) vel_set_answer(&ctx, k, VEL_ANSWER_PLAIN);
    part(9, velumo::tabs_part).answer = VEL_ANSWER_NONE;
    velumo::start_parts(ctx);
    const auto shows = [this](uint32_t page) {
        EXPECT_EQ(vel_shown_page(&ctx, 9), page);
        EXPECT_EQ(objects[13].width, page == 0 ? 200U : 0U);
        EXPECT_EQ(objects[14].width, page == 0 ? 0U : 200U);
        EXPECT_EQ(objects[10].x, 30U + 60 * page);
    };
    shows(0);
    ctx.cursor_object = 15;
    EXPECT_EQ(answers_to({click(12)}), std::vector<uint32_t>{9});
    shows(1);
    EXPECT_EQ(ctx.cursor_object, 12U);
    answers_to({keys({SDLK_RIGHT})});
    shows(0);
    answers_to({keys({SDLK_TAB, SDLK_TAB})}); // past the other tab to the field
    EXPECT_EQ(ctx.cursor_object, 15U);
    EXPECT_EQ(vel_show_page(&ctx, 9, 2), VEL_ERROR_ARGUMENT);
    vel_show_page(&ctx, 9, 1);
    shows(1);
}

TEST_F(Parts, a_choice_opens_its_list) {
    // Choice 9 with the menu 17, in which the list 18 has rows 19 to 21.
    make(9, VEL_TYPE_LABEL, 30, 40, 100, 24, 8).max_chars = 17;
    make(17, VEL_TYPE_MENU, 0, 0, 100, 64).hidden = 1;
    make(18, VEL_TYPE_LABEL, 0, 0, 100, 64, 17).text_index = 1;
    for (const uint32_t k : {22U, 23U, 24U}) make(k, VEL_TYPE_EMPTY, 0, 0, 0, 0, 18);
    for (const uint32_t k : {19U, 20U, 21U})
        make(k, VEL_TYPE_LABEL, 2, 2 + 20 * static_cast<int>(k - 19), 96, 20, 18);
    set_text(1, "small\nlarge\nhuge");
    part(18, velumo::list_part).answer = VEL_ANSWER_NONE;
    part(9, velumo::choice_part).value = 1;
    velumo::start_parts(ctx);
    EXPECT_STREQ(objects[9].label, "large");
    const auto focus = [this] { ctx.cursor_object = 9; };
    const auto wait = [] {};
    const struct {
        const char *name;
        test::Steps steps;
        std::string shown;
        std::size_t answers;
    } cases[] = {
        {"by keys", {focus, keys({SDLK_SPACE}), wait, keys({SDLK_DOWN, SDLK_RETURN})}, "huge", 1},
        {"given up", {keys({SDLK_SPACE}), wait, keys({SDLK_UP, SDLK_ESCAPE})}, "huge", 0},
        {"closed", {keys({SDLK_UP})}, "large", 1},
        {"by typing", {keys({SDLK_s})}, "small", 1},
        // The list is right below the field.
        {"by the pointer", {click(9), wait, drag(50, 64 + 30, 50, 64 + 30)}, "large", 1},
        {"pressed elsewhere", {click(9), wait, drag(200, 150, 200, 150)}, "large", 0},
    };
    for (const auto &[name, steps, shown, answers] : cases) {
        EXPECT_EQ(answers_to(steps).size(), answers) << name;
        EXPECT_EQ(objects[9].label, shown) << name;
        EXPECT_EQ(objects[17].hidden, 1U) << name;
    }
    EXPECT_EQ(vel_list_selected(&ctx, 9, 0), 1U);
    EXPECT_EQ(vel_list_count(&ctx, 9), 3U);
    EXPECT_EQ(vel_list_select(&ctx, 9, VEL_NO_ROW), VEL_OK);
    EXPECT_STREQ(objects[9].label, "");
}

} // namespace
