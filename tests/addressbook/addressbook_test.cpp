// The file of the address book, its order and its search.
#include <algorithm>
#include <unistd.h>

#include "book.h"

namespace {

using Names = std::vector<std::string>;

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
    Names mixed = names;
    std::reverse(mixed.begin(), mixed.end());
    std::rotate(mixed.begin(), mixed.begin() + 7, mixed.end());
    for (const std::string &name : mixed) save(contact_named(name));
    EXPECT_EQ(found(""), names);
}

TEST_F(Book, finds_contacts_with_words_that_begin_so) {
    Contact contact = contact_named("Groß, Jürgen");
    std::strcpy(contact.field[TOWN], "Köln");
    std::strcpy(contact.field[NOTES], "mag\nÄpfel 100%");
    save(contact);
    save(contact_named("O'Hara, Zoë"));
    const struct {
        const char *words;
        bool is_found;
    } cases[] = {
        {"gross", true},     {"GROSS", true},  {"groß jür", true}, {"juergen", true},
        {"köln gro", true},  {"aepfel", true}, {"100", true},      {"rgen", false},
        {"groß zoë", false}, {"%", true},      {"o'h", false},     {"' OR '1", false},
        {"koe", true},       {"kö", true},     {"kol", false},
    };
    for (const auto &[words, is_found] : cases) {
        const Names names = found(words);
        EXPECT_EQ(std::count(names.begin(), names.end(), "Groß, Jürgen"), is_found ? 1 : 0)
            << words;
    }
    EXPECT_EQ(found("o'h"), Names{"O'Hara, Zoë"});
}

TEST_F(Book, refuses_what_the_window_cannot_hold) {
    const struct {
        int field;
        std::string value;
        const char *reason;
    } cases[] = {
        {NAME, "", "Der Name fehlt."},
        {NAME, "   ", "Der Name fehlt."},
        {NAME, std::string(65, 'x'), "zu lang"},
        {NAME, "Κώστας", "ISO 8859-1"},
        {STREET, "zwei\nZeilen", "ISO 8859-1"},
        {STREET, "Preis 5 €", "ISO 8859-1"},
        {TOWN, "K\xf6ln", "ISO 8859-1"},
        {EMAIL, "a\x7f", "ISO 8859-1"},
        {POST_CODE, "D-10115", "Ziffern"},
        {POST_CODE, "12345678901", "Ziffern"},
        {NOTES, std::string(1000, 'x'), "zu lang"},
        {NOTES, "Tab\tulator", "ISO 8859-1"},
        {PICTURE, "/bild\xff.png", "UTF-8"},
        {PICTURE, std::string(1000, 'x'), "zu lang"},
    };
    for (const auto &[field, value, reason] : cases) {
        Contact contact = contact_named("Groß");
        std::strcpy(contact.field[field], value.c_str());
        EXPECT_EQ(store_save(&store, &contact), 0) << value;
        EXPECT_NE(std::strstr(store.message, reason), nullptr) << store.message;
    }
    EXPECT_TRUE(found("").empty());
}

TEST_F(Book, keeps_the_longest_contact_as_it_is) {
    Contact contact{};
    const auto fill = [&contact](int field, int count, const char *character) {
        while (count-- > 0) std::strcat(contact.field[field], character);
    };
    for (const int field : {NAME, STREET, TOWN, TELEPHONE, EMAIL}) fill(field, 64, "ÿ");
    fill(POST_CODE, 10, "9");
    fill(NOTES, 999, "ä");
    fill(PICTURE, 333, "€");
    const Contact saved = save(contact);
    Contact loaded{};
    ASSERT_EQ(store_load(&store, saved.id, &loaded), 1) << store.message;
    for (int k = 0; k < FIELD_COUNT; ++k) EXPECT_STREQ(loaded.field[k], contact.field[k]);
}

TEST_F(Book, changes_deletes_and_brings_back_a_contact_under_its_number) {
    Contact contact = save(contact_named("Groß"));
    const Contact other = save(contact_named("O'Hara"));
    std::strcpy(contact.field[TOWN], "Köln");
    EXPECT_EQ(save(contact).id, contact.id);
    ASSERT_EQ(
        store_run(&store, nullptr, nullptr, "DELETE FROM contact WHERE id = %lld", contact.id), 1);
    Contact loaded{};
    EXPECT_EQ(store_load(&store, contact.id, &loaded), 0);
    EXPECT_NE(save(contact_named("Neu")).id, contact.id);
    EXPECT_EQ(save(contact).id, contact.id);
    ASSERT_EQ(store_load(&store, contact.id, &loaded), 1);
    EXPECT_STREQ(loaded.field[TOWN], "Köln");
    ASSERT_EQ(store_load(&store, other.id, &loaded), 1);
    EXPECT_STREQ(loaded.field[NAME], "O'Hara");
}

