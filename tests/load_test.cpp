// Form files: what is loaded, what is fixed, what fails, and what closing gives back.
#include "support.h"

#include <cstddef>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using test::contents;
using test::Folder;

constexpr std::size_t type_at = 228, text_at = 172, hidden_at = 224, master_at = 284;

void set_number(std::string &bytes, std::size_t offset, uint32_t value) {
    for (std::size_t k = 0; k < 4; ++k) bytes[offset + k] = static_cast<char>(value >> 8 * k);
}

// Form files of records that are zero but for what a test sets, and a context that is closed.
struct Files {
    Folder folder;
    std::string form, texts;
    vel_context ctx{};

    explicit Files(std::size_t objects, std::size_t text_count = 0)
        : form(776 * objects, '\0'), texts(1008 * text_count, '\0') {
        TTF_Init();
        ctx.texts_loaded = 1;
    }
    ~Files() { vel_close(&ctx); }
    void set(uint32_t object, std::size_t offset, uint32_t value) {
        set_number(form, 776 * (object - 1) + offset, value);
    }
    void set(uint32_t object, std::size_t offset, const std::string &value) {
        (value + '\0').copy(&form[776 * (object - 1) + offset], 68);
    }
    int32_t load(uint32_t extra_objs = 0, uint32_t extra_texts = 0) {
        return vel_load_forms(&ctx, extra_objs, extra_texts, folder.write("a.form", form).c_str(),
                              folder.write("a.text", texts).c_str());
    }
};

// The object has the fields of the record in its order, and pointers between them.
TEST(Load, every_field_is_read_from_its_place_and_reserved_words_are_not) {
    Files files(2);
    std::string object(776, '\0');
    const std::set<std::size_t> reserved{216, 220, 240, 244, 252, 256, 688, 692};
    for (std::size_t at = 0; at < 776; at += 4) {
        if (at == text_at || (at >= master_at && at < 688)) continue; // references
        const bool is_string =
            (at >= 28 && at < 96) || (at >= 104 && at < 172) || (at >= 704 && at < 772);
        const auto value = is_string ? 0x61616161 : static_cast<uint32_t>(0x81828300 + at / 4);
        files.set(2, at, value);
        if (reserved.count(at) == 0) set_number(object, at, value);
    }
    for (const std::size_t end : {95U, 171U, 771U}) object[end] = '\0';
    ASSERT_EQ(files.load(), VEL_OK);
    const auto *loaded = reinterpret_cast<const char *>(&files.ctx.objects[2]);
    std::string fields(loaded, offsetof(vel_object, font_path) + 68);
    fields.append(loaded + offsetof(vel_object, text_index),
                  loaded + offsetof(vel_object, image_path) + 68);
    fields.append(loaded + offsetof(vel_object, clip_mode), 4);
    for (std::size_t at = 0; at < 776; at += 4)
        EXPECT_EQ(fields.substr(at, 4), object.substr(at, 4)) << at;
}

TEST(Load, only_top_level_objects_and_menus_start_hidden) {
    Files files(5);
    for (const auto &[object, type, master] :
         {std::array{2U, 0U, 0U}, {3U, 1U, 0U}, {4U, 2U, 1U}, {5U, 7U, 1U}}) {
        files.set(object, type_at, type);
        files.set(object, master_at, master);
        files.set(object, hidden_at, 5);
    }
    ASSERT_EQ(files.load(), VEL_OK);
    const vel_object *o = files.ctx.objects;
    EXPECT_EQ((std::array{o[2].hidden, o[3].hidden, o[4].hidden, o[5].hidden}),
              (std::array{0U, 5U, 0U, 5U}));
}

