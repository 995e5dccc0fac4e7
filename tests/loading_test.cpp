// Putting texts into objects and resetting them.
#include "support.h"

namespace {

class Loading : public test::Form {};

TEST_F(Loading, a_text_replaces_the_lines_of_the_one_before) {
    make_text(8, "a\nb\nc\nd", 200).line_width = 10000;
    vel_format_object_text(&ctx, 8);
    EXPECT_EQ(vel_load_window_text(&ctx, 8, "new\ntext"), 1U);
    EXPECT_STREQ(line(1, 1), "text");
    EXPECT_STREQ(line(1, 2), "");
    vel_load_window_text(&ctx, 8, std::string(2000, 'i').c_str());
    EXPECT_EQ(std::string(texts[1].text), std::string(999, 'i'));
}

TEST_F(Loading, buttons_are_centred_with_the_text) {
    make_text(8, "old", 200);
    for (const uint32_t k : {9, 10})
        set_label(make(k, VEL_TYPE_LABEL, 0, 0, width_of("Yes") + 10, 5), "Yes\nx");
    EXPECT_EQ(vel_load_window_text_buttons(&ctx, 8, "new", 9, 10), 1U);
    EXPECT_EQ(std::tuple(objects[9].margin_left, objects[10].margin_left), std::tuple(5U, 5U));
    EXPECT_STREQ(line(1, 0), "new");
}

TEST_F(Loading, resetting_counts_the_text_and_brings_the_cursor_to_its_start) {
    ctx.text_bufs = nullptr; // that takes texts and no line buffers
    using Case = std::array<uint32_t, 3>;
    for (const auto &[mode, length, index] : {Case{0, 5, 9}, {1, 3, 0}, {2, 77, 9}}) {
        vel_object &o = make_text(8, "abc", 200);
        set_label(o, "label");
        o.margin_left = 4, o.margin_top = 6;
        o.text_length = 77;
        o.cursor_line = o.cursor_column = o.cursor_x = o.cursor_y = 50;
        texts[1].cursor_index = 9;
        vel_reset_textobject(&ctx, mode, 8);
        EXPECT_EQ(std::tuple(o.text_length, texts[1].cursor_index), std::tuple(length, index));
        EXPECT_EQ(std::tuple(o.cursor_line, o.cursor_column, o.cursor_x, o.cursor_y),
                  std::tuple(0U, 0U, 24U, 36U));
    }
}

TEST_F(Loading, labels_are_aligned_right) {
    const std::string widest = std::string(66, '0') + "x";
    using Case = std::tuple<const char *, uint32_t, const char *, uint32_t, uint32_t>;
    for (const auto &[label, field, filled, result, length] :
         {Case("12", 5, "00012", 5, 5), Case("123", 3, "123", 3, 77),
          Case("1234", 3, "1234", 4, 77), Case("", 5, "", 0, 77),
          Case("x", 67, widest.c_str(), 67, 67), Case("12", 68, "12", 0, 77)}) {
        vel_object &o = make(8, VEL_TYPE_NUMBER, 0, 0, 50, 20);
        o.text_length = 77;
        set_label(o, label);
        EXPECT_EQ(vel_fill_form_with_dummies(&ctx, o.label, 8, field, '0'), result);
        EXPECT_STREQ(o.label, filled);
        EXPECT_EQ(o.text_length, length) << label;
    }
}

TEST_F(Loading, streams_are_read_whole) {
    const test::Folder folder;
    const std::string content("a\nb\0c", 5);
    char *stream = vel_read_external_stream(folder.write("s", content).c_str());
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(std::string(stream, content.size()), content);
    std::free(stream);
    EXPECT_EQ(vel_read_external_stream(folder.file("missing").c_str()), nullptr);
}

} // namespace
