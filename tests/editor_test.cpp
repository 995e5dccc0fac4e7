// The editor: each key on entry fields and on texts, at its limits.
#include "support.h"

namespace {

using test::Names;
using Place = std::array<uint32_t, 3>; // line, column and index

constexpr uint32_t enter = VEL_KEY_ENTER, up = VEL_KEY_UP, down = VEL_KEY_DOWN,
                   right = VEL_KEY_RIGHT, left = VEL_KEY_LEFT, backspace = VEL_KEY_BACKSPACE,
                   del = VEL_KEY_DELETE;

// Object 8 has the cursor. It is at 20, 30, its text without margins. In the texts of the cases
// a bar is the cursor.
class Editor : public test::Form {
protected:
    vel_object &edit_entry(std::string marked, uint32_t max_chars = 100) {
        vel_object &o = make(8, VEL_TYPE_ENTRY, 20, 30, 200, 60);
        const std::size_t column = marked.find('|');
        set_label(o, marked.erase(column, 1));
        o.max_chars = max_chars;
        o.cursor_line = 0;
        o.cursor_column = static_cast<uint32_t>(column);
        return start(o);
    }
    vel_object &edit_text(std::string marked, uint32_t line_width = 10000) {
        const std::size_t index = marked.find('|');
        vel_object &o = make_text(8, marked.erase(index, 1), 200);
        o.line_width = line_width;
        o.max_chars = 0;
        vel_format_object_text(&ctx, 8);
        ctx.cursor_object = 8;
        texts[1].cursor_index = static_cast<uint32_t>(index);
        vel_get_column_row(&ctx);
        return start(o);
    }
    vel_object &start(vel_object &o) {
        ctx.cursor_object = 8;
        o.scroll_x = o.scroll_y = 0;
        o.cursor_x = o.x;
        o.cursor_y = o.y + o.cursor_line * height();
        return o;
    }
    void key(uint32_t code) {
        ctx.final_key = code;
        ctx.key_printable = code < 256 && code != backspace && code != del ? 1 : 0;
        vel_get_text(&ctx);
    }
    void type(const std::string &characters) {
        for (const char c : characters) key(static_cast<uint8_t>(c));
    }
    std::string label() const { return objects[8].label; }
    std::string text() const { return texts[1].text; }
    std::string marked_label() const { return label().insert(objects[8].cursor_column, "|"); }
    std::string marked_text() const { return text().insert(texts[1].cursor_index, "|"); }
    Place place() const {
        return {objects[8].cursor_line, objects[8].cursor_column, texts[1].cursor_index};
    }
    uint32_t x_after(const std::string &characters) const { return 20 + width_of(characters); }
};

TEST_F(Editor, entry_fields_take_64_characters_or_fewer) {
    using Case = std::tuple<uint32_t, uint32_t, std::size_t>;
    for (const auto &[max_chars, overwrites, length] :
         {Case(10, 0, 10), Case(100, 0, 64), Case(64, 0, 64), Case(0, 0, 0), Case(1, 0, 1),
          Case(0, 1, 64), Case(10, 1, 10), Case(1, 1, 1), Case(100, 1, 64)}) {
        edit_entry("|", max_chars);
        ctx.insert_mode = overwrites;
        type(std::string(80, 'i'));
        EXPECT_EQ(label().size(), length) << max_chars << " " << overwrites;
        objects[8].cursor_column = 0; // a full field takes nothing at its start either
        ctx.insert_mode = 0;
        type("x");
        EXPECT_EQ(label().size(), length);
    }
}

// Before and after. Left stays on its line, and Right does nothing on an empty one.
TEST_F(Editor, keys_change_a_text_at_its_cursor) {
    const std::pair<uint32_t, Names>
        in_entries[] = {{'x', {"a|bc > ax|bc", "|abc > x|abc", "abc| > abcx|"}},
                        {backspace, {"|abc > |abc", "a|bc > |bc", "abc| > ab|"}},
                        {del, {"|abc > |bc", "ab|c > ab|", "abc| > abc|"}},
                        {left, {"|abc > |abc", "ab|c > a|bc"}},
                        {right, {"ab|c > abc|", "abc| > abc|"}},
                        {enter, {"a|bc > a|bc"}},
                        {up, {"a|bc > a|bc"}},
                        {down, {"a|bc > a|bc"}},
                        {0xDF, {"\xE4| > \xE4\xDF|"}},
                        {321, {"a|bc > a|bc"}},
                        {0xFFFFFFA7, {"a|bc > a|bc"}}},
        overwriting{'x', {"a|bc > ax|c", "ab|c > abxx|", "abc| > abcx|"}},
        in_texts[] = {
            {'x', {"abc\n|yz > abc\nx|yz"}},
            {enter, {"ab|cd > ab\n|cd", "abcd| > abcd\n|", "|abcd > \n|abcd"}},
            {backspace, {"ab\ncd\n|ef > ab\ncd|ef", "|ab\ncd > |ab\ncd", "ab\nc|d > ab\n|d"}},
            {del, {"ab|\ncd > ab|cd", "ab\ncd| > ab\ncd|", "ab\n|cd > ab\n|d"}},
            {left, {"ab\n|cd > ab\n|cd", "ab\nc|d > ab\n|cd"}},
            {right,
             {"|ab\ncd > a|b\ncd", "a|b\ncd > ab|\ncd", "ab|\ncd > ab\n|cd", "ab\ncd| > ab\ncd|",
              "|\nab > |\nab"}},
            {up, {"xyz\nabcdefg|hi > xy|z\nabcdefghi", "\nab|c > |\nabc", "a|bc\nxyz > a|bc\nxyz"}},
            {down, {"abcdefg|hi\nxyz > abcdefghi\nxy|z", "abc\nx|yz > abc\nx|yz"}}};
    const auto check = [this](const auto &cases, bool in_text) {
        for (const std::string &c : cases.second) {
            const std::string before = c.substr(0, c.find(" > "));
            in_text ? edit_text(before) : edit_entry(before);
            key(cases.first);
            const std::string after = in_text ? marked_text() : marked_label();
            EXPECT_EQ(before + " > " + after, c) << cases.first;
            const std::size_t start = after.rfind('\n', after.find('|')) + 1;
            const vel_object &o = objects[8];
            EXPECT_EQ(std::tuple(o.cursor_line, o.cursor_column, o.text_length),
                      std::tuple(std::count(after.data(), after.data() + start, '\n'),
                                 after.find('|') - start, after.size() - 1))
                << c;
            EXPECT_EQ(std::tuple(ctx.final_key, ctx.key_printable), std::tuple(0U, 0U));
        }
    };
    for (const auto &c : in_entries) check(c, false);
    for (const auto &c : in_texts) check(c, true);
    key(VEL_KEY_INSERT);
    check(overwriting, false);
    key(VEL_KEY_INSERT);
    EXPECT_EQ(ctx.insert_mode, 0U);
    for (const auto &[code, column] : {std::pair{'x' + 0U, 5U}, {backspace, 4U}}) { // after its end
        edit_entry("abc|").cursor_column = column;
        key(code);
        EXPECT_EQ(label(), "abc");
    }
}

// What a key does to the cursor on the screen: it goes after some characters of its line, which
// starts at 20 or, where that is hidden at the left, the text is shifted.
TEST_F(Editor, the_cursor_goes_to_its_place_or_the_text_is_shifted) {
    enum Shift { none, by_way_back, by_way_on };
    using Case = std::tuple<bool, uint32_t, const char *, Shift>;
    for (const auto &[in_text, code, shows_after, by] :
         {Case(true, enter, "", by_way_back), Case(true, up, "Wid", by_way_on),
          Case(true, down, "Wid", by_way_on), Case(true, left, "W", by_way_back),
          Case(true, del, "Wi", by_way_back), Case(true, 'm', "Wim", by_way_on),
          Case(true, backspace, "W", none), Case(false, left, "W", by_way_back),
          Case(false, del, "Wi", by_way_back), Case(false, 'm', "Wim", by_way_on)}) {
        for (const int scroll : {0, -1000, -40}) {
            SCOPED_TRACE(std::to_string(code) + " scrolled " + std::to_string(scroll));
            vel_object &o = in_text ? edit_text("Wide\nWi|de\nWide") : edit_entry("Wi|de");
            o.scroll_x = test::u32(scroll);
            o.cursor_x = 90;
            key(code);
            const uint32_t x = x_after(shows_after) + test::u32(scroll);
            const bool is_hidden = static_cast<int>(x) <= 19;
            const uint32_t shift = by == none ? 0 : by == by_way_on ? x - 90 : 90 - x;
            EXPECT_EQ(o.cursor_x, is_hidden ? 90 : x);
            EXPECT_EQ(o.scroll_x, test::u32(scroll) + (is_hidden ? shift : 0));
        }
    }
    // Column 0 after a vertical move is at the margin, whatever the scrolling.
    vel_object &o = edit_text("W|\n\nW");
    o.scroll_x = test::u32(-5);
    key(down);
    EXPECT_EQ(o.cursor_x, 20U);
}

TEST_F(Editor, beyond_the_right_edge_typing_shifts_and_the_right_key_does_not) {
    for (const auto &[shown, is_beyond] : {std::pair{199, false}, {200, true}, {201, true}}) {
        vel_object &o = edit_entry("iii|");
        o.scroll_x = test::u32(shown) - width_of("iiim"); // the cursor goes to 20 + shown
        const uint32_t scroll = o.scroll_x;
        o.cursor_x = 50;
        type("m");
        EXPECT_EQ(o.cursor_x, is_beyond ? 50 : 219U) << shown;
        EXPECT_EQ(o.scroll_x, scroll - (is_beyond ? test::u32(shown) - 30 : 0));
        o.scroll_x = scroll;
        o.cursor_x = 50;
        o.cursor_column = 3;
        key(right);
        EXPECT_EQ(std::tuple(o.cursor_x, o.scroll_x, o.cursor_column),
                  std::tuple(is_beyond ? 50 : 219U, scroll, 4U));
    }
    // Backspace in a field that is scrolled brings the text back, to its start at most.
    for (const auto &[scroll, after] : {std::pair{-100, -70}, {-20, 0}}) {
        vel_object &o = edit_entry("mmm|");
        o.scroll_x = test::u32(scroll);
        o.cursor_x = 20 + width_of("mm") + test::u32(scroll) + 30;
        const uint32_t x = o.cursor_x;
        key(backspace);
        EXPECT_EQ(std::tuple(o.scroll_x, o.cursor_x), std::tuple(test::u32(after), x)) << scroll;
    }
}

// Lines are 3 pixels apart. A line that is not whole above the lower edge, or begins above the
// upper one, scrolls the text by a line.
TEST_F(Editor, hidden_lines_are_scrolled_to) {
    const uint32_t pitch = height() + 3;
    const auto scroll_and_y = [&](const char *text, uint32_t code, uint32_t room, int scroll) {
        vel_object &o = edit_text(text);
        o.line_spacing = 3;
        o.height = room;
        o.scroll_y = test::u32(scroll);
        o.cursor_y = 77;
        key(code);
        return std::pair(o.scroll_y - test::u32(scroll), o.cursor_y);
    };
    for (const auto &[text, code] : {std::pair{"a|b\ncd", down},
                                     {"a|b\ncd", enter},
                                     {"ab|\ncd", right},
                                     {"ab\n|cd", del},
                                     {"ab\nc|d", backspace}}) {
        const uint32_t room = pitch + height();
        EXPECT_EQ(scroll_and_y(text, code, room, 0), std::pair(0U, 30 + pitch)) << code;
        EXPECT_EQ(scroll_and_y(text, code, room - 1, 0), std::pair(0 - pitch, 77U)) << code;
        EXPECT_EQ(scroll_and_y(text, code, room, -5), std::pair(0U, 25 + pitch)) << code;
    }
    EXPECT_EQ(scroll_and_y("ab\n|cd", up, 100, -1), std::pair(0U, 29U));
    EXPECT_EQ(scroll_and_y("ab\n|cd", up, 100, -2), std::pair(pitch, 77U));
}

TEST_F(Editor, texts_end_with_999_characters_and_line_39) {
    std::string full, feeds(38, '\n');
    for (int k = 0; k < 111; ++k) full += "abcdefgh ";
    const std::string room = full.substr(0, 998);
    using Case = std::tuple<std::string, uint32_t, std::string>;
    for (const auto &[before, code, after] :
         {Case(full + "|", 'x', full + "|"), Case(full + "|", enter, full + "|"),
          Case(room + "|", 'x', room + "x|"), Case("|" + room, enter, "\n|" + room),
          Case(feeds + "\nz|", enter, feeds + "\nz|"), Case(feeds + "\nz|", 'y', feeds + "\nzy|"),
          Case(feeds + "z|", enter, feeds + "z\n|"),
          Case("\n|\n" + feeds, enter, "\n|\n" + feeds)}) {
        edit_text(before);
        key(code);
        EXPECT_EQ(marked_text(), after);
    }
}

TEST_F(Editor, a_line_that_fills_up_hands_the_cursor_on) {
    // 98 characters of words and blanks; the 99th is a blank and fills the line.
    const std::string line98 = std::string(49, 'i') + " " + std::string(48, 'i');
    vel_object &o = edit_text(line98 + "|");
    type(" ");
    EXPECT_EQ(place(), (Place{1, 0, 99}));
    EXPECT_EQ(o.cursor_y, 30 + height());
    type("x");
    EXPECT_EQ(text(), line98 + " x");
    EXPECT_EQ(place(), (Place{1, 1, 100}));
    // A word that grows too long for its line takes the cursor to the next.
    edit_text("mm mm|", width_of("mm mmi"));
    type("m");
    EXPECT_STREQ(line(1, 1), "mmm");
    EXPECT_EQ(place(), (Place{1, 3, 6}));
    EXPECT_EQ(objects[8].cursor_y, 30 + height());
}

// On line 1 below, column 3 ends the text after its third character.
TEST_F(Editor, overwriting_a_text_ends_it_at_the_column) {
    ctx.insert_mode = 1;
    using Case = std::tuple<const char *, uint32_t, const char *, const char *>;
    for (const auto &[before, max_chars, typed, after] :
         {Case("a|bc", 0, "xy", "axy"), Case("abc|", 0, "z", "abcz"),
          Case("abc\nde|", 0, "z", "abc"), Case("ab|cdef", 4, "xyz", "abxyef")}) {
        edit_text(before).max_chars = max_chars;
        type(typed);
        EXPECT_EQ(text(), after);
    }
}

TEST_F(Editor, keys_need_an_editable_object_and_characters_to_be_printable) {
    using Case = std::pair<uint32_t, bool>;
    for (const auto &[kind, is_edited] :
         {Case(VEL_TYPE_LABEL, false), Case(VEL_TYPE_PICTURE, false), Case(VEL_TYPE_CHAIN, false),
          Case(VEL_TYPE_MENU, false), Case(VEL_TYPE_TEXT, true), Case(VEL_TYPE_WINDOW, true)}) {
        edit_text("|abc").type = kind;
        ctx.key_printable = 1;
        ctx.final_key = 'x';
        vel_get_text(&ctx);
        EXPECT_EQ(std::pair(ctx.final_key, text()), is_edited
                                                        ? std::pair(0U, std::string("xabc"))
                                                        : std::pair('x' + 0U, std::string("abc")));
        ctx.final_key = 'x';
        vel_get_text(&ctx);
        EXPECT_EQ(text(), is_edited ? "xabc" : "abc"); // it is printable no more
    }
}

// Right looks at the bytes of the line buffer, also of those that an earlier line left after its
// end.
TEST_F(Editor, right_goes_on_over_what_is_left_after_the_end_of_a_line) {
    using Case = std::tuple<uint32_t, uint32_t, uint32_t>;
    for (const auto &[column, line_after, column_after] :
         {Case(1, 0, 2), Case(2, 1, 0), Case(3, 0, 4), Case(4, 0, 5), Case(5, 1, 0)}) {
        vel_object &o = edit_text("ab|\ncd");
        std::memcpy(line(1, 0), "ab\0xy", 6);
        o.cursor_column = column;
        key(right);
        EXPECT_EQ(std::tuple(o.cursor_line, o.cursor_column), std::tuple(line_after, column_after))
            << column;
    }
}

TEST_F(Editor, each_key_draws_the_active_window_and_shows_it) {
    make(9, VEL_TYPE_WINDOW, 20, 30, 110, 50);
    make_field(8, 25, 35, 100, 20, 9).cursor_y = 36;
    ctx.active_window = 9;
    ctx.cursor_object = 8;
    key('x');
    EXPECT_EQ(test::updates(), Names{"20,30 110x50"});
    EXPECT_NE(pixels(test::blue), "");
}

TEST_F(Editor, mapping_counts_paragraphs_and_not_wrapped_lines) {
    vel_object &o = edit_text("|mm mm\nx", width_of("mm m"));
    ASSERT_STREQ(line(1, 0), "mm ");
    for (const Place &p : {Place{0, 0, 0}, {0, 3, 3}, {1, 1, 4}, {1, 2, 5}, {2, 0, 6}, {2, 1, 7}}) {
        texts[1].cursor_index = p[2];
        vel_get_column_row(&ctx);
        EXPECT_EQ(place(), p);
        texts[1].cursor_index = 77;
        vel_get_position_in_stream(&ctx);
        EXPECT_EQ(place(), p);
    }
    // The start of a wrapped line is the end of the one before it, and column 50 is nowhere. A
    // count of lines that no formatting gives leads to slot 40 and no further.
    for (const auto &[lines, at_line, column, index] :
         {std::tuple{2U, 1U, 0U, 3U}, {2U, 1U, 50U, 77U}, {0xFFFFU, 42U, 0U, 77U}}) {
        o.number_of_lines = lines;
        o.cursor_line = at_line;
        o.cursor_column = column;
        texts[1].cursor_index = 77;
        vel_get_position_in_stream(&ctx);
        EXPECT_EQ(texts[1].cursor_index, index) << at_line << " " << column;
    }
}

} // namespace
