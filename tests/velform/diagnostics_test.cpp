// What is refused, and where the message points.
#include "compiled.h"

namespace {

using test::Compiled;

struct Fault {
    std::string source;
    const char *begins; // of a line of the messages
    const char *names;  // what that line says as well
};

// Returns the first line with the beginning, or nothing.
std::string line_with(const std::string &messages, const std::string &begins) {
    std::istringstream lines(messages);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(begins)) return line;
    }
    return {};
}

void expect_message(const Fault &fault) {
    SCOPED_TRACE(fault.source.substr(0, 200));
    const Compiled c(fault.source);
    const std::string line = line_with(c.messages, fault.begins);
    ASSERT_NE(line, "") << "no line begins with " << fault.begins << " in:\n"
                        << c.messages.substr(0, 1000);
    EXPECT_NE(line.find(fault.names), std::string::npos) << line;
    const bool is_warning = line.find("warning") != std::string::npos;
    EXPECT_EQ(c.is_good, is_warning);
}

std::string label(const std::string &keys) {
    return "[[object]]\ntype = \"label\"\nrect = [0, 0, 9, 9]\n" + keys;
}

std::string dialog(const std::string &keys) { return "[[file_dialog]]\nid = \"d\"\n" + keys; }

std::string repeated(const std::string &part, int times) {
    std::string result;
    for (int k = 0; k < times; ++k) result += part;
    return result;
}

