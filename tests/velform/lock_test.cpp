// Lock files and spare records: which numbers objects keep, and what is refused.
#include "forms.h"

namespace {

using test::contents;
using test::Folder;
using test::run;

constexpr std::string_view head = "# velform lock, version 1.\n";

// Compiles with what is locked so far, and returns the constants: "A=8 B=9 A_TEXT=1".
std::string constants_of(const std::string &source, std::string &lock) {
    velform::Diagnostics faults;
    velform::Lock locked = velform::read_lock(std::string(head) + lock, faults);
    const test::Compiled compiled(source, &locked);
    EXPECT_TRUE(compiled.is_good && !faults.has_errors()) << compiled.messages << lock;
    lock = velform::lock_text(locked);
    lock.erase(0, lock.rfind("#"));
    lock.erase(0, lock.find('\n') + 1);
    std::istringstream words(compiled.header);
    std::string constants;
    for (std::string word, number; words >> word;) {
        if (!word.starts_with("F_") || !(words >> number >> number)) continue;
        number.pop_back();
        constants += (constants.empty() ? "" : " ") + word.substr(2) + "=" + number;
    }
    return constants;
}

std::string window(const std::string &id, const std::string &objects = "") {
    return "[[window]]\nid = '" + id + "'\nrect = [20, 30, 99, 99]\nobjects = [" + objects + "]\n";
}

TEST(Lock, keeps_numbers_whatever_becomes_of_the_source) {
    const std::string check = "{ id = 'c', kind = 'check' }, ";
    const std::string entry = "{ id = 'e', type = 'text', text = '', rect = [0, 0, 9, 9] }";
    const std::string plain = "{ type = 'empty' }, ";
    const std::string a = window("a"), b = window("b"), spare = "spare = { s = 2, r = 3 }\n";
    // A source, another one, and what the second one's constants are.
    const std::array<std::string, 3> cases[] = {
        {a + b, window("n") + a + b, "A=8 B=9 N=10"},
        {a + b, b, "B=9"},
        {a + b, b + window("n"), "B=9 N=10"}, // the number of a stays free
        {a + b, window("b", "{ id = 'a', type = 'empty' }"), "A=8 B=9"},
        {window("a", entry), window("a", plain + entry), "A=8 E=9 E_TEXT=1"},
        {window("a", plain + entry), window("a", plain + plain + entry), "A=8 E=10 E_TEXT=1"},
        {window("a", entry), window("a", entry) + "text = ''\n", "A=8 E=9 A_TEXT=2 E_TEXT=1"},
        {window("a", check), window("a", "{ id = 'n', kind = 'check' }, " + check),
         "A=8 C=9 N=20"}, // box, mark and 8 lines of the tick each
        {a + b, window("A"), "A=8"},
        {spare + a, spare + a + b, "A=8 B=14 S=9 S_COUNT=2 R=11 R_COUNT=3"},
        {spare + a, "spare = { r = 4, s = 1 }\n" + a, "A=8 R=11 R_COUNT=4 S=9 S_COUNT=1"},
    };
    for (const auto &[first, second, expected] : cases) {
        SCOPED_TRACE(first + second);
        std::string lock, again;
        const std::string before = constants_of(first, lock);
        EXPECT_EQ(before, constants_of(first, again));
        EXPECT_EQ(constants_of(second, lock), expected);
        EXPECT_EQ(constants_of(first, lock), before); // what was gone is back
    }
    std::string lock = "a = 12\nold = 9, gone\n";
    EXPECT_EQ(constants_of(a + b + window("n"), lock), "B=8 N=10 A=12");
    lock = "a = 12\n";
    EXPECT_EQ(constants_of(a + b + window("n"), lock), "B=8 N=9 A=12");
}

// Numbers that do not rise with the order of the source, and records that nothing has.
TEST(Lock, leads_all_references_to_the_numbers) {
    velform::Diagnostics faults;
    const std::string lines = "w = 20\nl = 9\nl/sample.1 = 30\nb = 10\nm = 8\nt = 40, text 3\n";
    velform::Lock lock = velform::read_lock(std::string(head) + lines, faults);
    const std::string objects =
        "{ id = 'l', kind = 'list', rect = [0, 0, 90, 60] }, "
        "{ id = 'b', kind = 'scroll_bar', for = 'l', rect = [0, 0, 9, 90] }, "
        "{ id = 't', type = 'label', menu = 'm', tip = 'T' }, ";
    const test::Compiled c(
        "[[object]]\nid = 'm'\ntype = 'menu'\nrect = [0, 0, 9, 9]\n" + window("w", objects), &lock);
    ASSERT_TRUE(c.is_good) << c.messages;
    EXPECT_EQ(c.form.size(), 40U * sizeof(vel_object_file_rec));
    const std::size_t master = test::place_of("master"), dependents = test::place_of("dep_objs");
    EXPECT_EQ(c.word(9, master), 20U);
    EXPECT_EQ(c.word(30, master), 9U);
    EXPECT_EQ(c.word(20, dependents) + 100 * c.word(20, dependents + 4), 9 + 100 * 10U);
    EXPECT_EQ(c.word(9, dependents), 30U);
    EXPECT_EQ(c.word(40, test::place_of("max_chars")), 8U);
    EXPECT_NE(c.text(4).find("\n10 part=4 target=9"), std::string::npos) << c.text(4);
    EXPECT_EQ(c.word(1, test::place_of("text_index")), 4U); // after those of the lock
    const std::string empty(sizeof(vel_object_file_rec), '\0');
    EXPECT_EQ(c.form.compare(38 * empty.size(), empty.size(), empty), 0);
}

TEST(Lock, changes_nothing_that_is_seen) {
    const Folder folder;
    const std::string source = folder.write(
        "a.toml", "[[window]]\nid = 'w'\nrect = [20, 30, 400, 300]\ntext = 'Title'\nobjects = [\n"
                  "{ kind = 'check', x = 20, y = 40, checked = true, label = 'Check' },\n"
                  "{ kind = 'list', x = 20, y = 80, columns = [{ title = 'A' }, {}] },\n"
                  "{ kind = 'choice', x = 220, y = 40, rows = ['One'], tip = 'Tip' },\n"
                  "{ kind = 'tabs', x = 220, y = 80, pages = [{ title = 'T', objects = [\n"
                  "{ kind = 'slider', x = 5, y = 5 }] }, {}] }]\n[[file_dialog]]\nid = 'd'\n");
    const auto pictures = [&] {
        EXPECT_EQ(run("compile --lock " + source).output, "");
        run("render " + source + " --all-windows -o " + folder.file("a.png"));
        return contents(folder.file("a-w.png")) + contents(folder.file("a-d.png"));
    };
    const std::string before = pictures();
    EXPECT_GT(before.size(), 4000U);
    velform::Diagnostics faults;
    velform::Lock lock = velform::read_lock(contents(folder.file("a.form.lock")), faults);
    const auto sum = static_cast<std::uint32_t>(lock.size()) + 8 + 7; // of the first and the last
    for (auto &[key, numbers] : lock) numbers.object = sum - numbers.object;
    folder.write("a.form.lock", velform::lock_text(lock));
    EXPECT_TRUE(pictures() == before);
    EXPECT_EQ(contents(folder.file("a.form.lock")), velform::lock_text(lock));
}

TEST(Lock, refuses_what_is_damaged_foreign_or_contradictory) {
    // Lines from the second on; where the fault is.
    const std::array<std::string, 2> cases[] = {
        {"a = 7\n", "2:5"},
        {"a = 65537\n", "2:5"},
        {"a = 99999999999\n", "2:5"},
        {"a = 8\nb = 8\n", "3:5"},
        {"a = 8\na = 9\n", "3:1"},
        {"a = 8, text 2\nb = 9, text 2\n", "3:13"},
        {"a = 8, text 0\n", "2:13"},
        {"spare a = 9 to 12\nb = 11\n", "3:5"},
        {"spare a = 9 to 8\n", "2:16"},
        {"a = 9 to 10\n", "2:6"},
        {"a\n", "2:1"},
        {"a = x\n", "2:5"},
        {"# a\n\r\n<<<<<<< b\n", "4:1"},
        {"=======\n", "2:1"},
        {"a = 1", "2:6"},
    };
    for (const auto &[lines, where] : cases) {
        const Folder folder;
        const std::string source = folder.write("a.toml", window("a"));
        const std::string lock = folder.write("a.form.lock", std::string(head) + lines);
        const auto result = run("compile " + source);
        EXPECT_EQ(result.status, 1) << lines;
        EXPECT_TRUE(result.output.starts_with(lock + ":" + where + ": error: ")) << result.output;
        EXPECT_FALSE(std::filesystem::exists(folder.file("a.form")));
        EXPECT_EQ(contents(lock), std::string(head) + lines);
    }
    const Folder folder;
    folder.write("a.form.lock", "[[package]]\n");
    EXPECT_EQ(run("list " + folder.write("a.toml", window("a"))).status, 3);
}

TEST(Lock, is_written_with_the_outputs_or_not_at_all) {
    const Folder folder;
    const std::string source = folder.write("a.toml", window("a") + window("b"));
    const std::string lock = folder.file("a.form.lock"), rule = folder.file("a.d");
    EXPECT_EQ(run("compile " + source).status, 0);
    EXPECT_FALSE(std::filesystem::exists(lock));
    const std::string form = contents(folder.file("a.form"));
    EXPECT_EQ(run("compile --lock --depfile " + rule + " " + source).status, 0);
    EXPECT_EQ(contents(folder.file("a.form")), form);
    EXPECT_TRUE(contents(lock).ends_with(".\na = 8\nb = 9\n")) << contents(lock);
    EXPECT_EQ(contents(rule), folder.file("a.form") + ": " + source + " " + lock + "\n");

    const auto written = std::filesystem::last_write_time(lock);
    EXPECT_EQ(run("compile " + source).status, 0);
    EXPECT_EQ(std::filesystem::last_write_time(lock), written);
    folder.write("a.toml", window("b"));
    std::filesystem::remove(folder.file("a.h"));
    folder.fill({"a.h/"});
    EXPECT_EQ(run("compile " + source).status, 3);
    EXPECT_EQ(std::filesystem::last_write_time(lock), written);
    EXPECT_NE(run("list " + source).output.find("    9  b"), std::string::npos);
    EXPECT_EQ(run("compile --lock - -o " + folder.file("x.form") + " <" + source).status, 2);
}

TEST(Spare, refuses_bad_counts_and_names) {
    const std::array<std::string, 2> cases[] = {
        {"s = 0", "1:15"},        {"s = -1", "1:15"},    {"s = 65530", "1:15"},
        {"s = '2'", "1:15"},      {"'s-t' = 2", "1:11"}, {"s = 65529, t = 1", "1:22"},
        {"s = 2, S = 2", "1:18"}, {"w = 2", "1:11"},     {"s = 2, s_count = 2", "1:18"},
    };
    for (const auto &[spare, where] : cases) {
        const bool is_full = spare.find("65529") != spare.npos;
        const test::Compiled c("spare = { " + spare + " }\n" + (is_full ? "" : window("w")));
        EXPECT_FALSE(c.is_good);
        EXPECT_TRUE(c.messages.starts_with("f:" + where + ": error: ")) << c.messages;
    }
}

} // namespace
