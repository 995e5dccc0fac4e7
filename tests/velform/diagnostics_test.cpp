// What is refused, and where the message points.
#include "forms.h"

#include "base/quoted_line.h"

namespace {

using test::Compiled;

// The source, the line and column of the message, and what it says.
using Fault = std::array<std::string, 3>;

// Returns the first line with the beginning and its line feed, or nothing.
std::string line_with(const std::string &messages, const std::string &begins) {
    std::istringstream lines(messages);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(begins)) return line + '\n';
    }
    return {};
}

void expect_messages(const std::vector<Fault> &faults, const std::string &severity = "error") {
    for (const auto &[source, place, names] : faults) {
        SCOPED_TRACE(source.substr(0, 200));
        const Compiled c(source);
        const std::string line = line_with(c.messages, "f:" + place + ": " + severity + ": ");
        EXPECT_NE(line, "") << place << " is not in:\n" << c.messages.substr(0, 1000);
        EXPECT_NE(line.find(names), std::string::npos) << line;
        EXPECT_EQ(c.is_good, severity == "warning");
    }
}

std::string repeated(const std::string &part, int times) {
    std::string result;
    for (int k = 0; k < times; ++k) result += part;
    return result;
}

const std::string area = "rect = [20, 30, 9, 9]\n";
std::string label(const std::string &keys) {
    return "[[object]]\ntype = 'label'\n" + area + keys + '\n';
}
std::string part(const std::string &kind, const std::string &keys) {
    return "[[object]]\nkind = '" + kind + "'\n" + keys + '\n';
}
std::string dialog(const std::string &keys) { return "[[file_dialog]]\nid = 'd'\n" + keys + '\n'; }

