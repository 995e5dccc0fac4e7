// The file selector on folders that the test makes.
#include "support.h"

#include <algorithm>
#include <unistd.h>

namespace {

using test::Folder;
using test::Form;

class FileSelector : public Form {
protected:
    FileSelector() : before_(std::filesystem::current_path()) {
        make(8, VEL_TYPE_WINDOW, 20, 30, 200, 100);
        vel_object &t = make(9, VEL_TYPE_LABEL, 25, 40, 90, 15, 8);
        t.margin_left = 4, t.margin_top = 2, t.fill_g = 7;
    }
    ~FileSelector() override { std::filesystem::current_path(before_); }

    std::vector<std::string> shown_names() const {
        std::vector<std::string> names;
        for (uint32_t k = 0; k <= ctx.dir_last; ++k)
            names.emplace_back(ctx.dir_names[ctx.dir_order[k]]);
        return names;
    }

    std::filesystem::path before_;
};

TEST_F(FileSelector, rows_are_made_from_the_template) {
    vel_prepare_fileselector(&ctx, 8, 3);
    for (uint32_t k = 1; k <= 3; ++k) {
        const vel_object &o = objects[9 + k];
        EXPECT_EQ(objects[8].dep_objs[k], 9 + k);
        EXPECT_EQ(std::tuple(o.type, o.master, o.x, o.y, o.width, o.height),
                  std::tuple(2U, 8U, 25U, 40 + 18 * k, 90U, 15U));
        EXPECT_EQ(std::tuple(o.margin_left, o.margin_top, o.fill_g), std::tuple(4U, 2U, 7U));
    }
    EXPECT_EQ(objects[8].dep_objs[4], 0U);
    // One row behind the loaded objects, no more.
    ctx.object_count = 11;
    std::fill_n(&objects[8].dep_objs[1], 3, 0U);
    vel_prepare_fileselector(&ctx, 8, 9);
    EXPECT_EQ(objects[8].dep_objs[3], 12U);
    EXPECT_EQ(objects[8].dep_objs[4], 0U);
    // Nothing without a template.
    const std::vector<vel_object> unchanged = objects;
    vel_prepare_fileselector(&ctx, 13, 3);
    EXPECT_EQ(std::memcmp(objects.data(), unchanged.data(), objects.size() * sizeof(vel_object)),
              0);
}

TEST_F(FileSelector, names_are_ordered_by_their_first_character) {
    const Folder folder;
    for (const char *name : {"zebra", "b", "a2", "a1", "\xE4pfel", "Berg"}) folder.write(name, "");
    std::filesystem::current_path(folder.file(""));
    vel_read_app_dir(&ctx);
    EXPECT_EQ(ctx.dir_last, 7U); // with the folder itself and its parent
    std::string firsts;
    for (const std::string &name : shown_names()) firsts += name[0];
    EXPECT_EQ(firsts, "..Baabz\xE4");
}

TEST_F(FileSelector, at_most_100_names_of_64_characters_are_read) {
    const struct {
        int files;
        std::size_t length;
        uint32_t last;
    } cases[] = {{0, 1, 1},    {1, 63, 2},   {1, 64, 2},   {1, 65, 2},   {1, 255, 2},
                 {97, 20, 98}, {98, 20, 99}, {99, 20, 99}, {150, 20, 99}};
    for (const auto &c : cases) {
        const Folder folder;
        for (int k = 0; k < c.files; ++k) {
            std::string name = std::to_string(k);
            name.resize(c.length, 'x');
            folder.write(name, "");
        }
        std::filesystem::current_path(folder.file(""));
        vel_read_app_dir(&ctx);
        EXPECT_EQ(ctx.dir_last, c.last) << c.files;
        if (c.files == 1) {
            EXPECT_EQ(shown_names().back().size(), std::min<std::size_t>(c.length, 64));
        }
        std::filesystem::current_path(before_);
    }
}

TEST_F(FileSelector, a_deleted_folder_shows_nothing) {
    {
        const Folder folder;
        std::filesystem::current_path(folder.file(""));
    }
    vel_read_app_dir(&ctx);
    EXPECT_EQ(ctx.dir_last, 0U);
    vel_load_dir_entries(&ctx, 8);
    EXPECT_STREQ(objects[9].label, "");
}

TEST_F(FileSelector, rows_show_names_and_the_rest_is_hidden) {
    vel_prepare_fileselector(&ctx, 8, 4);
    for (uint32_t k = 0; k < 3; ++k) {
        ctx.dir_names[k][0] = static_cast<char>('a' + k);
        ctx.dir_order[k] = 2 - k;
    }
    ctx.dir_last = 2;
    objects[10].hidden = 1;
    vel_load_dir_entries(&ctx, 8);
    EXPECT_STREQ(objects[9].label, "c");
    EXPECT_STREQ(objects[11].label, "a");
    for (uint32_t k = 9; k <= 13; ++k) {
        EXPECT_EQ(objects[k].width, k <= 11 ? 180U : 0U) << k;
        EXPECT_EQ(objects[k].hidden, k <= 11 ? 0U : 1U) << k;
    }
    EXPECT_EQ(objects[8].height, 3 * (15 + 3) + 40U);
    ctx.dir_last = 0; // a single name is not shown
    ctx.dir_names[0][0] = 'z';
    vel_load_dir_entries(&ctx, 8);
    EXPECT_STREQ(objects[11].label, "a");
}

} // namespace
