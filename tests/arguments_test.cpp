// Bad arguments: every function of the header with contexts, numbers and pointers that nobody
// should give.
#include "support.h"

#include <map>
#include <type_traits>

namespace {

// What each kind of parameter gets.
struct Arguments {
    vel_context *ctx;
    uint32_t number;
    bool has_pointers;

    char room[100] = "a word";
    uint32_t count = 0;

    template <class Parameter> Parameter as() {
        using Target = std::remove_const_t<std::remove_pointer_t<Parameter>>;
        if constexpr (std::is_same_v<Target, vel_context>) {
            return ctx;
        } else if constexpr (!std::is_pointer_v<Parameter>) {
            return static_cast<Parameter>(number);
        } else if constexpr (std::is_same_v<Target, char>) {
            return has_pointers ? room : nullptr;
        } else if constexpr (std::is_same_v<Target, uint32_t>) {
            return has_pointers ? &count : nullptr;
        } else {
            return nullptr;
        }
    }

    // The result; 0 for none and for null.
    template <class Result, class... Parameters> int64_t call(Result (*function)(Parameters...)) {
        if constexpr (std::is_void_v<Result>) {
            function(as<Parameters>()...);
            return 0;
        } else if constexpr (std::is_pointer_v<Result>) {
            return function(as<Parameters>()...) != nullptr;
        } else {
            return static_cast<int32_t>(function(as<Parameters>()...));
        }
    }
};

struct Function {
    std::string name;
    std::function<int64_t(Arguments)> call;
    bool takes_context;
};

template <class Result, class First, class... Others>
constexpr bool takes_context(Result (*)(First, Others...)) {
    return std::is_same_v<std::remove_const_t<std::remove_pointer_t<First>>, vel_context>;
}

// All that the header has but vel_start_velumo, which ends the process when there is no form, and
// what takes sizes, which are in display_test.
const std::vector<Function> &functions() {
    static const std::vector<Function> all = {
#define FUNCTION(name) {#name, [](Arguments a) { return a.call(name); }, takes_context(name)},
#include "functions.inc"
    };
    return all;
}

// Results for 'nothing could be done' that are not 0.
int64_t refusal_of(const std::string &name) {
    static const std::map<std::string, int64_t> refusals = {
        {"vel_load_forms", VEL_ERROR_ARGUMENT},
        {"vel_load_forms_from_memory", VEL_ERROR_ARGUMENT},
        {"vel_set_enabled", VEL_ERROR_ARGUMENT},
        {"vel_set_password", VEL_ERROR_ARGUMENT},
        {"vel_set_answer", VEL_ERROR_ARGUMENT},
        {"vel_set_access_key", VEL_ERROR_ARGUMENT},
        {"vel_set_selection", VEL_ERROR_ARGUMENT},
        {"vel_list_show", VEL_ERROR_ARGUMENT},
        {"vel_list_sort_by", VEL_ERROR_ARGUMENT},
        {"vel_list_select", VEL_ERROR_ARGUMENT},
        {"vel_list_mark", VEL_ERROR_ARGUMENT},
        {"vel_list_selected", static_cast<int32_t>(VEL_NO_ROW)},
        {"vel_set_checked", VEL_ERROR_ARGUMENT},
        {"vel_set_value", VEL_ERROR_ARGUMENT},
        {"vel_show_page", VEL_ERROR_ARGUMENT},
        {"vel_list_directory", VEL_ERROR_ARGUMENT},
        {"vel_choose_file", VEL_ERROR_ARGUMENT},
        {"vel_copy_word_into_line", -1},
        {"vel_copy_word_big", -1},
        {"vel_go_to_next_chainmember", 1}};
    const auto found = refusals.find(name);
    return found == refusals.end() ? 0 : found->second;
}

// Without a form.
vel_context started() {
    vel_context ctx{};
    SDL_Init(SDL_INIT_VIDEO);
    TTF_Init();
    ctx.font = TTF_OpenFont(test::font_file, 14);
    ctx.screen = SDL_SetVideoMode(64, 64, 32, SDL_SWSURFACE);
    ctx.screen_width = ctx.screen_height = 64;
    return ctx;
}

// Null, not started, started without a form, and closed, once and twice.
TEST(Arguments, without_a_form_every_function_refuses) {
    vel_context fresh{}, closed = started();
    closed.objects = static_cast<vel_object *>(std::calloc(9, sizeof(vel_object)));
    closed.object_count = closed.active_window = closed.window_stack[0] = 8;
    vel_draw_all_objects(&closed, 1, 1);
    vel_close(&closed);
    vel_context without_form = started();
    // The first one has a display, which vel_close() of whichever context takes down.
    for (vel_context *ctx : {&without_form, &fresh, &closed, static_cast<vel_context *>(nullptr)}) {
        for (const Function &f : functions()) {
            if (!f.takes_context || f.name == "vel_close") continue;
            EXPECT_EQ(f.call({ctx, 1, false}), refusal_of(f.name)) << f.name;
        }
        vel_close(ctx);
    }
}

// Objects 1 to 9 and two spare ones; an event ends each loop.
TEST(Arguments, numbers_of_no_object_change_none) {
    const test::Folder folder;
    vel_context ctx = started();
    std::string records(776 * 9, '\0');
    for (std::size_t button = 0; button < 7; ++button) { // hidden, as without a window
        records[776 * button + 228] = VEL_TYPE_LABEL;
        records[776 * button + 224] = 1;
    }
    records[776 * 7 + 228] = VEL_TYPE_WINDOW;
    records[776 * 8 + 228] = VEL_TYPE_TEXT;
    records[776 * 8 + 172] = 1;
    ASSERT_EQ(vel_load_forms(&ctx, 2, 0, folder.write("a.form", records).c_str(),
                             folder.write("a.text", std::string(1008, '\0')).c_str()),
              VEL_OK);
    ctx.texts_loaded = 1;
    ctx.event_filter = [](vel_context *, SDL_Event *) -> uint32_t { return VEL_FILTER_END_LOOP; };
    ctx.idle_hook = [](vel_context *) {
        SDL_Event event{};
        event.type = SDL_USEREVENT;
        SDL_PushEvent(&event);
    };
    const auto objects = [&ctx] {
        return std::string(reinterpret_cast<char *>(&ctx.objects[1]), 11 * sizeof(vel_object));
    };
    const std::string before = objects();
    for (const Function &f : functions()) {
        if (f.name == "vel_close") continue;
        for (const uint32_t number : {0U, 12U, 13U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
            for (const bool has_pointers : {false, true}) {
                ctx.window_to_activate = ctx.active_window = ctx.cursor_object = number;
                f.call({&ctx, number, has_pointers});
                ASSERT_TRUE(objects() == before) << f.name << " " << number;
            }
        }
    }
    vel_close(&ctx);
}

// By the filter, and by the hook while nothing happens.
TEST(Arguments, closing_the_context_ends_each_loop) {
    const std::function<uint32_t(vel_context *)> loops[] = {
        vel_wait_for_object,
        [](vel_context *ctx) { return vel_get_mouse_selection(ctx, 10, 11); },
        [](vel_context *ctx) { return vel_decide_window(ctx, 8, 10, 11); },
        [](vel_context *ctx) { return vel_move_out_menu(ctx, 8, 1); },
        [](vel_context *ctx) { return vel_move_window(ctx), 0U; },
        [](vel_context *ctx) {
            char path[] = "/";
            return static_cast<uint32_t>(vel_choose_file(ctx, 8, path, sizeof path));
        }};
    for (const auto &loop : loops) {
        for (const bool in_filter : {false, true}) {
            vel_context ctx = started();
            ctx.comfort = VEL_COMFORT_ALL;
            ctx.objects = static_cast<vel_object *>(std::calloc(15, sizeof(vel_object)));
            ctx.object_count = 14;
            vel_object &window = ctx.objects[8];
            window.type = VEL_TYPE_WINDOW;
            window.hidden = 1;
            window.width = window.height = 40;
            window.x = window.y = 25;
            SDL_WarpMouse(30, 30); // a menu ends when the pointer is elsewhere
            for (uint32_t k = 0; k < 6; ++k) window.dep_objs[k] = 9 + k;
            ctx.window_to_activate = 8;
            vel_activate_window(&ctx);
            SDL_Event event{};
            event.type = SDL_USEREVENT;
            SDL_PushEvent(&event);
            const auto close = [](vel_context *c, SDL_Event *) { return vel_close(c), 0U; };
            if (in_filter) ctx.event_filter = close;
            ctx.idle_hook = vel_close;
            const uint32_t result = loop(&ctx);
            EXPECT_TRUE(result == 0 || result == VEL_BUTTON_CLOSE);
            EXPECT_EQ(ctx.objects, nullptr);
        }
    }
}

// The tables are at the end of their memory, which a sanitizer watches.
class Endless : public test::Form {};

TEST_F(Endless, strings_of_records_are_not_read_beyond) {
    for (const uint32_t type : {VEL_TYPE_TEXT, VEL_TYPE_ENTRY, VEL_TYPE_LABEL, VEL_TYPE_CHAIN}) {
        for (const uint32_t comfort : {0U, uint32_t{VEL_COMFORT_ALL}}) {
            vel_object &o = make(29, type, 20, 30, 200, 90);
            o.editable = 1;
            o.text_index = 4;
            o.cursor_line = o.number_of_lines = 4000000000;
            o.cursor_column = o.text_length = o.line_spacing = 0x7FFFFFFF;
            std::memset(o.label, 'x', sizeof o.label);
            std::memset(texts[4].text, 'x', sizeof texts[4].text);
            texts[4].cursor_index = 0xFFFFFFFF;
            ctx.cursor_object = 29;
            ctx.comfort = comfort;
            for (const uint32_t key : {VEL_KEY_UP, VEL_KEY_RIGHT, VEL_KEY_DELETE, VEL_KEY_DOWN}) {
                std::memset(buffers[4], 'x', sizeof buffers[4]);
                vel_draw_all_objects(&ctx, 0, 0);
                ctx.final_key = key;
                vel_get_text(&ctx);
            }
            vel_reset_textobject(&ctx, type == VEL_TYPE_TEXT ? 1 : 0, 29);
            EXPECT_LT(o.text_length, type == VEL_TYPE_TEXT ? 1000U : 68U);
        }
    }
}

} // namespace