TEST(Load, whole_records_count_and_spare_ones_are_zero) {
    Files files(3, 2);
    files.ctx.mark_colour_a = test::red;
    files.form += "the rest of the file";
    files.texts += "rest";
    files.set(2, text_at, 2);
    set_number(files.texts, 1008, 0x01020304);
    set_number(files.texts, 1012, 7);
    std::fill_n(&files.texts[1008 + 8], 1000, 'x');
    ASSERT_EQ(files.load(4, 3), VEL_OK);
    EXPECT_EQ(std::tuple(files.ctx.object_count, files.ctx.text_count), std::tuple(3U, 2U));
    const vel_text_rec &text = files.ctx.text_recs[2];
    EXPECT_EQ(std::tuple(text.first_word, text.cursor_index), std::tuple(0x01020304U, 7U));
    EXPECT_EQ(std::string(text.text), std::string(999, 'x'));
    EXPECT_EQ(files.ctx.objects[7].type, 0U);
    EXPECT_EQ(files.ctx.text_recs[5].text[999], '\0');
    EXPECT_EQ(files.ctx.text_bufs[5][3999], '\0');
    EXPECT_EQ(files.ctx.mark_colour, test::red);
    // Closing leaves texts that are the program's own.
    files.ctx.texts_loaded = 0;
    std::free(files.ctx.text_recs);
    std::free(files.ctx.text_bufs);
}

TEST(Load, failures_have_their_code_and_leave_the_context) {
    Files files(1);
    const std::string form = files.folder.write("form", files.form);
    files.set(1, text_at, 1);
    const std::string with_text = files.folder.write("with_text", files.form);
    const std::string sparse = files.folder.write("sparse");
    std::filesystem::resize_file(sparse, 776 * (std::uintmax_t{VEL_MAX_RECORDS} + 1));
    vel_context ctx{};
    ctx.object_count = 42;
    const vel_context before = ctx;
    using Case = std::tuple<const char *, uint32_t, int32_t>;
    for (const auto &[path, spare, result] :
         {Case("nowhere", 0, VEL_ERROR_FORM_FILE), Case(".", 0, VEL_ERROR_FORM_FILE),
          Case(with_text.c_str(), 0, VEL_ERROR_TEXT_FILE),
          Case(form.c_str(), 0xFFFFFFFF, VEL_ERROR_MEMORY), Case(nullptr, 0, VEL_ERROR_ARGUMENT),
          Case(sparse.c_str(), 0, VEL_ERROR_RECORDS)}) {
        EXPECT_EQ(vel_load_forms(&ctx, spare, 0, path, "nowhere"), result);
    }
    EXPECT_STRNE(vel_error_text(VEL_ERROR_FORM_FILE), vel_error_text(VEL_ERROR_TEXT_FILE));
    EXPECT_EQ(std::memcmp(&ctx, &before, sizeof ctx), 0);
    // Without texts the text file is not looked at.
    EXPECT_EQ(vel_load_forms(&files.ctx, 0, 9, form.c_str(), "nowhere"), VEL_OK);
}

TEST(Start, missing_files_end_the_process_with_a_message_and_status_0) {
    Files files(1);
    files.set(1, text_at, 1);
    const std::string form = files.folder.write("a.form", files.form);
    const auto start = [&](const char *path) {
        dup2(STDERR_FILENO, STDOUT_FILENO); // where the death test looks
        vel_start_velumo(&files.ctx, 0, 0, path, "nowhere");
        std::exit(9);
    };
    EXPECT_EXIT(start("nowhere"), testing::ExitedWithCode(0), "^Can't open file.\n$");
    EXPECT_EXIT(start(form.c_str()), testing::ExitedWithCode(0), "^Can't open file !\n\n$");
}

