// What a source becomes: records, texts, numbers, names.
#include "compiled.h"

#include "fields_page.h"
#include "files.h"
#include "latin1.h"
#include "record_table.h"
#include "suggestion.h"

namespace {

using test::Compiled;

// An object that has all it needs for what is in it to be tried.
std::string object(const std::string &type, const std::string &keys) {
    return "[[object]]\ntype = \"" + type + "\"\nwidth = 1\nheight = 1\n" + keys + "\n";
}

struct Said {
    const char *type, *keys;
    std::size_t offset;
    std::uint32_t word;
};

TEST(Record, each_key_stands_at_its_byte) {
#define AT(field) offsetof(vel_object_file_rec, field)
    const Said cases[] = {
        {"label", "x = 7", AT(x), 7},
        {"label", "x = -1", AT(x), 0xFFFFFFFF},
        {"label", "y = -32768", AT(y), 0xFFFF8000},
        {"menu", "rect = [1, 2, 3, 4]", AT(x), 1},
        {"menu", "rect = [1, 2, 3, 4]", AT(y), 2},
        {"menu", "rect = [1, 2, 3, 4]", AT(width), 3},
        {"menu", "rect = [1, 2, 3, 4]", AT(height), 4},
        {"label", "fill = \"#102A3b\"", AT(fill_r), 0x10},
        {"label", "fill = \"#102A3b\"", AT(fill_g), 0x2A},
        {"label", "fill = \"#102A3b\"", AT(fill_b), 0x3B},
        {"label", "", AT(fill_b), 0xFF},
        {"label", "", AT(font_choice), 0},
        {"label", "font_file = \"a.ttf\"", AT(font_choice), 1},
        {"label", "font_file = \"a.ttf\"\nfont_choice = \"default\"", AT(font_choice), 0},
        {"label", "font_choice = 2", AT(font_choice), 2},
        {"label", "font_size = 21", AT(font_size), 21},
        {"label", "text_colour = \"#010203\"", AT(text_r), 1},
        {"label", "text_colour = \"#010203\"", AT(text_g), 2},
        {"label", "text_colour = \"#010203\"", AT(text_b), 3},
        {"label", "margin = 9", AT(margin_right), 9},
        {"label", "margin = [1, 2, 3, 4]", AT(margin_left), 1},
        {"label", "margin = [1, 2, 3, 4]", AT(margin_right), 2},
        {"label", "margin = [1, 2, 3, 4]", AT(margin_top), 3},
        {"label", "margin = [1, 2, 3, 4]", AT(margin_bottom), 4},
        {"label", "margin = 9\nmargin_top = 5", AT(margin_top), 5},
        {"window", "centred = true", AT(centred), 1},
        {"text", "line_width = 80", AT(line_width), 80},
        {"text", "line_spacing = 3", AT(line_spacing), 3},
        {"label", "hidden = true", AT(hidden), 1},
        {"label", "", AT(hidden), 0},
        {"window", "", AT(hidden), 1},
        {"menu", "", AT(hidden), 1},
        {"window", "hidden = false", AT(hidden), 0},
        {"window", "", AT(type), VEL_TYPE_WINDOW},
        {"label", "", AT(type), VEL_TYPE_LABEL},
        {"text", "", AT(type), VEL_TYPE_TEXT},
        {"picture", "picture = \"p\"", AT(type), VEL_TYPE_PICTURE_UNLOADED},
        {"entry", "", AT(type), VEL_TYPE_ENTRY},
        {"number", "", AT(type), VEL_TYPE_NUMBER},
        {"menu", "", AT(type), VEL_TYPE_MENU},
        {"chain", "", AT(type), VEL_TYPE_CHAIN},
        {"window", "window_kind = \"reduced\"", AT(window_kind), VEL_WINDOW_REDUCED},
        {"window", "window_kind = \"plain\"", AT(window_kind), VEL_WINDOW_PLAIN},
        {"text", "editable = true", AT(editable), 1},
        {"window", "editable = 2", AT(editable), 2},
        {"entry", "", AT(editable), 1},
        {"number", "editable = false", AT(editable), 0},
        {"label", "label = \"Grüß\"", AT(text_length), 4},
        {"text", "text = \"a\\nbc\"", AT(text_length), 4},
        {"entry", "", AT(max_chars), 64},
        {"entry", "max_chars = 5", AT(max_chars), 5},
        {"text", "border = \"frame\"", AT(border_style), VEL_BORDER_FRAME},
        {"text", "border = \"fitted\"", AT(border_style), VEL_BORDER_FITTED},
        {"text", "border = \"frame_fitted\"", AT(border_style), VEL_BORDER_FRAME_FITTED},
        {"text", "border = \"shadow\"", AT(border_style), VEL_BORDER_SHADOW},
        {"text", "border = \"shadow_fitted\"", AT(border_style), VEL_BORDER_SHADOW_FITTED},
        {"text", "border_inset = 3", AT(border_inset), 3},
        {"text", "border_colour = \"#010203\"", AT(border_r), 1},
        {"text", "border_colour = \"#010203\"", AT(border_g), 2},
        {"text", "border_colour = \"#010203\"", AT(border_b), 3},
        {"window", "scroll_max_x = 300", AT(scroll_max_x), 300},
        {"window", "scroll_max_y = 400", AT(scroll_max_y), 400},
        {"text", "clip = \"frame\"", AT(clip_mode), VEL_CLIP_FRAME},
        {"text", "clip = \"none\"", AT(clip_mode), VEL_CLIP_NONE},
    };
#undef AT
    for (const Said &c : cases) {
        SCOPED_TRACE(std::string(c.type) + ": " + c.keys);
        const std::string keys = c.keys;
        const bool has_rect = keys.starts_with("rect");
        const Compiled compiled(has_rect ? "[[object]]\ntype = \"menu\"\n" + keys
                                         : object(c.type, keys));
        EXPECT_TRUE(compiled.is_good) << compiled.messages;
        EXPECT_EQ(compiled.word(8, c.offset), c.word);
    }
}

TEST(Record, a_title_holds_the_number_of_its_menu_in_max_chars) {
    const std::string title = object("label", "menu = \"m\""), menu = object("menu", "id = \"m\"");
    const std::string style = "[styles.s]\nmax_chars = 9\nmenu = \"m\"\n";
    const std::pair<std::string, std::uint32_t> cases[] = {
        {title + menu, 9}, // before the menu as well as behind it
        {menu + object("label", "") + title, 0},
        {menu + object("picture", "picture = \"p\"\nmenu = \"m\""), 8},
        {style + menu + object("label", "style = \"s\""), 8},
        {style + menu + object("entry", "style = \"s\""), 9},
        // A label's max_chars would be taken for a menu.
        {"[styles.s]\nmax_chars = 8\n" + menu + object("label", "style = \"s\""), 0},
    };
    for (const auto &[source, word] : cases) {
        const Compiled c(source);
        EXPECT_EQ(c.messages, "");
        EXPECT_EQ(WORD(c, source.starts_with(title) ? 8 : 9, max_chars), word) << source;
    }
}

TEST(Record, strings_are_latin1_and_paths_keep_their_bytes) {
    const Compiled c(object("label", "label = \"Grüße\"\nfont_file = \"schöne.ttf\"") +
                     object("picture", "picture = \"ä.png\""));
    EXPECT_EQ(STRING(c, 8, label), "Gr\xFC\xDF"
                                   "e");
    EXPECT_EQ(STRING(c, 8, font_path), "schöne.ttf");
    EXPECT_EQ(STRING(c, 9, image_path), "ä.png");
}

TEST(Record, the_table_agrees_with_the_public_header) {
    const std::pair<velform::Field, std::size_t> places[] = {
        {velform::Field::label, offsetof(vel_object_file_rec, label)},
        {velform::Field::text, offsetof(vel_object_file_rec, text_index)},
        {velform::Field::reserved, offsetof(vel_object_file_rec, reserved)},
        {velform::Field::text_length, offsetof(vel_object_file_rec, text_length)},
        {velform::Field::master, offsetof(vel_object_file_rec, master)},
        {velform::Field::dependents, offsetof(vel_object_file_rec, dep_objs)},
        {velform::Field::picture, offsetof(vel_object_file_rec, image_path)},
        {velform::Field::clip, offsetof(vel_object_file_rec, clip_mode)},
    };
    for (const auto &[field, offset] : places) {
        EXPECT_EQ(velform::record_field(field).offset, offset);
    }
}

TEST(FileDialog, becomes_a_window_with_its_parts_in_order) {
    const Compiled c(
        "[[window]]\nrect = [11, 25, 1, 1]\n"
        "[[file_dialog]]\nid = \"open\"\ntitle = \"Öffnen\"\nrect = [70, 80, 400, 306]\n"
        "rows = 5\nok = \"Ja\"\ncancel = \"Nein\"\nmessage = \"Geht nicht\"\n"
        "[[object]]\nid = \"last\"\ntype = \"empty\"");
    EXPECT_EQ(c.messages, "");
    EXPECT_EQ(WORD(c, 9, type), VEL_TYPE_WINDOW);
    EXPECT_EQ(std::tuple(WORD(c, 9, x), WORD(c, 9, y), WORD(c, 9, width), WORD(c, 9, height)),
              std::tuple(70U, 80U, 400U, 306U));
    EXPECT_EQ(c.text(1), "\xD6"
                         "ffnen");
    // Folder, list with its rows, name, OK, cancel, message.
    const std::uint32_t parts[] = {10, 11, 17, 18, 19, 20};
    const std::uint32_t types[] = {5, 2, 5, 2, 2, 5}, editable[] = {0, 0, 1, 0, 0, 0};
    for (std::size_t k = 0; k < std::size(parts); ++k) {
        SCOPED_TRACE(k);
        EXPECT_EQ(c.word(9, offsetof(vel_object_file_rec, dep_objs) + 4 * k), parts[k]);
        EXPECT_EQ(WORD(c, parts[k], type), types[k]);
        EXPECT_EQ(WORD(c, parts[k], editable), editable[k]);
        EXPECT_GT(WORD(c, parts[k], width), 0U);
        EXPECT_GE(WORD(c, parts[k], y), 80U + 38);
        EXPECT_LE(WORD(c, parts[k], y) + WORD(c, parts[k], height), 80U + 306);
    }
    EXPECT_EQ(STRING(c, 18, label), "Ja");
    EXPECT_EQ(STRING(c, 19, label), "Nein");
    EXPECT_EQ(STRING(c, 20, label), "Geht nicht");
    // 306 - 186 pixels are left for the rows.
    for (std::uint32_t row = 12; row <= 16; ++row) {
        EXPECT_EQ(WORD(c, row, master), 11U);
        EXPECT_EQ(WORD(c, row, height), 24U);
        EXPECT_EQ(WORD(c, row, y), WORD(c, 11, y) + 4 + 24 * (row - 12));
    }
    for (const char *name :
         {"F_OPEN = 9,", "F_OPEN_FOLDER = 10,", "F_OPEN_LIST = 11,", "F_OPEN_NAME = 17,",
          "F_OPEN_OK = 18,", "F_OPEN_CANCEL = 19,", "F_OPEN_MESSAGE = 20,", "F_LAST = 22,"}) {
        EXPECT_NE(c.header.find(name), std::string::npos) << name;
    }
}

TEST(FileDialog, has_defaults_and_takes_styles) {
    const Compiled plain("[[file_dialog]]\nid = \"a\"");
    EXPECT_EQ(plain.messages, "");
    EXPECT_EQ(WORD(plain, 8, height), 186U + 12 * 20);
    EXPECT_EQ(plain.object_count(), 8U + 12 + 7);
    EXPECT_EQ(STRING(plain, 24, label), "OK");
    const Compiled styled(
        "[styles.s]\nfill = \"#010203\"\nmargin = 9\n[[file_dialog]]\nid = \"a\"\n"
        "rows = 1\nstyle = \"s\"\nrow_style = \"s\"\nfield_style = [\"s\"]\n"
        "button_style = \"s\"");
    EXPECT_EQ(styled.messages, "");
    for (std::uint32_t object = 8; object <= 16; ++object) {
        EXPECT_EQ(WORD(styled, object, fill_b), 3U) << object;
    }
}

TEST(Numbers, are_given_from_8_on_depth_first_in_the_order_of_the_source) {
    const Compiled c(R"(
[[window]]
id = "a"
[[window.object]]
id = "b"
type = "menu"
objects = [{ id = "c", type = "label" }, { id = "d", type = "label" }]
[[object]]
id = "e"
type = "label"
[[window]]
id = "f"
[[window.window]]
id = "g"
[[window.objects]]
id = "h"
type = "label"
)");
    ASSERT_EQ(c.object_count(), 15U) << c.messages;
    const velform::HeaderNames names(c.header);
    const std::string ids = "abcdefgh";
    for (std::uint32_t k = 0; k < 8; ++k) EXPECT_EQ(names.object(ids.substr(k, 1)), 8 + k);
    const std::uint32_t masters[] = {0, 8, 9, 9, 0, 0, 13, 13};
    for (std::uint32_t k = 0; k < 8; ++k) EXPECT_EQ(WORD(c, 8 + k, master), masters[k]);
    const std::pair<std::uint32_t, std::vector<std::uint32_t>> lists[] = {
        {8, {9, 0}}, {9, {10, 11, 0}}, {12, {0}}, {13, {14, 15, 0}}};
    for (const auto &[master, list] : lists) {
        for (std::size_t k = 0; k < list.size(); ++k) {
            EXPECT_EQ(c.word(master, offsetof(vel_object_file_rec, dep_objs) + 4 * k), list[k]);
        }
    }
}

TEST(Places, add_up_from_master_to_dependent) {
    const Compiled c("[[window]]\nx = 100\ny = 50\nobjects = [{ type = \"menu\", x = 10, y = -60, "
                     "objects = [{ type = \"label\", x = 1, y = 2 }] }]");
    EXPECT_EQ(WORD(c, 9, x), 110U);
    EXPECT_EQ(WORD(c, 9, y), static_cast<std::uint32_t>(-10));
    EXPECT_EQ(WORD(c, 10, x), 111U);
    EXPECT_EQ(WORD(c, 10, y), static_cast<std::uint32_t>(-8));
}

TEST(Styles, later_ones_win_over_earlier_ones_and_the_object_over_all) {
    const std::string styles =
        "[styles.one]\nfill = \"#010000\"\nmargin = 1\nwidth = 1\n"
        "[styles.two]\nfill = \"#020000\"\nmargin_left = 2\ntype = \"label\"\n"
        "[styles.both]\nstyle = [\"one\", \"two\"]\nwidth = 3\n";
    const struct {
        const char *keys;
        std::uint32_t fill_r, margin_left, margin_top, width;
    } cases[] = {
        {"style = [\"one\", \"two\"]", 2, 2, 1, 1},
        {"style = [\"two\", \"one\"]", 1, 1, 1, 1},
        {"style = \"both\"", 2, 2, 1, 3},
        {"style = [\"both\", \"one\"]\ntype = \"label\"", 1, 1, 1, 1},
        {"style = \"both\"\nfill = \"#090000\"\nmargin = 7\nwidth = 8", 9, 7, 7, 8},
    };
    for (const auto &s : cases) {
        SCOPED_TRACE(s.keys);
        const Compiled c(styles + "[[object]]\n" + s.keys);
        EXPECT_TRUE(c.is_good) << c.messages;
        EXPECT_EQ(WORD(c, 8, fill_r), s.fill_r);
        EXPECT_EQ(WORD(c, 8, margin_left), s.margin_left);
        EXPECT_EQ(WORD(c, 8, margin_top), s.margin_top);
        EXPECT_EQ(WORD(c, 8, width), s.width);
        EXPECT_EQ(WORD(c, 8, type), 2U);
    }
}

TEST(Texts, are_made_for_what_has_or_may_get_one) {
    const struct {
        const char *source;
        std::uint32_t object, index;
    } cases[] = {
        {"[[window]]", 8, 0},
        {"[[window]]\ntext = \"\"", 8, 1},
        {"[[window]]\neditable = true", 8, 1},
        {"[[window]]\ntext = \"one\"\n[[window.object]]\ntype = \"text\"\ntext = \"two\"", 9, 2},
        {"[[object]]\ntype = \"entry\"", 8, 0},
        {"[[object]]\ntype = \"chain\"\n[[object.object]]\ntype = \"chain\"", 8, 0},
        {"[[object]]\ntype = \"chain\"\n[[object.object]]\ntype = \"chain\"", 9, 1},
        {"[[object]]\ntype = \"chain\"\ntext = \"t\"\n[[object.object]]\ntype = \"chain\"", 8, 1},
        {"[[object]]\ntype = \"chain\"\ntext = \"t\"\n[[object.object]]\ntype = \"chain\"", 9, 2},
        {"[[object]]\ntype = \"chain\"\neditable = true", 8, 0},
        {"[styles.s]\ntext = \"t\"\n[[object]]\ntype = \"label\"\nstyle = \"s\"", 8, 0},
    };
    for (const auto &t : cases) {
        SCOPED_TRACE(t.source);
        const Compiled c(t.source);
        EXPECT_TRUE(c.is_good) << c.messages;
        EXPECT_EQ(WORD(c, t.object, text_index), t.index);
    }
    const Compiled c("[[window]]\ntext = \"Grüße\\r\\nan alle\"\n[[window]]\ntext = \"two\"");
    EXPECT_EQ(c.text(1), "Gr\xFC\xDF"
                         "e\nan alle");
    EXPECT_EQ(c.text(2), "two");
    EXPECT_EQ(c.texts.size(), 2 * sizeof(vel_text_rec));
}

TEST(Texts, of_the_greatest_length_are_taken) {
    const Compiled c("[[window]]\ntext = \"" + std::string(999, 'x') + "\"\n" +
                     object("label", "label = \"" + std::string(67, 'x') + "\"") +
                     object("entry", "label = \"" + std::string(64, 'x') + "\""));
    EXPECT_TRUE(c.is_good) << c.messages;
    EXPECT_EQ(c.text(1).size(), 999U);
    EXPECT_EQ(STRING(c, 9, label).size(), 67U);
}

TEST(FrameButtons, are_pictures_of_16_pixels_unless_told_otherwise) {
    const Compiled plain("");
    ASSERT_EQ(plain.object_count(), 7U);
    const char *names[] = {"move",       "height_less", "height_more", "mode",
                           "width_less", "width_more",  "close"};
    for (std::uint32_t button = 1; button <= 7; ++button) {
        EXPECT_EQ(WORD(plain, button, type), 4U);
        EXPECT_EQ(WORD(plain, button, width), 16U);
        EXPECT_EQ(WORD(plain, button, height), 16U);
        EXPECT_EQ(WORD(plain, button, hidden), 1U);
        EXPECT_EQ(STRING(plain, button, image_path),
                  std::string("frame/") + names[button - 1] + ".png");
    }
    const Compiled own("[frame]\npictures = \"my\"\n[frame.mode]\ntype = \"label\"\nlabel = \"M\"\n"
                       "[frame.close]\npicture = \"x.png\"");
    EXPECT_TRUE(own.is_good) << own.messages;
    EXPECT_EQ(STRING(own, 1, image_path), "my/move.png");
    EXPECT_EQ(STRING(own, 7, image_path), "x.png");
    EXPECT_EQ(WORD(own, 4, type), 2U);
    EXPECT_EQ(STRING(own, 4, label), "M");
}

TEST(Header, prefix_is_made_of_the_name_of_the_source) {
    const std::pair<const char *, const char *> cases[] = {{"/a/b/tour.toml", "TOUR"},
                                                           {"my-form.v2.toml", "MY_FORM_V2"},
                                                           {"9lives.toml", "FORM_9LIVES"},
                                                           {"ä.toml", "FORM___"}};
    for (const auto &[path, prefix] : cases) EXPECT_EQ(velform::prefix_for(path), prefix);
}

TEST(Header, names_are_found_by_id_and_whole_but_those_of_texts_are_not) {
    const Compiled c("[[window]]\nid = \"main\"\ntext = \"t\"");
    const velform::HeaderNames names(c.header);
    const std::pair<const char *, std::uint32_t> cases[] = {
        {"main", 8}, {"MAIN", 8}, {"F_MAIN", 8}, {"f_main", 8}, {"main_text", 0}, {"", 0}};
    for (const auto &[name, number] : cases) EXPECT_EQ(names.object(name), number) << name;
    EXPECT_NE(c.header.find("F_MAIN_TEXT = 1,"), std::string::npos);
}

TEST(Suggestion, is_the_nearest_word_if_any_is_near) {
    const std::string_view words[] = {"label", "width", "height"};
    const std::pair<const char *, const char *> cases[] = {{"lable", "; did you mean 'label'?"},
                                                           {"heigth", "; did you mean 'height'?"},
                                                           {"with", "; did you mean 'width'?"},
                                                           {"colour", ""},
                                                           {"", ""},
                                                           {"wdt", ""}};
    for (const auto &[word, hint] : cases)
        EXPECT_EQ(velform::did_you_mean(word, words), hint) << word;
}

TEST(Page, reference_in_the_documentation_is_that_of_the_table) {
    for (const char *path : {VELFORM_DOCS "/form-source.md", VELFORM_DOCS "/file-formats.md"}) {
        const std::string page = velform::read_file(path);
        EXPECT_TRUE(velform::with_field_reference(page) == page)
            << "bring it up to date: velform fields --into " << path;
    }
    EXPECT_THROW(velform::with_field_reference("no marks"), velform::FileProblem);
}

TEST(Page, example_in_the_documentation_compiles_without_a_word) {
    const std::string page = velform::read_file(VELFORM_DOCS "/form-source.md");
    const std::size_t begin = page.find("```toml\n") + 8;
    const Compiled c(page.substr(begin, page.find("```\n", begin) - begin));
    EXPECT_EQ(c.messages, "");
    EXPECT_EQ(velform::HeaderNames(c.header).object("send"), 11U);
}

} // namespace