TEST(Faults, point_at_the_place_and_say_what_is_wrong) {
    expect_messages({
        {label("  fill = 3"), "4:10", "a colour"},
        {label("fill = 'red'"), "4:8", "six hexadecimal digits"},
        {label("y = 9223372036854775807"), "4:5",
         "from -32768 to 32767, not 9223372036854775807\n"},
        {label("x = nan"), "4:5", "a number with a fraction"},
        {label("hidden = 'yes'"), "4:10", "true or false"},
        {label("clip = true"), "4:8", "\"margins\""},
        {label("label = 5"), "4:9", "a string in quotes"},
        {label("label = '5 €'"), "4:9", "'€' (U+20AC)"},
        {label("label = \"\\u0000\""), "4:9", "U+0000"},
        {label("label = \"a\\nb\""), "4:9", "line feed"},
        {label("label = '" + repeated("ä", 68) + "'"), "4:9", "68 characters"},
        {label("font_file = '" + repeated("ä", 34) + "'"), "4:13", "68 bytes"},
        {label("margin = [1, 2]"), "4:10", "[left, right, top, bottom]"},
        {label("margin = [1, 2, -3, 4]"), "4:17", "`margin_top`"},
        {label("id = 'ä'"), "4:6", "a letter"},
        {"[[window]]\ntext = '" + std::string(1000, 'x') + "'", "2:8", "999"},
        {"[[object]]\ntype = 'entry'\nlabel = '" + std::string(65, 'x') + "'", "3:9", "at most 64"},
        {"[frame]\npictures = '" + std::string(52, 'x') + "'", "2:12", "51 bytes"},
        {"prefix = 'a-b'", "1:10", "prefix"},
        {dialog("rows = 101"), "3:8", "`rows` must be a whole number from 1 to 100, not"},
        {dialog("rect = [20, 30, 300, 203]"), "3:22", "at least 204"},
        {"a = \n[[x]", "1:5", "a value is missing"},
        {"a = 'x\nb = 1", "1:7", "the string is not closed"},
        {"a = 'x\x01'", "1:7", "a control character in a string"},
        {"a = { b = 1,\n}", "1:13", "must be on one line"},
        {"a = [1", "1:7", "the list is not closed"},
        {"a = yes", "1:5", "a string is in quotes"},
        {"\"\\u001b[1m\\u0085\\n\\u202E ä€\" = 1", "1:1",
         "no key '\\x1b[1m\\u0085\\n\\u202e ä€'\n"},
        {std::string(2000, 'k') + " = 1", "1:1", "k ... k"},
        {label("id = '" + std::string(256, 'x') + "'"), "4:6", "at most 255 characters"},
        {label("wdt = 1"), "4:1", "has no key 'wdt'\n"},
        {label("lable = 'x'"), "4:1", "did you mean 'label'?"},
        {label("text = 'x'"), "4:8", "`label`"},
        {label("font_choice = 'own'"), "4:15", "font_file"},
        {label("style = 'no'"), "4:9", "'no'"},
        {label("objects = 3"), "4:11", "a list of tables"},
        {label("objects = [3]"), "4:12", "a table"},
        {label("id = 'a'") + label("id = 'a'"), "8:6", "see line 4"},
        {"[[window]]\nid = 'a'\ntext = ''\n[[window]]\nid = 'a_text'", "5:6", "F_A_TEXT"},
        {"[[object]]\nx = 1", "1:1", "has no type"},
        {"[[object]]\ntype = 'picture'", "1:1", "no file"},
        {"[window]", "1:1", "[[window]]"},
        {"[[window]]\nx = 32000\n[[window.window]]\nx = 768", "4:5", "32768"},
        {"[[window]]\n" + repeated("[[window.window]]\n", 101), "102:1", "at most 100"},
        {label("menu = 'mm'\n[[object]]\nid = 'm'\ntype = 'menu'"), "4:8",
         "no object 'mm'; did you mean 'm'?"},
        {label("id = 'a'\nmenu = 'a'"), "5:8", "'a' is no menu but a label"},
        {"[[file_dialog]]", "1:1", "an `id`"},
        {dialog("[[object]]\nid = 'd_ok'\ntype = 'empty'"), "4:6", "see line 2"},
        {"[styles.a]\nid = 'x'", "2:1", "'id'"},
        {"[styles.a]\nstyle = 'b'\n[styles.b]\nstyle = 'a'", "4:9", "includes itself"},
        {"[[object]]\ntype = 'chain'\n[[object.object]]\ntype = 'chain'\ntext = 't'", "5:8",
         "from its head"},
        {label("key = 'sh'"), "4:7", "one letter from A to Z or one digit"},
        {label("default = true\ncancel = true"), "5:10", "not both"},
        {"[[window]]\nobjects = [\n{ type = 'label', default = true },\n"
         "{ type = 'picture', picture = 'p', default = true },\n]",
         "4:46", "see line 3"},
        {"theme = 'drak'", "1:9", "did you mean 'dark'?"},
        {"[[object]]\nkind = 'chek'", "2:8", "did you mean 'check'?"},
        {"[[object]]\nkind = 'check'\ntype = 'entry'", "3:8", "a check is a label"},
        {"[[object]]\nkind = 'check'\nrows = []", "3:1", "`rows` means nothing for a check"},
        {"[[object]]\nkind = 'list'\nlabel = 'x'", "3:1", "`label` means nothing for a list"},
        {label("max = 5"), "4:1", "`max` means nothing without a `kind`"},
        {"[[window]]\nkind = 'check'", "2:8", "put it into `objects`"},
        {"[[object]]\nkind = 'whole'", "2:8", "only a window at the top level"},
        {"[[window]]\nkind = 'whole'\nx = 1", "3:5", "begins at 0, 0"},
        {part("list", "columns = [{ titel = 'x' }]"), "3:14", "did you mean 'title'?"},
        {part("list", "columns = [{ width = 9000 }]"), "3:22", "from 8 to 4000"},
        {part("list", "columns = [{ width = 300 }, {}]"), "1:1", "at least 326 pixels wide"},
        {part("list", "height = 25"), "3:10", "at least 26 pixels high"},
        {part("list", "rows = [\"a\\tb\"]"), "3:8", "has 2 cells"},
        {part("list", "rows = ['" + std::string(500, 'x') + "', '" + std::string(499, 'x') + "']"),
         "3:513", "more than 999 characters"},
        {part("choice", "rows = ['a']\nvalue = 1"), "4:9", "one of the 1 rows"},
        {part("slider", "min = 5\nmax = 5"), "4:7", "more than `min`"},
        {part("slider", "value = 101"), "3:9", "from `min` to `max`"},
        {part("slider", "step = 0"), "3:8", "at least 1"},
        {part("scroll_bar", ""), "2:8", "needs the `id`"},
        {part("scroll_bar", "for = 'x'"), "3:7", "no object 'x'"},
        {label("id = 'x'") + part("scroll_bar", "for = 'x'"), "7:7", "'x' is a label"},
        {part("radio", "checked = true") + part("radio", "checked = true"), "4:1", "see line 1"},
        {part("tabs", ""), "2:8", "needs `pages`"},
        {part("tabs", "pages = [{}, {}, {}]\nwidth = 47"), "4:9", "at least 48 pixels wide"},
        {part("tabs", "pages = [{}]\nvalue = 1"), "4:9", "one of the 1 pages"},
        {label("anchor = 'left botom'"), "4:10", "did you mean 'bottom'?"},
        {label("align = 'middle'"), "4:9", "\"centre\", \"left\", \"right\""},
        {"[frame.move]\ntype = 'text'\n" + label("focus = true"), "1:1", "first frame button"},
    });
}