// Each fault: the objects and offsets where it is written, with the values; an object after loading
// with its text, its master and its first two dependents; and what the line names. There are 10
// objects, 2 spare ones, a text and 2 spare ones.
TEST(Faults, references_that_lead_nowhere_are_taken_out_with_a_line) {
    using Numbers = std::array<uint32_t, 5>;
    const std::tuple<std::vector<std::array<uint32_t, 3>>, Numbers, std::string> cases[] = {
        {{{8, 284, 13}}, {8}, "a.form: record 7 (object 8), master 13"},
        {{{8, 284, 12}, {8, 172, 3}}, {8, 3, 12}, ""},
        {{{8, 172, 4}}, {8}, "text_index 4"},
        {{{8, 288, 9}, {8, 292, 99}, {8, 296, 10}}, {8, 0, 0, 9, 10}, "dep_objs 99"},
        {{{8, 288, 0}, {8, 292, 99}}, {8}, ""}, // an empty list is not read on
        {{{8, 284, 9}, {9, 284, 10}, {10, 284, 8}}, {8}, "object 8), master 9"},
        {{{7, 284, 9}, {9, 284, 8}, {8, 284, 9}}, {7, 0, 9}, "object 8), master 9"},
        {{{8, 288, 9}, {9, 288, 10}, {10, 288, 8}}, {10}, "object 10), dep_objs 8"},
        {{{8, 288, 9}, {8, 292, 9}, {8, 296, 10}}, {8, 0, 0, 9, 10}, "object 8), dep_objs 9"},
        {{{8, 288, 9}, {10, 288, 9}}, {10}, "object 10), dep_objs 9"}};
    for (const auto &[numbers, expected, named] : cases) {
        Files files(10, 1);
        for (const auto &[object, offset, value] : numbers) files.set(object, offset, value);
        testing::internal::CaptureStderr();
        ASSERT_EQ(files.load(2, 2), VEL_OK);
        const std::string printed = testing::internal::GetCapturedStderr();
        EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), named.empty() ? 0 : 1);
        EXPECT_NE(printed.find(named), std::string::npos) << printed;
        const vel_object &o = files.ctx.objects[expected[0]];
        EXPECT_EQ((Numbers{expected[0], o.text_index, o.master, o.dep_objs[0], o.dep_objs[1]}),
                  expected)
            << printed;
    }
}

// 25 faults, in a file whose name would clear a terminal, and has letters of two encodings.
TEST(Faults, many_are_counted_and_a_path_is_printed_as_text) {
    Files files(25);
    for (uint32_t number = 1; number <= 25; ++number) files.set(number, master_at, 99);
    const std::string name = "%s\n\x1B[2J\x9B\xC2\x9B \xC3\x9F\xDF";
    const std::string path = files.folder.write(name, files.form);
    testing::internal::CaptureStderr();
    ASSERT_EQ(vel_load_forms(&files.ctx, 0, 0, path.c_str(), ""), VEL_OK);
    const std::string printed = testing::internal::GetCapturedStderr();
    const std::string start =
        files.folder.file("%s\\x0A\\x1B[2J\\x9B\\xC2\\x9B \xC3\x9F\xDF") + ": ";
    EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 21) << printed;
    EXPECT_TRUE(printed.starts_with(start + "record 0 (object 1), master 99: there is no"))
        << printed;
    EXPECT_TRUE(printed.ends_with(start + "5 more invalid references; taken out\n")) << printed;
}

// Sets what an object names: a picture and a font, and whether it shows them.
void set_assets(Files &files, uint32_t object, const std::string &path, uint32_t font_size = 14) {
    files.set(object, type_at, VEL_TYPE_PICTURE_UNLOADED);
    files.set(object, 96, 1);
    files.set(object, 100, font_size);
    files.set(object, 104, path);
    files.set(object, 704, path);
}

std::ptrdiff_t open_files() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

std::string picture_of_12_by_5(const Folder &folder) {
    const std::string path = folder.file("p.bmp");
    SDL_Surface *picture = test::make_surface(12, 5);
    EXPECT_EQ(SDL_SaveBMP(picture, path.c_str()), 0);
    SDL_FreeSurface(picture);
    return path;
}