// --- Files that are not as they should be: told, and left as they are

class BadFile : public Book {
protected:
    BadFile() {
        store_run(&store, nullptr, nullptr, "BEGIN");
        for (int k = 0; k < 200; ++k) save(contact_named("Kontakt " + std::to_string(k)));
        store_run(&store, nullptr, nullptr, "COMMIT");
        sound = content_of(file);
    }
    void expect_refusal(const std::string &content, const char *reason) {
        const std::filesystem::path bad = folder / "bad.db";
        write_file(bad, content);
        Store other{};
        EXPECT_EQ(store_open(&other, bad.c_str()), 0) << reason;
        EXPECT_NE(std::strstr(other.message, reason), nullptr) << other.message;
        sqlite3_close(other.database);
        EXPECT_TRUE(content_of(bad) == content);
    }
    std::string sound;
};

TEST_F(BadFile, damaged_is_refused) {
    const std::size_t half = sound.size() / 2 / 4096 * 4096;
    std::string middle = sound;
    std::fill_n(middle.begin() + static_cast<std::ptrdiff_t>(half), 4096, '\xa5');
    expect_refusal(middle, "beschädigt");
    expect_refusal(sound.substr(0, half), "beschädigt");
    expect_refusal("Das ist ein Brief und keine Datenbank.", "kein Adressbuch");
    expect_refusal("SQLite format 3" + sound.substr(15, 0) + std::string(5000, '\0'), "beschädigt");
}

TEST_F(BadFile, of_another_program_is_refused) {
    sqlite3 *database = nullptr;
    const std::filesystem::path other = folder / "other.db";
    sqlite3_open(other.c_str(), &database);
    sqlite3_exec(database, "CREATE TABLE contact (id, name); PRAGMA user_version = 1", nullptr,
                 nullptr, nullptr);
    sqlite3_close(database);
    expect_refusal(content_of(other), "kein Adressbuch");
    Store missing{};
    EXPECT_EQ(store_open(&missing, (folder / "no" / "folder.db").c_str()), 0);
    EXPECT_NE(std::strstr(missing.message, "nicht öffnen"), nullptr) << missing.message;
    sqlite3_close(missing.database);
}

TEST_F(BadFile, locked_is_told_and_unchanged) {
    Store other{};
    ASSERT_EQ(store_open(&other, file.c_str()), 1);
    ASSERT_EQ(store_run(&other, nullptr, nullptr, "BEGIN EXCLUSIVE"), 1);
    Contact contact = contact_named("Neu");
    EXPECT_EQ(store_save(&store, &contact), 0);
    EXPECT_NE(std::strstr(store.message, "gesperrt"), nullptr) << store.message;
    Store third{};
    EXPECT_EQ(store_open(&third, file.c_str()), 0);
    EXPECT_NE(std::strstr(third.message, "gesperrt"), nullptr) << third.message;
    sqlite3_close(third.database);
    sqlite3_close(other.database);
    EXPECT_TRUE(content_of(file) == sound);
    EXPECT_EQ(store_save(&store, &contact), 1) << store.message;
}

TEST_F(BadFile, read_only_can_be_read_and_not_changed) {
    namespace fs = std::filesystem;
    fs::permissions(file, fs::perms{0444});
    fs::permissions(folder, fs::perms{0755});
    const bool is_root = geteuid() == 0; // who may write everything
    if (is_root) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    Store other{};
    Contact contact = contact_named("Neu");
    EXPECT_EQ(store_open(&other, file.c_str()), 1) << other.message;
    EXPECT_EQ(sqlite3_db_readonly(other.database, "main"), 1);
    EXPECT_EQ(store_save(&other, &contact), 0);
    EXPECT_NE(std::strstr(other.message, "schreibgeschützt"), nullptr) << other.message;
    EXPECT_EQ(store_sort(&other), 1) << other.message;
    sqlite3_close(other.database);
    if (is_root) {
        ASSERT_EQ(seteuid(0), 0);
    }
    EXPECT_TRUE(content_of(file) == sound);
}

} // namespace
