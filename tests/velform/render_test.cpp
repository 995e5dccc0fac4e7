// What render draws of a form beyond its display as it is: windows alone, outlines, other words,
// and where two pictures differ.
#include "forms.h"

#include <SDL_image.h>

namespace {

using test::Folder;
using test::run;

constexpr vel_colour edge{0x00, 0x6F, 0xD6}, margin{0x00, 0x94, 0x52}, limit{0xD6, 0x1F, 0x2C};

struct Picture {
    explicit Picture(const std::string &path) : surface(IMG_Load(path.c_str())) {}
    ~Picture() { SDL_FreeSurface(surface); }
    Picture(const Picture &) = delete;
    Picture &operator=(const Picture &) = delete;

    vel_colour at(int x, int y) const { return test::pixel_of(surface, x, y); }
    std::pair<int, int> size() const { return {surface->w, surface->h}; }

    SDL_Surface *surface;
};

class RenderedForm : public testing::Test {
protected:
    // Two forms that differ in two words; the display cuts the second window.
    RenderedForm() {
        write("a.toml", "OK");
        write("b.toml", "Yes");
    }

    void write(const std::string &name, const std::string &label) {
        const std::string source =
            "theme = 'none'\n[[window]]\nid = 'main'\nrect = [40, 50, 100, 80]\nfill = '#00ff00'\n"
            "margin = 8\nobjects = [{ id = 'ok', type = 'label', rect = [70, 20, 40, 20], label = "
            "'" +
            label + "' }, { id = 'note', type = 'text', rect = [8, 50, 60, 20], text = '" + label +
            "' }]\n[[object]]\ntype = 'picture'\npicture = 'none.png'\n"
            "[[window]]\nrect = [250, 150, 90, 90]\nfill = '#ff0000'\n";
        EXPECT_EQ(run("compile " + folder.write(name, source) + " >/dev/null").status, 0);
    }

    test::Result render(const std::string &form, const std::string &arguments,
                        const std::string &size = "300x200") {
        return run("render " + form + ".form " + form + ".text -C " + folder.file("") + " --size " +
                   size + " -o " + arguments + " 2>/dev/null");
    }

    const Folder folder;
};

TEST_F(RenderedForm, may_be_a_source_with_the_pictures_and_the_names_that_belong_to_it) {
    std::filesystem::copy(VELFORM_FRAME "/close.png", folder.file("none.png"));
    const std::string options = " --window main --set ok=Well -o ";
    const auto result =
        run("render " + folder.file("a.toml") + options + folder.file("source.png"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    ASSERT_EQ(render("a", "files.png --window main --set ok=Well", "800x600").status, 0);
    EXPECT_EQ(test::contents(folder.file("source.png")), test::contents(folder.file("files.png")));
}

TEST_F(RenderedForm, says_how_far_it_has_come_to_a_terminal_only) {
    const std::string arguments =
        "render " + folder.file("b.toml") + " --all-windows -o " + folder.file("b.png");
    std::filesystem::copy(VELFORM_FRAME "/close.png", folder.file("none.png"));
    EXPECT_EQ(run(arguments).output, "");
    const std::string shown = run(arguments + "' /dev/null", "script -qec '").output;
    EXPECT_EQ(shown, "\r\x1b[Kfile 1 of 2\r\x1b[Kfile 2 of 2\r\x1b[K");
}

// The marks are 11 pixels to the left of a window and 25 above it, and 1 at its other edges; one
// pixel of the desk is around them.
TEST_F(RenderedForm, shows_a_window_alone_or_each_in_a_file_of_its_own) {
    ASSERT_EQ(render("a", "w.png --window main").status, 0);
    ASSERT_EQ(render("a", "all.png --all-windows").status, 0);
    for (const std::string name : {"w.png", "all-main.png"}) {
        const Picture picture(folder.file(name));
        EXPECT_EQ(picture.size(), std::pair(100 + 14, 80 + 28));
        EXPECT_EQ(picture.at(12, 26), test::green);
        EXPECT_EQ(picture.at(111, 105), test::green);
        EXPECT_EQ(picture.at(11, 60), (vel_colour{0x2F, 0x6F, 0xDE})); // the mark
        EXPECT_EQ(picture.at(0, 0), (vel_colour{0xE3, 0xE9, 0xF0}));
    }
    EXPECT_EQ(Picture(folder.file("all-12.png")).size(), std::pair(300 - 238, 200 - 124));
    EXPECT_FALSE(std::filesystem::exists(folder.file("all.png")));
    EXPECT_EQ(render("a", "w.png --window ok").status, 2);
    EXPECT_EQ(render("a", "w.png --window main --all-windows").status, 2);
}

TEST_F(RenderedForm, has_the_words_that_it_is_given) {
    ASSERT_EQ(render("b", "b.png --activate main").status, 0);
    const std::string words = "a.png --activate main --set ok=Yes --set 10=Yes --compare b.png";
    const auto same = render("a", words);
    EXPECT_EQ(same.status, 0);
    EXPECT_EQ(same.output, "0 pixels differ from b.png\n");
    EXPECT_EQ(render("a", "a.png --activate main --set ok=Yes --compare b.png").status, 1);
    const std::string too_long(68, 'x');
    for (const std::string wrong : {"ok", "nobody=x", "11=x", "main=x", "ok=\u20ac", "'ok=a\nb'"}) {
        EXPECT_EQ(render("a", "no.png --set " + wrong).status, 2) << wrong;
    }
    EXPECT_EQ(render("a", "no.png --set ok=" + too_long).status, 2);
    EXPECT_EQ(render("a", "a.png --set ok=" + too_long.substr(1)).status, 0);
}

TEST_F(RenderedForm, is_compared_pixel_by_pixel) {
    const std::string base = " --background '#ffffff'";
    ASSERT_EQ(render("a", "old.png" + base, "310x200").status, 0);
    ASSERT_EQ(render("a", "now.png --compare old.png" + base).output,
              "2000 pixels differ from old.png\n"); // 10 columns more
    const Picture difference(folder.file("now-difference.png"));
    EXPECT_EQ(difference.size(), std::pair(310, 200));
    EXPECT_EQ(difference.at(299, 100), test::white);
    EXPECT_EQ(difference.at(300, 100), limit);
    folder.write("text.png", "no picture");
    EXPECT_EQ(render("a", "now.png --compare text.png").status, 3);
}

// The label is at 110, 70, and 40 wide; the inner area of its window ends at 132.
TEST_F(RenderedForm, is_outlined_with_margins_and_limits) {
    ASSERT_EQ(render("a", "a.png --activate main --outline").status, 0);
    const Picture picture(folder.file("a.png"));
    constexpr vel_colour desk{0xE3, 0xE9, 0xF0};
    const std::tuple<int, int, vel_colour> cases[] = {
        {139, 129, edge}, {40, 129, edge},                            // the window
        {99, 58, margin}, {100, 58, test::green}, {131, 100, margin}, // its inner area
        {149, 89, edge},  {131, 80, limit},       {140, 60, {0x2F, 0x6F, 0xDE}},
        {142, 100, desk}, {251, 199, desk}}; // a window that is closed
    for (const auto &[x, y, colour] : cases) EXPECT_EQ(picture.at(x, y), colour) << x << ' ' << y;
}

} // namespace