TEST(Faults, point_at_the_place_and_name_what_is_wrong) {
    const Fault faults[] = {
        {"colour = 1", "f:1:1: error: ", "'colour'"},
        {label("lable = \"x\""), "f:4:1: error: ", "did you mean 'label'?"},
        {label("  fill = 3"), "f:4:10: error: ", "a colour"},
        {label("fill = \"red\""), "f:4:8: error: ", "six hexadecimal digits"},
        {label("fill = \"#12345g\""), "f:4:8: error: ", "six hexadecimal digits"},
        {label("fill = \"#+12345\""), "f:4:8: error: ", "six hexadecimal digits"},
        {label("y = 40000"), "f:4:5: error: ", "not 40000"},
        {label("y = 9223372036854775807"), "f:4:5: error: ", "from -32768 to 32767"},
        {label("x = 1.0"), "f:4:5: error: ", "a number with a fraction"},
        {label("x = nan"), "f:4:5: error: ", "a number with a fraction"},
        {label("x = 1979-05-27"), "f:4:5: error: ", "a date"},
        {label("x = [[[]]]"), "f:4:5: error: ", "a list"},
        {label("x = {}"), "f:4:5: error: ", "a table"},
        {label("width = -1"), "f:4:9: error: ", "from 0 to 32767"},
        {label("hidden = \"yes\""), "f:4:10: error: ", "true or false"},
        {label("border = \"shadows\""), "f:4:10: error: ", "did you mean 'shadow'?"},
        {label("border = -1"), "f:4:10: error: ", "not -1"},
        {label("clip = true"), "f:4:8: error: ", "\"margins\""},
        {label("label = 5"), "f:4:9: error: ", "a string in quotes"},
        {label("label = \"5 €\""), "f:4:9: error: ", "'€' (U+20AC)"},
        {label("label = \"\\u0000\""), "f:4:9: error: ", "U+0000"},
        {label("label = \"a\\tb\""), "f:4:9: error: ", "U+0009"},
        {label("label = \"\\u0085\""), "f:4:9: error: ", "U+0085"},
        {label("label = \"a\\nb\""), "f:4:9: error: ", "line feed"},
        {label("label = \"" + repeated("ä", 68) + "\""), "f:4:9: error: ", "68 characters"},
        {label("font_file = \"" + repeated("ä", 34) + "\""), "f:4:13: error: ", "68 bytes"},
        {label("font_file = \"a\\u0000\""), "f:4:13: error: ", "U+0000"},
        {label("text = \"x\""), "f:4:8: error: ", "`label`"},
        {label("margin = [1, 2]"), "f:4:10: error: ", "[left, right, top, bottom]"},
        {label("margin = [1, 2, -3, 4]"), "f:4:17: error: ", "`margin_top`"},
        {label("font_choice = \"own\""), "f:4:15: error: ", "font_file"},
        {label("id = \"9a\""), "f:4:6: error: ", "a letter"},
        {label("id = \"ä\""), "f:4:6: error: ", "a letter"},
        {label("style = \"no\""), "f:4:9: error: ", "'no'"},
        {label("style = [3]"), "f:4:10: error: ", "a string"},
        {label("objects = 3"), "f:4:11: error: ", "a list of tables"},
        {label("objects = [3]"), "f:4:12: error: ", "a table"},
        {label("id = \"a\"\n") + label("id = \"a\""), "f:8:6: error: ", "see line 4"},
        {label("id = \"a\"\n") + label("id = \"A\""), "f:8:6: error: ", "F_A"},
        {"[[window]]\nid = \"a\"\ntext = \"\"\n[[window]]\nid = \"a_text\"",
         "f:5:6: error: ", "F_A_TEXT"},
        {"[[window]]\ntext = \"" + std::string(1000, 'x') + "\"", "f:2:8: error: ", "999"},
        {"[[object]]\nx = 1", "f:1:1: error: ", "has no type"},
        {"[[object]]\ntype = \"lable\"", "f:2:8: error: ", "did you mean 'label'?"},
        {"[[object]]\ntype = \"picture\"", "f:1:1: error: ", "no file"},
        {"[[object]]\ntype = \"entry\"\nlabel = \"" + std::string(65, 'x') + "\"",
         "f:3:9: error: ", "at most 64"},
        {"[window]", "f:1:1: error: ", "[[window]]"},
        {"[[window]]\nx = 32000\n[[window.window]]\nx = 768", "f:4:5: error: ", "32768"},
        {"[[window]]\n" + repeated("[[window.window]]\n", 101), "f:102:1: error: ", "at most 100"},
        {label("menu = 3"), "f:4:8: error: ", "a string"},
        {label("menu = \"mm\"\n[[object]]\nid = \"m\"\ntype = \"menu\"\nrect = [0, 0, 9, 9]"),
         "f:4:8: error: ", "did you mean 'm'?"},
        {label("id = \"a\"\nmenu = \"a\""), "f:5:8: error: ", "'a' is no menu but a label"},
        {"styles = 1", "f:1:10: error: ", "a table"},
        {"[file_dialog]", "f:1:1: error: ", "[[file_dialog]]"},
        {"[[file_dialog]]", "f:1:1: error: ", "an `id`"},
        {dialog("titel = \"x\""), "f:3:1: error: ", "did you mean 'title'?"},
        {dialog("rows = 0"), "f:3:8: error: ", "`rows` must be a whole number from 1 to 100"},
        {dialog("rows = 101"), "f:3:8: error: ", "not 101"},
        {dialog("ok = \"" + std::string(68, 'x') + "\""), "f:3:6: error: ", "`ok` has 68"},
        {dialog("message = 1"), "f:3:11: error: ", "`message` must be a string"},
        {dialog("width = 299"), "f:3:9: error: ", "at least 300"},
        {dialog("rect = [20, 30, 300, 197]"), "f:3:22: error: ", "at least 198"},
        {dialog("height = 305\nrows = 10"), "f:3:10: error: ", "at least 306"},
        {dialog("row_style = \"no\""), "f:3:13: error: ", "'no'"},
        {dialog("[[object]]\nid = \"d_ok\"\ntype = \"empty\""), "f:4:6: error: ", "see line 2"},
        {"[styles.a]\nid = \"x\"", "f:2:1: error: ", "'id'"},
        {"[styles.a]\nstyle = \"b\"\n[styles.b]\nstyle = \"a\"",
         "f:4:9: error: ", "includes itself"},
        {"[styles.a]\nstyle = \"a\"", "f:2:9: error: ", "includes itself"},
        {"[[object]]\ntype = \"chain\"\n[[object.object]]\ntype = \"chain\"\ntext = \"t\"",
         "f:5:8: error: ", "from its head"},
        {"[frame]\nclos = 1", "f:2:1: error: ", "did you mean 'close'?"},
        {"[frame.close]\nobjects = []", "f:2:1: error: ", "'objects'"},
        {"[frame]\npictures = \"" + std::string(60, 'x') + "\"", "f:2:12: error: ", "bytes"},
        {"prefix = \"a-b\"", "f:1:10: error: ", "prefix"},
        {"a = \n[[x]", "f:1:5: error: ", "expected value"},
        {"a = \"\xFF\"", "f:1:", "error"},
    };
    for (const Fault &fault : faults) expect_message(fault);
}

