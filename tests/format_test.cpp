// Breaking texts into lines. Widths are asked of the font.
#include "support.h"

namespace {

using test::Form;

class Format : public Form {
protected:
    uint32_t format(const std::string &text, uint32_t line_width) {
        vel_object &o = make_text(8, text, 200);
        o.line_width = line_width;
        return vel_format_object_text(&ctx, 8);
    }
    std::vector<std::string> lines(uint32_t count, uint32_t text = 1) const {
        std::vector<std::string> found;
        for (uint32_t k = 0; k < count; ++k) found.push_back(line(text, k));
        return found;
    }
    using Lines = std::vector<std::string>;
    static constexpr uint32_t wide = 100000;
};

TEST_F(Format, separators_are_kept_as_they_stand) {
    const struct {
        const char *text;
        Lines lines;
    } cases[] = {
        {"ab cd", {"ab cd"}},
        {"a\n\nb", {"a", "", "b"}},
        {"a  b ", {"a  b "}},
        {"a \nb", {"a ", "b"}},
        {" \n \n", {" ", " ", ""}},
        {"\n", {"", ""}},
        {"tab\tand\rreturn", {"tab\tand\rreturn"}},
    };
    for (const auto &c : cases) {
        const auto count = static_cast<uint32_t>(c.lines.size());
        EXPECT_EQ(format(c.text, wide), count - 1) << c.text;
        EXPECT_EQ(objects[8].number_of_lines, count - 1);
        EXPECT_EQ(lines(count), c.lines);
    }
}

TEST_F(Format, words_and_blanks_go_to_the_next_line_where_they_do_not_fit) {
    EXPECT_EQ(format("one two three", width_of("one two")), 1U);
    EXPECT_EQ(lines(2), (Lines{"one two", " three"})); // the blank did not fit any more
    EXPECT_EQ(format("one two three", width_of("one two ")), 1U);
    EXPECT_EQ(lines(2), (Lines{"one two ", "three"}));
    EXPECT_EQ(format("one two three", width_of("one two ") - 1), 1U);
    EXPECT_EQ(lines(2), (Lines{"one two", " three"}));
}

TEST_F(Format, a_split_word_is_placed_once_more_with_the_next) {
    const uint32_t width = width_of("mmmm");
    EXPECT_EQ(format("mmmmmm", width), 1U);
    EXPECT_EQ(lines(2), (Lines{"mmmm", "mm"}));
    // Behind the blank the word is still in the buffer: it comes again, joined to the next.
    EXPECT_EQ(format("mmmmmm i", width), 3U);
    EXPECT_EQ(lines(4), (Lines{"mmmm", "mm m", "mmmm", "mi"}));
    // A line feed takes it away.
    EXPECT_EQ(format("mmmmmm\ni", width), 2U);
    EXPECT_EQ(lines(3), (Lines{"mmmm", "mm", "i"}));
}

TEST_F(Format, lines_hold_98_characters_of_words_and_99_with_blanks) {
    const std::string word50(50, 'i');
    const auto text = [&](std::size_t second) { return word50 + " " + std::string(second, 'i'); };
    EXPECT_EQ(format(text(47), wide), 0U); // 98 characters
    EXPECT_EQ(line(1, 0), text(47));
    EXPECT_EQ(format(text(48), wide), 1U); // 99: the word goes on
    EXPECT_EQ(lines(2), (Lines{word50 + " ", std::string(48, 'i')}));
    // A blank as the 99th character fills the line, and the 100th starts the next.
    EXPECT_EQ(format(text(47) + " x", wide), 1U);
    EXPECT_EQ(lines(2), (Lines{text(47) + " ", "x"}));
    EXPECT_EQ(format(text(47) + "  x", wide), 1U);
    EXPECT_EQ(lines(2), (Lines{text(47) + " ", " x"}));
}

TEST_F(Format, words_are_cut_behind_70_letters) {
    const std::string word70(70, 'i');
    EXPECT_EQ(format("a " + word70, width_of("a " + word70)), 0U);
    EXPECT_EQ(line(1, 0), "a " + word70);
    // The 71st letter is a word of its own: where only it does not fit, it alone goes on.
    EXPECT_EQ(format(word70 + "i", width_of(word70)), 1U);
    EXPECT_EQ(lines(2), (Lines{word70, "i"}));
    EXPECT_EQ(format(word70 + std::string(29, 'i'), wide), 1U); // 70 + 29 = 99 characters
    EXPECT_EQ(lines(2), (Lines{word70, std::string(29, 'i')}));
    EXPECT_EQ(format(word70 + std::string(28, 'i'), wide), 0U);
}

TEST_F(Format, text_ends_with_line_39) {
    std::string text;
    for (int k = 0; k < 39; ++k) text += "a\n";
    EXPECT_EQ(format(text + "z", wide), 39U);
    EXPECT_EQ(line(1, 39), "z");
    EXPECT_EQ(format(text + "z\nlost", wide), 39U);
    EXPECT_EQ(lines(2, 2), (Lines{"", ""}));
    // A word that moves on from line 39 lands in the first line of the next text.
    EXPECT_EQ(format(text + "mm mmm lost", width_of("mm m")), 40U);
    EXPECT_EQ(line(1, 39), "mm ");
    EXPECT_EQ(line(2, 0), "mmm "); // and the blank that ended it
    EXPECT_EQ(objects[8].number_of_lines, 40U);
    // A split word ends with the lines.
    EXPECT_EQ(format(text + "mmmmmm", width_of("mmmm")), 39U);
    EXPECT_EQ(line(1, 39), "mmmm");
    // A letter that fits nowhere leaves empty lines.
    EXPECT_EQ(format("m", 1), 39U);
    EXPECT_EQ(line(1, 39), "");
}

TEST_F(Format, behind_the_last_buffer_the_word_is_dropped) {
    std::string text;
    for (int k = 0; k < 39; ++k) text += "a\n";
    make_text(8, "", 200).text_index = 4;
    objects[8].line_width = width_of("mm m");
    set_text(4, text + "mm mmm");
    EXPECT_EQ(vel_format_object_text(&ctx, 8), 40U);
    EXPECT_EQ(line(4, 39), "mm ");
}

TEST_F(Format, line_width_is_set_once_from_the_text_area) {
    vel_object &o = make_text(8, "word", 200);
    set_margins(o, 7);
    vel_format_object_text(&ctx, 8);
    EXPECT_EQ(o.line_width, 186U);
    o.width = 100;
    vel_format_object_text(&ctx, 8);
    EXPECT_EQ(o.line_width, 186U);
}

TEST_F(Format, empty_texts_and_other_objects_are_left_alone) {
    EXPECT_EQ(format("a\nb", wide), 1U);
    EXPECT_EQ(format("", wide), 0U);
    EXPECT_EQ(objects[8].number_of_lines, 1U);
    EXPECT_EQ(line(1, 1), "");
    format("text", wide);
    std::strcpy(buffers[1].bytes, "kept");
    for (const auto &[type, text_index] :
         {std::pair{VEL_TYPE_LABEL, 1U}, {VEL_TYPE_CHAIN, 1U}, {VEL_TYPE_TEXT, 0U}}) {
        objects[8].type = type;
        objects[8].text_index = text_index;
        EXPECT_EQ(vel_format_object_text(&ctx, 8), 0U);
        EXPECT_EQ(line(1, 0), "kept");
    }
}

TEST_F(Format, umlauts_are_converted_when_asked_for) {
    const std::string text = "\x84\x94\x81 \x8E\x99\xE1";
    format(text, wide);
    EXPECT_EQ(line(1, 0), text);
    ctx.umlaut_conversion = 1;
    format(text, wide);
    EXPECT_EQ(line(1, 0), "\xE4\xF6\xFC \x8E\x99\xE1");
    EXPECT_EQ(std::string(texts[1].text), text);
}

TEST_F(Format, without_a_font_characters_alone_break_lines) {
    objects[8].font_choice = 1;
    EXPECT_EQ(format(std::string(60, 'm') + " " + std::string(60, 'm'), 1), 1U);
    objects[8].font_choice = 0;
}

TEST_F(Format, fits_are_told_by_characters_and_by_pixels) {
    format("mm", width_of("mm mm"));
    const struct {
        uint32_t line, column, length;
        const char *word;
        uint32_t fit;
    } cases[] = {
        {1, 0, 5, "mm mm", 1}, {0, 2, 2, "mm", 1},  {0, 2, 3, "mmm", 2}, {1, 0, 6, "mmmmmm", 3},
        {1, 97, 1, "i", 1},    {1, 97, 2, "ii", 2}, {1, 99, 2, "ii", 1}, // a column of 99 counts as
                                                                         // room
    };
    for (const auto &c : cases) {
        EXPECT_EQ(vel_check_line_volume(&ctx, 8, c.word, &c.line, &c.column, &c.length), c.fit)
            << c.word << " at " << c.column;
    }
}

TEST_F(Format, a_placed_word_breaks_the_line_when_asked_for) {
    make_text(8, "", 200).line_width = 0;
    set_margins(objects[8], 4);
    uint32_t at_line = 3, column = 0, length = 2;
    EXPECT_EQ(vel_copy_word_into_line(&ctx, 8, "ab", &at_line, &column, &length, 1), 0);
    EXPECT_EQ(std::tuple(at_line, column, length), std::tuple(4U, 0U, 2U));
    EXPECT_EQ(line(1, 3), "ab");
    EXPECT_EQ(objects[8].line_width, 192U);
}

TEST_F(Format, captions_are_cut_at_a_line_feed_and_centred) {
    const uint32_t w = width_of("Wg");
    const auto h = static_cast<uint32_t>(TTF_FontHeight(ctx.font));
    const struct {
        uint32_t type, width, height, result, left, top;
    } cases[] = {
        {VEL_TYPE_LABEL, w + 10, h, 1, 5, 99},        {VEL_TYPE_LABEL, w + 3, h, 1, 1, 99},
        {VEL_TYPE_LABEL, w + 2, h, 0, 99, 99},        {VEL_TYPE_LABEL, w + 2, h + 7, 2, 99, 3},
        {VEL_TYPE_LABEL, w + 10, h + 10, 2, 5, 5},    {VEL_TYPE_LABEL, w - 10, h - 5, 0, 99, 99},
        {VEL_TYPE_ENTRY, w + 10, h + 10, 3, 99, 99},  {VEL_TYPE_NUMBER, w, h, 3, 99, 99},
        {VEL_TYPE_WINDOW, w + 10, h + 10, 0, 99, 99},
    };
    for (const auto &c : cases) {
        vel_object &o = make(8, c.type, 0, 0, c.width, c.height);
        set_margins(o, 99);
        std::strcpy(o.label, "Wg\nmore\nlines");
        EXPECT_EQ(vel_format_small_obj(&ctx, 8), c.result) << c.type << " " << c.width - w;
        EXPECT_STREQ(o.label, "Wg");
        EXPECT_EQ(o.margin_left, c.left);
        EXPECT_EQ(o.margin_top, c.top);
    }
    objects[8].label[0] = '\0';
    EXPECT_EQ(vel_format_small_obj(&ctx, 8), 0U);
}

} // namespace