TEST(Assets, pictures_and_fonts_are_opened_and_closed) {
    const auto open_before = open_files();
    {
        Files files(4);
        const std::string image = picture_of_12_by_5(files.folder),
                          pipe = files.folder.file("pipe");
        ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0); // nobody waits for its writer
        set_assets(files, 2, test::font_file);
        set_assets(files, 3, pipe);
        files.set(2, 704, image);
        testing::internal::CaptureStdout();
        ASSERT_EQ(files.load(1), VEL_OK);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
        vel_object *o = files.ctx.objects;
        EXPECT_EQ(std::tuple(o[2].type, o[2].width, o[2].height), std::tuple(9U, 12U, 5U));
        EXPECT_NE(o[2].own_font, nullptr);
        EXPECT_EQ(std::tuple(o[3].type, o[3].own_font), std::tuple(4U, nullptr));
        testing::internal::CaptureStdout();
        EXPECT_EQ(vel_load_object_images(&files.ctx, 3), -1);
        EXPECT_EQ(vel_load_object_fonts(&files.ctx, 3), -1);
        EXPECT_EQ(testing::internal::GetCapturedStdout(),
                  "TTF_OpenFont: " + pipe + " is no regular file\n");
        std::strcpy(o[3].image_path, image.c_str());
        EXPECT_EQ(vel_load_object_images(&files.ctx, 0), 1);
    }
    EXPECT_EQ(open_files(), open_before);
}

// More objects than a process may have open files, and one whose font the program closes itself.
TEST(Assets, a_font_is_opened_once_for_each_file_and_size) {
    Files files(1100);
    for (uint32_t number = 1; number <= 1100; ++number) {
        set_assets(files, number, test::font_file, number == 1100 ? 15 : 14);
    }
    ASSERT_EQ(files.load(), VEL_OK);
    vel_object *o = files.ctx.objects;
    TTF_Font *const shared = o[1].own_font, *const alone = o[1100].own_font;
    EXPECT_EQ(std::set<TTF_Font *>({shared, alone, nullptr}).size(), 3U);
    EXPECT_EQ(o[1099].own_font, shared);
    EXPECT_EQ(vel_load_object_fonts(&files.ctx, 1), 1);
    EXPECT_EQ(std::tuple(o[2].own_font, o[1100].own_font), std::tuple(shared, alone));
    TTF_CloseFont(shared);
    EXPECT_EQ(std::tuple(o[1].own_font, o[1099].own_font, o[1100].own_font),
              std::tuple(nullptr, nullptr, alone));
    TTF_Font *const other = o[1100].own_font = TTF_OpenFont(test::font_file, 9);
    EXPECT_EQ(vel_load_object_fonts(&files.ctx, 1099), 1); // the one replaced was not closed
    EXPECT_EQ(o[1100].own_font, alone);
    TTF_CloseFont(other);
}

// A font with numbers of its tables replaced: at so many bytes into a table, 16 bits.
std::string changed_font(const std::string &table, std::size_t at, int value) {
    std::string font = contents(test::font_file);
    const auto entry = reinterpret_cast<const unsigned char *>(&font[font.find(table)]);
    const std::size_t start = static_cast<std::size_t>(entry[9] << 16 | entry[10] << 8 | entry[11]);
    font[start + at] = static_cast<char>(value >> 8);
    font[start + at + 1] = static_cast<char>(value);
    return font;
}

TEST(Assets, damaged_fonts_are_refused_with_a_line) {
    using Case = std::tuple<const char *, std::string, uint32_t, bool>;
    const std::string whole = contents(test::font_file);
    const Case cases[] = {
        {"whole", whole, 14, true},
        {"large", whole, 2000, true},
        {"no such size", whole, 2001, false},
        {"negative size", whole, 0xFFFFFFF0, false},
        {"em of 16 units", changed_font("head", 18, 16), 14, false},
        {"lines upside down", changed_font("hhea", 4, -2000), 14, false},
        {"first pair kerned by -15 em", changed_font("kern", 22, -30000), 14, false},
        {"first pair kerned by -1 unit", changed_font("kern", 22, -1), 14, true},
        {"compressed", "\x1F\x8B" + whole, 14, false},
        {"half", whole.substr(0, whole.size() / 2), 14, false}};
    for (const auto &[name, font, size, is_opened] : cases) {
        Files files(1);
        set_assets(files, 1, files.folder.write("f.ttf", font), size);
        files.load();
        testing::internal::CaptureStdout();
        EXPECT_EQ(vel_load_object_fonts(&files.ctx, 1), is_opened ? 1 : -1) << name;
        const std::string printed = testing::internal::GetCapturedStdout();
        EXPECT_EQ(printed.find("TTF_OpenFont: ") == 0, !is_opened) << name << printed;
        EXPECT_EQ(files.ctx.objects[1].own_font != nullptr, is_opened) << name;
    }
}

