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
    Editor() { ctx.cursor_object = 8; }
    vel_object &edit_entry(std::string marked, uint32_t max_chars = 100) {
        vel_object &o = make(8, VEL_TYPE_ENTRY, 20, 30, 200, 60);
        o.cursor_line = 0;
        o.cursor_column = static_cast<uint32_t>(marked.find('|'));
        set_label(o, marked.erase(o.cursor_column, 1));
        o.max_chars = max_chars;
        return start(o);
    }
    vel_object &edit_text(std::string marked, uint32_t line_width = 10000) {
        const std::size_t index = marked.find('|');
        vel_object &o = make_text(8, marked.erase(index, 1), 200);
        o.line_width = line_width;
        o.max_chars = 0;
        vel_format_object_text(&ctx, 8);
        texts[1].cursor_index = static_cast<uint32_t>(index);
        vel_get_column_row(&ctx);
        return start(o);
    }
    vel_object &edit(bool in_text, const std::string &marked) {
        return in_text ? edit_text(marked) : edit_entry(marked);
    }
    vel_object &start(vel_object &o) {
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
    std::string marked(bool in_text) const {
        return in_text ? text().insert(texts[1].cursor_index, "|")
                       : label().insert(objects[8].cursor_column, "|");
    }
    Place place() const {
        return {objects[8].cursor_line, objects[8].cursor_column, texts[1].cursor_index};
    }
};

TEST_F(Editor, entry_fields_take_64_characters_or_fewer) {
    using Case = std::tuple<uint32_t, uint32_t, std::size_t>;
    for (const auto &[max_chars, overwrites, length] :
         {Case(10, 0, 10), Case(100, 0, 64), Case(0, 0, 0), Case(0, 1, 64), Case(10, 1, 10)}) {
        edit_entry("|", max_chars);
        ctx.insert_mode = overwrites;
        type(std::string(80, 'i'));
        EXPECT_EQ(label().size(), length) << max_chars << " " << overwrites;
    }
}

// Before and after. Left stays on its line, and Right does nothing on an empty one.
TEST_F(Editor, keys_change_a_text_at_its_cursor) {
    const std::string i64(64, 'i'), full = "|" + i64 + " > |" + i64; // takes no more
    const std::string feeds(38, '\n'), x48(48, 'x');
    std::string x998 = x48, x999 = x48 + "x";
    for (std::string *text : {&x998, &x999})
        for (int k = 0; k < 19; ++k) text->insert(0, x48 + "x\n");
    enum Where { in_entry, overwriting, in_text, overwriting_text };
    const std::tuple<Where, uint32_t, Names> cases[] = {
        {in_entry, 'x', {"a|bc > ax|bc", "|abc > x|abc", "abc| > abcx|", full}},
        {in_entry, backspace, {"|abc > |abc", "a|bc > |bc", "abc| > ab|"}},
        {in_entry, del, {"|abc > |bc", "ab|c > ab|", "abc| > abc|"}},
        {in_entry, left, {"|abc > |abc", "ab|c > a|bc"}},
        {in_entry, right, {"ab|c > abc|", "abc| > abc|"}},
        {in_entry, enter, {"a|bc > a|bc"}},
        {overwriting, 'x', {"a|bc > ax|c", "ab|c > abxx|", "abc| > abcx|"}},
        {overwriting_text, 'x', {"a|bc > ax|c", "ab| > abx|"}},
        {in_text, 'x', {"abc\n|yz > abc\nx|yz"}},
        {in_text, enter, {"ab|cd > ab\n|cd", "abcd| > abcd\n|", "|abcd > \n|abcd"}},
        {in_text, backspace, {"ab\ncd\n|ef > ab\ncd|ef", "|ab\ncd > |ab\ncd"}},
        {in_text, del, {"ab|\ncd > ab|cd", "ab\ncd| > ab\ncd|", "ab\n|cd > ab\n|d"}},
        {in_text, left, {"ab\n|cd > ab\n|cd", "ab\nc|d > ab\n|cd"}},
        {in_text, right, {"a|b\ncd > ab|\ncd", "ab|\ncd > ab\n|cd", "ab| > ab|", "|\na > |\na"}},
        {in_text, up, {"xyz\nabcde|f > xy|z\nabcdef", "\nab|c > |\nabc", "a|b > a|b"}},
        {in_text, down, {"abcde|f\nxyz > abcdef\nxy|z", "abc\nx|yz > abc\nx|yz"}},
        // A text has 999 characters and 40 lines.
        {in_text, 'x', {x998 + "| > " + x999 + "|", x999 + "| > " + x999 + "|"}},
        {in_text, enter, {"|" + x998 + " > \n|" + x998, feeds + "z| > " + feeds + "z\n|"}},
        {in_text, enter, {feeds + "\nz| > " + feeds + "\nz|"}},
        {in_text, enter, {"\n|\n" + feeds + " > \n|\n" + feeds}},
        {in_text, 'x', {feeds + "\nz| > " + feeds + "\nzx|"}}};
    make(9, VEL_TYPE_WINDOW, 20, 30, 110, 50);
    ctx.active_window = 9;
    for (const auto &[where, code, changes] : cases) {
        for (const std::string &change : changes) {
            const std::string before = change.substr(0, change.find(" > "));
            const vel_object &o = edit(where >= in_text, before);
            if (where % 2 == 1) key(VEL_KEY_INSERT);
            test::updates().clear();
            key(code);
            const std::string after = marked(where >= in_text);
            EXPECT_EQ(before + " > " + after, change) << code;
            const std::size_t start = after.rfind('\n', after.find('|')) + 1;
            EXPECT_EQ(std::tuple(o.cursor_line, o.cursor_column, o.text_length),
                      std::tuple(std::count(after.data(), after.data() + start, '\n'),
                                 after.find('|') - start, after.size() - 1))
                << change;
            EXPECT_EQ(std::tuple(ctx.final_key, ctx.key_printable), std::tuple(0U, 0U));
            EXPECT_EQ(test::updates(), Names{"20,30 110x50"});
            if (where % 2 == 1) key(VEL_KEY_INSERT);
        }
    }
    edit_entry("abc|").cursor_column = 5; // after the end of a field
    type("x");
    EXPECT_EQ(label(), "abc");
}

