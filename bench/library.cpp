// What the library needs for the office form: redrawing, a key, breaking a text into lines, memory,
// and allocations.
#include <dlfcn.h>

#include "floor_breaker.h"
#include "library_form.h"

namespace {

using office::LibraryForm;

constexpr std::size_t room_characters = 998;

void redraw() {
    LibraryForm form(office::open_display(), LibraryForm::Area::forty_lines);
    form.show();
    measure::say_time("redraw", [&form] { form.redraw(); });
}

void key_with(std::uint32_t partial_redraw) {
    LibraryForm form(office::open_display(), LibraryForm::Area::long_text);
    form.ctx.partial_redraw = partial_redraw;
    form.show();
    form.redraw();
    form.strike_next();
    measure::demand(form.text().size() == room_characters + 1, "the letter did not arrive");
    form.strike_next();
    measure::say_time("key", [&form] { form.strike_next(); });
    measure::demand(form.text() == office::long_text_with_room(), "the keys changed the text");
}

void key() { key_with(0); }
void partial_key() { key_with(1); }

void break_lines() {
    LibraryForm form(office::open_display(), LibraryForm::Area::long_text);
    const std::string text = office::long_text();
    form.set_text(text);
    office::FloorBreaker breaker(form.ctx.font);
    int lines = 0;
    const auto by_library = [&form] { vel_format_object_text(&form.ctx, form.area); };
    const auto by_floor = [&breaker, &text, &lines] {
        lines = breaker.count_lines(text, office::area_line_width);
    };
    measure::say_times({{"break", by_library}, {"floor", by_floor}});
    const auto last = static_cast<int>(form.ctx.objects[form.area].number_of_lines);
    measure::demand(lines == last + 1, "the floor breaks the text into other lines");
}

// MiB that the form takes beyond its tables, after some redraws: its pictures, and what the library
// and SDL keep.
void memory() {
    const office::Display display = office::open_display();
    const double before = measure::anonymous_kib();
    LibraryForm form(display, LibraryForm::Area::forty_lines);
    form.show();
    for (int k = 0; k < 5; ++k) form.redraw();
    const double tables = static_cast<double>(form.table_bytes()) / 1024;
    measure::say("memory", (measure::anonymous_kib() - before - tables) / 1024);
}

// Allocations of the library for one run of the work, on average; the counter is preloaded.
void say_allocations(const char *name, const measure::Work &work) {
    constexpr int warming = 4, runs = 10;
    const auto start = reinterpret_cast<void (*)()>(dlsym(RTLD_DEFAULT, "start_counting"));
    const auto stop = reinterpret_cast<long (*)()>(dlsym(RTLD_DEFAULT, "stop_counting"));
    measure::demand(start != nullptr && stop != nullptr, "the counter is not preloaded");
    for (int k = 0; k < warming; ++k) work();
    start();
    for (int k = 0; k < runs; ++k) work();
    measure::say(name, static_cast<double>(stop()) / runs);
}

void allocations() {
    LibraryForm form(office::open_display(), LibraryForm::Area::long_text);
    form.show();
    say_allocations("redraw", [&form] { form.redraw(); });
    say_allocations("key", [&form] { form.strike_next(); });
    form.ctx.partial_redraw = 1;
    say_allocations("partial-key", [&form] { form.strike_next(); });
}

void picture() {
    LibraryForm form(office::open_display(), LibraryForm::Area::forty_lines);
    form.show();
    form.redraw();
    SDL_SaveBMP(form.ctx.screen, "office-library.bmp");
}

} // namespace

int main(int argc, char **argv) {
    return measure::run(argc, argv,
                        {{"redraw", redraw},
                         {"key", key},
                         {"partial-key", partial_key},
                         {"break", break_lines},
                         {"memory", memory},
                         {"allocations", allocations},
                         {"picture", picture}});
}
