// Pictures of forms: what is drawn where, read back from the PNG files.
#include "command.h"

#include <png.h>

namespace {

using test::Folder;
using test::run;

// A PNG file read back by libpng.
class Picture {
public:
    explicit Picture(const std::string &path) {
        image_.version = PNG_IMAGE_VERSION;
        if (!png_image_begin_read_from_file(&image_, path.c_str())) return;
        image_.format = PNG_FORMAT_RGB;
        rgb_.resize(PNG_IMAGE_SIZE(image_));
        png_image_finish_read(&image_, nullptr, rgb_.data(), 0, nullptr);
    }
    std::uint32_t width() const { return rgb_.empty() ? 0 : image_.width; }
    std::uint32_t height() const { return rgb_.empty() ? 0 : image_.height; }
    vel_colour at(std::uint32_t x, std::uint32_t y) const {
        const std::size_t place = 3 * (std::size_t{y} * image_.width + x);
        return {rgb_.at(place), rgb_.at(place + 1), rgb_.at(place + 2)};
    }

private:
    png_image image_{};
    std::vector<std::uint8_t> rgb_;
};

// The marks of an active window stand left of it and around it, outside of what is read here. The
// frame buttons are plain boxes, so that their places can be told.
const char *const source = R"(
[styles.plain]
type = "label"
fill = "#00ff00"
border = "none"
[frame.move]
style = "plain"
[frame.height_less]
style = "plain"
[frame.height_more]
style = "plain"
[frame.mode]
style = "plain"
[frame.width_less]
style = "plain"
[frame.width_more]
style = "plain"
[frame.close]
style = "plain"
[[window]]
id = "first"
rect = [50, 50, 200, 100]
fill = "#ff0000"
[[window]]
id = "second"
rect = [150, 100, 200, 100]
fill = "#0000ff"
window_kind = "reduced"
hidden = false
objects = [{ id = "inner", type = "window", rect = [0, 0, 9, 9] }]
[[window]]
id = "third"
rect = [250, 50, 200, 100]
fill = "#808080"
[[object]]
id = "desk"
type = "label"
rect = [10, 250, 20, 20]
fill = "#000000"
)";

struct Drawn {
    Folder folder;
    std::string form, text;

    Drawn() : form(folder.file("a.form")), text(folder.file("a.text")) {
        EXPECT_EQ(run("compile " + folder.write("a.toml", source)).status, 0);
    }
    Picture with(const std::string &options) const {
        const std::string png = folder.file("a.png");
        const auto result = run("render " + form + " " + text + " -o " + png +
                                " --size 400x300 --background \"#ffffff\" " + options);
        EXPECT_EQ(result.status, 0) << result.output;
        return Picture(png);
    }
};

TEST(Render, draws_the_windows_that_are_opened_the_last_in_front) {
    const Drawn drawn;
    const struct {
        const char *options;
        vel_colour first_only, both, second_only;
    } cases[] = {
        {"", test::white, test::white, test::white},
        {"--activate first", test::red, test::red, test::white},
        {"--activate 8 --activate 9", test::red, test::blue, test::blue},
        {"--activate second --activate A_FIRST", test::red, test::red, test::blue},
        {"--activate first --activate second --activate first", test::red, test::red, test::blue},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.options);
        const Picture picture = drawn.with(c.options);
        ASSERT_EQ(picture.width(), 400U);
        ASSERT_EQ(picture.height(), 300U);
        EXPECT_EQ(picture.at(60, 60), c.first_only);
        EXPECT_EQ(picture.at(200, 120), c.both);
        EXPECT_EQ(picture.at(300, 180), c.second_only);
        EXPECT_EQ(picture.at(20, 260), test::black);
    }
}

// Pixels of a row from a column on, until the colour changes.
std::uint32_t run_length(const Picture &picture, std::uint32_t x, std::uint32_t y) {
    std::uint32_t length = 0;
    while (x + length < picture.width() && picture.at(x + length, y) == test::green) ++length;
    return length;
}

TEST(Render, places_the_frame_buttons_above_the_right_end_of_the_active_window) {
    const Drawn drawn;
    const struct {
        const char *window;
        std::uint32_t left, top, length;
    } cases[] = {
        {"first", 250 - 7 * 16, 50 - 24, 7 * 16},
        {"second", 350 - 2 * 16, 100 - 24, 2 * 16},
        // It is cut 2 pixels before the right edge of the display.
        {"third", 398 - 7 * 16, 50 - 24, 7 * 16},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.window);
        const Picture picture = drawn.with(std::string("--activate ") + c.window);
        for (const std::uint32_t row : {c.top, c.top + 15}) {
            EXPECT_EQ(run_length(picture, c.left, row), c.length);
            EXPECT_EQ(picture.at(c.left - 1, row), test::white);
        }
        EXPECT_EQ(picture.at(c.left, c.top - 1), test::white);
        EXPECT_EQ(picture.at(c.left, c.top + 16), test::white);
    }
}

