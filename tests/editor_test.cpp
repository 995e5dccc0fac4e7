// The editor: each key on entry fields and on texts, at its limits.
#include "support.h"

#include <algorithm>

namespace {

using test::Form;

class Editor : public Form {
protected:
    // An entry field at x 20, or a text whose lines are as wide as told.
    vel_object &edit_entry(const std::string &label, uint32_t column, uint32_t max_chars = 100) {
        vel_object &o = make(8, VEL_TYPE_ENTRY, 20, 30, 200, 60);
        std::snprintf(o.label, sizeof o.label, "%s", label.c_str());
        o.max_chars = max_chars;
        return start(o, 0, column);
    }
    vel_object &edit_text(const std::string &text, uint32_t index, uint32_t line_width = 10000) {
        vel_object &o = make_text(8, text, 200);
        o.line_width = line_width;
        o.max_chars = 0;
        vel_format_object_text(&ctx, 8);
        ctx.cursor_object = 8;
        texts[1].cursor_index = index;
        vel_get_column_row(&ctx);
        return start(o, o.cursor_line, o.cursor_column);
    }
    vel_object &start(vel_object &o, uint32_t line, uint32_t column) {
        ctx.cursor_object = 8;
        o.scroll_x = o.scroll_y = 0;
        o.cursor_line = line;
        o.cursor_column = column;
        o.cursor_x = o.x;
        o.cursor_y = o.y + line * height();
        return o;
    }
    uint32_t height() const { return static_cast<uint32_t>(TTF_FontHeight(ctx.font)); }
    void key(uint32_t code) {
        ctx.final_key = code;
        ctx.key_printable = 0;
        vel_get_text(&ctx);
        EXPECT_EQ(ctx.final_key, 0U);
    }
    void type(const std::string &characters) {
        for (const char c : characters) {
            ctx.final_key = static_cast<uint8_t>(c);
            ctx.key_printable = 1;
            vel_get_text(&ctx);
        }
    }
    std::string label() const { return objects[8].label; }
    std::string text() const { return texts[1].text; }
    // Line, column and index of the cursor.
    std::array<uint32_t, 3> place() const {
        return {objects[8].cursor_line, objects[8].cursor_column, texts[1].cursor_index};
    }
    using Place = std::array<uint32_t, 3>;
    // Where the cursor stands behind some characters of an unscrolled line.
    uint32_t x_behind(const std::string &characters) const { return 20 + width_of(characters); }
};

TEST_F(Editor, entry_fields_take_64_characters_or_fewer) {
    const std::string many(80, 'i');
    const struct {
        uint32_t max_chars, insert_mode;
        std::size_t length;
    } cases[] = {{10, 0, 10}, {100, 0, 64}, {64, 0, 64}, {0, 0, 0}, {0, 1, 65}, {10, 1, 11}};
    for (const auto &c : cases) {
        edit_entry("", 0, c.max_chars);
        ctx.insert_mode = c.insert_mode;
        type(many);
        // Overwriting begins with an append and then stands behind the last character.
        EXPECT_EQ(label().size(), c.insert_mode == 1 ? c.length - 1 : c.length) << c.max_chars;
    }
}

TEST_F(Editor, keys_change_an_entry_field_at_its_cursor) {
    const struct {
        const char *before;
        uint32_t column, insert_mode, key;
        const char *after;
        uint32_t column_after;
    } cases[] = {
        {"abc", 1, 0, 'x', "axbc", 2},
        {"abc", 3, 0, 'x', "abcx", 4},
        {"abc", 5, 0, 'x', "abc", 5},
        {"abc", 1, 1, 'x', "axc", 2},
        {"abc", 2, 1, 'x', "abxx", 4},
        {"abc", 3, 1, 'x', "abcx", 4},
        {"abc", 0, 0, 8, "abc", 0},
        {"abc", 1, 0, 8, "bc", 0},
        {"abc", 3, 0, 8, "ab", 2},
        {"abc", 4, 0, 8, "abc", 4},
        {"abc", 0, 0, 127, "bc", 0},
        {"abc", 2, 0, 127, "ab", 2},
        {"abc", 3, 0, 127, "abc", 3},
        {"abc", 0, 0, VEL_KEY_LEFT, "abc", 0},
        {"abc", 2, 0, VEL_KEY_LEFT, "abc", 1},
        {"abc", 2, 0, VEL_KEY_RIGHT, "abc", 3},
        {"abc", 3, 0, VEL_KEY_RIGHT, "abc", 3},
        {"abc", 1, 0, VEL_KEY_ENTER, "abc", 1},
        {"abc", 1, 0, VEL_KEY_UP, "abc", 1},
        {"abc", 1, 0, VEL_KEY_DOWN, "abc", 1},
        {"\xE4", 1, 0, 0xDF, "\xE4\xDF", 2},
    };
    for (const auto &c : cases) {
        vel_object &o = edit_entry(c.before, c.column);
        ctx.insert_mode = c.insert_mode;
        if (c.key > 127 || c.key == 'x') {
            type(std::string(1, static_cast<char>(c.key > 255 ? 0 : c.key)));
        }
        if (c.key < 32 || c.key == 127 || c.key > 255) key(c.key);
        EXPECT_EQ(label(), c.after) << c.before << " " << c.column << " key " << c.key;
        EXPECT_EQ(o.cursor_column, c.column_after) << c.before << " " << c.column << " " << c.key;
        EXPECT_EQ(o.cursor_y, o.y);
    }
    key(VEL_KEY_INSERT);
    EXPECT_EQ(ctx.insert_mode, 1U);
    key(VEL_KEY_INSERT);
    EXPECT_EQ(ctx.insert_mode, 0U);
}

TEST_F(Editor, the_cursor_follows_the_characters) {
    vel_object &o = edit_entry("", 0);
    type("Wi");
    EXPECT_EQ(o.cursor_x, x_behind("Wi"));
    key(VEL_KEY_LEFT);
    EXPECT_EQ(o.cursor_x, x_behind("W"));
    key(VEL_KEY_LEFT);
    EXPECT_EQ(o.cursor_x, 20U);
    key(VEL_KEY_RIGHT);
    EXPECT_EQ(o.cursor_x, x_behind("W"));
    key(VEL_KEY_DELETE);
    EXPECT_EQ(o.cursor_x, x_behind("W"));
    key(VEL_KEY_BACKSPACE);
    EXPECT_EQ(o.cursor_x, 20U);
}

TEST_F(Editor, typing_scrolls_at_the_right_edge_and_the_right_key_does_not) {
    vel_object &o = edit_entry(std::string(30, 'W'), 0);
    o.cursor_x = x_behind("WW");
    o.cursor_column = 25; // its place lies far right of the edge, 220
    key(VEL_KEY_RIGHT);
    EXPECT_EQ(o.cursor_column, 26U);
    EXPECT_EQ(o.cursor_x, x_behind("WW"));
    EXPECT_EQ(o.scroll_x, 0U);
    type("W");
    const uint32_t beyond = width_of(std::string(27, 'W')) - width_of("WW");
    EXPECT_EQ(o.cursor_x, x_behind("WW"));
    EXPECT_EQ(o.scroll_x, 0 - beyond);
    // Backspace in a scrolled field scrolls back and leaves the cursor.
    key(VEL_KEY_BACKSPACE);
    EXPECT_EQ(o.scroll_x, width_of(std::string(27, 'W')) - width_of(std::string(26, 'W')) - beyond);
    EXPECT_EQ(o.cursor_x, x_behind("WW"));
    // Left of the edge the text comes back, too.
    o.cursor_column = 2;
    const uint32_t scrolled = o.scroll_x;
    key(VEL_KEY_LEFT);
    EXPECT_EQ(o.cursor_x, x_behind("WW"));
    EXPECT_EQ(o.scroll_x, scrolled + (width_of("WW") - width_of("W") - scrolled));
}

TEST_F(Editor, texts_are_split_and_joined) {
    const struct {
        const char *before;
        uint32_t index, key;
        const char *after;
        Place place;
    } cases[] = {
        {"abcd", 2, VEL_KEY_ENTER, "ab\ncd", {1, 0, 3}},
        {"abcd", 4, VEL_KEY_ENTER, "abcd\n", {1, 0, 5}},
        {"abcd", 0, VEL_KEY_ENTER, "\nabcd", {1, 0, 1}},
        {"ab\ncd\nef", 6, VEL_KEY_BACKSPACE, "ab\ncdef", {1, 2, 5}},
        {"ab\ncd", 0, VEL_KEY_BACKSPACE, "ab\ncd", {0, 0, 0}},
        {"ab\ncd", 4, VEL_KEY_BACKSPACE, "ab\nd", {1, 0, 3}},
        {"ab\ncd", 2, VEL_KEY_DELETE, "abcd", {0, 2, 2}},
        {"ab\ncd", 5, VEL_KEY_DELETE, "ab\ncd", {1, 2, 5}},
        {"ab\ncd", 3, VEL_KEY_DELETE, "ab\nd", {1, 0, 3}},
        {"ab\ncd", 3, VEL_KEY_LEFT, "ab\ncd", {1, 0, 3}},
        {"ab\ncd", 4, VEL_KEY_LEFT, "ab\ncd", {1, 0, 3}},
        {"ab\ncd", 1, VEL_KEY_RIGHT, "ab\ncd", {0, 2, 2}},
        {"ab\ncd", 2, VEL_KEY_RIGHT, "ab\ncd", {1, 0, 3}},
        {"ab\ncd", 5, VEL_KEY_RIGHT, "ab\ncd", {1, 2, 5}},
        {"\nab", 0, VEL_KEY_RIGHT, "\nab", {0, 0, 0}}, // an empty line has no right
        {"abcdefghi\nxyz", 7, VEL_KEY_DOWN, "abcdefghi\nxyz", {1, 2, 12}},
        {"xyz\nabcdefghi", 11, VEL_KEY_UP, "xyz\nabcdefghi", {0, 2, 2}},
        {"\nabc", 3, VEL_KEY_UP, "\nabc", {0, 0, 0}},
        {"abc\nxyz", 1, VEL_KEY_UP, "abc\nxyz", {0, 1, 1}},
        {"abc\nxyz", 5, VEL_KEY_DOWN, "abc\nxyz", {1, 1, 5}},
    };
    for (const auto &c : cases) {
        edit_text(c.before, c.index);
        key(c.key);
        EXPECT_EQ(text(), c.after) << c.before << " " << c.index << " key " << c.key;
        EXPECT_EQ(place(), c.place) << c.before << " " << c.index << " key " << c.key;
        EXPECT_EQ(objects[8].text_length, std::strlen(c.after));
    }
}

TEST_F(Editor, vertical_moves_show_the_cursor_one_character_further_right) {
    vel_object &o = edit_text("Wide\nWide\n\nx", 6);
    key(VEL_KEY_UP);
    EXPECT_EQ(o.cursor_x, x_behind("Wi"));
    EXPECT_EQ(o.cursor_y, 30U);
    key(VEL_KEY_RIGHT); // and the next step makes up for it
    EXPECT_EQ(o.cursor_x, x_behind("Wi"));
    EXPECT_EQ(o.cursor_column, 2U);
    key(VEL_KEY_DOWN);
    EXPECT_EQ(o.cursor_y, 30 + height());
    key(VEL_KEY_DOWN); // onto the empty line
    EXPECT_EQ(o.cursor_x, 20U);
    key(VEL_KEY_DOWN);
    EXPECT_EQ(place(), (Place{3, 0, 11}));
}

TEST_F(Editor, moves_below_and_above_the_area_scroll_by_a_line) {
    vel_object &o = edit_text("a\nb\nc\nd", 0);
    o.height = 2 * height() + 1;
    key(VEL_KEY_DOWN);
    EXPECT_EQ(o.cursor_y, 30 + height());
    EXPECT_EQ(o.scroll_y, 0U);
    key(VEL_KEY_DOWN);
    EXPECT_EQ(o.cursor_y, 30 + height());
    EXPECT_EQ(o.scroll_y, 0 - height());
    key(VEL_KEY_UP); // the line is visible again
    EXPECT_EQ(o.cursor_y, 30U);
    key(VEL_KEY_UP);
    EXPECT_EQ(o.cursor_y, 30U);
    EXPECT_EQ(o.scroll_y, 0U);
}

TEST_F(Editor, texts_end_with_999_characters_and_line_39) {
    std::string lines;
    for (int k = 0; k < 111; ++k) lines += "abcdefgh ";
    ASSERT_EQ(lines.size(), 999U);
    edit_text(lines, 999);
    type("x");
    key(VEL_KEY_ENTER);
    EXPECT_EQ(text(), lines);
    edit_text(lines.substr(0, 998), 998);
    type("xy");
    EXPECT_EQ(text(), lines.substr(0, 998) + "x");
    edit_text(lines.substr(0, 998), 5);
    key(VEL_KEY_ENTER);
    EXPECT_EQ(text().size(), 999U);

    edit_text(std::string(39, '\n') + "z", 40);
    EXPECT_EQ(place(), (Place{39, 1, 40}));
    key(VEL_KEY_ENTER);
    EXPECT_EQ(text(), std::string(39, '\n') + "z");
    edit_text(std::string(38, '\n') + "z", 39);
    key(VEL_KEY_ENTER);
    EXPECT_EQ(place(), (Place{39, 0, 40}));
}

TEST_F(Editor, a_line_that_fills_up_hands_the_cursor_on) {
    // 98 characters of words and blanks; the 99th is a blank and fills the line.
    const std::string line98 = std::string(49, 'i') + " " + std::string(48, 'i');
    vel_object &o = edit_text(line98, 98);
    type(" ");
    EXPECT_EQ(place(), (Place{1, 0, 99}));
    EXPECT_EQ(o.cursor_y, 30 + height());
    type("x");
    EXPECT_EQ(text(), line98 + " x");
    EXPECT_EQ(place(), (Place{1, 1, 100}));
    // A word that grows too long for its line takes the cursor to the next.
    edit_text("mm mm", 5, width_of("mm mmi"));
    type("m");
    EXPECT_EQ(line(1, 1), "mmm");
    EXPECT_EQ(place(), (Place{1, 3, 6}));
}

TEST_F(Editor, overwriting_a_text_ends_it_at_the_column) {
    ctx.insert_mode = 1;
    edit_text("abc", 1);
    type("xy");
    EXPECT_EQ(text(), "axy");
    type("z"); // behind the end: the text ends at the column, here the index
    EXPECT_EQ(text(), "axyz");
    edit_text("abc\nde", 6);
    type("z"); // column 3 of line 1 ends the text behind its third character
    EXPECT_EQ(text(), "abc");
    edit_text("abcdef", 2);
    objects[8].max_chars = 4;
    type("xyz"); // columns 2 and 3 lie below the limit
    EXPECT_EQ(text(), "abxyef");
}

TEST_F(Editor, keys_without_an_editable_object_stay) {
    edit_text("abc", 0);
    for (const uint32_t kind : {VEL_TYPE_LABEL, VEL_TYPE_PICTURE, VEL_TYPE_CHAIN, VEL_TYPE_MENU}) {
        objects[8].type = kind;
        ctx.final_key = 'x';
        ctx.key_printable = 1;
        vel_get_text(&ctx);
        EXPECT_EQ(ctx.final_key, static_cast<uint32_t>('x'));
        EXPECT_EQ(text(), "abc");
    }
    objects[8].type = VEL_TYPE_TEXT;
    for (const uint32_t code : {321U, 4294967207U}) { // Alt and e, Shift and 3
        ctx.final_key = code;
        ctx.key_printable = 1;
        vel_get_text(&ctx);
        EXPECT_EQ(ctx.final_key, 0U);
        EXPECT_EQ(text(), "abc");
    }
}

TEST_F(Editor, mapping_counts_paragraphs_and_not_wrapped_lines) {
    edit_text("mm mm\nx", 0, width_of("mm m"));
    ASSERT_EQ(line(1, 0), "mm ");
    ASSERT_EQ(line(1, 1), "mm");
    const struct {
        uint32_t index, line, column;
    } cases[] = {{0, 0, 0}, {3, 0, 3}, {4, 1, 1}, {5, 1, 2}, {6, 2, 0}, {7, 2, 1}};
    for (const auto &c : cases) {
        texts[1].cursor_index = c.index;
        vel_get_column_row(&ctx);
        EXPECT_EQ(place(), (Place{c.line, c.column, c.index}));
        texts[1].cursor_index = 77;
        vel_get_position_in_stream(&ctx);
        EXPECT_EQ(place(), (Place{c.line, c.column, c.index}));
    }
    objects[8].cursor_line = 1; // the start of a wrapped line is the end of the one before it
    objects[8].cursor_column = 0;
    vel_get_position_in_stream(&ctx);
    EXPECT_EQ(texts[1].cursor_index, 3U);
    objects[8].cursor_column = 50; // nowhere
    vel_get_position_in_stream(&ctx);
    EXPECT_EQ(texts[1].cursor_index, 3U);
}

// A count of lines that no formatting gives must not lead the search through the lines of other
// texts, let alone on for as long as numbers last.
TEST_F(Editor, mapping_ends_behind_line_slot_40) {
    vel_object &o = edit_text("a", 1);
    o.number_of_lines = 0xFFFF;
    for (const auto &[at_line, index] : {std::pair{40U, 1U}, {41U, 1U}, {42U, 7U}}) {
        texts[1].cursor_index = 7;
        o.cursor_line = at_line;
        o.cursor_column = 0;
        vel_get_position_in_stream(&ctx);
        EXPECT_EQ(texts[1].cursor_index, index) << at_line;
    }
}

// Any key at any cursor, also one that a file or a program set wrong, stays inside the memory.
TEST_F(Editor, no_key_leaves_its_text) {
    const uint32_t codes[] = {'x', ' ', 8, 127, 271, 273, 274, 275, 276, 277, 200};
    const std::string fill[] = {"", "abc", std::string(999, 'i'), std::string(999, '\n')};
    for (const std::string &initial : fill) {
        for (const uint32_t wrong : {0U, 3U, 98U, 999U, 1000U, 4000000000U, 0xFFFFFFFFU}) {
            for (const uint32_t mode : {0U, 1U}) {
                for (const uint32_t code : codes) {
                    vel_object &o = edit_text(initial, 0);
                    ctx.insert_mode = mode;
                    texts[1].cursor_index = wrong;
                    o.cursor_column = wrong;
                    o.cursor_line = wrong % 41;
                    for (int times = 0; times < 3; ++times) {
                        ctx.final_key = code;
                        ctx.key_printable = code < 256 ? 1 : 0;
                        vel_get_text(&ctx);
                    }
                    ASSERT_EQ(texts[1].text[999], '\0');
                    ASSERT_EQ(texts[2].first_word, 0U);
                    texts[2] = {};
                }
            }
        }
    }
}

} // namespace
