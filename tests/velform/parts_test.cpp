// What a kind becomes: the objects that it is made of, and what the library reads of them.
#include "forms.h"

namespace {

using test::Compiled;
using test::expect_words;

std::string part(const std::string &kind, const std::string &keys) {
    return "[[object]]\nkind = '" + kind + "'\n" + keys + "\n";
}

TEST(Parts, are_made_of_objects_at_the_places_of_their_first_values) {
    const std::string rows = "rows = ['a', 'b']\n", area = "rect = [10, 20, 200, 92]\n";
    const std::string columns = "columns = [{ title = 'T', width = 50, align = 'left' }, "
                                "{ align = 'right', picture = 16 }]\n";
    expect_words({
        // A box of 14 pixels, in the middle of 24; the mark is inside its outline.
        {part("check", "rect = [10, 20, 100, 24]\nlabel = 'W'\nchecked = true"),
         "8.type=2 8.label=W 9.master=8 9.x=15 9.y=25 9.width=14 9.height=14 10.x=16 10.y=26 "
         "10.width=12 10.height=12"},
        {"[styles.s]\ntype = 'entry'\n" + part("check", "style = 's'"), "8.type=2"},
        {part("radio", "rect = [10, 20, 100, 24]"), "9.master=8 10.master=8 10.width=0"},
        // Of 110 pixels, margins take 10 and the knob 10; the value is 3/4 of the way.
        {part("slider", "rect = [10, 20, 110, 28]\nmin = -10\nmax = 30\nvalue = 20"),
         "9.x=15 9.width=100 10.x=82 10.width=10 10.y=24 10.height=20"},
        {part("slider", "rect = [0, 0, 28, 110]\nvalue = 100"), "10.x=5 10.y=4 10.height=10"},
        {part("slider", "rect = [0, 0, 28, 110]\nvalue = 0"), "10.y=96"},
        {part("progress", "rect = [0, 0, 104, 18]\nvalue = 25"), "9.x=2 9.width=25 9.height=14"},
        {part("progress", "rect = [0, 0, 18, 104]\nvalue = 25"), "9.x=2 9.y=77 9.height=25"},
        // Sample, no head, bar with its thumb, and rows as high as 22 in 88 pixels.
        {part("list", area + rows),
         "8.text_index=1 8.dep_objs=9 8.dep_objs.1=10 8.dep_objs.2=11 8.dep_objs.3=13 "
         "8.dep_objs.6=16 8.dep_objs.7=0 9.width=0 10.type=0 10.width=0 11.x=194 11.width=14 "
         "12.master=11 13.x=12 13.y=22 13.width=182 13.height=22 13.label=a 16.y=88 16.height=22"},
        // Head and its titles, then rows of two cells and a picture.
        {part("list", area + columns + "rows = [\"x\\ty\"]"),
         "10.type=2 11.label=T 12.master=10 15.y=44 16.label=x 16.width=50 17.x=62 17.width=132 "
         "17.label=y 18.type=4 18.width=0 18.master=17 19.master=8 8.dep_objs.5=23 8.dep_objs.6=0"},
        {part("choice", "id = 'c'\nvalue = 1\nwidth = 90\n" + rows) + "[[object]]\ntype = 'empty'",
         "8.label=b 8.max_chars=15 9.master=8 14.type=0 15.type=7 15.master=0 15.hidden=1 "
         "15.width=90 15.dep_objs=16 16.text_index=1 21.label=a 22.label=b"},
        {part("tabs", "rect = [10, 20, 300, 200]\nvalue = 1\npages = [{ title = 'One', "
                      "objects = [{ type = 'label', x = 1 }] }, { title = 'Two' }]"),
         "8.dep_objs=9 8.dep_objs.1=10 8.dep_objs.2=11 8.dep_objs.3=12 8.dep_objs.4=14 9.x=69 "
         "9.width=60 9.height=3 10.label=One 11.x=69 11.label=Two 12.width=299 13.master=12 "
         "13.x=11 14.width=299"},
        {"[[window]]\nkind = 'whole'\nobjects = [{ type = 'label', tip = 'T' }]",
         "8.type=2 8.x=0 8.y=0 8.hidden=0 9.master=8 10.type=2 10.master=0 10.hidden=1"},
    });
    const Compiled c(part("choice", "id = 'c'") + part("check", "id = 'd'"));
    EXPECT_NE(c.header.find("F_C = 8,\n    F_D = 14,\n    F_C_LIST = 26,\n}"), std::string::npos)
        << c.header;
}

TEST(Parts, are_known_to_the_library_by_what_follows_the_records) {
    const std::string radio = "{ kind = 'radio' }", blue = "{ kind = 'radio', group = 'b' }";
    const std::pair<std::string, std::vector<const char *>> cases[] = {
        {part("check", "checked = true\ntip = 'key=x'"),
         {"8 answer part=1 align=1 value=1 tip=key=x", "19 part=9 align=1"}},
        {"[[window]]\nobjects = [" + radio + ", " + blue + ", " + radio +
             ", { type = 'empty', objects = [" + blue + ", " + radio + "] }]\n",
         {"9 answer part=2 group=1 ", "28 answer part=2 group=2 ", "47 answer part=2 group=1 ",
          "67 answer part=2 group=2 ", "86 answer part=2 group=3 "}},
        {part("list", "many = true\nrect = [0, 0, 90, 26]") +
             part("scroll_bar", "for = 't'\nanchor = 'right top  bottom'") +
             "[[object]]\nid = 't'\ntype = 'chain'\n",
         {"8 answer many part=3", "11 part=4 target=8", "14 part=4 target=16 anchor=14"}},
        {part("choice", "rows = ['a']"), {"8 answer part=5 align=1 value=0", "15 part=3\n"}},
        {part("choice", ""), {"8 answer part=5 align=1 value=-1"}},
        {part("slider", "min = 5\nstep = 2"), {"8 answer part=6 min=5 step=2 value=5"}},
        {part("progress", "endless = true"), {"8 endless part=7"}},
        {part("tabs", "page = [{ key = 'A' }]"), {"8 part=8", "10 answer key=a"}},
        {"[[window]]\nkind = 'whole'\nanchor = 'left'", {"8 part=10 anchor=1\n"}},
        {part("button", "label = 'x'") + part("caption", "border = 'shadow'"), {"8 answer\n"}},
    };
    for (const auto &[source, lines] : cases) {
        const Compiled c(source);
        std::string traits;
        const std::uint32_t first = c.word(1, test::place_of("text_index"));
        for (std::uint32_t k = first; k <= c.texts.size() / sizeof(vel_text_rec); ++k) {
            traits += c.text(k) + '\n';
        }
        for (const std::string line : lines) {
            EXPECT_NE(traits.find('\n' + line), std::string::npos) << line << " in\n" << traits;
        }
        EXPECT_TRUE(c.is_good) << c.messages;
    }
}

} // namespace
