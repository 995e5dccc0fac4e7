// Forms read back for people: lists of their objects and differences between them.
#include "forms.h"

#include <map>
#include <random>

#include "commands/diff.h"
#include "commands/list.h"

namespace {

using test::Compiled;
using test::Folder;
using test::place_of;
using test::run;

const std::string head = "theme = 'none'\n[[window]]\nid = 'Main'\nrect = [40, 50, 300, 200]\n";

std::string listed(const velform::FormPaths &paths) {
    std::ostringstream out, err;
    velform::list({paths}, out, err);
    return out.str();
}

// What diff prints, and then its status.
std::string differences(const std::vector<std::string> &files, bool for_git = false) {
    std::ostringstream out, err;
    const auto status = velform::diff({files, for_git}, out, err);
    return out.str() + std::to_string(static_cast<int>(status));
}

void put(std::string &form, std::uint32_t object, std::size_t offset, std::uint32_t word) {
    for (std::size_t k = 0; k < 4; ++k) {
        form[(object - 1) * sizeof(vel_object_file_rec) + offset + k] =
            static_cast<char>(word >> 8 * k & 0xFF);
    }
}

TEST(List, prints_a_source_and_its_form_as_the_same_tree) {
    const Folder folder;
    const auto source = folder.write(
        "a.toml", head + "text = 'Gr\u00fc\u00dfe \"1\"'\n[[window.object]]\nid = 'ok'\n"
                         "type = 'label'\nrect = [10, -20, 80, 26]\nlabel = 'a\\b'\n"
                         "[[window.object]]\nkind = 'check'\nrect = [10, 60, 80, 20]\n"
                         "[[object]]\ntype = 'picture'\npicture = 'p.png'\n");
    ASSERT_EQ(run("compile " + source + " >/dev/null").status, 0);
    const auto form = folder.file("a.form"), header = folder.file("a.h");
    const std::string tree = listed({source});
    for (const std::string line :
         {"\n    9    ok  label  [10, -20, 80, 26]  \"a\\\\b\"\n",
          "\n   10    check  [10, 60, 80, 20]\n", "  picture  [0, 0, 0, 0]\n"}) {
        EXPECT_NE(tree.find(line), std::string::npos) << tree;
    }
    EXPECT_TRUE(tree.starts_with("    8  main  window  [40, 50, 300, 200]  "
                                 "\"Gr\u00fc\u00dfe \\\"1\\\"\"\n"))
        << tree;
    EXPECT_EQ(listed({form}), tree);
    const auto json = run("list --json " + form).output;
    EXPECT_NE(json.find("{\"number\": 9, \"name\": \"ok\", \"type\": \"label\", \"kind\": null, "
                        "\"master\": 8, \"rect\": [10, -20, 80, 26], \"rect_on_display\": "
                        "[50, 30, 80, 26], \"hidden\": false, \"caption\": \"a\\\\b\", "
                        "\"objects\": []},\n"),
              std::string::npos)
        << json;
    const auto other = folder.write("b.form", test::contents(form)); // nothing goes with it
    EXPECT_TRUE(listed({other}).starts_with("    8  window  [40, 50, 300, 200]\n"));
    EXPECT_EQ(listed({other, folder.file("a.text"), header}), tree);
    EXPECT_EQ(run("list " + folder.write("c.toml", "x = 1")).status, 3);
    EXPECT_EQ(run("list " + source + " " + header).status, 2);
}

std::uint32_t below(std::size_t end, std::mt19937 &random) {
    return static_cast<std::uint32_t>(random() % end);
}

// Forms of bytes by chance, most of them 0, with links to what is near.
std::string random_form(std::mt19937 &random, std::uint32_t count) {
    std::string form(sizeof(vel_object_file_rec) * count, '\0');
    for (std::uint32_t k = 0; k < 4 * count; ++k)
        form[below(form.size(), random)] = static_cast<char>(below(256, random));
    for (std::uint32_t object = 1; object <= count; ++object) {
        put(form, object, place_of("master"), below(count + 2, random));
        for (std::size_t k = 0; k < below(4, random); ++k) {
            put(form, object, place_of("dep_objs") + 4 * k, below(count + 2, random));
        }
        put(form, object, place_of("text_index"), below(4, random));
    }
    return form;
}

TEST(List, names_each_object_of_any_form_once) {
    const Folder folder;
    std::mt19937 random(3);
    for (std::uint32_t round = 0; round < 100; ++round) {
        const std::uint32_t count = 7 + below(12, random);
        const std::string bytes = random_form(random, count);
        const auto form = folder.write("a.form", bytes + std::string(below(776, random), 'x'));
        folder.write("a.text", random_form(random, 4));
        std::istringstream lines(listed({form}));
        std::map<std::uint32_t, int> times;
        for (std::string line; std::getline(lines, line);) ++times[test::u32(std::stoi(line))];
        EXPECT_EQ(times.size(), count - 7) << "round " << round;
        for (const auto &[object, n] : times) EXPECT_EQ(n, 1) << "object " << object;
        EXPECT_EQ(differences({form, form}), "0");
        std::string other = bytes;
        char &byte = other[below(other.size(), random)];
        byte = static_cast<char>(byte ^ 1);
        const auto changed = folder.write("b.form", other);
        EXPECT_TRUE(differences({form, changed}).ends_with("\n1")) << "round " << round;
    }
}

TEST(Diff, says_what_changed_object_by_object) {
    const std::string main = head + "[[window.object]]\nid = 'ok'\ntype = 'label'\n";
    const std::string ok = main + "rect = [10, 20, 80, 26]\nlabel = 'OK'\n";
    const std::string note = "[[window.object]]\nid = 'note'\ntype = 'text'\n";
    const std::string nameless = "[[window.object]]\ntype = 'empty'\nwidth = ";
    const std::string menu = "[[object]]\nid = 'm'\ntype = 'menu'\n";
    const std::string other = "[[window]]\nid = 'other'\nrect = [90, 90, 9, 9]\n";
    const std::string inside = "[[window.object]]\nid = 'in'\ntype = 'empty'\n";
    const auto moved = [](std::string source) {
        return source.replace(source.find("[40, 50"), 7, "[41, 52");
    };
    // The two sources, and what is said.
    const std::array<std::string, 3> cases[] = {
        {ok, ok, "0"},
        {ok, "# a comment\n" + ok, "0"},
        {ok, moved(ok), "main (window 8)\n    x: 41, was 40\n    y: 52, was 50\n1"},
        {ok, ok + "fill = '#00ff80'\nborder = 'shadow'\nfocus = false\n",
         "ok (label 9)\n    fill: \"#00ff80\", was \"#ffffff\"\n"
         "    border: \"shadow\", was \"none\"\n1"},
        {ok, ok + "default = true\nkey = 'o'\n",
         "ok (label 9)\n    default: true, was none\n    key: \"o\", was none\n1"},
        {main, main + "label = 'A'\nhidden = true\nanchor = 'left right'\n",
         "ok (label 9)\n    label: \"A\", was \"\"\n    hidden: true, was false\n"
         "    anchor: \"left right\", was none\n1"},
        {ok + note + "text = 'a'", ok + note + "text = '''b\nc'''\nwidth = 3",
         "note (text 10)\n    width: 3, was 0\n    text: \"b\\nc\", was \"a\"\n1"},
        {ok, head + note + "rect = [1, -2, 3, 4]\ntext = 'new'\n" + ok.substr(head.size()),
         "note (text 9) is new, in main (window 8): [1, -2, 3, 4] \"new\"\n"
         "1 object has another number, the first is ok (label 10), was 9\n1"},
        {ok + note, ok, "note (text 10) is gone, in main (window 8): [0, 0, 0, 0]\n1"},
        {head + nameless + "1\n" + nameless + "2\n",
         head + inside + nameless + "1\n" + nameless + "5\n",
         "in (empty 9) is new, in main (window 8): [0, 0, 0, 0]\n"
         "empty 11\n    width: 5, was 2\n"
         "2 objects have another number, the first is empty 10, was 9\n1"},
        {head + note + inside, head + inside + note,
         "objects in main (window 8) come in another order\n"
         "2 objects have another number, the first is in (empty 9), was 10\n1"},
        {head + inside + other, head + other + inside,
         "in (empty 10)\n    inside: other (window 9), was main (window 8)\n"
         "2 objects have another number, the first is other (window 9), was 10\n1"},
        {main + "menu = 'm'\n" + menu, main + "menu = 'm'\n" + note + menu,
         "note (text 10) is new, in main (window 8): [0, 0, 0, 0]\n"
         "1 object has another number, the first is m (menu 11), was 10\n1"},
        {main + menu, main + "menu = 'm'\n" + menu,
         "ok (label 9)\n    menu: m (menu 10), was none\n1"},
        {head + inside, head + "[[window.object]]\nid = 'out'\ntype = 'empty'\n",
         "out (empty 9)\n    id: out, was in\n1"},
    };
    const Folder folder;
    for (const auto &[before, after, said] : cases) {
        const auto a = folder.write("a.toml", before), b = folder.write("b.toml", after);
        EXPECT_EQ(differences({a, b}), said) << before << "---\n" << after;
    }
}

TEST(Diff, sees_every_byte_of_a_form) {
    const Compiled c(head + test::object("label", "label = 'ab'"));
    const std::string tail = "the files differ, but not in what an object says";
    // The byte of object 9 that is 1 then, and what is said.
    const std::pair<std::string, std::string> cases[] = {
        {"reserved", "label 9\n    reserved: 1, was 0\n1"},
        {"text_length", tail},
        {"fill_r", "label 9\n    fill: \"#01ffff\", was \"#ffffff\"\n1"},
        {"clip_mode", "label 9\n    clip: \"frame\", was \"margins\"\n1"},
        {"type", "window 9 is new: [0, 0, 0, 0] \"ab\"\nlabel 9 is gone: [0, 0, 0, 0] \"ab\"\n1"},
        {"master", "label 9\n    inside: "},
        {"max_chars", "label 9\n    menu: "},
    };
    const Folder folder;
    const auto a = folder.write("a.form", c.form);
    for (const auto &[member, said] : cases) {
        std::string other = c.form;
        put(other, 9, place_of(member), 1);
        const std::string all = differences({a, folder.write("b.form", other)});
        EXPECT_EQ(all.substr(0, said.size()), said) << all;
        EXPECT_TRUE(all.ends_with("\n1")) << all;
    }
    std::string other = c.form;
    other[8 * sizeof(vel_object_file_rec) + place_of("label") + 5] = 'x';
    const auto b = folder.write("b.form", other + "y");
    const std::string said = "label 9\n    label: other bytes after its end\n"
                             "bytes after the last object differ\n";
    EXPECT_EQ(differences({a, b}), said + "1");
    EXPECT_EQ(differences({"x.form", a, "1", "100644", b, "2", "100644"}, true),
              "x.form\n" + said + "0");
    const auto added = run("diff --git x.form /dev/null . . " + a + " 1 100644");
    EXPECT_NE(added.output.find("\nlabel 9 is new: [0, 0, 0, 0] \"ab\"\n"), std::string::npos);
    // What only one of them has a text file for is no difference.
    const std::string keyed = head + "text = 'a'\nkey = 'k'\n";
    run("compile " + folder.write("keyed.toml", keyed) + " -o " + folder.file("keyed.form"));
    const auto alone = folder.write("c.form", test::contents(folder.file("keyed.form")));
    EXPECT_EQ(differences({folder.file("keyed.form"), alone}), "0");
    EXPECT_EQ(run("diff " + a).status, 2);
    EXPECT_EQ(run("diff " + a + " " + folder.file("none")).status, 3);
}

} // namespace
