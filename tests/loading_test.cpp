// Putting texts into objects and resetting them.
#include "support.h"

#include <cstdlib>
#include <sys/stat.h>

namespace {

using test::Form;

class Loading : public Form {};

TEST_F(Loading, a_text_replaces_the_lines_of_the_one_before) {
    make_text(8, "a\nb\nc\nd", 200).line_width = 10000;
    vel_format_object_text(&ctx, 8);
    texts[1].cursor_index = 3;
    EXPECT_EQ(vel_load_window_text(&ctx, 8, "new\ntext"), 1U);
    EXPECT_EQ(line(1, 1), "text");
    EXPECT_EQ(line(1, 2), "");
    EXPECT_EQ(texts[1].cursor_index, 3U);
    EXPECT_EQ(vel_load_window_text(&ctx, 8, std::string(2000, 'i').c_str()), 13U);
    EXPECT_EQ(std::string(texts[1].text),
              std::string(999, 'i')); // 14 words of 70; the rest, 19, fits behind the last
    EXPECT_EQ(vel_load_window_text(&ctx, 8, ""), 0U);
    EXPECT_EQ(line(1, 0), "");
}

TEST_F(Loading, buttons_are_centred_with_the_text) {
    make_text(8, "old", 200);
    make(9, VEL_TYPE_LABEL, 0, 0, width_of("Ja") + 10, 5);
    make(10, VEL_TYPE_LABEL, 0, 0, width_of("Nein"), 5);
    std::strcpy(objects[9].label, "Ja\nx");
    std::strcpy(objects[10].label, "Nein");
    EXPECT_EQ(vel_load_window_text_buttons(&ctx, 8, "new", 10, 9), 1U);
    EXPECT_EQ(objects[9].margin_left, 5U);
    EXPECT_EQ(vel_load_window_text_buttons(&ctx, 8, "new", 9, 10), 0U);
    EXPECT_EQ(line(1, 0), "new");
}

TEST_F(Loading, resetting_counts_the_text_and_brings_the_cursor_to_its_start) {
    const struct { uint32_t mode, length, index; } cases[] = {{0, 5, 9}, {1, 3, 0}, {2, 77, 9}};
    for (const auto &c : cases) {
        vel_object &o = make_text(8, "abc", 200);
        std::strcpy(o.label, "label");
        o.margin_left = 4, o.margin_top = 6;
        o.text_length = 77;
        o.cursor_line = o.cursor_column = o.cursor_x = o.cursor_y = 50;
        texts[1].cursor_index = 9;
        vel_reset_textobject(&ctx, c.mode, 8);
        EXPECT_EQ(o.text_length, c.length) << c.mode;
        EXPECT_EQ(texts[1].cursor_index, c.index);
        EXPECT_EQ(std::tuple(o.cursor_line, o.cursor_column), std::tuple(0U, 0U));
        EXPECT_EQ(std::tuple(o.cursor_x, o.cursor_y), std::tuple(24U, 36U));
    }
}

TEST_F(Loading, resetting_needs_texts_and_no_line_buffers) {
    vel_object &o = make_text(8, "abc", 200);
    texts[1].cursor_index = 9;
    ctx.text_bufs = nullptr;
    vel_reset_textobject(&ctx, 1, 8);
    EXPECT_EQ(std::pair(o.text_length, texts[1].cursor_index), std::pair(3U, 0U));
    EXPECT_EQ(vel_load_window_text(&ctx, 8, "new"), 0U); // the text is there, lines are not
    EXPECT_STREQ(texts[1].text, "new");
}

TEST_F(Loading, labels_are_aligned_right) {
    const struct {
        const char *label;
        uint32_t field;
        const char *filled;
        uint32_t result;
    } cases[] = {{"12", 5, "00012", 5}, {"123", 3, "123", 3}, {"1234", 3, "1234", 4},
                 {"", 5, "", 0},        {"12", 68, "12", 0},  {"abcdef", 7, "0abcdef", 7}};
    for (const auto &c : cases) {
        vel_object &o = make(8, VEL_TYPE_NUMBER, 0, 0, 50, 20);
        o.text_length = 77;
        std::strcpy(o.label, c.label);
        EXPECT_EQ(vel_fill_form_with_dummies(&ctx, o.label, 8, c.field, '0'), c.result);
        EXPECT_STREQ(o.label, c.filled);
        EXPECT_EQ(o.text_length, c.result == c.field && c.field != 3 ? c.field : 77U);
    }
}

TEST_F(Loading, streams_are_read_whole) {
    const test::Folder folder;
    const std::string content("a\nb\0c", 5);
    char *stream = vel_read_external_stream(folder.write("s", content).c_str());
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(std::string(stream, 5), content);
    std::free(stream);
    stream = vel_read_external_stream(folder.write("empty", "").c_str());
    EXPECT_NE(stream, nullptr);
    std::free(stream);
    EXPECT_EQ(vel_read_external_stream(folder.file("missing").c_str()), nullptr);
}

} // namespace
