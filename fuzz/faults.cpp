// Lets each allocation and each call for a file fail, one after the other: the first, the second,
// ... until nothing is left to fail, once alone and once with all calls after it. A form is loaded
// and drawn, typed into, selected, copied and undone; a folder is listed, files are chosen, a menu
// is opened, and all is closed. After each failure a function's result is one that its description
// names, a context is as before where it says so, and nothing is left over.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <new>

#include "small_form.h"
#include "stage.h"
#include "velumo.h"
#include "world.h"

namespace {

using namespace fuzz;

enum class Kind { memory, files };

struct Plan {
    Kind kind;
    Failure failure;
    bool lasts; // all calls after the first one fail, too
    unsigned first;
};

struct State {
    Plan plan;
    unsigned calls;
} state;

// Only these are interrupted, and only reading comes short.
bool can_fail_so(Call call, Failure failure) {
    if (failure == Failure::short_read) return call == Call::read;
    return failure != Failure::interrupted || call == Call::read || call == Call::open;
}

Failure fail(Call call) {
    const Plan &plan = state.plan;
    if ((call == Call::memory) != (plan.kind == Kind::memory)) return Failure::none;
    if (!can_fail_so(call, plan.failure)) return Failure::none;
    const unsigned number = ++state.calls;
    const bool does = number == plan.first || (plan.lasts && number > plan.first);
    return does ? plan.failure : Failure::none;
}

void expect(bool is_right, const char *what) {
    if (is_right) return;
    std::printf("FAULT: %s, after %s %u fails%s\n", what,
                state.plan.kind == Kind::memory ? "allocation" : "file call", state.plan.first,
                state.plan.lasts ? " with all after it" : "");
    std::exit(EXIT_FAILURE);
}

void expect_one_of(long result, std::initializer_list<long> wanted, const char *what) {
    for (const long one : wanted) {
        if (result == one) return;
    }
    std::printf("result %ld\n", result);
    expect(false, what);
}

// --- What the user does: one event after the other, then the loop is ended

struct Act {
    Uint8 type;
    int key_or_x, modifiers_or_y;
};

constexpr Act end_of_acts{SDL_USEREVENT, 0, 0};

const Act *next_act;

bool next_event(SDL_Event &event) {
    const Act &act = *next_act;
    event.type = act.type;
    if (act.type == SDL_USEREVENT) return true;
    ++next_act;
    if (act.type == SDL_KEYDOWN || act.type == SDL_KEYUP) {
        event.key.keysym.sym = static_cast<SDLKey>(act.key_or_x);
        event.key.keysym.mod = static_cast<SDLMod>(act.modifiers_or_y);
        event.key.keysym.unicode =
            act.key_or_x < 128 ? static_cast<Uint16>(act.key_or_x) : Uint16{0};
        if (act.modifiers_or_y == KMOD_LCTRL) event.key.keysym.unicode &= 31;
        return true;
    }
    event.button.button = SDL_BUTTON_LEFT;
    event.button.state = act.type == SDL_MOUSEBUTTONDOWN ? SDL_PRESSED : SDL_RELEASED;
    event.button.x = static_cast<Uint16>(act.key_or_x);
    event.button.y = static_cast<Uint16>(act.modifiers_or_y);
    return true;
}

u32 end_loop(vel_context *, SDL_Event *event) {
    return event->type == SDL_USEREVENT ? VEL_FILTER_END_LOOP : VEL_FILTER_PASS;
}

constexpr Uint8 down = SDL_MOUSEBUTTONDOWN, up = SDL_MOUSEBUTTONUP, key = SDL_KEYDOWN;
constexpr Act typing[] = {{down, 20, 50},
                          {up, 20, 50},
                          {key, SDLK_a, 0},
                          {key, SDLK_b, 0},
                          {key, SDLK_SPACE, 0},
                          {key, SDLK_HOME, KMOD_LSHIFT},
                          {key, SDLK_c, KMOD_LCTRL},
                          {key, SDLK_x, KMOD_LCTRL},
                          {key, SDLK_v, KMOD_LCTRL},
                          {key, SDLK_z, KMOD_LCTRL},
                          {key, SDLK_y, KMOD_LCTRL},
                          {key, SDLK_RETURN, 0},
                          {key, SDLK_TAB, 0},
                          {key, SDLK_c, 0},
                          end_of_acts};
constexpr Act choosing[] = {
    {down, 30, 49}, {up, 30, 49}, {key, SDLK_b, 0}, {key, SDLK_RETURN, 0}, end_of_acts};
constexpr Act looking[] = {
    {SDL_MOUSEMOTION, 64, 50}, {key, SDLK_DOWN, 0}, {up, 64, 50}, end_of_acts};

void let_act(const Act *acts) { next_act = acts; }

// --- What the program does

vel_context make_context(const Stage &stage) {
    vel_context ctx{};
    stage.set_up(ctx, {100, 80, 32, true});
    ctx.comfort = VEL_COMFORT_ALL;
    ctx.event_filter = end_loop;
    return ctx;
}

void use(vel_context &ctx) {
    ctx.window_to_activate = small_window;
    vel_select_window(&ctx);
    let_act(typing);
    vel_wait_for_object(&ctx);
    expect_one_of(vel_set_password(&ctx, small_name, 1), {VEL_OK, VEL_ERROR_MEMORY}, "traits");
    const i32 names = vel_list_directory(&ctx, small_list, "/home", "*.txt");
    expect(names >= 0 || names == VEL_ERROR_MEMORY || names == VEL_ERROR_FOLDER, "listing");
    char path[200] = "/home/sub/";
    let_act(choosing);
    const i32 chosen = vel_choose_file(&ctx, small_dialog, path, sizeof path);
    expect_one_of(chosen, {0, 1, VEL_ERROR_MEMORY, VEL_ERROR_SIZE}, "choosing");
    if (chosen != 1) expect(std::strcmp(path, "/home/sub/") == 0, "path after no choice");
    let_act(looking);
    vel_move_out_menu(&ctx, small_menu, 1);
    ctx.frame_mode = VEL_MODE_SCROLL;
    vel_scroll_win_down(&ctx);
    vel_read_app_dir(&ctx);
    vel_close_win(&ctx, small_window);
    vel_draw_all_objects(&ctx, 1, 1);
}

void run(const Stage &stage, const FormBytes &files) {
    world() = {};
    world().form = files.form;
    world().text = files.text;
    world().next_event = next_event;
    vel_context ctx = make_context(stage);
    world().display = ctx.screen;
    world().live = 1; // the screen
    world().fails = fail;
    const vel_context before = ctx;
    const i32 loaded = vel_load_forms(&ctx, 1, 1, form_path, text_path);
    expect_one_of(
        loaded,
        {VEL_OK, VEL_ERROR_FORM_FILE, VEL_ERROR_TEXT_FILE, VEL_ERROR_READ, VEL_ERROR_MEMORY},
        "loading");
    if (loaded == VEL_OK) {
        use(ctx);
    } else {
        expect(std::memcmp(&ctx, &before, sizeof ctx) == 0, "context after failed loading");
    }
    vel_close(&ctx);
    world().fails = nullptr;
    expect(world().live == 0, "something was left over");
}

// Until nothing fails any more.
unsigned run_all(const Stage &stage, const FormBytes &files, Plan plan) {
    for (plan.first = 1;; ++plan.first) {
        state = {plan, 0};
        run(stage, files);
        if (state.calls < plan.first) return plan.first - 1;
    }
}

} // namespace

