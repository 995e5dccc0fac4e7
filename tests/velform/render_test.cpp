// Pictures of forms: what is drawn where, read back from the PNG files.
#include "forms.h"

#include <memory>

#include <SDL_image.h>

namespace {

using test::Folder;
using test::run;

using Picture = std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)>;

Picture load(const std::string &path) {
    Picture picture(IMG_Load(path.c_str()), &SDL_FreeSurface);
    if (picture == nullptr) throw std::runtime_error("no picture " + path);
    return picture;
}

vel_colour at(const Picture &picture, int x, int y) { return test::pixel_of(picture.get(), x, y); }

// Compiles a form in its folder.
void compile(const Folder &folder, const std::string &source) {
    ASSERT_EQ(run("compile " + folder.write("a.toml", source)).status, 0);
}

// Draws the form in its folder, on white.
Picture draw(const Folder &folder, const std::string &options, const std::string &warning = "") {
    const auto result = run("render a.form a.text -o a.png --background '#ffffff' -C " +
                            folder.file("") + " " + options);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, warning);
    return load(folder.file("a.png"));
}

TEST(Render, draws_the_windows_that_are_opened_the_last_in_front) {
    const Folder folder;
    compile(folder, "[[window]]\nid = 'first'\nrect = [50, 50, 200, 100]\nfill = '#ff0000'\n"
                    "[[window]]\nid = 'second'\nrect = [150, 100, 200, 100]\nfill = '#0000ff'\n"
                    "hidden = false");
    const struct {
        const char *options;
        vel_colour first_only, both, second_only;
    } cases[] = {
        {"--activate first", test::red, test::red, test::white},
        {"--activate 8 --activate 9", test::red, test::blue, test::blue},
        {"--activate second --activate A_FIRST", test::red, test::red, test::blue},
        {"--activate first --activate second --activate first", test::red, test::red, test::blue},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.options);
        const Picture picture = draw(folder, std::string("--size 400x300 ") + c.options);
        EXPECT_EQ(picture->w, 400);
        EXPECT_EQ(picture->h, 300);
        EXPECT_EQ(at(picture, 60, 60), c.first_only);
        EXPECT_EQ(at(picture, 200, 120), c.both);
        EXPECT_EQ(at(picture, 300, 180), c.second_only);
    }
}

TEST(Render, outlines_a_frame_button_without_its_picture) {
    const Folder folder;
    compile(folder, "[[window]]\nrect = [50, 50, 200, 100]");
    const int left = 250 - 4 * 16, right = left + 15; // the fourth button
    std::filesystem::remove(folder.file("frame/mode.png"));
    const Picture without =
        draw(folder, "--activate 8",
             "velform: warning: object 4: cannot load the picture frame/mode.png\n");
    for (int k = 0; k < 16; ++k) {
        for (const auto &[x, y] : {std::pair{left, 26 + k}, std::pair{right, 26 + k},
                                   std::pair{left + k, 26}, std::pair{left + k, 41}}) {
            EXPECT_EQ(at(without, x, y), (vel_colour{0x93, 0xA1, 0xB5}));
        }
    }
    EXPECT_EQ(at(without, left + 8, 34), test::white);
}

} // namespace