TEST(Warnings, say_what_will_not_show_and_let_the_form_pass) {
    const std::string window = "[[window]]\n" + area;
    const std::string chain = "[[object]]\ntype = 'chain'\n" + area;
    const std::vector<Fault> warnings{
        {"[[object]]\ntype = 'entry'\nrect = [0, 0, 9, 9]\nmax_chars = 100", "4:13", "at most 64"},
        {label("picture = 'p'"), "4:11", "nothing for a label"},
        {dialog("x = 10"), "3:5", "`x` 11"},
        {label("border = 'frame'\nlabel = 'x'"), "4:10", "shadow"},
        {"[[object]]\ntype = 'text'\n" + area, "2:8", "top level"},
        {"[[object]]\ntype = 'label'\nheight = 1", "1:1", "no width"},
        {"[[window]]\nrect = [10, 25, 9, 9]", "2:9", "`x` 11"},
        {"[[window]]\nrect = [11, 24, 9, 9]", "2:13", "`y` 25"},
        {window + "[[window.window]]\n" + area + "hidden = true", "5:10", "starts visible"},
        {window + "[[window.object]]\ntype = 'chain'\n" + area, "4:8", "head"},
        {chain + "[[object.object]]\ntype = 'menu'\n" + area, "5:8", "is no chain"},
        {label("password = true"), "4:12", "nothing for a label"},
        {label("key = 'a'") + label("key = 'A'"), "8:7", "see line 4"},
        {"[frame.close]\nkey = 'a'", "2:7", "nothing for a frame button"},
    };
    expect_messages(warnings, "warning");
}

TEST(Warnings, and_faults_are_not_given_without_reason) {
    const std::string window = "[[window]]\nrect = [11, 25, 1, 1]\n";
    const std::string deep = repeated("[.", 100);
    const std::string sources[] = {
        window + "objects = [{ type = 'text', border = 'fitted' }]",
        window + "objects = [{ type = 'menu', rect = [0, 0, 1, 1], hidden = true }]",
        "[styles.s]\npicture = 'p'\n" + label("style = 's'"),
        "[[object]]\ntype = 'picture'\npicture = 'p'",
        "[[object]]\ntype = 'empty'",
        // Brackets in strings and comments are not deep.
        "# " + deep,
        window + "text = \"\\\"" + deep + "\"",
        window + "text = '''\n'" + deep + "'''",
        "prefix = 'a' # '" + deep,
        // Each window has answers and keys of its own.
        window + "objects = [{ style = 's' }]\n" + window + "objects = [{ style = 's' }]\n" +
            "[styles.s]\ntype = 'label'\nrect = [0, 0, 1, 1]\ndefault = true\nkey = 'a'",
    };
    for (const std::string &source : sources) EXPECT_EQ(Compiled(source).messages, "") << source;
}