TEST(Assets, many_fonts_are_counted) {
    Files files(300);
    for (uint32_t number = 1; number <= 300; ++number) {
        set_assets(files, number, files.folder.file("\x1B" + std::to_string(number)), 10);
    }
    set_assets(files, 1, test::font_file, 2000);
    set_assets(files, 2, test::font_file, 10); // together too large
    files.load();
    EXPECT_EQ(files.ctx.objects[2].own_font, nullptr);
    testing::internal::CaptureStdout();
    vel_load_object_fonts(&files.ctx, 1);
    EXPECT_NE(files.ctx.objects[2].own_font, nullptr);
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 21);
    EXPECT_TRUE(printed.ends_with("TTF_OpenFont: 278 more\n")) << printed;
    EXPECT_NE(printed.find("/\\x1B3\n"), std::string::npos) << printed;
}

// 60,000 objects cost 8 each for every font, of 2000 * 2000 in all.
TEST(Assets, many_objects_have_fewer_fonts) {
    Files files(1);
    files.load(60000);
    files.ctx.object_count = 60000;
    vel_object *o = files.ctx.objects;
    for (uint32_t number = 1; number <= 60000; ++number) {
        o[number].font_choice = 1;
        o[number].font_size = 10 + number % 30;
        std::strcpy(o[number].font_path, test::font_file);
    }
    testing::internal::CaptureStdout();
    vel_load_object_fonts(&files.ctx, 1);
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(
        std::count_if(o + 1, o + 31, [](const vel_object &k) { return k.own_font != nullptr; }), 8);
    EXPECT_NE(printed.find(": too many fonts\n"), std::string::npos);
}

std::string bytes_of(std::string_view hex) {
    std::string bytes;
    for (std::size_t k = 0; k + 1 < hex.size(); k += 2) {
        bytes += static_cast<char>(std::stoi(std::string(hex.substr(k, 2)), nullptr, 16));
    }
    return bytes;
}

// 3 x 2 pixels of two colours, 8 x 8 grey ones, and 2 x 2 in a format that is not checked.
const std::string png =
    bytes_of("89504e470d0a1a0a0000000d4948445200000003000000020103000000a7baf45900000006504c5445ff"
             "00000000ff6ca1fd8e0000000c4944415408d76360607000000044004146ac77940000000049454e44ae"
             "426082");
const std::string jpeg =
    bytes_of("ffd8ffe000104a46494600010100000100010000ffdb004300100b0c0e0c0a100e0d0e1211101318281a"
             "181616183123251d283a333d3c3933383740485c4e404457453738506d51575f626768673e4d71797064"
             "785c656763ffc0000b080008000801011100ffc40014000100000000000000000000000000000006ffc4"
             "0014100100000000000000000000000000000000ffda0008010100003f0034ffd9");
const std::string tga = bytes_of("0000020000000000000000000200020018000000ff0000ff0000ff0000ff");

// The type that an object has after its picture was loaded from these bytes.
uint32_t type_loaded(Files &files, const std::string &name, const std::string &bytes) {
    vel_object &o = files.ctx.objects[1];
    if (o.type == VEL_TYPE_PICTURE) SDL_FreeSurface(o.image);
    o.type = VEL_TYPE_PICTURE_UNLOADED;
    std::snprintf(o.image_path, sizeof o.image_path, "%s", files.folder.write(name, bytes).c_str());
    vel_load_object_images(&files.ctx, 1);
    return o.type;
}

