// Form files: what is loaded, what is mended, what fails.
#include "support.h"

#include <algorithm>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using test::Folder;

void set_number(std::string &bytes, std::size_t offset, uint32_t value) {
    for (std::size_t k = 0; k < 4; ++k) bytes[offset + k] = static_cast<char>(value >> 8 * k);
}

// Form files of records that are zero but for what a test sets.
struct Files {
    Folder folder;
    std::string form, texts;

    explicit Files(std::size_t objects, std::size_t text_count = 0)
        : form(776 * objects, '\0'), texts(1008 * text_count, '\0') {}
    void set(uint32_t object, std::size_t offset, uint32_t value) {
        set_number(form, 776 * (object - 1) + offset, value);
    }
    int32_t load(vel_context &ctx, uint32_t extra_objs = 0, uint32_t extra_texts = 0) const {
        return vel_load_forms(&ctx, extra_objs, extra_texts, folder.write("a.form", form).c_str(),
                              folder.write("a.text", texts).c_str());
    }
};

// A context whose loaded tables are released with it.
struct Loaded {
    vel_context ctx{};
    Loaded() { TTF_Init(); }
    ~Loaded() {
        ctx.texts_loaded = 1;
        vel_close(&ctx);
    }
};

const struct {
    std::size_t offset;
    uint32_t vel_object::*field;
} number_fields[] = {
    {0, &vel_object::x},
    {4, &vel_object::y},
    {8, &vel_object::width},
    {12, &vel_object::height},
    {16, &vel_object::fill_r},
    {20, &vel_object::fill_g},
    {24, &vel_object::fill_b},
    {96, &vel_object::font_choice},
    {100, &vel_object::font_size},
    {176, &vel_object::text_r},
    {180, &vel_object::text_g},
    {184, &vel_object::text_b},
    {188, &vel_object::margin_left},
    {192, &vel_object::margin_right},
    {196, &vel_object::margin_top},
    {200, &vel_object::margin_bottom},
    {204, &vel_object::centred},
    {208, &vel_object::line_width},
    {212, &vel_object::line_spacing},
    {224, &vel_object::hidden},
    {228, &vel_object::type},
    {232, &vel_object::window_kind},
    {236, &vel_object::editable},
    {248, &vel_object::text_length},
    {260, &vel_object::max_chars},
    {264, &vel_object::border_style},
    {268, &vel_object::border_inset},
    {272, &vel_object::border_r},
    {276, &vel_object::border_g},
    {280, &vel_object::border_b},
    {696, &vel_object::scroll_max_x},
    {700, &vel_object::scroll_max_y},
    {772, &vel_object::clip_mode},
};

TEST(Load, every_number_is_read_from_its_place_and_reserved_words_are_not) {
    Files files(2);
    for (const auto &field : number_fields) {
        files.set(2, field.offset, 0x81828300U + static_cast<uint32_t>(field.offset / 4));
    }
    for (const std::size_t reserved : {216, 220, 240, 244, 252, 256, 688, 692}) {
        files.set(2, reserved, 0xFFFFFFFF);
    }
    Loaded form;
    ASSERT_EQ(files.load(form.ctx), VEL_OK);
    vel_object wanted{};
    for (const auto &field : number_fields) {
        wanted.*field.field = 0x81828300U + static_cast<uint32_t>(field.offset / 4);
    }
    EXPECT_EQ(form.ctx.object_count, 2U);
    EXPECT_EQ(std::memcmp(&form.ctx.objects[2], &wanted, sizeof wanted), 0);
    wanted = {};
    EXPECT_EQ(std::memcmp(&form.ctx.objects[1], &wanted, sizeof wanted), 0);
}

TEST(Load, strings_end_inside_their_fields) {
    Files files(1);
    for (const std::size_t offset : {28, 104, 704}) {
        std::fill_n(&files.form[offset], 68, static_cast<char>('a' + offset % 7));
    }
    Loaded form;
    ASSERT_EQ(files.load(form.ctx), VEL_OK);
    const vel_object &o = form.ctx.objects[1];
    EXPECT_EQ(std::string(o.label), std::string(67, 'a' + 28 % 7));
    EXPECT_EQ(std::string(o.font_path), std::string(67, 'a' + 104 % 7));
    EXPECT_EQ(std::string(o.image_path), std::string(67, 'a' + 704 % 7));
}

