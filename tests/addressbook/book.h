// An address book in a folder of its own, for the tests.
#pragma once

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

extern "C" {
#include "store.h"
}

inline std::string content_of(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void write_file(const std::filesystem::path &path, const std::string &content) {
    std::ofstream(path, std::ios::binary) << content;
}

inline Contact contact_named(const std::string &name) {
    Contact contact{};
    std::strncpy(contact.field[NAME], name.c_str(), FIELD_SIZE - 1);
    return contact;
}

class Book : public testing::Test {
protected:
    Book() {
        char name[] = "/tmp/addressbook_test.XXXXXX";
        folder = mkdtemp(name);
        file = folder / "contacts.db";
        EXPECT_EQ(store_open(&store, file.c_str()), 1) << store.message;
    }
    ~Book() override {
        sqlite3_close(store.database);
        std::filesystem::remove_all(folder);
    }

    // Names of what is found, in the order of the list.
    std::vector<std::string> found(const char *words) {
        std::vector<std::string> names;
        std::int64_t count = 0;
        EXPECT_EQ(store_sort(&store), 1) << store.message;
        EXPECT_EQ(store_search(&store, words, &count), 1) << store.message;
        const auto add = [](void *list, int, char **values, char **) {
            static_cast<std::vector<std::string> *>(list)->emplace_back(values[1]);
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

    std::filesystem::path folder, file;
    Store store{};
};