// SDL's blending of an opaque pixel may be off by one.
bool are_near(vel_colour a, vel_colour b) {
    const auto near = [](int p, int q) { return std::abs(p - q) <= 1; };
    return near(a.r, b.r) && near(a.g, b.g) && near(a.b, b.b);
}

TEST(Render, finds_pictures_from_the_folder_it_works_in) {
    const Folder folder;
    folder.write("a.toml", "[[window]]\nrect = [50, 50, 200, 100]\n");
    ASSERT_EQ(run("compile " + folder.file("a.toml")).status, 0);
    const std::string options = " a.form a.text -o a.png --activate 8 --background \"#ffffff\"";
    const auto inside = run("render -C " + folder.file("") + options);
    EXPECT_EQ(inside.output, "");
    const Picture picture(folder.file("a.png"));
    for (std::uint32_t button = 0; button < 7; ++button) {
        const std::uint32_t x = 250 - 16 * (7 - button);
        const Picture tile(std::string(VELFORM_FRAME "/") + (button == 6   ? "close.png"
                                                             : button == 0 ? "move.png"
                                                                           : "mode.png"));
        EXPECT_TRUE(are_near(picture.at(x + 8, 26), tile.at(8, 0))) << button;
    }
    std::filesystem::remove(folder.file("frame/mode.png"));
    const auto without = run("render -C " + folder.file("") + options);
    EXPECT_EQ(without.status, 0);
    EXPECT_NE(without.output.find("object 4: cannot load the picture frame/mode.png"),
              std::string::npos);
}

TEST(Render, lets_the_text_of_a_chain_flow_into_its_members) {
    const Folder folder;
    folder.write("a.toml", R"(
[[object]]
type = "chain"
rect = [0, 0, 300, 100]
text = "HHHH"
objects = [{ type = "chain", rect = [50, 20, 200, 60], text_colour = "#ff0000" }]
)");
    ASSERT_EQ(run("compile " + folder.file("a.toml")).status, 0);
    const std::string png = folder.file("a.png");
    const auto result =
        run("render " + folder.file("a.form") + " " + folder.file("a.text") + " -o " + png);
    EXPECT_EQ(result.status, 0) << result.output;
    const Picture picture(png);
    const auto reds_between = [&picture](std::uint32_t left, std::uint32_t right) {
        int reds = 0;
        for (std::uint32_t x = left; x < right; ++x) {
            for (std::uint32_t y = 20; y < 80; ++y) reds += picture.at(x, y) == test::red ? 1 : 0;
        }
        return reds;
    };
    EXPECT_GT(reds_between(50, 250), 0);
    EXPECT_EQ(reds_between(0, 50), 0);
}

TEST(Render, ends_with_the_status_that_fits) {
    const Drawn drawn;
    const std::string files = drawn.form + " " + drawn.text;
    const std::string output = " -o " + drawn.folder.file("b.png") + " ";
    const struct {
        std::string arguments;
        int status;
    } cases[] = {
        {files, 2},
        {files + output + "--size 0x9", 2},
        {files + output + "--size 9", 2},
        {files + output + "--size 9x8193", 2},
        {files + output + "--size 9x9x", 2},
        {files + output + "--background red", 2},
        {files + output + "--font-size 0", 2},
        {files + output + "--activate nobody", 2},
        {files + output + "--activate desk", 2},
        {files + output + "--activate inner", 2},
        {files + output + "--activate 0", 2},
        {files + output + "--activate 13", 2},
        {files + output + "--activate first --header " + drawn.folder.file("none.h"), 3},
        {files + output + "--font " + drawn.folder.file("none.ttf"), 3},
        {files + output + "-C " + drawn.folder.file("none"), 3},
        {drawn.folder.file("none.form") + " " + drawn.text + output, 3},
        {files + " -o " + drawn.folder.file("none/b.png"), 3},
    };
    for (const auto &c : cases) {
        const auto result = run("render " + c.arguments);
        EXPECT_EQ(result.status, c.status) << c.arguments << '\n' << result.output;
        EXPECT_NE(result.output, "");
    }
    EXPECT_FALSE(std::filesystem::exists(drawn.folder.file("b.png")));
}

} // namespace
