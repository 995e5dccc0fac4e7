// What a source says beyond the records, as the library reads it from the two files.
#include "forms.h"

#include "model/state.h"

namespace {

using test::Compiled;
using test::object;

// As in "8 default; 9 key=s disabled"; objects of which nothing is said are left out.
std::string shown(const vel_context &ctx) {
    constexpr const char *answers[] = {"", " plain", " default", " cancel"};
    std::string all;
    for (const auto &[number, traits] : ctx.state->traits) {
        std::string words = answers[traits.answer];
        if (traits.key != '\0') words += std::string(" key=") + traits.key;
        if (traits.disabled) words += " disabled";
        if (traits.password) words += " password";
        EXPECT_EQ(vel_is_enabled(&ctx, number), traits.disabled ? 0U : 1U);
        if (!words.empty()) all += (all.empty() ? "" : "; ") + std::to_string(number) + words;
    }
    return all;
}

// What a context has after loading.
std::string loaded(const std::string &form, const std::string &texts, std::uint32_t comfort) {
    const test::Folder folder;
    vel_context ctx{};
    ctx.comfort = comfort;
    ctx.texts_loaded = 1;
    const auto f = folder.write("f", form), t = folder.write("t", texts);
    EXPECT_EQ(vel_load_forms(&ctx, 1, 1, f.c_str(), t.c_str()), VEL_OK);
    const std::string result = shown(ctx);
    vel_close(&ctx);
    return result;
}

TEST(Traits, of_a_source_reach_the_library_where_they_mean_something) {
    const std::string menu = object("menu", "id = 'm'\nobjects = [{ style = 'e' }]\n[styles.e]\n"
                                            "type = 'label'\nborder = 'shadow'\nkey = 'a'");
    const std::string style = "[styles.s]\ndefault = true\npassword = true\nkey = '7'\n";
    const std::pair<std::string, const char *> cases[] = {
        {object("picture", "picture = 'p'\nborder = 'frame'"), "8 plain"},
        {object("label", "border = 'shadow_fitted'") + object("entry", "border = 'frame'"), ""},
        {object("label", "border = 'shadow'\nobjects = [{ type = 'label' }]"), ""},
        {object("label", "border = 'shadow'\nfocus = false\nkey = 'S'"), "8 key=s"},
        {object("label", "focus = true") + object("label", "key = 'x'"), "8 plain; 9 plain key=x"},
        {object("label", "default = true\nfocus = false") + object("label", "cancel = true"),
         "8 default; 9 cancel"},
        {object("label", "border = 'shadow'\nmenu = 'm'") + menu, "10 key=a"},
        {object("number", "password = true\nkey = '0'"), "8 key=0 password"},
        {style + object("entry", "style = 's'") + object("label", "style = 's'"),
         "8 key=7 password; 9 default key=7"},
        {"[frame.close]\ndisabled = true", "7 disabled"},
        {"[[file_dialog]]\nid = 'd'\nrows = 1\ncancel = 'No'", "10 plain; 20 default; 21 cancel"},
    };
    for (const auto &[source, traits] : cases) {
        const Compiled c(source);
        EXPECT_EQ(loaded(c.form, c.texts, VEL_COMFORT_ALL), traits) << source << c.messages;
        EXPECT_EQ(loaded(c.form, c.texts, 0), "") << source;
    }
}

TEST(Traits, of_many_objects_go_on_in_further_texts_after_those_of_the_form) {
    std::string source = "[[window]]\ntext = 'own'\n", traits = "9 default disabled";
    source += object("label", "default = true\ndisabled = true");
    // Up to object 105 these are 1000 characters, one more than a text has.
    for (int k = 10; k < 209; ++k) {
        source += object("label", "border = 'shadow'");
        traits += "; " + std::to_string(k) + " plain";
    }
    const Compiled c(source);
    EXPECT_EQ(c.text(1), "own");
    EXPECT_EQ(c.word(1, test::place_of("text_index")), 2U);
    EXPECT_EQ(loaded(c.form, c.texts, VEL_COMFORT_TYPING), traits);
    const Compiled none("[[window]]\ntext = 'own'");
    EXPECT_EQ(none.texts.size() + none.word(1, test::place_of("text_index")), sizeof(vel_text_rec));
}

TEST(Traits, that_nobody_can_have_meant_do_no_harm) {
    // Nine objects, the first of which names text 2.
    const std::string good = "velumo traits 1\n";
    std::string form = Compiled(object("label", "") + object("label", "")).form;
    form[test::place_of("text_index")] = 2;
    const std::pair<test::Names, const char *> cases[] = {
        {{"", good + "8 default\n", good + "9 cancel", "8 disabled", good + "9 default"},
         "8 default; 9 cancel"},
        {{good + "8 default"}, ""},
        {{"", "velumo traits 12\n8 default"}, ""},
        {{"", good + "\n \n8 shiny default  disabled\n9 key= key=ab key=\xFC\n9key=s"},
         "8 default disabled"},
        {{"", good + "0 default\n10 default\n-8 default\n99999999999 default\n8x default"}, ""},
        {{"", good + "8 " + std::string(2000, '8')}, ""},
        {{"", good + std::string(977, '\n') + "8 disabled"}, ""},
    };
    for (const auto &[texts, traits] : cases) {
        std::string bytes;
        for (const std::string &text : texts) {
            bytes += (std::string(8, '\0') + text + std::string(1000, '\0')).substr(0, 1008);
        }
        EXPECT_EQ(loaded(form, bytes, VEL_COMFORT_ALL), traits) << bytes.substr(1016, 60);
    }
}

TEST(Traits, are_set_by_a_program_whatever_its_comfort_and_only_where_there_are_objects) {
    vel_object objects[10]{};
    vel_context ctx{};
    ctx.objects = objects;
    ctx.object_count = 9;
    const auto set_all = [](vel_context *c, std::uint32_t number) {
        return std::vector{vel_set_enabled(c, number, 0), vel_set_password(c, number, 5),
                           vel_set_answer(c, number, VEL_ANSWER_CANCEL),
                           vel_set_access_key(c, number, 'Z')};
    };
    EXPECT_EQ(set_all(&ctx, 9), std::vector(4, std::int32_t{VEL_OK}));
    const std::vector refused(4, std::int32_t{VEL_ERROR_ARGUMENT});
    using Place = std::pair<vel_context *, std::uint32_t>;
    for (const auto &[c, number] : {Place{&ctx, 0}, Place{&ctx, 10}, Place{nullptr, 9}}) {
        EXPECT_EQ(set_all(c, number), refused) << number;
        EXPECT_EQ(vel_is_enabled(c, number), 0U) << number;
    }
    EXPECT_EQ(vel_set_answer(&ctx, 9, 4), VEL_ERROR_ARGUMENT);
    for (const char key : {' ', '\xE4', '{', '@'}) {
        EXPECT_EQ(vel_set_access_key(&ctx, 9, key), VEL_ERROR_ARGUMENT) << key;
    }
    EXPECT_EQ(shown(ctx), "9 cancel key=z disabled password");
    vel_set_enabled(&ctx, 9, 2), vel_set_password(&ctx, 9, 0), vel_set_access_key(&ctx, 9, '\0');
    vel_set_answer(&ctx, 9, VEL_ANSWER_PLAIN);
    EXPECT_EQ(shown(ctx), "9 plain");
    velumo::release_state(ctx); // vel_close() would free the objects, too
}

} // namespace