TEST(Load, only_top_level_objects_and_menus_start_hidden) {
    const struct {
        uint32_t type, master, hidden;
    } cases[] = {{VEL_TYPE_EMPTY, 0, 0}, {VEL_TYPE_WINDOW, 0, 5}, {VEL_TYPE_WINDOW, 1, 0},
                 {VEL_TYPE_LABEL, 1, 0}, {VEL_TYPE_MENU, 1, 5},   {VEL_TYPE_MENU, 0, 5}};
    Files files(1 + std::size(cases));
    uint32_t number = 2;
    for (const auto &c : cases) {
        files.set(number, 228, c.type);
        files.set(number, 284, c.master);
        files.set(number++, 224, 5);
    }
    Loaded form;
    ASSERT_EQ(files.load(form.ctx), VEL_OK);
    number = 2;
    for (const auto &c : cases) {
        EXPECT_EQ(form.ctx.objects[number++].hidden, c.hidden) << c.type << " " << c.master;
    }
}

TEST(Load, whole_records_count_and_spare_ones_are_zero) {
    Files files(3, 2);
    files.form += "the rest of the file";
    files.texts += "rest";
    files.set(2, 172, 2);
    set_number(files.texts, 1008, 0x01020304);
    set_number(files.texts, 1012, 7);
    std::fill_n(&files.texts[1008 + 8], 1000, 'x');
    Loaded form;
    ASSERT_EQ(files.load(form.ctx, 4, 3), VEL_OK);
    EXPECT_EQ(form.ctx.object_count, 3U);
    EXPECT_EQ(form.ctx.text_count, 2U);
    EXPECT_EQ(form.ctx.text_recs[2].first_word, 0x01020304U);
    EXPECT_EQ(form.ctx.text_recs[2].cursor_index, 7U);
    EXPECT_EQ(std::string(form.ctx.text_recs[2].text), std::string(999, 'x'));
    EXPECT_EQ(form.ctx.objects[7].type, 0U);
    EXPECT_EQ(form.ctx.text_recs[5].text[999], '\0');
    EXPECT_EQ(form.ctx.text_bufs[5][3999], '\0');
}

TEST(Load, text_file_is_needed_only_for_texts) {
    Files files(1);
    const std::string path = files.folder.write("a.form", files.form);
    {
        Loaded form;
        EXPECT_EQ(vel_load_forms(&form.ctx, 0, 9, path.c_str(), "nowhere"), VEL_OK);
        EXPECT_EQ(form.ctx.text_recs, nullptr);
        EXPECT_EQ(form.ctx.text_count, 0U);
    }
    files.set(1, 172, 1);
    files.folder.write("a.form", files.form);
    vel_context ctx{};
    EXPECT_EQ(vel_load_forms(&ctx, 0, 0, path.c_str(), "nowhere"), VEL_ERROR_TEXT_FILE);
}

