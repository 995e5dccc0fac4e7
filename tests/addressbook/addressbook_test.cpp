// The file of the address book, its order and its search; contacts in and out as CSV.
#include "support.h"

#include <chrono>
#include <csignal>
#include <sys/stat.h>

extern "C" {
#include "picture_file.h"
#include "store.h"
}

namespace {

using test::contents;
using test::Names;

const std::string header = "Name,Street,Postcode,Town,Telephone,Email,Notes,Picture\r\n";

Contact contact_with(const std::string &name, const std::string &notes = "") {
    Contact contact{};
    name.copy(contact.field[NAME], FIELD_SIZE - 1);
    notes.copy(contact.field[NOTES], FIELD_SIZE - 1);
    return contact;
}

class Book : public testing::Test {
protected:
    Book() { EXPECT_EQ(store_open(&store, file.c_str()), 1) << store.message; }
    ~Book() override { sqlite3_close(store.database); }

    // Names of what is found, in the order of the list.
    Names found(const char *words) {
        Names names;
        std::int64_t count = 0;
        EXPECT_EQ(store_sort(&store), 1) << store.message;
        EXPECT_EQ(store_search(&store, words, &count), 1) << store.message;
        const auto add = [](void *list, int, char **values, char **) {
            static_cast<Names *>(list)->emplace_back(values[1]);
            return 0;
        };
        store_run(&store, add, &names, "SELECT * FROM found ORDER BY rowid");
        EXPECT_EQ(static_cast<std::size_t>(count), names.size());
        return names;
    }
    Contact save(Contact contact) {
        EXPECT_EQ(store_save(&store, &contact), 1) << store.message;
        return contact;
    }
    void expect_kept(const Contact &contact, std::int64_t id) {
        Contact loaded{};
        EXPECT_EQ(store_load(&store, id, &loaded), 1) << store.message;
        for (int k = 0; k < FIELD_COUNT; ++k) EXPECT_STREQ(loaded.field[k], contact.field[k]) << k;
    }
    void remove(std::int64_t id) {
        store_run(&store, nullptr, nullptr, "DELETE FROM contact WHERE id = %lld", id);
    }
    int import(const std::string &content) {
        return import_contacts(&store, folder.write("in.csv", content).c_str());
    }

