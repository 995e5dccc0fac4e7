// Putting texts into objects and breaking them into lines. Widths are asked of the font.
#include "support.h"

namespace {

using test::Names;

class Format : public test::Form {
protected:
    // The lines of a text, as they are shown.
    Names format(const std::string &text, uint32_t line_width = 100000) {
        make_text(8, text, 200).line_width = line_width;
        const uint32_t last = vel_format_object_text(&ctx, 8);
        EXPECT_TRUE(text.empty() || objects[8].number_of_lines == last);
        Names lines;
        for (uint32_t k = 0; k <= last; ++k) lines.emplace_back(line(1, k));
        return lines;
    }
};

// Separators are kept as they are. A blank that does not fit begins the next line. A word that was
// split is placed once more with the next one, unless a line feed ends it.
TEST_F(Format, words_and_blanks_go_to_the_next_line_where_they_do_not_fit) {
    const uint32_t wide = 9999, m4 = width_of("mmmm");
    using Case = std::tuple<const char *, uint32_t, Names>;
    for (const auto &[text, width, lines] :
         {Case("a\n\nb", wide, {"a", "", "b"}), Case("a  b ", wide, {"a  b "}),
          Case(" \n \n", wide, {" ", " ", ""}), Case("a\t\x84", wide, {"a\t\x84"}),
          Case("one two three", width_of("one two"), {"one two", " three"}),
          Case("one two three", width_of("one two "), {"one two ", "three"}),
          Case("one two three", width_of("one two ") - 1, {"one two", " three"}),
          Case("one two", width_of("one two") - 1, {"one ", "two"}),
          Case("one  one", width_of("one "), {"one ", " one"}),
          Case("i mm", width_of("mm"), {"i ", "mm"}), Case("mmmmmm", m4, {"mmmm", "mm"}),
          Case("mmmmmm i", m4, {"mmmm", "mm m", "mmmm", "mi"}),
          Case("mmmmmm\ni", m4, {"mmmm", "mm", "i"})})
        EXPECT_EQ(format(text, width), lines) << width;
    ctx.umlaut_conversion = 1;
    EXPECT_EQ(format("\x84\x8E"), Names{"\xE4\x8E"});
}

// A line holds 98 characters of words; a blank may be the 99th. A word ends with 70 letters, and
// the 71st is a word of its own.
TEST_F(Format, lines_and_words_have_their_most_characters) {
    const std::string i50(50, 'i'), i70(70, 'i');
    const auto i = [](std::size_t count) { return std::string(count, 'i'); };
    using Case = std::pair<std::string, Names>;
    for (const auto &[text, lines] :
         {Case(i50 + " " + i(47), {i50 + " " + i(47)}), Case(i50 + " " + i(48), {i50 + " ", i(48)}),
          Case(i50 + " " + i(47) + " x", {i50 + " " + i(47) + " ", "x"}),
          Case(i50 + " " + i(47) + "  x", {i50 + " " + i(47) + " ", " x"}),
          Case(i70 + i(28), {i70 + i(28)}), Case(i70 + i(29), {i70, i(29)})})
        EXPECT_EQ(format(text), lines);
    EXPECT_EQ(format(i70 + "i", width_of(i70)), (Names{i70, "i"}));
    const std::string m(70, 'm'), narrow(60, ' '); // 39 of the word's letters fill the line
    EXPECT_EQ(format(narrow + m, width_of(m) - 1), (Names{narrow + m.substr(0, 39), m.substr(39)}));
}

TEST_F(Format, text_ends_with_line_39) {
    std::string feeds;
    for (int k = 0; k < 39; ++k) feeds += "a\n";
    const std::tuple<const char *, uint32_t, uint32_t, const char *, const char *> cases[] = {
        {"z \nlost", 9999, 39, "z ", ""},
        {"mmmmmm", width_of("mmmm"), 39, "mmmm", ""},
        {"mm i", width_of("mm"), 39, "mm", ""},
        // A word that moves on lands in the first line of the next text, with its blank.
        {"mm mmm lost", width_of("mm m"), 40, "mm ", "mmm "}};
    for (const auto &[end, width, last, line39, next_text] : cases) {
        *line(2, 0) = '\0';
        EXPECT_EQ(format(feeds + end, width).size(), last + 1) << end;
        EXPECT_STREQ(line(1, 39), line39);
        EXPECT_STREQ(line(2, 0), next_text) << end;
    }
    EXPECT_EQ(format("m", 1), Names(40)); // a letter that fits nowhere
}

// Columns before 98 are room; on purpose column 99 counts as room, too.
TEST_F(Format, a_word_fits_on_the_line_or_on_the_next_or_is_split) {
    format("mm", width_of("mm mm"));
    using Case = std::tuple<uint32_t, uint32_t, const char *, uint32_t>;
    for (const auto &[at_line, column, word, fit] :
         {Case(0, 2, "mm", 1), Case(0, 2, "mmm", 2), Case(1, 0, "mmmmmm", 3), Case(1, 97, "ii", 2),
          Case(1, 99, "ii", 1)}) {
        const auto length = static_cast<uint32_t>(std::strlen(word));
        EXPECT_EQ(vel_check_line_volume(&ctx, 8, word, &at_line, &column, &length), fit)
            << word << " at " << column;
    }
}

// By the text area where a text is formatted, by the margins where a word is placed.
TEST_F(Format, a_missing_line_width_is_set_once) {
    vel_object &o = make_text(8, "word", 200);
    o.margin_left = 7, o.margin_right = 5;
    vel_format_object_text(&ctx, 8);
    o.width = 100;
    vel_format_object_text(&ctx, 8);
    EXPECT_EQ(o.line_width, 188U);
    o.line_width = 0;
    uint32_t at_line = 3, column = 0, length = 2;
    vel_copy_word_into_line(&ctx, 8, "ab", &at_line, &column, &length, 1);
    EXPECT_EQ(std::tuple(at_line, column, o.line_width), std::tuple(4U, 0U, 88U));
}

TEST_F(Format, captions_are_cut_at_a_line_feed_and_centred) {
    const uint32_t w = width_of("Wg"), h = height();
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t>;
    for (const auto &[type, width, height, result, left, top] :
         {Case(2, w + 10, h, 1, 5, 99), Case(2, w + 3, h, 1, 1, 99), Case(2, w + 2, h, 0, 99, 99),
          Case(2, w + 10, h + 10, 2, 5, 5), Case(2, w - 10, h - 5, 0, 99, 99),
          Case(5, w + 10, h + 10, 3, 99, 99), Case(1, w + 10, h + 10, 0, 99, 99)}) {
        vel_object &o = make(8, type, 0, 0, width, height);
        set_margins(o, 99);
        set_label(o, "Wg\nmore\nlines");
        EXPECT_EQ(vel_format_small_obj(&ctx, 8), result) << type << " " << width - w;
        EXPECT_STREQ(o.label, "Wg");
        EXPECT_EQ(std::tuple(o.margin_left, o.margin_top), std::tuple(left, top)) << result;
    }
}

TEST_F(Format, a_text_replaces_the_lines_of_the_one_before) {
    make_text(8, "a\nb\nc\nd", 200).line_width = 10000;
    vel_format_object_text(&ctx, 8);
    EXPECT_EQ(vel_load_window_text(&ctx, 8, "new\ntext"), 1U);
    EXPECT_STREQ(line(1, 1), "text");
    EXPECT_STREQ(line(1, 2), "");
    vel_load_window_text(&ctx, 8, std::string(2000, 'i').c_str());
    EXPECT_EQ(std::string(texts[1].text), std::string(999, 'i'));
}

TEST_F(Format, buttons_are_centred_with_the_text) {
    make_text(8, "old", 200);
    for (const uint32_t k : {9U, 10U})
        set_label(make(k, VEL_TYPE_LABEL, 0, 0, width_of("Yes") + 10, 5), "Yes\nx");
    EXPECT_EQ(vel_load_window_text_buttons(&ctx, 8, "new", 9, 10), 1U);
    EXPECT_EQ(std::tuple(objects[9].margin_left, objects[10].margin_left), std::tuple(5U, 5U));
    EXPECT_STREQ(line(1, 0), "new");
}

TEST_F(Format, resetting_counts_the_text_and_brings_the_cursor_to_its_start) {
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

TEST_F(Format, labels_are_aligned_right) {
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

TEST_F(Format, streams_are_read_whole_and_end_with_nul) {
    const test::Folder folder;
    const std::string content("a\nb\0c", 5);
    char *stream = vel_read_external_stream(folder.write("s", content).c_str());
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(std::string(stream, content.size() + 1), content + '\0');
    std::free(stream);
    EXPECT_EQ(vel_read_external_stream(folder.file("missing").c_str()), nullptr);
}

} // namespace