TEST(Faults, are_all_reported_in_the_order_of_the_source) {
    const Compiled c("[[object]]\ntype = 'empty'\nwidth = 'a'\n[styles.s]\nx = true\n"
                     "[[window]]\nid = 1\nrect = [11, 25, 9, 9]\n[frame]\nq = 1");
    std::istringstream lines(c.messages);
    std::string places;
    for (std::string line; std::getline(lines, line);) places += line.substr(0, 7) + ' ';
    EXPECT_EQ(places, "f:3:9:  f:5:5:  f:7:6:  f:10:1: ");
}

TEST(Faults, of_a_style_that_is_not_there_are_the_only_ones) {
    for (const std::string object :
         {"[[object]]\nlabel = 'x'\nstyle = 'no'", "[[object]]\ntext = 'x'\nstyle = 'no'",
          "[[window]]\ntext = 'x'\nstyle = 'no'", "[[object]]\nkind = 'list'\nstyle = 'no'",
          "[styles.a]\nfill = '#000000'\nstyle = 'no'\n[[object]]\nstyle = 'a'"}) {
        const Compiled c(object);
        EXPECT_EQ(c.messages, "f:3:9: error: there is no style 'no'\n") << object;
    }
}

TEST(Faults, beyond_the_first_hundred_are_counted) {
    const Compiled c(repeated(label("fill = 1\npicture = 'p'"), 150));
    EXPECT_EQ(std::count(c.messages.begin(), c.messages.end(), '\n'), 202);
    EXPECT_TRUE(c.messages.ends_with("f: 50 more errors\nf: 50 more warnings\n")) << c.messages;
    EXPECT_NE(line_with(c.messages, "f:499:8: error: "), "") << "the 100th";
}

TEST(Faults, of_hostile_sources_are_errors_like_others) {
    std::string styles;
    for (int k = 0; k < 2000; ++k) {
        styles += "[styles.s" + std::to_string(k) + "]\nstyle = 's" + std::to_string(k + 1) + "'\n";
    }
    expect_messages({
        {"a" + repeated(".a", 100000) + " = 1", "1:64", "nested too deeply"},
        {"x = \"\\\"\"\ny = '''\n'''" + repeated("[", 70), "3:68", "nested too deeply"},
        {styles, "32:9", "more than 16"},
        {std::string("\0\0", 2), "1:1", ""},
        // The dialog is 108 objects, the frame buttons are 7, and each radio button is 19.
        {"[[file_dialog]]\nid='a'\nrows=100\n" + repeated("[[object]]\nkind='radio'\n", 3448),
         "1:1", "at most 65536 objects"},
    });
}

TEST(Findings, quote_their_line_with_a_mark) {
    const std::string long_line = repeated("1234567890", 20);
    struct Case {
        std::string source;
        std::uint32_t line, column;
        std::string quoted;
    };
    const Case cases[] = {
        {"a\n\tbc = 1\r\nd", 2, 4, "     2 |  bc = 1\n       |    ^\n"},
        {"\xC3\xA4 = \x1b", 1, 5, "     1 | \xC3\xA4 = \\x1b\n       |     ^\n"},
        {"a = ", 1, 9, "     1 | a = \n       |     ^\n"},
        {long_line, 1, 101,
         "     1 | " + repeated("1234567890", 10) + "\n       | " + repeated(" ", 60) + "^\n"},
        {"a", 2, 1, ""},
        {"a", 1, 0, ""},
    };
    for (const auto &[source, line, column, quoted] : cases) {
        EXPECT_EQ(velform::quoted_line(source, line, column), quoted) << source;
    }
}

} // namespace
