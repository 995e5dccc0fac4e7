// Breaking texts into lines. Widths are asked of the font.
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

TEST_F(Format, separators_are_kept_as_they_are) {
    using Case = std::pair<const char *, Names>;
    for (const auto &[text, lines] :
         {Case("ab cd", {"ab cd"}), Case("a\n\nb", {"a", "", "b"}), Case("a  b ", {"a  b "}),
          Case("a \nb", {"a ", "b"}), Case(" \n \n", {" ", " ", ""}), Case("\n", {"", ""}),
          Case("tab\tand\rreturn", {"tab\tand\rreturn"})})
        EXPECT_EQ(format(text), lines);
}

// A blank that does not fit begins the next line. A word that was split is placed once more with
// the next one, unless a line feed ends it.
TEST_F(Format, words_and_blanks_go_to_the_next_line_where_they_do_not_fit) {
    const uint32_t m4 = width_of("mmmm");
    using Case = std::tuple<const char *, uint32_t, Names>;
    for (const auto &[text, width, lines] :
         {Case("one two three", width_of("one two"), {"one two", " three"}),
          Case("one two three", width_of("one two "), {"one two ", "three"}),
          Case("one two three", width_of("one two ") - 1, {"one two", " three"}),
          Case("one two", width_of("one two") - 1, {"one ", "two"}),
          Case("one  one", width_of("one "), {"one ", " one"}), Case("mmmmmm", m4, {"mmmm", "mm"}),
          Case("mmmmmm i", m4, {"mmmm", "mm m", "mmmm", "mi"}),
          Case("mmmmmm\ni", m4, {"mmmm", "mm", "i"}),
          Case("mmmmmm \ni", m4, {"mmmm", "mm ", "mmmm", "mmi"})})
        EXPECT_EQ(format(text, width), lines) << width;
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
    EXPECT_EQ(format("a " + i70, width_of("a " + i70)), Names{"a " + i70});
    // Without a font characters alone break lines.
    make_text(8, i(60) + " " + i(60), 200).font_choice = 1;
    EXPECT_EQ(vel_format_object_text(&ctx, 8), 1U);
}

TEST_F(Format, text_ends_with_line_39) {
    std::string feeds;
    for (int k = 0; k < 39; ++k) feeds += "a\n";
    const std::tuple<const char *, uint32_t, uint32_t, const char *, const char *> cases[] = {
        {"z", 9999, 39, "z", ""},
        {"z\nlost", 9999, 39, "z", ""},
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
    // After the last buffer the word is dropped.
    objects[8].text_index = 4;
    objects[8].line_width = width_of("mm m");
    set_text(4, feeds + "mm mmm");
    EXPECT_EQ(vel_format_object_text(&ctx, 8), 40U);
    EXPECT_STREQ(line(4, 39), "mm ");
}

TEST_F(Format, line_width_is_set_once_from_the_text_area) {
    vel_object &o = make_text(8, "word", 200);
    o.margin_left = 7, o.margin_right = 5;
    for (const uint32_t width : {200U, 100U}) {
        o.width = width;
        vel_format_object_text(&ctx, 8);
        EXPECT_EQ(o.line_width, 188U);
    }
}

TEST_F(Format, empty_texts_and_other_objects_are_left_alone) {
    format("a\nb");
    EXPECT_EQ(format(""), Names{""});
    EXPECT_EQ(objects[8].number_of_lines, 1U); // as it was
    EXPECT_STREQ(line(1, 1), "");
    format("text");
    using Case = std::tuple<uint32_t, uint32_t, uint32_t>;
    for (const auto &[type, text_index, result] :
         {Case(2, 1, 0), Case(8, 1, 0), Case(3, 0, 0), Case(1, 1, 1)}) {
        std::strcpy(line(1, 0), "kept");
        set_text(1, "new\ntext");
        objects[8].type = type, objects[8].text_index = text_index;
        EXPECT_EQ(vel_format_object_text(&ctx, 8), result);
        EXPECT_STREQ(line(1, 0), result == 0 ? "kept" : "new") << type;
    }
}

TEST_F(Format, umlauts_are_converted_when_asked_for) {
    const std::string text = "\x84\x94\x81 \x8E\x99\xE1";
    EXPECT_EQ(format(text), Names{text});
    ctx.umlaut_conversion = 1;
    EXPECT_EQ(format(text), Names{"\xE4\xF6\xFC \x8E\x99\xE1"});
    EXPECT_EQ(std::string(texts[1].text), text);
}

// Columns before 98 are room; on purpose column 99 counts as room, too.
TEST_F(Format, single_steps_report_what_they_did) {
    format("mm", width_of("mm mm"));
    using Case = std::tuple<uint32_t, uint32_t, const char *, uint32_t>;
    for (const auto &[at_line, column, word, fit] :
         {Case(1, 0, "mm mm", 1), Case(0, 2, "mm", 1), Case(0, 2, "mmm", 2),
          Case(1, 0, "mmmmmm", 3), Case(1, 97, "i", 1), Case(1, 97, "ii", 2), Case(1, 98, "i", 2),
          Case(1, 99, "ii", 1)}) {
        const auto length = static_cast<uint32_t>(std::strlen(word));
        EXPECT_EQ(vel_check_line_volume(&ctx, 8, word, &at_line, &column, &length), fit)
            << word << " at " << column;
    }
    objects[8].line_width = 0; // then it is what the margins leave
    objects[8].margin_left = 4, objects[8].margin_right = 3;
    uint32_t at_line = 3, column = 0, length = 2;
    EXPECT_EQ(vel_copy_word_into_line(&ctx, 8, "ab", &at_line, &column, &length, 1), 0);
    EXPECT_EQ(std::tuple(at_line, column, objects[8].line_width), std::tuple(4U, 0U, 193U));
}

TEST_F(Format, captions_are_cut_at_a_line_feed_and_centred) {
    const uint32_t w = width_of("Wg"), h = height();
    using Case = std::tuple<uint32_t, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t>;
    for (const auto &[type, width, height, result, left, top] :
         {Case(2, w + 10, h, 1, 5, 99), Case(2, w + 3, h, 1, 1, 99), Case(2, w + 2, h, 0, 99, 99),
          Case(2, w + 2, h + 7, 2, 99, 3), Case(2, w + 10, h + 10, 2, 5, 5),
          Case(2, w - 10, h - 5, 0, 99, 99), Case(5, w + 10, h + 10, 3, 99, 99),
          Case(6, w, h, 3, 99, 99), Case(1, w + 10, h + 10, 0, 99, 99)}) {
        vel_object &o = make(8, type, 0, 0, width, height);
        set_margins(o, 99);
        set_label(o, "Wg\nmore\nlines");
        EXPECT_EQ(vel_format_small_obj(&ctx, 8), result) << type << " " << width - w;
        EXPECT_STREQ(o.label, "Wg");
        EXPECT_EQ(std::tuple(o.margin_left, o.margin_top), std::tuple(left, top)) << result;
    }
    objects[8].label[0] = '\0';
    objects[8].type = VEL_TYPE_ENTRY;
    EXPECT_EQ(vel_format_small_obj(&ctx, 8), 0U);
}

} // namespace
