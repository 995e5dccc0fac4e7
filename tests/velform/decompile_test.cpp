// Forms come back from their sources byte by byte, whatever is in them.
#include "forms.h"

#include <random>

#include "commands/decompile.h"

namespace {

using test::Compiled;
using velform::FormBytes;

std::string source_of(const FormBytes &bytes) { return velform::source_for(bytes, {}); }

// The names that are made up at first stay as they are when they are given.
void expect_to_come_back(const FormBytes &bytes) {
    velform::KnownNames given, found[2];
    for (velform::KnownNames &names : found) {
        const std::string source = velform::source_for(bytes, given);
        const Compiled c(source);
        EXPECT_TRUE(c.is_good) << c.messages;
        EXPECT_TRUE(c.form == bytes.form && c.texts == bytes.text) << source;
        given = names = velform::names_in(c.header);
    }
    EXPECT_TRUE(found[0] == found[1]);
}

// Numbers are mostly small, so that links lead somewhere and codes mean something.
class RandomBytes {
public:
    explicit RandomBytes(unsigned seed) : random_(seed) {}

    std::size_t below(std::size_t limit) { return random_() % limit; }

    std::string records(std::size_t count, std::size_t size) {
        std::string bytes;
        for (std::size_t k = 0; k < count * size / 4; ++k) {
            const std::size_t number = below(3) == 0 ? below(16) : below(20) == 0 ? random_() : 0;
            for (std::size_t byte = 0; byte < 4; ++byte) {
                bytes += static_cast<char>(number >> 8 * byte);
            }
        }
        return bytes;
    }
    void change(std::string &bytes) {
        for (std::size_t k = below(12); k > 0 && !bytes.empty(); --k) {
            bytes[below(bytes.size())] = static_cast<char>(below(2) == 0 ? below(256) : below(12));
        }
        if (below(4) == 0) bytes.resize(below(bytes.size() + 9));
    }

private:
    std::mt19937 random_;
};

TEST(Decompile, gives_back_the_bytes_of_any_two_files) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        RandomBytes random(seed);
        FormBytes bytes{random.records(random.below(12), 776),
                        random.records(random.below(5), 1008)};
        random.change(bytes.form);
        random.change(bytes.text);
        expect_to_come_back(bytes);
    }
}

const std::string parts = R"(
theme = 'light'
[[window]]
id = 'login'
rect = [60, 60, 260, 210]
text = "One\nand \"two\""
objects = [
    { type = 'entry', x = 20, y = 20, password = true, key = 'p', tip = 'Secret' },
    { type = 'label', x = 20, y = 60, label = 'Füße', default = true, anchor = 'right' },
    { kind = 'check', x = 20, y = 100, checked = true },
    { kind = 'choice', x = 20, y = 140, rows = ['a', 'b'], value = 1 },
]
[[object]]
type = 'label'
menu = 'edit'
[[object]]
id = 'edit'
type = 'menu'
objects = [{ type = 'label', label = 'Copy', x = 3 }]
[[object]]
type = 'chain'
objects = [{ type = 'chain', x = 4 }]
)";

TEST(Decompile, gives_back_the_bytes_of_damaged_forms) {
    const Compiled whole(parts);
    ASSERT_TRUE(whole.is_good) << whole.messages;
    for (unsigned seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE(seed);
        RandomBytes random(seed);
        FormBytes bytes{whole.form, whole.texts};
        random.change(bytes.form);
        random.change(bytes.text);
        expect_to_come_back(bytes);
    }
}

TEST(Decompile, gives_back_the_forms_of_the_project) {
    for (const std::string name :
         {"examples/tour/tour", "examples/addressbook/addressbook", "examples/browser/browser",
          "examples/settings/settings", "tests/docs/typing", "tests/end_to_end/parts"}) {
        SCOPED_TRACE(name);
        const Compiled form(test::contents(VELFORM_PROJECT "/" + name + ".toml"));
        ASSERT_TRUE(form.is_good) << form.messages;
        expect_to_come_back({form.form, form.texts});
    }
}

TEST(Decompile, names_the_spare_records_of_a_header_where_they_are_the_last) {
    const std::string spare = "spare = { rows = 3, others = 2 }\n";
    const Compiled c(spare + parts);
    const velform::HeaderNames names(c.header);
    for (const auto &[rows, others, is_named] :
         {std::tuple{3U, 2U, true}, {2U, 2U, false}, {3U, 1U, false}, {3U, 0xFFFFFFFF, false}}) {
        auto ends = names.spare();
        ASSERT_EQ(ends.size(), 2U);
        ends[0].count = rows, ends[1].count = others;
        for (const char byte : {'\0', '\1'}) {
            FormBytes bytes{c.form, c.texts};
            bytes.form.back() = byte;
            const std::string source =
                velform::source_for(bytes, {"f", names.ids_by_number(), true, ends});
            EXPECT_EQ(source.find(spare) != source.npos, is_named && byte == '\0') << source;
            EXPECT_TRUE(Compiled(source).form == bytes.form);
        }
    }
}

TEST(Decompile, says_in_words_what_has_words) {
    const std::array<std::string, 2> cases[] = {
        {"theme = 'dark'\n" + test::object("entry", "x = 3"), "theme = \"dark\""},
        {test::object("label", "rect = [-1, 2, 3, 4]"), "rect = [-1, 2, 3, 4]\n"},
        {test::object("picture", "picture = 'a/b.png'"), "picture = \"a/b.png\"\n"},
        {"[frame]\npictures = 'own'\n", "pictures = \"own\"\n"},
        {"[[object]]\nkind = 'choice'\nrows = ['a']\ntip = 'T'", "tip = \"T\"\n"},
        {"theme = 'light'\n" + test::object("label", "tip = 'T'\nlabel = 'L'\nborder = 'fitted'") +
             "objects = [{ kind = 'choice', x = 3 }, { kind = 'list', rect = [0, 0, 90, 90] }]",
         "theme = \"light\""},
    };
    for (const auto &[source, words] : cases) {
        SCOPED_TRACE(source);
        const Compiled c(source);
        const std::string again = source_of({c.form, c.texts});
        EXPECT_NE(again.find(words), std::string::npos) << again;
        for (const char *raw : {"master = ", "dep_objs = ", "traits = "}) {
            EXPECT_EQ(again.find(raw), std::string::npos) << again;
        }
    }
}

} // namespace