TEST(Load, failures_tell_their_code_and_leave_the_context) {
    const Folder folder;
    const std::string form = folder.write("a.form", std::string(776, '\0'));
    const std::string pipe = folder.file("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    vel_context ctx{};
    ctx.object_count = 42;
    const vel_context before = ctx;
    const auto load = [&](const char *path) { return vel_load_forms(&ctx, 0, 0, path, path); };
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(load("nowhere"), VEL_ERROR_FORM_FILE);
    EXPECT_EQ(load("."), VEL_ERROR_FORM_FILE);
    EXPECT_EQ(load(pipe.c_str()), VEL_ERROR_FORM_FILE);
    EXPECT_EQ(load(nullptr), VEL_ERROR_ARGUMENT);
    EXPECT_EQ(vel_load_forms(&ctx, 0xFFFFFFFF, 0, form.c_str(), "x"), VEL_ERROR_MEMORY);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(std::memcmp(&ctx, &before, sizeof ctx), 0);
    for (int32_t code = VEL_ERROR_MEMORY; code <= VEL_OK; ++code) {
        if (code == 0) continue;
        EXPECT_STRNE(vel_error_text(code), vel_error_text(-99)) << code;
    }
}

TEST(Start, missing_files_end_the_process_with_a_message_and_status_0) {
    Files files(1);
    files.set(1, 172, 1);
    const std::string form = files.folder.write("a.form", files.form);
    const auto output_of = [&](const char *form_path, const char *text_path) {
        const std::string output = files.folder.file("output");
        EXPECT_EXIT(
            {
                if (std::freopen(output.c_str(), "w", stdout) == nullptr) std::exit(9);
                vel_context ctx{};
                vel_start_velumo(&ctx, 0, 0, form_path, text_path);
                std::exit(9);
            },
            testing::ExitedWithCode(0), "");
        std::ifstream in(output);
        return std::string(std::istreambuf_iterator<char>(in), {});
    };
    EXPECT_EQ(output_of("nowhere", "nowhere"), "Can't open file.\n");
    EXPECT_EQ(output_of(form.c_str(), "nowhere"), "Can't open file !\n\n");
}

TEST(Start, mark_colour_follows_the_frame_mode) {
    for (const auto &[mode, wanted] :
         {std::pair{0U, test::red}, {1U, test::green}, {2U, test::blue}}) {
        const Files files(1);
        Loaded form;
        form.ctx.frame_mode = mode;
        form.ctx.mark_colour_a = test::red;
        form.ctx.mark_colour_b = test::green;
        form.ctx.mark_colour = test::blue;
        vel_start_velumo(&form.ctx, 0, 0, files.folder.write("f", files.form).c_str(), "");
        EXPECT_EQ(form.ctx.mark_colour, wanted) << mode;
    }
}

// Each fault: the object and offset where it is written, the value, and what the line names.
TEST(Faults, references_that_lead_nowhere_are_taken_out_with_a_line) {
    const struct {
        std::vector<std::array<uint32_t, 3>> numbers; // object, offset, value
        std::array<uint32_t, 3> expected;             // object, offset, value after loading
        const char *named;
    } cases[] = {
        {{{8, 284, 13}}, {8, 284, 0}, "record 7 (object 8), master 13"},
        {{{8, 284, 12}}, {8, 284, 12}, nullptr}, // a spare record
        {{{8, 172, 4}}, {8, 172, 0}, "record 7 (object 8), text_index 4"},
        {{{8, 172, 3}}, {8, 172, 3}, nullptr},
        {{{8, 288, 9}, {8, 292, 99}, {8, 296, 10}}, {8, 292, 10}, "dep_objs 99"},
        {{{8, 288, 9}, {8, 684, 99}}, {8, 684, 0}, "dep_objs 99"},
        {{{8, 288, 0}, {8, 292, 99}}, {8, 292, 0}, nullptr}, // an empty list is not read on
        {{{8, 284, 8}}, {8, 284, 0}, "object 8), master 8"},
        {{{8, 284, 9}, {9, 284, 10}, {10, 284, 8}}, {8, 284, 0}, "object 8), master 9"},
        {{{8, 284, 9}, {9, 284, 10}, {10, 284, 8}}, {9, 284, 10}, "object 8), master 9"},
        {{{7, 284, 9}, {9, 284, 8}, {8, 284, 9}}, {7, 284, 9}, "object 8), master 9"},
        {{{8, 288, 8}}, {8, 288, 0}, "object 8), dep_objs 8"},
        {{{8, 288, 9}, {9, 288, 10}, {10, 288, 8}}, {10, 288, 0}, "object 10), dep_objs 8"},
        {{{8, 288, 9}, {9, 288, 10}, {10, 288, 8}}, {9, 288, 10}, "object 10), dep_objs 8"},
        {{{8, 288, 9}, {8, 292, 9}, {8, 296, 10}}, {8, 292, 10}, "object 8), dep_objs 9"},
        {{{8, 288, 9}, {10, 288, 9}}, {10, 288, 0}, "object 10), dep_objs 9"},
    };
    for (const auto &c : cases) {
        Files files(10, 1);
        for (const auto &[object, offset, value] : c.numbers) files.set(object, offset, value);
        Loaded form;
        testing::internal::CaptureStderr();
        ASSERT_EQ(files.load(form.ctx, 2, 2), VEL_OK);
        const std::string printed = testing::internal::GetCapturedStderr();
        const auto lines = std::count(printed.begin(), printed.end(), '\n');
        EXPECT_EQ(lines, c.named == nullptr ? 0 : 1) << printed;
        if (c.named != nullptr) {
            EXPECT_NE(printed.find(c.named), std::string::npos) << printed;
            EXPECT_NE(printed.find("a.form"), std::string::npos) << printed;
        }
        const vel_object &o = form.ctx.objects[c.expected[0]];
        const uint32_t offset = c.expected[1];
        const uint32_t value = offset == 284   ? o.master
                               : offset == 172 ? o.text_index
                                               : o.dep_objs[(offset - 288) / 4];
        EXPECT_EQ(value, c.expected[2]) << printed;
    }
}

// A chain of objects of 50 pixels, each inside the one before it.
void nest(Files &files, uint32_t depth) {
    for (uint32_t number = 8; number <= depth; ++number) {
        files.set(number, 8, 50);
        files.set(number, 12, 50);
        files.set(number, 228, VEL_TYPE_LABEL);
        files.set(number, 284, number == 8 ? 0 : number - 1);
        files.set(number, 288, number == depth ? 0 : number + 1);
    }
}

TEST(Faults, deep_nesting_exhausts_no_stack) {
    constexpr uint32_t depth = 100000;
    Loaded form;
    Files files(depth);
    nest(files, depth);
    ASSERT_EQ(files.load(form.ctx), VEL_OK);
    form.ctx.screen_width = form.ctx.screen_height = 100;
    EXPECT_EQ(vel_search_master(&form.ctx, depth), 8U);
    // Each level takes 2 pixels off the width of its master.
    EXPECT_EQ(vel_p_cutted_w_dependent(&form.ctx, depth), 50 - 2 * (depth - 8));
}

TEST(Faults, deep_nesting_is_drawn) {
    constexpr uint32_t depth = 2000;
    Loaded form;
    Files files(depth);
    nest(files, depth);
    ASSERT_EQ(files.load(form.ctx), VEL_OK);
    form.ctx.screen = test::make_surface(100, 100, 32);
    form.ctx.screen_width = form.ctx.screen_height = 100;
    form.ctx.objects[depth].hidden = 1;
    vel_draw_all_objects(&form.ctx, 1, 0);
    EXPECT_EQ(form.ctx.objects[depth].hidden, 0U);
}

TEST(Faults, numbers_beyond_the_tables_draw_and_move_nothing) {
    Loaded form;
    ASSERT_EQ(Files(9).load(form.ctx), VEL_OK);
    form.ctx.screen = test::make_surface(100, 100, 32);
    form.ctx.screen_width = form.ctx.screen_height = 100;
    test::fill(form.ctx.screen, test::green);
    const vel_object before = form.ctx.objects[0];
    for (const auto draw : {vel_evoke_object, vel_draw_selected_lines, vel_draw_selected_box,
                            vel_undraw_selected_lines, vel_undraw_selected_box, vel_undraw_object,
                            vel_draw_dep_objs, vel_draw_cursor}) {
        for (const uint32_t number : {0U, 10U, 0xFFFFFFFFU}) draw(&form.ctx, number);
    }
    EXPECT_EQ(test::pixels_of_colour(form.ctx.screen, test::black), "");
    EXPECT_EQ(std::memcmp(&form.ctx.objects[0], &before, sizeof before), 0);
}

TEST(Assets, pictures_and_fonts_report_the_last_one_tried) {
    const Folder folder;
    SDL_Surface *picture = test::make_surface(12, 5, 32);
    ASSERT_EQ(SDL_SaveBMP(picture, folder.file("p.bmp").c_str()), 0);
    SDL_FreeSurface(picture);
    Files files(4);
    for (const uint32_t number : {2U, 4U}) {
        files.set(number, 228, VEL_TYPE_PICTURE_UNLOADED);
        files.set(number, 96, 1);
        files.set(number, 100, 14);
    }
    folder.file("p.bmp").copy(&files.form[776 + 704], 67);
    std::string(test::font_file).copy(&files.form[776 + 104], 67);
    Loaded form;
    testing::internal::CaptureStdout();
    ASSERT_EQ(files.load(form.ctx, 1), VEL_OK);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    const vel_object &loaded = form.ctx.objects[2];
    EXPECT_EQ(loaded.type, VEL_TYPE_PICTURE);
    EXPECT_EQ(loaded.width, 12U);
    EXPECT_EQ(loaded.height, 5U);
    EXPECT_NE(loaded.own_font, nullptr);
    EXPECT_EQ(form.ctx.objects[4].type, VEL_TYPE_PICTURE_UNLOADED);
    EXPECT_EQ(form.ctx.objects[4].own_font, nullptr);
    EXPECT_EQ(vel_load_object_images(&form.ctx, 3), -1);
    EXPECT_EQ(vel_load_object_images(&form.ctx, 5), 0);
    testing::internal::CaptureStdout();
    EXPECT_EQ(vel_load_object_fonts(&form.ctx, 4), -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout().substr(0, 13), "TTF_OpenFont:");
    EXPECT_EQ(vel_load_object_fonts(&form.ctx, 5), 0);
    std::string(test::font_file).copy(form.ctx.objects[4].font_path, 67);
    EXPECT_EQ(vel_load_object_fonts(&form.ctx, 4), 1);
}

TEST(Assets, pipes_are_not_waited_for) {
    Files files(2);
    const std::string pipe = files.folder.file("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    files.set(1, 228, VEL_TYPE_PICTURE_UNLOADED);
    pipe.copy(&files.form[704], 67);
    files.set(2, 96, 1);
    pipe.copy(&files.form[776 + 104], 67);
    EXPECT_EXIT(
        {
            alarm(10); // ends a process that waits
            Loaded form;
            const int32_t result = files.load(form.ctx);
            const bool told = vel_load_object_images(&form.ctx, 1) == -1 &&
                              vel_load_object_fonts(&form.ctx, 1) == -1;
            std::_Exit(result == VEL_OK && told ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

} // namespace