TEST(Warnings, tell_what_will_not_show_and_let_the_form_pass) {
    const std::string window = "[[window]]\nrect = [20, 30, 9, 9]\n";
    const Fault faults[] = {
        {label("picture = \"p\""), "f:4:11: warning: ", "nothing for a label"},
        {dialog("x = 10"), "f:3:5: warning: ", "`x` 11"},
        {window + "menu = \"m\"", "f:3:8: warning: ", "nothing for a window"},
        {label("border = \"frame\"\nlabel = \"x\""), "f:4:10: warning: ", "shadow"},
        {"[[object]]\ntype = \"text\"\nrect = [0, 0, 9, 9]", "f:2:8: warning: ", "top level"},
        {"[[object]]\ntype = \"label\"\nheight = 1", "f:1:1: warning: ", "no width"},
        {"[[object]]\ntype = \"label\"\nwidth = 1", "f:1:1: warning: ", "no height"},
        {"[[window]]\nrect = [10, 25, 9, 9]", "f:2:9: warning: ", "`x` 11"},
        {"[[window]]\nrect = [11, 24, 9, 9]", "f:2:13: warning: ", "`y` 25"},
        {window + "[[window.window]]\nrect = [0, 0, 1, 1]\nhidden = true",
         "f:5:10: warning: ", "starts visible"},
        {window + "[[window.object]]\ntype = \"chain\"\nrect = [0, 0, 1, 1]",
         "f:4:8: warning: ", "head"},
        {"[[object]]\ntype = \"chain\"\nrect = [0, 0, 1, 1]\n[[object.object]]\ntype = \"menu\"\n"
         "rect = [0, 0, 1, 1]",
         "f:5:8: warning: ", "is no chain"},
    };
    for (const Fault &fault : faults) expect_message(fault);
}

TEST(Warnings, are_not_given_without_reason) {
    const char *sources[] = {
        "[[window]]\nrect = [11, 25, 1, 1]\nobjects = [{ type = \"text\", border = \"fitted\" }]",
        "[[window]]\nrect = [11, 25, 1, 1]\nobjects = [{ type = \"menu\", rect = [0, 0, 1, 1], "
        "hidden = true }]",
        "[styles.s]\npicture = \"p\"\n[[object]]\ntype = \"label\"\nstyle = \"s\"\nrect = [0, 0, "
        "1, 1]",
        "[[object]]\ntype = \"picture\"\npicture = \"p\"",
        "[[object]]\ntype = \"empty\"",
    };
    for (const char *source : sources) EXPECT_EQ(Compiled(source).messages, "") << source;
}

TEST(Faults, of_a_source_are_all_told_in_its_order) {
    const Compiled c(
        "[[object]]\nwidth = \"a\"\n[styles.s]\nx = true\n[[window]]\nid = 1\n[frame]\nq = 1");
    const char *const begins[] = {"f:1:1: error", "f:2:9: error", "f:4:5: error", "f:6:6: error",
                                  "f:8:1: error"};
    std::istringstream lines(c.messages);
    std::vector<std::string> errors;
    for (std::string line; std::getline(lines, line);) {
        if (line.find(" error: ") != std::string::npos) errors.push_back(line);
    }
    ASSERT_EQ(errors.size(), std::size(begins)) << c.messages;
    for (std::size_t k = 0; k < errors.size(); ++k) {
        EXPECT_EQ(errors[k].substr(0, std::strlen(begins[k])), begins[k]);
    }
}

TEST(Faults, beyond_the_first_hundred_are_counted) {
    const Compiled c(repeated(label("fill = 1\npicture = \"p\"\n"), 150));
    const std::string end = "f: 50 more errors\nf: 50 more warnings\n";
    EXPECT_EQ(std::count(c.messages.begin(), c.messages.end(), '\n'), 202);
    EXPECT_TRUE(c.messages.ends_with(end)) << c.messages;
    EXPECT_NE(line_with(c.messages, "f:499:8: error: "), "") << "the 100th";
}

TEST(Faults, of_hostile_sources_are_errors_like_others) {
    std::string styles;
    for (int k = 0; k < 2000; ++k) {
        styles +=
            "[styles.s" + std::to_string(k) + "]\nstyle = \"s" + std::to_string(k + 1) + "\"\n";
    }
    const Fault faults[] = {
        {"a" + repeated(".a", 100000) + " = 1", "f:1:", "nested too deeply"},
        {"x = " + repeated("[", 100000), "f:1:", "nested too deeply"},
        {"x = " + repeated("{a=", 100000), "f:1:", "nested too deeply"},
        {"x = \"\\\"\"\ny = '''\n'''" + repeated("[", 70), "f:3:", "nested too deeply"},
        {styles, "f:", "more than 16"},
        {std::string("\0\0", 2), "f:1:1: error: ", ""},
    };
    for (const Fault &fault : faults) expect_message(fault);
}

TEST(Depth, of_brackets_in_strings_and_comments_does_not_count) {
    const std::string deep = repeated("[.", 100);
    const std::string sources[] = {
        "# " + deep, "[[window]]\nrect = [11, 25, 1, 1]\ntext = \"\\\"" + deep + "\"",
        "[[window]]\nrect = [11, 25, 1, 1]\ntext = '''\n'" + deep + "'''",
        "prefix = 'a' # '" + deep};
    for (const std::string &source : sources) EXPECT_EQ(Compiled(source).messages, "") << source;
}

} // namespace
