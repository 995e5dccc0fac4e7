// Comfortable typing: what keys do to caret, selection and text, and what is refused.
#include "support.h"

#include <map>
#include <random>
#include <sstream>

#include "clipboard/clipboard.h"

namespace {

using test::Names;

// Object 8 has the caret, in a field or in a text whose lines take "mm m". In a case a bar is the
// caret and a bracket where selecting began; keys are separated by blanks, and S- and C- are Shift
// and Ctrl.
class Typing : public test::Form {
protected:
    Typing() {
        ctx.comfort = VEL_COMFORT_TYPING;
        ctx.cursor_object = 8;
        make_window(9, 20, 30, 250, 150);
        open(9);
        vel_draw_all_objects(&ctx, 0, 0);
    }
    enum Where { field, lines };

    vel_object &edit(Where where, const std::string &marked) {
        std::string text;
        uint32_t caret = 0, anchor = 0xFFFF;
        for (const char c : marked) {
            if (c == '|' || c == '[')
                (c == '|' ? caret : anchor) = static_cast<uint32_t>(text.size());
            else
                text += c;
        }
        objects[8] = {};
        vel_object &o =
            where == lines ? make_text(8, text, 200) : make(8, VEL_TYPE_ENTRY, 20, 30, 200, 30);
        set_label(o, where == lines ? "" : text);
        o.line_width = width_of("mm m");
        o.max_chars = where == lines ? 0 : 64;
        o.master = 9;
        o.editable = 1;
        objects[9].dep_objs[0] = ctx.cursor_object = 8;
        vel_format_object_text(&ctx, 8);
        EXPECT_EQ(vel_set_selection(&ctx, 8, anchor == 0xFFFF ? caret : anchor, caret), VEL_OK);
        return o;
    }
    std::string text() const {
        return objects[8].type == VEL_TYPE_TEXT ? texts[1].text : objects[8].label;
    }
    std::string marked() const {
        uint32_t anchor = 0, caret = 0;
        EXPECT_EQ(vel_get_selection(&ctx, 8, &anchor, &caret), 8U);
        std::string result = text();
        if (anchor >= caret && anchor != caret) result.insert(anchor, "[");
        result.insert(caret, "|");
        if (anchor < caret) result.insert(anchor, "[");
        return result;
    }
    void keys(const std::string &names) {
        static const std::map<std::string, uint32_t> codes = {
            {"Left", VEL_KEY_LEFT},      {"Right", VEL_KEY_RIGHT},
            {"Up", VEL_KEY_UP},          {"Down", VEL_KEY_DOWN},
            {"Home", VEL_KEY_HOME},      {"End", VEL_KEY_END},
            {"PageUp", VEL_KEY_PAGE_UP}, {"PageDown", VEL_KEY_PAGE_DOWN},
            {"Enter", VEL_KEY_ENTER},    {"Backspace", VEL_KEY_BACKSPACE},
            {"Delete", VEL_KEY_DELETE},  {"Insert", VEL_KEY_INSERT}};
        std::istringstream all(names);
        for (std::string name; all >> name;) {
            uint32_t modifiers = 0;
            for (; name.size() > 2 && name[1] == '-'; name.erase(0, 2))
                modifiers |= name[0] == 'S' ? VEL_KEY_SHIFT : VEL_KEY_CONTROL;
            const bool is_named = codes.count(name) != 0;
            const auto character = static_cast<uint8_t>(name[0] == '_' ? ' ' : name[0]);
            ctx.final_key = modifiers | (is_named ? codes.at(name) : character);
            ctx.key_printable = is_named || modifiers != 0 ? 0 : 1;
            vel_get_text(&ctx);
        }
    }
};

// Lines that are broken between words take "mm m", so "mm " and "mm ". After each key the caret is
// at its character, in sight.
TEST_F(Typing, keys_move_select_and_change) {
    const std::string m30(30, 'm'); // wider than the field
    const std::tuple<Where, const char *, Names> cases[] = {
        {field, "End", {"|" + m30 + " > " + m30 + "|"}},
        {field, "Home", {m30 + "| > |" + m30}},
        {field, "End Home Right x", {"|" + m30 + " > mx|" + m30.substr(1)}},
        {field, "C-Backspace x", {m30 + "| > x|"}},
        {field, "x", {"a|b > ax|b", "| > x|", "a[bc|d > ax|d", "a|bc[d > ax|d", "[abc| > x|"}},
        {field, "Left", {"a|b > |ab", "|ab > |ab", "a[bc|d > a|bcd", "a|bc[d > a|bcd"}},
        {field, "Right", {"a|b > ab|", "ab| > ab|", "a[bc|d > abc|d", "a|bc[d > abc|d"}},
        {field, "S-Left", {"ab| > a|b[", "a[b| > a|b", "|ab > |ab", "a|b[ > |ab["}},
        {field, "S-Right", {"|ab > [a|b", "a|b[ > ab|", "[ab| > [ab|"}},
        {field, "Home", {"ab| > |ab", "a[b| > |ab"}},
        {field, "End", {"a|b > ab|", "|ab[ > ab|"}},
        {field, "S-Home", {"ab| > |ab[", "a[b| > |a[b"}},
        {field, "S-End", {"a|b > a[b|"}},
        {field,
         "C-Left",
         {"ab, cd| > ab, |cd", "ab, |cd > ab|, cd", "ab|, cd > |ab, cd", "  | > |  "}},
        {field,
         "C-Right",
         {"|ab, cd > ab|, cd", "ab|, cd > ab, |cd", "ab, c|d > ab, cd|", "|\xE4 b > \xE4 |b"}},
        {field, "C-S-Right", {"|ab cd > [ab |cd"}},
        {field, "Backspace", {"ab| > a|", "|ab > |ab", "a[b|c > a|c", "a|b[c > a|c"}},
        {field, "S-Backspace", {"ab| > a|"}},
        {field, "C-Backspace", {"ab cd| > ab |", "ab c[d|e > ab c|e"}},
        {field, "Delete", {"|ab > |b", "ab| > ab|", "a[b|c > a|c"}},
        {field, "C-Delete", {"|ab cd > |cd", "ab |cd > ab |"}},
        {field, "C-a", {"a|b > [ab|", "| > |"}},
        {field, "C-a x", {"a|b > x|"}},
        {field, "Insert x Insert", {"a|b > ax|", "ab| > abx|", "[a|bc > x|bc"}},
        {field, "Enter", {"a|b > a|b"}},
        {field, "C-c End C-v", {"[ab|c > abcab|"}},
        {field, "C-x End C-v", {"[ab|c > cab|"}},
        {field, "C-Insert End S-Insert", {"[ab|c > abcab|"}},
        {field, "S-Delete End S-Insert", {"[ab|c > cab|"}},
        {field, "S-Delete", {"a|b > a|b"}},
        {field, "S-Left C-c C-v C-v", {"ab| > abb|"}},
        {field, "x y _ z C-z", {"| > xy |"}},
        {field, "x y _ z C-z C-z", {"| > |", "[ab| > [ab|"}},
        {field, "x Home y C-z", {"a| > |ax"}},
        {field, "Backspace C-z", {"ab| > ab|", "a[b|c > a[b|c", "a|b[c > a|b[c"}},
        {field, "x C-z C-S-z", {"a| > ax|"}},
        {field, "x C-z y C-y", {"a| > ay|"}},
        {field, "C-z", {"a| > a|"}},
        {field, "Insert x y Insert C-z", {"|ab > |ab"}},
        {lines, "x", {"a|b > ax|b", "a[\nb|c > ax|c"}},
        {lines, "Enter", {"a|b > a\n|b", "a[b|c > a\n|c", "ab| > ab\n|"}},
        {lines, "S-Enter", {"a|b > a\n|b"}},
        {lines, "Left", {"a\n|b > a|\nb", "mm |mm > mm| mm"}},
        {lines, "Right", {"a|\nb > a\n|b", "a|b > ab|", "|\na > \n|a", "mm| mm > mm |mm"}},
        {lines,
         "Up",
         {"ab\nc|d > a|b\ncd", "a|b > a|b", "a\nmm| > a|\nmm", "\na| > |\na", "mm mm| > mm| mm"}},
        {lines,
         "Down",
         {"a|b\ncd > ab\nc|d", "ab\nc|d > ab\nc|d", "mm|\na > mm\na|", "|mm mm > mm |mm"}},
        {lines, "Down Down", {"mm|\na\nmm > mm\na\nmm|"}},
        {lines, "Down Home Down", {"mm|\na\nmm > mm\na\n|mm"}},
        {lines, "S-Down", {"a|b\ncd > a[b\nc|d"}},
        {lines, "S-Up", {"ab\nc|d > a|b\nc[d"}},
        {lines, "Home", {"a\nb|c > a\n|bc", "mm m|m > mm |mm"}},
        {lines, "End", {"a\n|bc\nd > a\nbc|\nd", "|mm mm > mm| mm"}},
        {lines, "End x", {"|mmmmmmm > mmmx|mmmm"}},
        {lines, "C-Home", {"a\nb| > |a\nb"}},
        {lines, "C-End", {"|a\nb > a\nb|"}},
        {lines, "C-S-End", {"a|\nb > a[\nb|"}},
        {lines, "C-Left", {"a\n|b > |a\nb"}},
        {lines, "C-Right", {"|a\nb > a\n|b"}},
        {lines, "PageDown", {"|a\nb\nc\nd\ne\nf\ng > a\nb\nc\nd\n|e\nf\ng"}},
        {lines, "PageUp", {"a\nb\nc\nd\ne\nf\n|g > a\nb\n|c\nd\ne\nf\ng"}},
        {lines, "S-PageDown", {"|a\nb > [a\n|b"}},
        {lines, "Backspace", {"a\n|b > a|b", "mm |mm > mm|mm"}},
        {lines, "Delete", {"a|\nb > a|b"}},
        {lines, "C-Backspace", {"a b\n|c > a |c"}},
        {lines, "C-a C-x C-v C-v", {"a|\nb > a\nba\nb|"}},
    };
    for (const auto &[where, pressed, changes] : cases) {
        for (const std::string &change : changes) {
            const std::size_t arrow = change.find(" > ");
            const vel_object &o = edit(where, change.substr(0, arrow));
            keys(pressed);
            EXPECT_EQ(marked(), change.substr(arrow + 3)) << pressed << ": " << change;
            const std::string line = where == lines ? this->line(1, o.cursor_line) : o.label;
            EXPECT_EQ(o.cursor_x, 20 + o.scroll_x + width_of(line.substr(0, o.cursor_column)));
            EXPECT_EQ(o.cursor_y, 30 + o.scroll_y + o.cursor_line * height());
            EXPECT_LE(o.cursor_y + height(), 130U);
            EXPECT_TRUE(o.cursor_x >= 20 && o.cursor_x < 220) << o.cursor_x;
            expect_drawn_afresh();
        }
    }
}

// Back through every state that there was, and forward again; a text that the program changes
// begins again.
TEST_F(Typing, undo_and_redo_come_back_to_every_state) {
    const char *const names[] = {"a",    "_",    "Enter", "Backspace", "Delete", "C-Backspace",
                                 "Left", "S-Up", "Home",  "S-Left",    "End",    "C-Left",
                                 "C-v",  "C-x",  "C-a",   "Insert"};
    std::mt19937 random(1);
    edit(lines, "one two\nthree|");
    for (int round = 0; round < 60; ++round) {
        Names states{text()};
        while (states.size() < 15) {
            keys(names[random() % std::size(names)]);
            if (text() != states.back()) states.push_back(text());
            keys("S-Right S-Left"); // what is typed next is no longer the same word
        }
        for (std::size_t k = states.size(); k-- > 0;) {
            ASSERT_EQ(text(), states[k]);
            if (k != 0) keys("C-z");
        }
        for (const std::string &state : states) {
            ASSERT_EQ(text(), state);
            keys("C-y");
        }
    }
    set_text(1, "other");
    vel_format_object_text(&ctx, 8);
    keys("C-z");
    EXPECT_EQ(text(), "other");
    ctx.insert_mode = 0;
    keys("Home");
    for (int k = 0; k < 300; ++k) keys("i Home");
    for (int k = 0; k < 250; ++k) keys("C-z");
    EXPECT_EQ(text(), std::string(50, 'i') + "other");
}

// What is refused, and that nothing else has changed by it; the caret is in mark colour then.
TEST_F(Typing, limits_hold_and_are_said) {
    const std::string i63(63, 'i'), feeds(38, '\n');
    const std::tuple<Where, std::string, const char *, std::string, uint32_t, uint32_t> cases[] = {
        {field, i63 + "|", "x", i63 + "x|", VEL_REFUSED_CHARACTER, 1},
        {field, i63 + "i|", "x", i63 + "i|", VEL_REFUSED_FULL, 'x'},
        {field, "[" + i63 + "i|", "x", "x|", VEL_REFUSED_CHARACTER, 1},
        {field, i63 + "[i|", "C-c C-v C-v", i63 + "i|", VEL_REFUSED_FULL, 'i'},
        {lines, feeds + "|", "Enter", feeds + "\n|", VEL_REFUSED_CHARACTER, 1},
        {lines, feeds + "\n|", "Enter", feeds + "\n|", VEL_REFUSED_LINES, '\n'},
        {lines, "|\n" + feeds, "Enter", "|\n" + feeds, VEL_REFUSED_LINES, '\n'},
        {lines, feeds + "\nmm |", "m m m", feeds + "\nmm m|", VEL_REFUSED_LINES, 'm'},
        {lines, feeds + "[a\nb|", "C-c C-v C-v", feeds + "a\nba|", VEL_REFUSED_LINES, '\n'},
        {lines, "|" + feeds + "\n\n\nx", "x", "|" + feeds + "\n\n\nx", VEL_REFUSED_LINES, 'x'},
        {lines, "|" + feeds + "\n\nx", "Delete", "|" + feeds.substr(1) + "\n\nx",
         VEL_REFUSED_CHARACTER, 1},
        {lines, "[x|", "C-v", "mm\nm|", VEL_REFUSED_CHARACTER, 0x20AC},
        {field, "[ab|", "Insert", "[ab|", VEL_REFUSED_CHARACTER, 1}};
    for (const auto &[where, before, pressed, after, reason, character] : cases) {
        edit(where, before);
        velumo::offer(ctx, velumo::Board::clipboard, "m\xE2\x82\xACm\r\nm");
        keys("\1"); // a control character is refused before
        keys(pressed);
        uint32_t refused = 0;
        EXPECT_EQ(marked(), after);
        EXPECT_EQ(vel_last_refusal(&ctx, &refused), reason) << pressed << " " << after;
        EXPECT_EQ(refused, character);
        const vel_object &o = objects[8];
        EXPECT_EQ(at(static_cast<int>(o.cursor_x), static_cast<int>(o.cursor_y)), test::green);
    }
}

// The pointer is on the left half of a character, given by its line and column, of a text that is
// scrolled. A second press selects a word and a third a line.
TEST_F(Typing, the_mouse_places_the_caret_and_selects) {
    using Point = std::pair<uint32_t, uint32_t>;
    const std::string ten = "a\nb\nc\nd\ne\nf\ng\nh\nab cd\nj|",
                      i40 = std::string(60, 'i') + "mmm|";
    const std::string to_line_8 = "a\nb\nc\nd\ne\nf\ng\nh\n", i60(60, 'i');
    const std::tuple<Where, std::string, Point, Point, int, std::string> cases[] = {
        {field, "abc|", {0, 1}, {0, 1}, 1, "a|bc"},
        {field, "abc|", {0, 1}, {0, 2}, 1, "a[b|c"},
        {field, "abc|", {0, 2}, {0, 0}, 1, "|ab[c"},
        {field, "|abc", {0, 3}, {0, 3}, 1, "abc|"},
        {field, i40, {0, 61}, {0, 61}, 1, i60 + "m|mm"},
        {field, "ab cd|", {0, 1}, {0, 1}, 2, "[ab| cd"},
        {field, "ab cd|", {0, 4}, {0, 4}, 3, "[ab cd|"},
        {lines, ten, {8, 4}, {8, 4}, 1, to_line_8 + "ab c|d\nj"},
        {lines, ten, {8, 4}, {9, 1}, 1, to_line_8 + "ab c[d\nj|"},
        {lines, ten, {8, 1}, {8, 1}, 2, to_line_8 + "[ab| cd\nj"},
        {lines, ten, {8, 1}, {8, 1}, 3, to_line_8 + "[ab cd|\nj"},
        {lines, "|a\nb", {4, 0}, {4, 0}, 1, "a\n|b"}};
    for (const auto &[where, before, from, to, presses, after] : cases) {
        const vel_object &o = edit(where, before);
        const bool is_text = where == lines;
        const auto x = [&](const Point &p) {
            const std::string line = is_text ? this->line(1, p.first) : o.label;
            return static_cast<int>(20 + o.scroll_x + width_of(line.substr(0, p.second))) + 1;
        };
        const auto y = [&](const Point &p) {
            return static_cast<int>(30 + o.scroll_y + p.first * height()) + 4;
        };
        const int x1 = x(from), y1 = y(from), x2 = x(to), y2 = y(to);
        test::Steps steps{[] { press(300, 190); }, [] { release(300, 190); }}; // ends a series
        for (int k = 0; k < presses; ++k) {
            steps.push_back([=] { press(x1, y1); });
            if (presses == 1) steps.push_back([=] { move_pointer(x2, y2); });
            steps.push_back([=] { release(x2, y2); });
        }
        steps.push_back([] { push_type(SDL_QUIT); });
        set_steps(steps);
        EXPECT_EQ(vel_wait_for_object(&ctx), 0U);
        EXPECT_EQ(marked(), after);
    }
    // Below the text, while the button is held, it scrolls by itself.
    edit(lines, "|a\nb\nc\nd\ne\nf\ng\nh\ni\nj");
    set_steps({[] { press(22, 35); }, [] { move_pointer(22, 131); }, [] {}, [] {}, [] {}, [] {},
               [] { release(22, 131); }, [] { push_type(SDL_QUIT); }});
    vel_wait_for_object(&ctx);
    EXPECT_GT(marked().find('|'), std::string("[a\nb\nc\nd\ne\nf\n").size());
}

// A press as SDL translates it by the layout: its symbol, its modifiers and its character.
TEST_F(Typing, keys_come_from_the_layout) {
    const std::tuple<int, int, int, const char *, uint32_t> cases[] = {
        {SDLK_2, KMOD_SHIFT, '@', "a@|b", 0},
        {SDLK_q, KMOD_MODE, '@', "a@|b", 0},
        {SDLK_q, KMOD_RALT, '@', "a@|b", 0},
        {SDLK_q, KMOD_RALT, 'q', "a|b", 0},
        {SDLK_q, KMOD_LALT, 'q', "a|b", 0},
        {SDLK_z, KMOD_NUM | KMOD_CAPS, 'Z', "aZ|b", 0},
        {0, 0, 0xE9, "a\xE9|b", 0}, // composed
        {SDLK_e, KMOD_MODE, 0x20AC, "a|b", VEL_REFUSED_CHARACTER},
        {SDLK_a, KMOD_CTRL, 1, "[ab|", 0},
        {SDLK_a, KMOD_CTRL, 'a', "[ab|", 0}, // as sdl12-compat gives it
        {SDLK_q, KMOD_CTRL, 17, "a|b", 0},
        {SDLK_ESCAPE, 0, 27, "a|b", 0},
        {SDLK_F5, 0, 0, "a|b", 0},
        {SDLK_KP7, KMOD_NUM, '7', "a7|b", 0},
        {SDLK_KP7, 0, 0, "|ab", 0},
        {SDLK_KP4, KMOD_LSHIFT, 0, "|a[b", 0},
        {SDLK_BACKSPACE, 0, 8, "|b", 0},
        {SDLK_DELETE, 0, 127, "a|", 0},
        {SDLK_7, 0, '7', "a7|b", 0},
        {SDLK_7, KMOD_SHIFT, '/', "a|b", VEL_REFUSED_DIGIT}}; // in a field for digits
    for (const auto &[symbol, modifiers, character, after, reason] : cases) {
        edit(field, "a|b").type = symbol == SDLK_7 ? VEL_TYPE_NUMBER : VEL_TYPE_ENTRY;
        keys("\1");
        SDL_Event &event = ctx.event = {};
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = static_cast<SDLKey>(symbol);
        event.key.keysym.mod = static_cast<SDLMod>(modifiers);
        event.key.keysym.unicode = static_cast<Uint16>(character);
        vel_getfirstkeyinformation(&ctx);
        vel_get_text(&ctx);
        EXPECT_EQ(marked(), after) << symbol;
        uint32_t refused = 0;
        EXPECT_EQ(vel_last_refusal(&ctx, &refused), reason == 0 ? 1U : reason);
        EXPECT_EQ(refused, reason == 0 ? 1U : static_cast<uint32_t>(character));
        const bool is_used = std::string(after) != "a|b" || reason != 0;
        EXPECT_EQ(event.type, is_used ? SDL_NOEVENT : SDL_KEYDOWN) << symbol;
    }
}

// One text over three objects: the caret goes from one to the next, and what is selected shows in
// each and can be copied, but not changed.
TEST_F(Typing, chains_are_selected_over_their_members) {
    char stream[200] = "";
    for (int k = 0; k < 80; ++k) std::strcat(stream, k == 39 ? "mm\n" : "i\n");
    make(20, VEL_TYPE_CHAIN, 0, 0, 10, 10).stream = stream;
    for (const uint32_t k : {21U, 22U, 23U}) {
        vel_object &o = make(k, VEL_TYPE_CHAIN, 100 * static_cast<int>(k) - 2090, 40, 90, 100, 20);
        o.text_index = k - 20;
        o.line_width = 80;
        o.editable = 1;
    }
    ctx.active_window = 0;
    vel_format_stream_to_linked_objects(&ctx, 20);
    EXPECT_EQ(vel_set_selection(&ctx, 20, 78, 78), VEL_OK); // the first of two m in the last line
    ctx.cursor_object = 21;
    objects[21].cursor_line = 39;
    objects[21].cursor_column = 0;
    keys("S-End S-Down S-Home Right x");
    uint32_t anchor = 0, caret = 0;
    EXPECT_EQ(vel_last_refusal(&ctx, &anchor), static_cast<uint32_t>(VEL_REFUSED_READ_ONLY));
    EXPECT_EQ(vel_get_selection(&ctx, 22, &anchor, &caret), 20U);
    EXPECT_EQ(std::tuple(ctx.cursor_object, objects[22].cursor_line, anchor, caret),
              std::tuple(22U, 0U, 81U, 81U));
    keys("S-Up C-c");
    for (const uint32_t asked : {0U, 20U, 21U}) {
        EXPECT_EQ(vel_get_selection(&ctx, asked, &anchor, &caret), 20U);
        EXPECT_EQ(std::tuple(ctx.cursor_object, anchor, caret), std::tuple(21U, 81U, 78U));
    }
    edit(field, "|");
    keys("C-v");
    EXPECT_EQ(marked(), "mm|"); // a field takes no line feed
}

// A dot for each character, in equal room, and none of them reaches the clipboard.
TEST_F(Typing, passwords_stay_secret) {
    edit(field, "[copied|");
    keys("C-c");
    const vel_object &o = edit(field, "|Wi  m");
    EXPECT_EQ(vel_set_password(&ctx, 8, 1), VEL_OK);
    keys("C-Right C-a C-c");
    EXPECT_EQ(vel_last_refusal(&ctx, nullptr), static_cast<uint32_t>(VEL_REFUSED_SECRET));
    keys("C-x Right");
    const int room = static_cast<int>(height() / 2);
    EXPECT_EQ(o.cursor_x, 20 + 5 * (height() / 2));
    for (int k = 0; k < 6; ++k) {
        const bool is_dot = at(20 + k * room + room / 2, 30 + room) == test::blue;
        EXPECT_EQ(is_dot, k < 5) << k;
        EXPECT_EQ(at(20 + k * room, 30 + room) == test::red, k != 5); // there is the caret
    }
    EXPECT_EQ(vel_set_password(&ctx, 8, 0), VEL_OK);
    keys("C-a C-v");
    EXPECT_EQ(marked(), "copied|");
}

} // namespace
