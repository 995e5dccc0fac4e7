// The file selector on folders that the test makes.
#include "support.h"

namespace {

using test::Folder;

class FileSelector : public test::Form {
protected:
    FileSelector() {
        make(8, VEL_TYPE_WINDOW, 20, 30, 200, 100);
        vel_object &t = make(9, VEL_TYPE_LABEL, 25, 40, 90, 15, 8);
        uint32_t value = 50;
        for (const auto field : copied) t.*field = value++;
    }
    ~FileSelector() override { std::filesystem::current_path(before_); }

    // The first characters of the names of a folder, in the order in which they are shown.
    std::string read(const Folder &folder) {
        std::filesystem::current_path(folder.file(""));
        vel_read_app_dir(&ctx);
        std::string firsts;
        for (uint32_t k = 0; k <= ctx.dir_last; ++k) firsts += ctx.dir_names[ctx.dir_order[k]][0];
        return firsts;
    }

    static constexpr uint32_t vel_object::*copied[] = {
        &vel_object::x,      &vel_object::width, &vel_object::height,      &vel_object::fill_r,
        &vel_object::text_g, &vel_object::type,  &vel_object::margin_left, &vel_object::margin_top};
    const std::filesystem::path before_ = std::filesystem::current_path();
};

TEST_F(FileSelector, rows_are_made_from_the_template) {
    vel_prepare_fileselector(&ctx, 8, 3);
    for (uint32_t k = 1; k <= 3; ++k) {
        const vel_object &o = objects[9 + k];
        EXPECT_EQ(std::tuple(objects[8].dep_objs[k], o.master, o.y),
                  std::tuple(9 + k, 8U, 40 + (objects[9].height + 3) * k));
        for (const auto field : copied) EXPECT_EQ(o.*field, objects[9].*field);
    }
    EXPECT_EQ(objects[8].dep_objs[4], 0U);
    // One row after the loaded objects, no more.
    ctx.object_count = 11;
    std::fill_n(&objects[8].dep_objs[1], 3, 0U);
    vel_prepare_fileselector(&ctx, 8, 9);
    EXPECT_EQ(std::tuple(objects[8].dep_objs[3], objects[8].dep_objs[4]), std::tuple(12U, 0U));
    vel_prepare_fileselector(&ctx, 13, 3); // nothing without a template
    EXPECT_EQ(objects[13].dep_objs[1], 0U);
}

TEST_F(FileSelector, rows_close_no_ring_and_are_listed_once) {
    const auto rows_of = [this](uint32_t list, uint32_t rows) {
        vel_prepare_fileselector(&ctx, list, rows);
        const uint32_t *of = objects[list].dep_objs;
        return std::vector(of, std::find(of, of + 100, 0U));
    };
    const std::vector<uint32_t> expected[] = {{15, 16}, {20, 21, 22}, {25, 26, 27}};
    objects[17].dep_objs[0] = 15; // the list itself
    EXPECT_EQ(rows_of(17, 5), expected[0]);
    objects[13].dep_objs[0] = 20;
    objects[13].master = 23; // what it hangs on, by its record alone
    EXPECT_EQ(rows_of(13, 5), expected[1]);
    objects[14].dep_objs[0] = 24;
    objects[25].dep_objs[0] = 14; // and by the other's list alone
    EXPECT_EQ(rows_of(14, 5), std::vector{24U});
    objects[12].dep_objs[0] = 25;
    objects[12].dep_objs[3] = 26; // a row that the list has further on
    objects[27].master = 11;      // a row of another list
    objects[11].dep_objs[0] = 27;
    EXPECT_EQ(rows_of(12, 2), expected[2]);
    EXPECT_EQ(objects[11].dep_objs[0], 0U);
    EXPECT_EQ(objects[27].master, 12U);
}

TEST_F(FileSelector, at_most_100_names_of_64_characters_are_read_and_ordered_by_the_first) {
    const Folder some;
    some.fill({"zebra", "b", "a2", "a1", "\xE4pfel", "Berg"});
    EXPECT_EQ(read(some), "..Baabz\xE4"); // with the folder itself and its parent
    const Folder many;
    for (int k = 100; k < 250; ++k) many.write(std::to_string(k) + std::string(100, 'x'));
    read(many);
    EXPECT_EQ(ctx.dir_last, 99U);
    EXPECT_EQ(std::strlen(ctx.dir_names[ctx.dir_order[99]]), 64U);
    { read(Folder()); }
    vel_read_app_dir(&ctx); // a folder that is gone has no names
    EXPECT_EQ(ctx.dir_last, 0U);
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
    std::string shown;
    for (uint32_t k = 9; k <= 13; ++k) {
        shown += objects[k].label;
        EXPECT_EQ(objects[k].width, k <= 11 ? 180U : 0U) << k;
        EXPECT_EQ(objects[k].hidden, k <= 11 ? 0U : 1U) << k;
    }
    EXPECT_EQ(shown, "cba");
    EXPECT_EQ(objects[8].height, 3 * (objects[9].height + 3) + 40U);
    ctx.dir_names[0][0] = 'z'; // a single name is not shown
    ctx.dir_last = 0;
    vel_load_dir_entries(&ctx, 8);
    EXPECT_STREQ(objects[11].label, "a");
}

} // namespace