TEST(Assets, pictures_are_loaded_by_their_content_when_they_are_whole) {
    Files files(1);
    files.load();
    const std::string bmp = contents(picture_of_12_by_5(files.folder));
    const std::string *const whole[] = {&png, &jpeg, &bmp};
    for (const std::string *picture : whole) {
        EXPECT_EQ(type_loaded(files, "p.gif", *picture + "more"), 9U) << *picture;
        for (std::size_t size = 0; size < picture->size(); ++size) {
            ASSERT_EQ(type_loaded(files, "p", picture->substr(0, size)), 4U) << size << *picture;
        }
    }
}

TEST(Assets, other_pictures_are_loaded_unless_they_are_excluded) {
    Files files(1);
    files.load();
    EXPECT_EQ(type_loaded(files, "p.tga", tga), 9U);
    EXPECT_EQ(type_loaded(files, "p.tga", png), 4U); // the name counts for this format
    files.ctx.strict_pictures = 1;
    EXPECT_EQ(type_loaded(files, "p.tga", tga), 4U);
    EXPECT_EQ(type_loaded(files, "p", jpeg), 9U);
}

// One picture of a clear colour and another, and one that is all black; each is decoded once.
TEST(Assets, objects_of_one_picture_each_have_their_own_pixels) {
    Files files(4);
    const std::string black = files.folder.file("p.bmp");
    SDL_Surface *picture = SDL_CreateRGBSurface(SDL_SWSURFACE, 3, 1, 8, 0, 0, 0, 0);
    std::memset(picture->format->palette->colors, 0, 256 * sizeof(SDL_Color));
    EXPECT_EQ(SDL_SaveBMP(picture, black.c_str()), 0);
    SDL_FreeSurface(picture);
    const std::string clear = bytes_of("0000000174524e530040e6d866");
    const std::string half_clear =
        files.folder.write("p.png", std::string(png).insert(png.find("IDAT") - 4, clear));
    for (uint32_t k = 1; k <= 4; ++k) set_assets(files, k, k <= 2 ? half_clear : black);
    files.load();
    EXPECT_NE(files.ctx.objects[1].image->flags & SDL_SRCCOLORKEY, 0U);
    for (const uint32_t number : {1U, 3U}) {
        const SDL_Surface *first = files.ctx.objects[number].image;
        const SDL_Surface *second = files.ctx.objects[number + 1].image;
        ASSERT_NE(second, nullptr) << number;
        const SDL_PixelFormat &f = *first->format, &g = *second->format;
        EXPECT_EQ(std::tuple(first->flags, first->pitch, f.BitsPerPixel, f.colorkey, f.alpha),
                  std::tuple(second->flags, second->pitch, g.BitsPerPixel, g.colorkey, g.alpha));
        for (int k = 0; k < f.palette->ncolors; ++k) {
            const SDL_Color &c = f.palette->colors[k], &d = g.palette->colors[k];
            EXPECT_EQ(std::tuple(c.r, c.g, c.b), std::tuple(d.r, d.g, d.b)) << number << " " << k;
        }
        EXPECT_EQ(std::memcmp(first->pixels, second->pixels, 3), 0);
        static_cast<Uint8 *>(first->pixels)[0] ^= 1;
        EXPECT_NE(std::memcmp(first->pixels, second->pixels, 3), 0);
    }
}

// Four files of 64 MiB that hold nothing leave no room for a fifth.
TEST(Assets, what_one_call_reads_has_an_end) {
    Files files(5);
    for (const uint32_t number : {1U, 2U, 3U, 4U}) {
        const std::string path = files.folder.write(std::to_string(number), png);
        std::filesystem::resize_file(path, std::size_t{1} << 26);
        set_assets(files, number, path);
    }
    set_assets(files, 5, files.folder.write("p", png));
    files.load();
    EXPECT_EQ(files.ctx.objects[5].type, 4U);
    EXPECT_EQ(vel_load_object_images(&files.ctx, 2), 1);
}

