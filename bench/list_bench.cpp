// What a list costs whose rows nobody could hold in memory: opening, a step, a page and the drag of
// its bar to the end, each with the redraw, for a thousand rows and a million.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

#include <velumo.h>

#include "listing.h"

namespace {

void show_row(vel_context *, std::uint32_t, std::uint32_t row, std::uint32_t column,
              vel_cell *cell) {
    const unsigned values[] = {row, row * row, row % 97};
    std::snprintf(cell->text, sizeof cell->text, "%u", values[column]);
}

class Listing {
public:
    explicit Listing(std::uint32_t rows) : rows_(rows) {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        ctx_.font_path = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
        if (vel_open_display(&ctx_, 800, 600, "Listing") != VEL_OK ||
            vel_load_forms_from_memory(&ctx_, 0, 0, &LISTING_FORM) != VEL_OK)
            std::abort();
        ctx_.window_to_activate = LISTING_WINDOW;
        vel_activate_window(&ctx_);
        open();
        ctx_.cursor_object = LISTING_ROWS;
        vel_draw_all_objects(&ctx_, 1, 1);
    }
    ~Listing() { vel_close(&ctx_); }
    Listing(const Listing &) = delete;
    Listing &operator=(const Listing &) = delete;

    void open() {
        vel_list_show(&ctx_, LISTING_ROWS, rows_, show_row);
        vel_draw_and_screenup_selected_window(&ctx_);
    }
    void press(SDLKey key) {
        SDL_Event event{};
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = key;
        SDL_PushEvent(&event);
        event.type = SDL_KEYUP;
        SDL_PushEvent(&event);
        if (vel_wait_for_object(&ctx_) != LISTING_ROWS) std::abort();
    }
    void drag_to(int y) {
        const int x = static_cast<int>(ctx_.objects[LISTING_ROWS].x) + 750;
        mouse(SDL_MOUSEBUTTONDOWN, x, 60);
        mouse(SDL_MOUSEBUTTONUP, x, y);
        SDL_Event quit{};
        quit.type = SDL_QUIT;
        SDL_PushEvent(&quit);
        if (vel_wait_for_object(&ctx_) != 0) std::abort();
    }

private:
    static void mouse(Uint8 type, int x, int y) {
        SDL_Event event{};
        event.button.type = type;
        event.button.button = SDL_BUTTON_LEFT;
        event.button.state = type == SDL_MOUSEBUTTONDOWN ? SDL_PRESSED : SDL_RELEASED;
        event.button.x = static_cast<Uint16>(x);
        event.button.y = static_cast<Uint16>(y);
        SDL_PushEvent(&event);
    }

    vel_context ctx_{};
    const std::uint32_t rows_;
};

template <class Act> void measure(benchmark::State &state, Act act) {
    Listing listing(static_cast<std::uint32_t>(state.range(0)));
    for (auto _ : state) act(listing);
}

void open_a_list(benchmark::State &state) {
    measure(state, [](Listing &l) { l.open(); });
}
void step_in_a_list(benchmark::State &state) {
    measure(state, [](Listing &l) { l.press(SDLK_DOWN); });
}
void turn_a_page_of_a_list(benchmark::State &state) {
    measure(state, [](Listing &l) { l.press(SDLK_PAGEDOWN); });
}
void drag_a_list_to_its_end_and_back(benchmark::State &state) {
    measure(state, [](Listing &l) {
        l.drag_to(580);
        l.drag_to(60);
    });
}
BENCHMARK(open_a_list)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(step_in_a_list)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(turn_a_page_of_a_list)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(drag_a_list_to_its_end_and_back)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

} // namespace
