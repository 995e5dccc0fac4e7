// What a source becomes: records, texts, numbers, names.
#include "forms.h"

#include "base/files.h"
#include "commands/fields_page.h"

namespace {

using test::Compiled;
using test::expect_words;
using test::object;
using velform::Kind;
using velform::RecordField;

// What a source may say, and what the record then holds.
std::vector<std::pair<std::string, std::int64_t>> values_of(const RecordField &row) {
    const auto [first, last] = row.range;
    if (row.kind == Kind::flag) return {{"true", 1}, {"false", 0}, {"2", 2}};
    std::vector<std::pair<std::string, std::int64_t>> values{{std::to_string(first), first},
                                                             {std::to_string(last), last}};
    for (const velform::Name &name : row.names) {
        values.emplace_back("'" + std::string(name.name) + "'", name.code);
    }
    return values;
}

TEST(Record, holds_what_a_key_says_up_to_the_ends_of_its_range) {
    for (const RecordField &row : velform::record_table()) {
        if (row.kind != Kind::number && row.kind != Kind::flag && row.kind != Kind::code) continue;
        if (row.field == velform::Field::type) continue;
        const auto types = velform::record_field(velform::Field::type).names;
        const auto user = std::ranges::find_if(
            types, [&row](const auto &type) { return velform::means_something(row, type.code); });
        const std::string key = "font_file = 'f'\npicture = 'p'\n" + std::string(row.key) + " = ";
        for (const auto &[said, word] : values_of(row)) {
            const Compiled c(object(user->name, key + said));
            EXPECT_TRUE(c.is_good) << c.messages;
            EXPECT_EQ(c.word(8, row.offset), static_cast<std::uint32_t>(word)) << row.key;
        }
        if (row.kind != Kind::number) continue;
        for (const std::int64_t beyond : {row.range.first - 1, row.range.last + 1}) {
            EXPECT_FALSE(Compiled(object(user->name, key + std::to_string(beyond))).is_good);
        }
    }
}

TEST(Record, holds_colours_standards_and_what_follows_from_other_keys) {
    expect_words({
        {object("label", "fill = '#10fA3b'\ntext_colour = '#010203'\nborder_colour = '#040506'"),
         "8.fill_r=16 8.fill_g=250 8.fill_b=59 8.text_r=1 8.text_g=2 8.text_b=3 "
         "8.border_r=4 8.border_g=5 8.border_b=6"},
        {"[[window]]", "8.type=1 8.hidden=1 8.max_chars=99 8.editable=0 8.fill_r=255 8.text_r=0"},
        {object("entry", ""),
         "8.type=5 8.text_index=0 8.hidden=0 8.max_chars=64 8.editable=1 8.font_size=14"},
        {object("menu", "rect = [1, 2, 3, 4]"), "8.x=1 8.y=2 8.width=3 8.height=4"},
        {object("label", "margin = [1, 2, 3, 4]"),
         "8.margin_left=1 8.margin_right=2 8.margin_top=3 8.margin_bottom=4"},
        {object("label", "margin = 9\nmargin_top = 5"), "8.margin_right=9 8.margin_top=5"},
        {object("label", "font_file = 'a.ttf'"), "8.font_choice=1 8.font_path=a.ttf"},
        {object("label", "font_file = 'a.ttf'\nfont_choice = 'default'"), "8.font_choice=0"},
        {object("label", "label = 'Grüß'"), "8.text_length=4 8.label=Gr\xFC\xDF"},
        {object("text", "text = \"a\\nbc\""), "8.text_length=4"},
        {object("picture", "picture = 'ä.png'"), "8.image_path=ä.png"},
        {"[[window]]\nx = 100\ny = 50\nobjects = [{ type = 'menu', x = 10, y = -60, "
         "objects = [{ type = 'label', x = 1, y = 2 }] }]",
         "9.x=110 9.y=-10 10.x=111 10.y=-8"},
    });
}

TEST(Record, of_a_title_holds_the_number_of_its_menu_in_max_chars) {
    const std::string title = object("label", "menu = 'm'"), menu = object("menu", "id = 'm'");
    const std::string style = "[styles.s]\nmax_chars = 9\nmenu = 'm'\n";
    expect_words({
        {title + menu, "8.max_chars=9"}, // before the menu as well as after it
        {menu + object("label", "") + title, "9.max_chars=0 10.max_chars=8"},
        {menu + object("picture", "picture = 'p'\nmenu = 'm'"), "9.max_chars=8"},
        {style + menu + object("label", "style = 's'"), "9.max_chars=8"},
        {style + menu + object("entry", "style = 's'"), "9.max_chars=9"},
        // A label's max_chars would be taken for a menu.
        {"[styles.s]\nmax_chars = 8\n" + menu + object("label", "style = 's'"), "9.max_chars=0"},
    });
}

TEST(Styles, later_ones_win_over_earlier_ones_and_the_object_over_all) {
    const std::string styles = "[styles.one]\nfill = '#010000'\nmargin = 1\nwidth = 1\n"
                               "[styles.two]\nfill = '#020000'\nmargin_left = 2\ntype = 'label'\n"
                               "[styles.both]\nstyle = ['one', 'two']\nwidth = 3\n[[object]]\n";
    expect_words({
        {styles + "style = ['one', 'two']",
         "8.fill_r=2 8.margin_left=2 8.margin_top=1 8.width=1 8.type=2"},
        {styles + "style = ['two', 'one']", "8.fill_r=1 8.margin_left=1 8.type=2"},
        {styles + "style = 'both'", "8.fill_r=2 8.margin_left=2 8.margin_top=1 8.width=3"},
        {styles + "style = ['both', 'one']\ntype = 'menu'", "8.margin_left=1 8.width=1 8.type=7"},
        {styles + "style = 'both'\nfill = '#090000'\nmargin = 7",
         "8.fill_r=9 8.margin_left=7 8.width=3"},
    });
}

TEST(Texts, are_made_for_what_has_or_may_get_one) {
    const std::string member = "objects = [{ type = 'chain' }]";
    expect_words({
        {"[[window]]", "8.text_index=0"},
        {"[[window]]\ntext = ''", "8.text_index=1"},
        {"[[window]]\neditable = true", "8.text_index=1"},
        {"[[window]]\ntext = 'one'\nobjects = [{ type = 'text', text = 'two' }]", "9.text_index=2"},
        {object("chain", member), "8.text_index=0 9.text_index=1"},
        {object("chain", "text = 't'\n" + member), "8.text_index=1 9.text_index=2"},
        {object("chain", "editable = true"), "8.text_index=0"},
        {"[styles.s]\ntext = 't'\n" + object("label", "style = 's'"), "8.text_index=0"},
    });
}

TEST(Texts, are_latin1_and_take_the_greatest_length) {
    const Compiled c("[[window]]\ntext = \"Grüße\\r\\nto all\"\n[[window]]\ntext = '" +
                     std::string(999, 'x') + "'\n" +
                     object("label", "label = '" + std::string(67, 'x') + "'") +
                     object("entry", "label = '" + std::string(64, 'x') + "'"));
    EXPECT_TRUE(c.is_good) << c.messages;
    EXPECT_EQ(c.text(1), "Gr\xFC\xDF"
                         "e\nto all");
    EXPECT_EQ(c.text(2).size(), 999U);
    EXPECT_EQ(c.string(10, test::place_of("label")).size(), 67U);
    EXPECT_EQ(c.texts.size(), 2 * sizeof(vel_text_rec));
}

TEST(FrameButtons, are_outlined_pictures_of_16_pixels_unless_the_source_says_otherwise) {
    expect_words({
        {"", "1.type=4 1.width=16 1.height=16 1.hidden=1 1.border_style=4 1.border_inset=0 "
             "1.image_path=frame/move.png 2.image_path=frame/height_less.png "
             "3.image_path=frame/height_more.png 4.image_path=frame/mode.png "
             "5.image_path=frame/width_less.png 6.image_path=frame/width_more.png "
             "7.image_path=frame/close.png 6.border_r=147 7.border_r=176 7.hidden=1"},
        {"[frame]\npictures = 'my'\n[frame.mode]\ntype = 'label'\nlabel = 'M'\n"
         "[frame.close]\npicture = 'x.png'\nborder = 'none'",
         "1.image_path=my/move.png 4.type=2 4.label=M 7.image_path=x.png 7.border_style=0"},
    });
}

TEST(Numbers, are_given_from_8_on_depth_first_in_the_order_of_the_source) {
    const std::string source = "[[window]]\n[[window.object]]\ntype = 'menu'\n"
                               "objects = [{ type = 'label' }, { type = 'text' }]\n" +
                               object("entry", "") +
                               "[[window]]\n[[window.window]]\n[[window.objects]]\ntype = 'number'";
    expect_words({{source, "8.type=1 9.type=7 10.type=2 11.type=3 12.type=5 13.type=1 14.type=1 "
                           "15.type=6 8.master=0 9.master=8 10.master=9 11.master=9 12.master=0 "
                           "13.master=0 14.master=13 15.master=13 8.dep_objs=9 8.dep_objs.1=0 "
                           "9.dep_objs=10 9.dep_objs.1=11 9.dep_objs.2=0 12.dep_objs=0 "
                           "13.dep_objs.1=15"}});
}

TEST(FileDialog, becomes_a_window_with_its_parts_in_order_and_takes_styles) {
    const std::string source =
        "[[window]]\nrect = [11, 25, 1, 1]\n"
        "[[file_dialog]]\nid = 'open'\ntitle = 'Open'\nrect = [70, 80, 400, 306]\n"
        "rows = 5\nok = 'Ja'\ncancel = 'Nein'\nmessage = 'Never'\n"
        "[[object]]\nid = 'last'\ntype = 'empty'";
    // 306 - 192 pixels are left for five rows of 22. The list 11 has a sample, no titles, a bar and
    // its thumb before them; each row has cells for name, size and time, so they are 16, 20 ... 32.
    expect_words({{source, "9.type=1 9.x=70 9.y=80 9.width=400 9.height=306 "
                           "9.dep_objs=10 9.dep_objs.1=11 9.dep_objs.2=36 9.dep_objs.3=37 "
                           "9.dep_objs.4=38 9.dep_objs.5=39 10.type=5 10.editable=1 11.type=2 "
                           "36.type=5 36.editable=1 37.type=2 37.label=Ja 38.type=2 38.label=Nein "
                           "39.type=5 39.editable=0 39.label=Never "
                           "16.master=11 32.master=11 16.height=22 32.height=22 "
                           "11.y=148 16.y=150 32.y=238"},
                  {"[[file_dialog]]\nid = 'a'", "8.height=432 64.label=OK 67.master=8"},
                  {"[styles.s]\nfill = '#010203'\n[[file_dialog]]\nid = 'a'\nrows = 1\n"
                   "style = 's'\nrow_style = 's'\nfield_style = ['s']\nbutton_style = 's'",
                   "8.fill_b=3 9.fill_b=3 10.fill_b=3 15.fill_b=3 16.fill_b=3 "
                   "19.fill_b=3 20.fill_b=3 21.fill_b=3 22.fill_b=3 23.fill_b=3"}});
    const Compiled c(source);
    EXPECT_EQ(c.messages, "");
    EXPECT_EQ(c.text(1), "Open");
    for (const char *name :
         {"F_OPEN = 9,", "F_OPEN_FOLDER = 10,", "F_OPEN_LIST = 11,", "F_OPEN_NAME = 36,",
          "F_OPEN_OK = 37,", "F_OPEN_CANCEL = 38,", "F_OPEN_MESSAGE = 39,", "F_LAST = 41,"})
        EXPECT_NE(c.header.find(name), std::string::npos) << name;
}

TEST(Header, has_names_by_id_and_whole_but_those_of_texts_are_no_objects) {
    const Compiled c("[[window]]\nid = 'main'\ntext = 't'");
    const velform::HeaderNames names(c.header);
    const std::pair<const char *, std::uint32_t> numbers[] = {
        {"main", 8}, {"MAIN", 8}, {"F_MAIN", 8}, {"f_main", 8}, {"main_text", 0}, {"", 0}};
    for (const auto &[name, number] : numbers) EXPECT_EQ(names.object(name), number) << name;
    EXPECT_NE(c.header.find("F_MAIN_TEXT = 1,"), std::string::npos);
    EXPECT_EQ(Compiled("").header.find("enum"), std::string::npos) << "C has no empty lists";
    const std::pair<const char *, const char *> prefixes[] = {
        {"my-form.v2.toml", "MY_FORM_V2"}, {"9lives.toml", "FORM_9LIVES"}, {"ä.toml", "FORM___"}};
    for (const auto &[path, prefix] : prefixes) EXPECT_EQ(velform::prefix_for(path), prefix);
}

TEST(Pages, have_the_tables_of_the_record_as_it_is) {
    for (const char *path : {VELFORM_DOCS "/form-source.md", VELFORM_DOCS "/file-formats.md"}) {
        const std::string page = velform::read_file(path);
        EXPECT_TRUE(velform::with_field_reference(page) == page)
            << "bring it up to date: velform fields --into " << path;
    }
}

} // namespace