    const test::Folder folder;
    const std::string file = folder.file("contacts.db");
    Store store{};
};

// Each list is in the order of the rule: umlauts as two letters, other accents and signs as
// nothing, a word before a longer one, and the plain letters first among equals.
TEST_F(Book, sorts_as_a_telephone_book) {
    const Names names = {
        "1a Umzüge", "Adler",        "Aermel",       "Ärmel",        "AERO",
        "ahlers",    "Goebel",       "Goethe",       "Göthe",        "Götz",
        "Gotz",      "Groß, Anna",   "Gross, Berta", "Grosse, Anna", "Große, Berta",
        "Müller-Aa", "Mueller, Zoe", "Müllerin",     "Muller",       "Noël",
        "Noeline",   "O'Hara",       "Ödön",         "Øre",          "Zöllner",
    };
    Names mixed(names.rbegin(), names.rend());
    for (const std::string &name : mixed) save(contact_with(name));
    EXPECT_EQ(found(""), names);
}

TEST_F(Book, finds_contacts_with_words_that_begin_so) {
    Contact contact = contact_with("Groß, Jürgen", "likes\nÄpfel 100%");
    std::strcpy(contact.field[TOWN], "Köln");
    save(contact);
    save(contact_with("O'Hara, Zoë"));
    const Names both = {"Groß, Jürgen", "O'Hara, Zoë"};
    for (const char *words :
         {"gross", "GROSS", "groß jür", "juergen", "köln gro", "aepfel", "100", "koe", "kö"}) {
        EXPECT_EQ(found(words), Names{both[0]}) << words;
    }
    for (const char *words : {"rgen", "groß zoë", "' OR '1", "kol"}) {
        EXPECT_EQ(found(words), Names{}) << words;
    }
    EXPECT_EQ(found("o'h"), Names{both[1]});
    EXPECT_EQ(found("%"), both);
}

void expect_refusal(const std::string &path, const char *reason) {
    Store store{};
    EXPECT_EQ(store_open(&store, path.c_str()), 0) << reason;
    EXPECT_NE(std::strstr(store.message, reason), nullptr) << store.message;
    sqlite3_close(store.database);
}

TEST_F(Book, refuses_a_file_that_is_damaged_foreign_or_missing) {
    for (int k = 0; k < 30; ++k) save(contact_with("Contact", std::string(999, 'x')));
    const std::string sound = contents(file);
    const std::size_t half = sound.size() / 2 / 4096 * 4096;
    std::string middle = sound, foreign = sound;
    std::fill_n(middle.begin() + static_cast<std::ptrdiff_t>(half), 4096, '\xa5');
    foreign[68] ^= 1; // in the number of the application
    const std::tuple<std::string, const char *> cases[] = {
        {middle, "damaged"},
        {sound.substr(0, half), "damaged"},
        {"This is a letter and no database.", "not an address book"},
        {foreign, "not an address book"},
    };
    for (const auto &[content, reason] : cases) {
        const std::string bad = folder.write("bad.db", content);
        expect_refusal(bad, reason);
        EXPECT_TRUE(contents(bad) == content) << reason;
    }
    expect_refusal(folder.file("no/folder.db"), "cannot be opened");
}

// A file that says it is an address book, whatever is in it.
std::string book_with(const test::Folder &folder, const std::string &sql) {
    const std::string path = folder.write("foreign.db");
    sqlite3 *database = nullptr;
    sqlite3_open(path.c_str(), &database);
    const std::string all = "PRAGMA application_id = 1447380034; PRAGMA user_version = 1;" + sql;
    EXPECT_EQ(sqlite3_exec(database, all.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    sqlite3_close(database);
    return path;
}

TEST_F(Book, runs_and_believes_nothing_of_a_file_that_only_looks_like_one) {
    const std::string columns = "name, street, post_code, town, telephone, email, notes, picture";
    const std::string endless = "WITH RECURSIVE r(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM r) ";
    const Names foreign = {"CREATE TABLE other(id)", "CREATE TABLE contact(id, name)",
                           "CREATE VIEW contact(id, " + columns + ") AS " + endless +
                               "SELECT n,1,2,3,4,5,6,7,8 FROM r",
                           "CREATE VIRTUAL TABLE contact USING fts5(id, " + columns + ")"};
    for (const std::string &sql : foreign) {
        expect_refusal(book_with(folder, sql), "not an address book");
    }
    const std::string pipe = folder.file("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    expect_refusal(pipe, "cannot be opened");

    const std::string table =
        "CREATE TABLE contact(id INTEGER PRIMARY KEY, " + columns + ");" +
        "INSERT INTO contact(town) VALUES('T'); INSERT INTO contact(name) "
        "VALUES(x'4100'); INSERT INTO contact(name) VALUES(hex(zeroblob(999)));" +
        "INSERT INTO contact(name) VALUES(hex(zeroblob(1000)));" +
        "CREATE TRIGGER t AFTER DELETE ON contact BEGIN INSERT INTO contact " + endless +
        "SELECT n,1,2,3,4,5,6,7,8 FROM r; END";
    Store other{};
    Contact contact{};
    ASSERT_EQ(store_open(&other, book_with(folder, table).c_str()), 1) << other.message;
    EXPECT_EQ(store_run(&other, nullptr, nullptr, "DELETE FROM contact WHERE id = 2"), 1)
        << other.message;
    EXPECT_EQ(store_load(&other, 1, &contact), 1) << other.message;
    EXPECT_STREQ(contact.field[NAME], "");
    EXPECT_STREQ(contact.field[TOWN], "T");
    EXPECT_EQ(store_load(&other, 3, &contact), 1) << other.message;
    EXPECT_EQ(store_load(&other, 4, &contact), 0);
    EXPECT_NE(std::strstr(other.message, "too long"), nullptr) << other.message;
    std::int64_t count = 0;
    EXPECT_EQ(store_sort(&other) && store_search(&other, "", &count), 1) << other.message;
    EXPECT_EQ(count, 3);
    const volatile std::sig_atomic_t stop = 1;
    other.stop = &stop; // at once, not after five seconds
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(store_run(&other, nullptr, nullptr, "%sSELECT count(*) FROM r", endless.c_str()), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    const std::string csv = folder.write("in.csv", header + "Good,,,,,,,\r\n");
    EXPECT_LT(import_contacts(&other, csv.c_str()), 0);
    sqlite3_close(other.database);
}

TEST(Pictures, are_shown_when_their_format_and_sides_are_sound) {
    using namespace std::string_literals;
    const auto png = [](const std::string &sides) {
        return "\x89PNG\r\n\x1a\n\0\0\0\rIHDR"s + sides + "\x8\x2";
    };
    const auto bmp = [](const std::string &sides) { return "BM"s + std::string(16, '\0') + sides; };
    const auto jpeg = [](const std::string &sides) { // after a segment of two bytes
        return "\xff\xd8\xff\xe0\0\4ab\xff\xc0\0\x11\x8"s + sides + std::string(20, '\0');
    };
    const std::pair<std::string, bool> cases[] = {
        {png("\0\0\x20\0\0\0\0\1"s), true},
        {png("\0\0\x20\1\0\0\0\1"s), false},
        {png("\0\0\0\1\0\0\0\0"s), false},
        {png("\0\0\0\1\1\0\0\0"s), false},
        {bmp("\1\0\0\0\0\x20\0\0"s), true},
        {bmp("\1\0\0\0\1\x20\0\0"s), false},
        {bmp("\1\0\0\0\xff\xff\xff\xff"s), true},
        {bmp("\1\0\0\1\1\0\0\0"s), false},
        {jpeg("\x20\0\0\1"s), true},
        {jpeg("\0\1\x20\1"s), false},
        {jpeg("\0\1\0\0"s), false},
        {"P6\n1 1\n255\n" + std::string(40, 'a'), false},
        {"GIF89a\1\0\1\0" + std::string(40, '\0'), false},
        {"BM", false},
    };
    const test::Folder folder;
    for (const auto &[content, is_sound] : cases) {
        const std::string path = folder.write("picture", content);
        EXPECT_EQ(is_sound_picture(path.c_str()) != 0, is_sound) << content;
    }
    std::filesystem::resize_file(folder.write("picture", cases[0].first), (16U << 20) + 1);
    EXPECT_EQ(is_sound_picture(folder.file("picture").c_str()), 0);
    EXPECT_EQ(is_sound_picture(folder.file("").c_str()), 0);
}

TEST_F(Book, leaves_a_locked_file_unchanged) {
    const std::string before = contents(file);
    Store other{};
    Contact contact = contact_with("New");
    ASSERT_EQ(store_open(&other, file.c_str()), 1);
    ASSERT_EQ(store_run(&other, nullptr, nullptr, "BEGIN EXCLUSIVE"), 1);
    EXPECT_EQ(store_save(&store, &contact), 0);
    EXPECT_NE(std::strstr(store.message, "locked"), nullptr) << store.message;
    expect_refusal(file, "locked");
    sqlite3_close(other.database);

    EXPECT_TRUE(contents(file) == before);
    save(contact);
}

// The bad line comes after a good one, which must not get in either.
TEST_F(Book, refuses_a_file_with_a_bad_line_as_a_whole_and_names_the_line) {
    const std::string good = header + "Good,,,,,,\"two\r\nlines\",\r\n";
    const std::tuple<std::string, const char *> cases[] = {
        {"", "Line 1: This line must be: "},
        {std::string(100000, 'x'), "Line 1: This line must be: "},
        {good + "Groß", "Line 4: There must be eight fields."},
        {good + "\"Groß,,,,,,,\r\nA,,,,,,,", "Line 4: A quotation mark is not closed."},
        {good + "Gr\"oß,,,,,,,", "Line 4: There is a quotation mark inside a field."},
        {good + "\"Groß\" ,,,,,,,", "Line 4: A comma is missing after a quotation mark."},
        {good + std::string("Gro\0ß,,,,,,,", 13), "Line 4: This is not a text file."},
        {good + std::string(2000, 'x') + ",,,,,,,", "Line 4: A field is too long."},
        {good + "   ,,,,,,,", "Line 4: The name is missing."},
        {good + "Κώστας,,,,,,,", "Line 4: The name has characters outside ISO 8859-1."},
        {good + "A,,12345678901,,,,,", "Line 4: The postcode must be at most 10 digits."},
        {good + "A,,,,,," + std::string(1000, 'x') + ",", "Line 4: The notes are too long "},
        {good + "A,,,,,,,/bild\xff.png", "Line 4: The file name of the picture is not valid "},
    };
    for (const auto &[content, message] : cases) {
        EXPECT_LT(import(content), 0) << message;
        EXPECT_EQ(std::string(store.message).rfind(message, 0), 0U) << store.message;
        EXPECT_TRUE(found("").empty()) << message;
    }
    EXPECT_EQ(import(good), 1) << store.message;
    const std::string large = folder.write("large.csv");
    std::filesystem::resize_file(large, (16U << 20) + 1);
    EXPECT_LT(import_contacts(&store, large.c_str()), 0);
    EXPECT_NE(std::strstr(store.message, "16 MiB"), nullptr) << store.message;
}

TEST_F(Book, keeps_the_longest_contact_and_its_number_and_exports_what_it_imports) {
    Contact contact{}, loaded{};
    const auto fill = [&contact](int field, int count, const char *character) {
        while (count-- > 0) std::strcat(contact.field[field], character);
    };
    for (const int field : {NAME, STREET, TOWN, TELEPHONE}) fill(field, 64, "ÿ");
    fill(EMAIL, 64, "\"");
    fill(POST_CODE, 10, "0");
    fill(NOTES, 333, "ä\n,");
    fill(PICTURE, 333, "€");
    const Contact saved = save(contact);
    expect_kept(contact, saved.id);
    const std::string path = folder.file("out.csv");
    ASSERT_EQ(export_contacts(&store, path.c_str()), 1) << store.message;
    EXPECT_EQ(contents(path).rfind(header + "\"ÿ", 0), 0U);

    remove(saved.id);
    EXPECT_EQ(store_load(&store, saved.id, &loaded), 0);
    ASSERT_EQ(import_contacts(&store, path.c_str()), 1) << store.message;
    expect_kept(contact, saved.id + 1); // its own number is not given to another
    EXPECT_EQ(save(saved).id, saved.id);
}

} // namespace