// Pictures of 8,192 x 8,192 pixels, of which six are there: each file costs them all, under all its
// paths once. Half as many that load in sixteen scans cost as much.
TEST(Assets, pictures_that_fail_or_take_long_leave_less_room) {
    const std::string header = bytes_of("000020000000200001030000004864581a");
    std::string scans = jpeg;
    scans.replace(scans.find("\xFF\xC0"), 9, bytes_of("ffc2000b0820001000"));
    std::string sixteen;
    for (int k = 0; k < 16; ++k) sixteen += bytes_of("ffda000801010000000034");
    scans.replace(scans.find("\xFF\xDA"), sixteen.size() / 16, sixteen);
    for (const auto &[second, type] : {std::pair("./a", 9U), {"b", 4U}, {"scans", 4U}}) {
        Files files(3);
        for (const char *name : {"a", "b"}) {
            files.folder.write(name, std::string(png).replace(16, header.size(), header));
        }
        files.folder.write("scans", scans);
        set_assets(files, 1, files.folder.file("a"));
        set_assets(files, 2, files.folder.file(second));
        set_assets(files, 3, files.folder.write("p", png));
        files.load();
        EXPECT_EQ(files.ctx.objects[1].type, 4U);
        EXPECT_EQ(files.ctx.objects[2].image != nullptr, std::string(second) == "scans") << second;
        EXPECT_EQ(files.ctx.objects[3].type, type) << second;
    }
}

vel_form_file file_of(const char *path, const std::string &bytes) {
    return {path, reinterpret_cast<const unsigned char *>(bytes.data()), bytes.size()};
}

// Each object's picture and font, and what becomes of them. The one on the disk is 3 pixels wide.
TEST(Assets, what_is_in_the_program_comes_before_the_disk_and_is_checked_like_it) {
    const Folder folder;
    const std::string bmp = contents(picture_of_12_by_5(folder)), font = contents(test::font_file);
    const std::string disk = folder.write("disk", png), half_font = font.substr(0, 9999);
    const std::tuple<std::string, std::string, uint32_t, bool> cases[] = {
        {"p", "f", 12, true},   {disk, test::font_file, 3, true},
        {"f", "p", 0, false},   {"cut", "cut font", 0, false},
        {"none", "", 0, false}, {folder.file("p.bmp"), "f", 3, true}};
    Files files(std::size(cases));
    uint32_t number = 0;
    for (const auto &[picture, font_path, width, has_font] : cases) {
        set_assets(files, ++number, font_path);
        files.set(number, 704, picture);
    }
    const std::string in_memory = folder.file("p.bmp"), cut = bmp.substr(0, 99);
    const vel_form_file table[] = {file_of(nullptr, bmp),
                                   {"none", nullptr, 9},
                                   file_of("p", bmp),
                                   file_of("f", font),
                                   file_of("cut", cut),
                                   file_of("cut font", half_font),
                                   file_of(in_memory.c_str(), png)};
    vel_form_data data{};
    data.form = file_of("", files.form).bytes, data.form_size = files.form.size();
    data.files = table, data.file_count = std::size(table);
    ASSERT_EQ(vel_load_forms_from_memory(&files.ctx, 0, 0, &data), VEL_OK);
    number = 0;
    for (const auto &[picture, font_path, width, has_font] : cases) {
        const vel_object &o = files.ctx.objects[++number];
        EXPECT_EQ(std::tuple(o.width, o.own_font != nullptr), std::tuple(width, has_font))
            << picture;
    }
    vel_context ctx{};
    set_number(files.form, text_at, 1); // no text is given
    EXPECT_EQ(vel_load_forms_from_memory(&ctx, 0, 0, &data), VEL_ERROR_TEXT_FILE);
    data.files = nullptr;
    EXPECT_EQ(vel_load_forms_from_memory(&ctx, 0, 0, &data), VEL_ERROR_ARGUMENT);
    data.form = nullptr, data.file_count = 0;
    EXPECT_EQ(vel_load_forms_from_memory(&ctx, 0, 0, &data), VEL_ERROR_ARGUMENT);
}

