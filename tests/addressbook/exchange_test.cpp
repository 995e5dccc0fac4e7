// Contacts in and out as comma-separated values.
#include <sys/stat.h>

#include "book.h"

namespace {

const std::string header = "Name,Straße,PLZ,Ort,Telefon,E-Mail,Notiz,Bild\r\n";

class Exchange : public Book {
protected:
    int import(const std::string &content) {
        write_file(folder / "in.csv", content);
        return import_contacts(&store, (folder / "in.csv").c_str());
    }
    Contact load(std::int64_t id) {
        Contact contact{};
        EXPECT_EQ(store_load(&store, id, &contact), 1) << store.message;
        return contact;
    }
};

TEST_F(Exchange, reads_what_the_rules_of_the_format_allow) {
    const struct {
        std::string content;
        int count;
        const char *name, *notes;
    } cases[] = {
        {header, 0, "", ""},
        {header + "Groß,,,,,,,\r\n", 1, "Groß", ""},
        {"\xef\xbb\xbf" + header + "Groß,,,,,,,", 1, "Groß", ""},
        {"Name,Straße,PLZ,Ort,Telefon,E-Mail,Notiz,Bild\n\"Groß, \"\"J\"\"\",,,,,,\"a\nb\",\n", 1,
         "Groß, \"J\"", "a\nb"},
        {header + "\r\nÄ,,,,,,\"a\r\nb\r\n\",\r\n\r\nB,,,,,,,\r\n", 2, "Ä", "a\nb\n"},
    };
    for (const auto &[content, count, name, notes] : cases) {
        store_run(&store, nullptr, nullptr, "DELETE FROM contact");
        EXPECT_EQ(import(content), count) << store.message << content;
        if (count > 0) {
            std::int64_t first = 0;
            store_run(
                &store,
                [](void *id, int, char **values, char **) {
                    *static_cast<std::int64_t *>(id) = std::stoll(values[0]);
                    return 0;
                },
                &first, "SELECT min(id) FROM contact");
            EXPECT_STREQ(load(first).field[NAME], name);
            EXPECT_STREQ(load(first).field[NOTES], notes);
        }
    }
}

// The bad line comes behind a good one, which must not get in either.
TEST_F(Exchange, refuses_a_bad_file_as_a_whole_and_names_the_line) {
    const std::string good = header + "Gut,,,,,,\"zwei\r\nZeilen\",\r\n";
    const struct {
        std::string content;
        const char *message;
    } cases[] = {
        {"", "Zeile 1: Hier muss stehen"},
        {"Name,Ort\r\nGroß,Köln\r\n", "Zeile 1: Hier muss stehen"},
        {header.substr(0, header.size() - 3) + "\r\n", "Zeile 1: Hier muss stehen"},
        {std::string(100000, 'x'), "Zeile 1: Hier muss stehen"},
        {good + "Groß\r\n", "Zeile 4: Es müssen acht"},
        {good + "Groß,,,,,,,,\r\n", "Zeile 4: Es müssen acht"},
        {good + "Groß,,,,,,,,,,,,,,,,,,,,,,\r\n", "Zeile 4: Es müssen acht"},
        {good + "\"Groß,,,,,,,\r\nA,,,,,,,\r\n", "Zeile 4: Ein Anführungszeichen wird nicht"},
        {good + "Gr\"oß,,,,,,,\r\n", "Zeile 4: Ein Anführungszeichen steht"},
        {good + "\"Groß\" ,,,,,,,\r\n", "Zeile 4: Hinter einem Anführungszeichen"},
        {good + std::string("Gro\0ß,,,,,,,\r\n", 15), "Zeile 4: Das ist keine Textdatei"},
        {good + std::string(2000, 'x') + ",,,,,,,\r\n", "Zeile 4: Ein Feld ist zu lang"},
        {good + "Κώστας,,,,,,,\r\n", "Zeile 4: Der Name enthält Zeichen"},
        {good + "Gro\xdf,,,,,,,\r\n", "Zeile 4: Der Name enthält Zeichen"},
        {good + "A\rB,,,,,,,\r\n", "Zeile 4: Der Name enthält Zeichen"},
        {good + ",,,,,,,\r\n", "Zeile 4: Der Name fehlt"},
        {good + "A,,PLZ,,,,,\r\n", "Zeile 4: Die Postleitzahl"},
    };
    for (const auto &[content, message] : cases) {
        EXPECT_LT(import(content), 0) << message;
        EXPECT_EQ(std::string(store.message).rfind(message, 0), 0U) << store.message;
        EXPECT_TRUE(found("").empty()) << message;
    }
    EXPECT_EQ(import(good), 1) << store.message;
}

TEST_F(Exchange, reads_files_only) {
    const std::filesystem::path pipe = folder / "pipe.csv";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::filesystem::path &path : {pipe, folder, folder / "missing.csv"}) {
        EXPECT_LT(import_contacts(&store, path.c_str()), 0) << path;
        EXPECT_STREQ(store.message, "Die Datei ist nicht lesbar.");
    }
}

TEST_F(Exchange, gives_out_what_it_takes_in) {
    Contact contact = contact_named("Groß, \"J\"");
    std::strcpy(contact.field[POST_CODE], "01067");
    std::strcpy(contact.field[NOTES], " a,b\n\n\"c\" ");
    std::strcpy(contact.field[PICTURE], "/Bilder/ώ,\".png");
    const Contact saved = save(contact);
    save(contact_named("Ärmel"));
    const std::string path = folder / "out.csv";
    ASSERT_EQ(export_contacts(&store, path.c_str()), 1) << store.message;
    EXPECT_EQ(content_of(path), header + "\"Ärmel\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n"
                                         "\"Groß, \"\"J\"\"\",\"\",\"01067\",\"\",\"\",\"\","
                                         "\" a,b\n\n\"\"c\"\" \",\"/Bilder/ώ,\"\".png\"\r\n");
    store_run(&store, nullptr, nullptr, "DELETE FROM contact WHERE id = %lld", saved.id);
    ASSERT_EQ(import_contacts(&store, path.c_str()), 2) << store.message;
    const Contact again = load(saved.id + 3);
    for (int k = 0; k < FIELD_COUNT; ++k) EXPECT_STREQ(again.field[k], contact.field[k]) << k;
}

TEST_F(Exchange, leaves_an_old_file_when_it_cannot_write) {
    const std::filesystem::path busy = folder / "folder.csv";
    std::filesystem::create_directories(busy / "inside");
    EXPECT_EQ(export_contacts(&store, busy.c_str()), 0);
    EXPECT_EQ(export_contacts(&store, (folder / "no" / "out.csv").c_str()), 0);
    EXPECT_STREQ(store.message, "Die Datei lässt sich nicht schreiben.");
    const auto entries = std::filesystem::directory_iterator(folder);
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 2) << "a draft was left behind";
}

} // namespace
