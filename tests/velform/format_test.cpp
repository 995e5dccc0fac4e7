// Sources in their standard layout.
#include "forms.h"

#include <random>

#include "source/source_layout.h"

namespace {

using velform::laid_out;

const std::string long_word = '"' + std::string(60, 'w') + '"';

TEST(Format, lays_out_what_has_many_forms_in_one) {
    const std::array<std::string, 2> cases[] = {
        {"", ""},
        {" \n\t\n\n", ""},
        {"\xEF\xBB\xBF\n\na=1", "a = 1\n"},
        {"a\t=  1  # b \t\r\n\r\n\r\n\r\n#c\r\n\r\n", "a = 1 # b\n\n#c\n"},
        {"  a=1\n  [ b . \"c.d\" ]#e\n\n  f=2", "a = 1\n\n[b.\"c.d\"] #e\nf = 2\n"},
        {"# top\n[[ a ]]\n# of b\n[b]\n\n# c\n\n[c]",
         "# top\n[[a]]\n\n# of b\n[b]\n\n# c\n\n[c]\n"},
        {"a . 'b # c' . \"=]\" = 1979-05-27 07:32:00#d",
         "a.'b # c'.\"=]\" = 1979-05-27 07:32:00 #d\n"},
        {"a = [1,2 , ]\nb=[ ]\nc={x=[{ }]  , y={z='}'}}",
         "a = [1, 2]\nb = []\nc = { x = [{}], y = { z = '}' } }\n"},
        {"a = \"\"\"\n # [ \"\" \\\"\"\"\"\"\"  # b\nc='''\r\n ]\\''' ",
         "a = \"\"\"\n # [ \"\" \\\"\"\"\"\"\" # b\nc = '''\n ]\\'''\n"},
        {"a=[ # b\n1\n# c\n,2 # d\n, # e\n\n\n3,4\n,[5,6]\n\n]",
         "a = [ # b\n    1,\n    # c\n    2, # d\n    # e\n\n    3,\n    4,\n    [5, 6],\n]\n"},
        {"a=[1, 2, # b\n3,\n4]", "a = [\n    1, 2, # b\n    3,\n    4,\n]\n"},
        {"a=[" + long_word + ",1, 2," + long_word + ",3]",
         "a = [\n    " + long_word + ", 1, 2,\n    " + long_word + ", 3,\n]\n"},
        // 100 characters are not too many, 101 are.
        {"a=[" + long_word + ",'" + std::string(27, 'w') + "ö']",
         "a = [" + long_word + ", '" + std::string(27, 'w') + "ö']\n"},
        {"a=[" + long_word + ",'" + std::string(28, 'w') + "ö']",
         "a = [\n    " + long_word + ", '" + std::string(28, 'w') + "ö',\n]\n"},
        {"a=[{b=" + long_word + ",c=[1,2],d=[{e=1},{}],f=" + long_word + "}]",
         "a = [\n    { b = " + long_word +
             ", c = [1, 2], d = [\n        { e = 1 },\n        {},\n    ], f = " + long_word +
             " },\n]\n"},
        {"a=[{b=[1 # c\n]}]", "a = [\n    { b = [\n        1, # c\n    ] },\n]\n"},
        {"a=[{b='''\nc'''}]", "a = [\n    { b = '''\nc''' },\n]\n"},
    };
    for (const auto &[source, expected] : cases) {
        EXPECT_EQ(laid_out(source), expected);
        EXPECT_EQ(laid_out(expected), expected);
    }
}

// Each layout checks that it means the same. The source drifts as long as it is one.
TEST(Format, takes_whatever_the_parser_takes_and_changes_it_once) {
    std::string source = test::contents(VELFORM_PROJECT "/tests/end_to_end/parts.toml");
    const std::string_view pieces[] = {"\t",    "\n", "\r\n", "\n\n",      ",",
                                       "# b\n", "\"", "'''",  "\"\"\"",    "[",
                                       "]",     "{}", "{ ",   "\na = 1\n", "."};
    std::mt19937 random(1);
    int taken = 0;
    for (int run = 0; run < 3000; ++run) {
        std::string text = source;
        text.replace(random() % text.size(), random() % 2, pieces[random() % std::size(pieces)]);
        velform::Diagnostics unused;
        if (!velform::parse_toml(text, unused)) continue;
        const std::string once = laid_out(text);
        ASSERT_EQ(laid_out(once), once) << text;
        source = text;
        ++taken;
    }
    EXPECT_GT(taken, 500);
}

TEST(Format, writes_all_files_that_change_or_none) {
    const test::Folder folder;
    const std::string good = folder.write("good.toml", "a = 1\n"),
                      ugly = folder.write("ugly.toml", "a=1");
    const std::string faulty = folder.write("faulty.toml", "a 1");
    // The status, what is printed and what is in the second file then.
    const std::tuple<std::string, int, std::string, std::string> cases[] = {
        {good + " --check", 0, "", "a=1"},
        {good + " " + ugly + " --check", 1, ugly + "\n", "a=1"},
        {ugly + " " + faulty, 1, faulty + ":1:3: error: a '=' is missing after the key\n", "a=1"},
        {"- <" + ugly, 0, "a = 1\n", "a=1"},
        {"- --check <" + ugly, 1, "-\n", "a=1"},
        {folder.file("missing") + " " + ugly, 3,
         "velform: cannot read " + folder.file("missing") + ": No such file or directory\n", "a=1"},
        {good + " " + ugly, 0, "", "a = 1\n"},
    };
    for (const auto &[arguments, status, output, after] : cases) {
        const auto result = test::run("format " + arguments);
        EXPECT_EQ(result.status, status) << arguments;
        EXPECT_EQ(result.output, output);
        EXPECT_EQ(test::contents(ugly), after);
    }
}

} // namespace
