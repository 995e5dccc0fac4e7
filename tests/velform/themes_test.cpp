// What objects look like of which a source says nothing.
#include "forms.h"

#include <cmath>

#include "draw/gallery.h"
#include "model/state.h"

namespace {

using test::Compiled;

double luminance(vel_colour c) {
    const auto part = [](std::uint8_t value) {
        const double share = value / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(c.r) + 0.7152 * part(c.g) + 0.0722 * part(c.b);
}

double contrast(vel_colour a, vel_colour b) {
    const auto [less, more] = std::minmax({luminance(a), luminance(b)});
    return (more + 0.05) / (less + 0.05);
}

// Each text of the form with one object of every kind, as it is and under the pointer.
TEST(Themes, keep_text_legible_in_every_state) {
    for (const velform::Theme &theme : velform::themes()) {
        if (!theme.dresses_types) continue;
        const Compiled c(velform::gallery_source(theme.name));
        ASSERT_TRUE(c.is_good) << c.messages;
        const test::Folder folder;
        SDL_Init(SDL_INIT_VIDEO), TTF_Init();
        vel_context own{};
        own.screen = SDL_SetVideoMode(velform::gallery_width, velform::gallery_height, 32, 0);
        own.screen_width = velform::gallery_width, own.screen_height = velform::gallery_height;
        own.screen_rect = {0, 0, velform::gallery_width, velform::gallery_height};
        own.font = TTF_OpenFont(test::font_file, 12);
        own.comfort = VEL_COMFORT_ALL, own.texts_loaded = 1;
        const auto f = folder.write("f", c.form), t = folder.write("t", c.texts);
        ASSERT_EQ(vel_load_forms(&own, 0, 0, f.c_str(), t.c_str()), VEL_OK);
        int count = 0;
        for (std::uint32_t number = 8; number <= own.object_count; ++number) {
            const vel_object &o = own.objects[number];
            const bool is_text = o.label[0] != '\0' || o.text_index != 0;
            std::uint32_t root = number;
            while (own.objects[root].master != 0) root = own.objects[root].master;
            if (!is_text || !vel_is_enabled(&own, number) || own.objects[root].hidden) continue;
            for (const auto &[hovered, pressed] :
                 {std::pair{0U, 0U}, std::pair{number, 0U}, std::pair{number, number}}) {
                own.state->hovered = hovered, own.state->pressed = pressed;
                vel_draw_all_objects(&own, 1, 0);
                const vel_colour body = test::pixel_of(own.screen, int(o.x + 2), int(o.y + 2));
                const vel_colour text{static_cast<std::uint8_t>(o.text_r),
                                      static_cast<std::uint8_t>(o.text_g),
                                      static_cast<std::uint8_t>(o.text_b)};
                EXPECT_GE(contrast(body, text), 4.5)
                    << theme.name << ' ' << o.label << ' ' << number << (pressed ? " pressed" : "");
                ++count;
            }
        }
        EXPECT_GT(count, 60) << "texts and states";
        vel_close(&own);
    }
}

TEST(Looks, come_from_the_theme_then_from_styles_and_the_object) {
    const std::string light = "theme = 'light'\n[styles.s]\nfill = '#010203'\nwidth = 9\n";
    const std::string window = light + "[[window]]\nfill = '#0a0b0c'\nobjects = [\n";
    test::expect_words({
        {light + "[[object]]\ntype = 'entry'",
         "8.border_style=4 8.width=200 8.height=28 8.fill_r=255 8.margin_left=7"},
        {light + "[[object]]\ntype = 'entry'\nstyle = 's'\nmargin = 3\nborder = 'none'",
         "8.fill_b=3 8.width=9 8.height=28 8.margin_top=3 8.border_style=0"},
        // A caption has the ground that it is on, a button one of its own.
        {window + "{ type = 'label' }, { type = 'label', focus = true }]",
         "9.fill_r=10 9.border_style=0 10.border_style=4 10.fill_r=228"},
        {window + "{ type = 'empty', objects = [{ type = 'text' }] }]", "10.fill_b=12"},
        {light + "[[object]]\ntype = 'label'", "8.fill_r=227 8.fill_g=233 8.fill_b=240"},
        {window + "{ kind = 'list', style = 's', width = 90, height = 30 }]",
         "9.fill_b=3 14.fill_b=3 10.fill_r=42"},
        {light + "[[file_dialog]]\nid = 'd'\nrows = 1", "8.fill_r=244 9.fill_r=255 10.fill_r=255"},
        {"theme = 'dark'\n[[window]]\ntext = 'T'", "8.fill_r=30 8.margin_left=16 8.margin_top=12"},
        {"theme = 'none'\n[[object]]\ntype = 'label'\ndefault = true",
         "8.fill_r=255 8.border_style=0 8.width=0"},
    });
}

} // namespace