// What the library's own code and the templates that it uses allocate.
void *operator new(std::size_t size, const std::nothrow_t &) noexcept {
    void *const memory = fuzz::fails(Call::memory) ? nullptr : std::malloc(size);
    if (memory != nullptr) ++world().live;
    return memory;
}
void *operator new(std::size_t size) {
    void *const memory = operator new(size, std::nothrow);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}
void *operator new[](std::size_t size) { return operator new(size); }
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept {
    return operator new(size, std::nothrow);
}
void operator delete(void *memory) noexcept {
    if (memory != nullptr) --world().live;
    std::free(memory);
}
void operator delete(void *memory, std::size_t) noexcept { operator delete(memory); }
void operator delete[](void *memory) noexcept { operator delete(memory); }
void operator delete[](void *memory, std::size_t) noexcept { operator delete(memory); }

int main() {
    set_up_world();
    const Stage stage;
    const FormBytes files = small_form();
    for (const bool lasts : {false, true}) {
        const unsigned memory = run_all(stage, files, {Kind::memory, Failure::error, lasts, 0});
        const unsigned calls = run_all(stage, files, {Kind::files, Failure::error, lasts, 0});
        if (memory < 100 || calls < 50) return EXIT_FAILURE; // the form was not even used
        std::printf("%u allocations and %u file calls have failed%s\n", memory, calls,
                    lasts ? " with all after them" : "");
    }
    for (const Failure odd : {Failure::interrupted, Failure::short_read}) {
        run_all(stage, files, {Kind::files, odd, false, 0});
    }
    run_all(stage, files, {Kind::files, Failure::short_read, true, 0});
}