// What a key does to the cursor on the screen: it goes after some characters of its line, which
// starts at 20 or, where that is hidden at the left, the text is shifted.
TEST_F(Editor, the_cursor_goes_to_its_place_or_the_text_is_shifted) {
    const int none = 0, by_way_on = 1, by_way_back = -1;
    using Case = std::tuple<bool, uint32_t, const char *, int>;
    for (const auto &[in_text, code, shows_after, by] :
         {Case(true, enter, "", by_way_back), Case(true, up, "Wid", by_way_on),
          Case(true, down, "Wid", by_way_on), Case(true, left, "W", by_way_back),
          Case(true, del, "Wi", by_way_back), Case(true, 'm', "Wim", by_way_on),
          Case(true, backspace, "W", none), Case(false, left, "W", by_way_back),
          Case(false, 'm', "Wim", by_way_on)}) {
        for (const int scroll : {0, -1000}) {
            vel_object &o = edit(in_text, in_text ? "Wide\nWi|de\nWide" : "Wi|de");
            o.scroll_x = test::u32(scroll);
            o.cursor_x = 90;
            key(code);
            const uint32_t x = 20 + width_of(shows_after) + test::u32(scroll);
            const bool is_hidden = static_cast<int>(x) <= 19;
            EXPECT_EQ(o.cursor_x, is_hidden ? 90 : x) << code << " scrolled " << scroll;
            EXPECT_EQ(o.scroll_x - test::u32(scroll), is_hidden ? test::u32(by) * (x - 90) : 0);
        }
    }
    edit_text("W|\n\nW").scroll_x = test::u32(-5);
    key(down); // column 0 after a vertical move is at the margin, whatever the scrolling
    EXPECT_EQ(objects[8].cursor_x, 20U);
}