// A picture of 2 x 1 pixels: its depth, its compression, its colours, and what follows the header.
std::string bmp_of(uint32_t bits, uint32_t compression, uint32_t colours, const std::string &rest) {
    std::string file = "BM" + std::string(52, '\0') + rest + std::string(8, 'p');
    const std::pair<std::size_t, uint32_t> numbers[] = {
        {10, 54 + static_cast<uint32_t>(rest.size())},
        {14, 40},
        {18, 2},
        {22, 1},
        {26, 1 + (bits << 16)},
        {30, compression},
        {46, colours}};
    for (const auto &[offset, value] : numbers) set_number(file, offset, value);
    return file;
}

// SDL_image takes each of them: more colours than it has room for, and bits that SDL cannot shift,
// though what stands in for it on newer systems can.
TEST(Assets, pictures_that_sdl_image_takes_and_cannot_hold_are_refused) {
    Files files(1);
    files.load();
    const std::string bytes = bytes_of("00F80000"
                                       "E0070000"
                                       "1F000000"),
                      wide = bytes_of("00FC0300");
    const std::string wider = wide + bytes_of("FF030000"
                                              "0000F00F"
                                              "00000000");
    const bool is_newer = SDL_Linked_Version()->patch >= 50;
    const std::tuple<const char *, std::string, uint32_t> cases[] = {
        {"256 colours", bmp_of(8, 0, 256, std::string(1024, 'c')), 9},
        {"257 colours", bmp_of(8, 0, 257, std::string(1028, 'c')), 4},
        {"colours of 5 and 6 bits", bmp_of(16, 3, 0, bytes), 9},
        {"colours of 10 bits", bmp_of(32, 3, 0, wider), is_newer ? 9U : 4U}};
    for (const auto &[name, picture, type] : cases) {
        EXPECT_EQ(type_loaded(files, "p", picture), type) << name;
    }
}

// A header of twelve bytes, and runs of pixels, which end with 0001 or read on behind the file.
TEST(Assets, pictures_of_runs_have_an_end_and_those_of_old_headers_their_sides) {
    Files files(1);
    files.load();
    const auto of_runs = [](const char *hex) {
        const std::string picture = bmp_of(8, 1, 2, std::string(8, 'c'));
        return picture.substr(0, picture.size() - 8) + bytes_of(hex);
    };
    const std::string old = "BM" + bytes_of("0000000000000000200000000c000000020001000100010000"
                                            "0000ffffff40");
    const std::tuple<const char *, std::string, uint32_t> cases[] = {
        {"a run and the end", of_runs("02010001"), 9},
        {"runs alone", of_runs("0201020102010201"), 4},
        {"an end within pixels", of_runs("000300010000"), 4},
        {"an end within a jump", of_runs("00020001"), 4},
        {"an old header", old, 9},
        {"its pixel is missing", old.substr(0, 32), 4}};
    for (const auto &[name, picture, type] : cases) {
        EXPECT_EQ(type_loaded(files, "p", picture), type) << name;
    }
}

// Of one bit a pixel. SDL counts the bytes of a row, of up to four a pixel, in 16 bits.
TEST(Assets, pictures_that_are_too_wide_or_high_for_sdl_are_refused) {
    Files files(1);
    files.load();
    const std::tuple<uint32_t, uint32_t, uint32_t> cases[] = {
        {16383, 1, 9}, {16384, 1, 4},   {0, 1, 4}, {0xFFFFFFFF, 1, 4}, {1, 65535, 9},
        {1, 65536, 4}, {8192, 8193, 4}, {1, 0, 4}, {1, 0xFFFFFFFF, 9}}; // upside down
    for (const auto &[width, height, type] : cases) {
        std::string picture = bmp_of(1, 0, 2, bytes_of("00000000FFFFFF00"));
        set_number(picture, 18, width);
        set_number(picture, 22, height);
        picture.append(std::size_t{(width + 31) / 32 * 4} * (height % 70000), 'p');
        EXPECT_EQ(type_loaded(files, "p", picture), type) << width << " x " << height;
    }
}

} // namespace