// The cursor goes to 20 and what is shown of the line.
TEST_F(Editor, beyond_the_right_edge_typing_shifts_and_the_right_key_does_not) {
    using Case = std::tuple<uint32_t, int, uint32_t, uint32_t>;
    for (const auto &[code, shown, x, shift] :
         {Case('m', 199, 219, 0), Case('m', 200, 50, 170), Case('m', 201, 50, 171),
          Case(right, 199, 219, 0), Case(right, 200, 50, 0)}) {
        vel_object &o = edit_entry(code == right ? "iii|m" : "iii|");
        const uint32_t scroll = o.scroll_x = test::u32(shown) - width_of("iiim");
        o.cursor_x = 50;
        key(code);
        EXPECT_EQ(std::tuple(o.cursor_x, o.scroll_x), std::tuple(x, scroll - shift)) << shown;
    }
    // Backspace in a field that is scrolled brings the text back, to its start at most.
    for (const auto &[scroll, after] : {std::pair{-100, -70}, {-20, 0}}) {
        vel_object &o = edit_entry("mmm|");
        o.scroll_x = test::u32(scroll);
        const uint32_t x = o.cursor_x = 50 + width_of("mm") + test::u32(scroll);
        key(backspace);
        EXPECT_EQ(std::tuple(o.scroll_x, o.cursor_x), std::tuple(test::u32(after), x)) << scroll;
    }
}

// Lines are 3 pixels apart. A line that is not whole above the lower edge, or begins above the
// upper one, scrolls the text by a line.
TEST_F(Editor, hidden_lines_are_scrolled_to) {
    const uint32_t pitch = height() + 3, room = pitch + height();
    using Case = std::tuple<const char *, uint32_t, uint32_t, int, uint32_t, uint32_t>;
    for (const auto &[text, code, shown, scroll, by, y] :
         {Case("a|b\ncd", down, room, 0, 0, 30 + pitch),
          Case("a|b\ncd", down, room, -5, 0, 25 + pitch),
          Case("a|b\ncd", down, room - 1, 0, 0 - pitch, 77),
          Case("a|b\ncd", enter, room - 1, 0, 0 - pitch, 77),
          Case("ab|\ncd", right, room - 1, 0, 0 - pitch, 77), Case("ab\n|cd", up, room, -1, 0, 29),
          Case("ab\n|cd", up, room, -2, pitch, 77)}) {
        vel_object &o = edit_text(text);
        o.line_spacing = 3;
        o.height = shown;
        o.scroll_y = test::u32(scroll);
        o.cursor_y = 77;
        key(code);
        EXPECT_EQ(std::tuple(o.scroll_y - test::u32(scroll), o.cursor_y), std::tuple(by, y))
            << code << " " << scroll;
    }
}

// By a blank that is the 99th character, or by a word that grows too long for the line.
TEST_F(Editor, a_line_that_fills_up_hands_the_cursor_on) {
    const std::string line98 = std::string(49, 'i') + " " + std::string(48, 'i');
    using Case = std::tuple<std::string, uint32_t, std::string, Place>;
    for (const auto &[before, line_width, typed, after] :
         {Case(line98, 10000, " ", {1, 0, 99}), Case(line98, 10000, " x", {1, 1, 100}),
          Case("mm mm", width_of("mm mmi"), "m", {1, 3, 6})}) {
        const vel_object &o = edit_text(before + "|", line_width);
        type(typed);
        EXPECT_EQ(text(), before + typed);
        EXPECT_EQ(std::tuple(place(), o.cursor_y), std::tuple(after, 30 + height()));
    }
}

// Right looks at the bytes of the line buffer, also of those that an earlier line left after its
// end.
TEST_F(Editor, right_goes_on_over_what_is_left_after_the_end_of_a_line) {
    using Case = std::tuple<uint32_t, uint32_t, uint32_t>;
    for (const auto &[column, line_after, column_after] :
         {Case(2, 1, 0), Case(3, 0, 4), Case(5, 1, 0)}) {
        vel_object &o = edit_text("ab|\ncd");
        std::memcpy(line(1, 0), "ab\0xy", 6);
        o.cursor_column = column;
        key(right);
        EXPECT_EQ(std::tuple(o.cursor_line, o.cursor_column), std::tuple(line_after, column_after));
    }
}

TEST_F(Editor, mapping_counts_paragraphs_and_not_wrapped_lines) {
    edit_text("|mm mm\nx", width_of("mm m"));
    for (const Place &p : {Place{0, 3, 3}, {1, 1, 4}, {1, 2, 5}, {2, 0, 6}, {2, 1, 7}}) {
        texts[1].cursor_index = p[2];
        vel_get_column_row(&ctx);
        EXPECT_EQ(place(), p);
        texts[1].cursor_index = 77;
        vel_get_position_in_stream(&ctx);
        EXPECT_EQ(place(), p);
    }
}

} // namespace
