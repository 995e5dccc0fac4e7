// The slowest forms that are known: what two files of the largest size take until they show, what
// their window takes when it is drawn again as after a key, and the most memory that takes. Each
// run is a process of its own, since memory that was used before is quicker. usage: worst_bench
// [RUNS]
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <velumo.h>

#include "display.h"

namespace {

constexpr std::uint32_t count = VEL_MAX_RECORDS, window = VEL_FRAME_BUTTONS + 1;
// Objects from here on have no dependents: of each before, a hundred are.
constexpr std::uint32_t first_leaf = window + count / VEL_MAX_DEPENDENTS + 1;

constexpr const char *form_path = "a.form", *text_path = "a.text";
constexpr const char *large_path = "large.bmp", *small_path = "small.bmp";

using Record = vel_object_file_rec;
using Text = vel_text_rec;
using Random = std::mt19937;

template <std::size_t size> void copy(std::string_view from, char (&to)[size]) {
    to[from.copy(to, size - 1)] = '\0';
}

// --- Texts of 999 characters

using Writer = char (*)(Random &random, std::size_t at);

char letter(Random &random, std::size_t) { return static_cast<char>('a' + random() % 26); }
char any(Random &random, std::size_t) { return static_cast<char>(1 + random() % 255); }
char in_words(Random &random, std::size_t at) { return random() % 6 ? letter(random, at) : ' '; }
char in_lines(Random &random, std::size_t at) { return random() % 20 ? letter(random, at) : '\n'; }
char single(Random &random, std::size_t at) { return at % 2 ? ' ' : letter(random, at); }
char same(Random &, std::size_t at) { return at % 25 == 24 ? '\n' : 'm'; }

// --- Objects

// Each covers those before it.
void cover(Record &record, std::uint32_t line_width) {
    record.type = VEL_TYPE_TEXT;
    record.width = office::width;
    record.height = office::height;
    record.line_width = line_width;
}
void cover_whole(Record &record, std::uint32_t) { cover(record, office::width - 10); }
void cover_narrow(Record &record, std::uint32_t) { cover(record, 80); }

// A text reaches beyond its small box, so that all of them show.
void show_all(Record &record, std::uint32_t number) {
    if (number < first_leaf) {
        record.type = VEL_TYPE_PICTURE_UNLOADED; // without a body
        record.width = office::width;
        record.height = office::height;
        return;
    }
    cover(record, office::width - 10);
    record.x = 20 + number % 7;
    record.y = 30 + number % 5;
    record.width = record.height = 1;
    record.margin_right = 0U - 760;
    record.margin_bottom = 0U - 560;
    record.text_r = number % 256;
}

void set_font(Record &record, std::uint32_t size) {
    record.font_choice = 1;
    record.font_size = size;
    copy(office::font_path, record.font_path);
}
void show_large(Record &record, std::uint32_t number) {
    show_all(record, number);
    if (number >= first_leaf) set_font(record, 200);
}
void cover_in_many_fonts(Record &record, std::uint32_t number) {
    cover_whole(record, number);
    set_font(record, 8 + number % 100);
}
// Passwords of as many characters as there may be.
void cover_with_dots(Record &record, std::uint32_t) {
    cover(record, 0);
    record.type = VEL_TYPE_ENTRY;
    set_font(record, 1000);
    copy(std::string(VEL_STRING_SIZE - 1, 'x'), record.label);
}

// One path for all.
void show_picture(Record &record, std::uint32_t number, const char *path) {
    show_all(record, number);
    if (number < first_leaf) return;
    record.type = VEL_TYPE_PICTURE_UNLOADED;
    copy(path, record.image_path);
}
void show_large_picture(Record &record, std::uint32_t number) {
    show_picture(record, number, large_path);
}
// Of as many pixels as all objects of a form may have.
void show_small_picture(Record &record, std::uint32_t number) {
    show_picture(record, number, small_path);
}

using Maker = void (*)(Record &record, std::uint32_t number);

struct Form {
    const char *name;
    Writer write;
    Maker make;

    bool has_one_on_top() const {
        const Maker covering[] = {cover_whole, cover_narrow, cover_in_many_fonts, cover_with_dots};
        return std::find(std::begin(covering), std::end(covering), make) != std::end(covering);
    }
};
constexpr Form forms[] = {
    {"letters, whole lines", letter, cover_whole},
    {"letters, narrow lines", letter, cover_narrow},
    {"any bytes, whole lines", any, cover_whole},
    {"any bytes, narrow lines", any, cover_narrow},
    {"words, whole lines", in_words, cover_whole},
    {"words, narrow lines", in_words, cover_narrow},
    {"single letters, narrow lines", single, cover_narrow},
    {"lines of words", in_lines, cover_whole},
    {"any bytes, many fonts", any, cover_in_many_fonts},
    {"large dots", same, cover_with_dots},
    {"the same line, all in sight", same, show_all},
    {"different lines, all in sight", in_lines, show_all},
    {"large letters, all in sight", same, show_large},
    {"large pictures, all in sight", same, show_large_picture},
    {"small pictures, all in sight", same, show_small_picture},
};

// --- Files

// A folder to work in.
class Files {
public:
    Files() {
        measure::demand(mkdtemp(folder_) != nullptr && chdir(folder_) == 0,
                        "no temporary folder can be made");
    }
    ~Files() {
        for (const char *path : {form_path, text_path, large_path, small_path}) unlink(path);
        rmdir(folder_);
    }
    Files(const Files &) = delete;
    Files &operator=(const Files &) = delete;

    void write(const Form &form_of) const {
        Random random; // the same bytes each time
        std::vector<Record> records(count);
        for (std::uint32_t number = window; number <= count; ++number) {
            form_of.make(records[number - 1], number);
            records[number - 1].text_index = number;
            if (number > window) hang(records, number);
        }
        records[window - 1].type = VEL_TYPE_WINDOW;
        records[drawn_last(records) - 1].fill_g = 255;
        std::vector<Text> texts(count);
        for (Text &text : texts) {
            for (std::size_t k = 0; k + 1 < VEL_TEXT_SIZE; ++k) {
                text.text[k] = form_of.write(random, k);
            }
        }
        save(form_path, records);
        save(text_path, texts);
    }
    void write_picture(const char *path, int width, int height) const {
        SDL_Surface *const picture =
            SDL_CreateRGBSurface(SDL_SWSURFACE, width, height, 24, 0xFF, 0xFF00, 0xFF0000, 0);
        SDL_SaveBMP(picture, path);
        SDL_FreeSurface(picture);
    }

private:
    static void hang(std::vector<Record> &records, std::uint32_t number) {
        const std::uint32_t place = number - window - 1;
        const std::uint32_t master = window + place / VEL_MAX_DEPENDENTS;
        records[number - 1].master = master;
        records[master - 1].dep_objs[place % VEL_MAX_DEPENDENTS] = number;
    }
    static std::uint32_t drawn_last(const std::vector<Record> &records) {
        std::uint32_t number = window;
        while (records[number - 1].dep_objs[VEL_MAX_DEPENDENTS - 1] != 0) {
            number = records[number - 1].dep_objs[VEL_MAX_DEPENDENTS - 1];
        }
        return number;
    }
    template <class T> static void save(const char *path, const std::vector<T> &records) {
        std::FILE *const file = std::fopen(path, "wb");
        measure::demand(file != nullptr &&
                            std::fwrite(records.data(), sizeof(T), records.size(), file) ==
                                records.size() &&
                            std::fclose(file) == 0,
                        "the form cannot be written");
    }

    char folder_[32] = "/tmp/velumo-bench-XXXXXX";
};

// --- Runs

struct Figures {
    double first, again; // seconds
    double mebibytes;
};

double seconds_since(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The object that is drawn last is as green as no other.
bool shows_the_last(const office::Display &display) {
    const auto *pixels = static_cast<const Uint32 *>(display.screen->pixels);
    return std::any_of(pixels, pixels + office::width * office::height,
                       [green = display.pixel_of(0xFF00)](Uint32 pixel) { return pixel == green; });
}

Figures show(const Form &form) {
    const office::Display display = office::open_display();
    vel_context ctx{};
    ctx.screen = display.screen;
    ctx.font = display.font;
    ctx.screen_width = office::width;
    ctx.screen_height = office::height;
    ctx.screen_rect = {0, 0, office::width, office::height};
    ctx.partial_redraw = 1;
    const auto start = std::chrono::steady_clock::now();
    const std::int32_t loaded = vel_load_forms(&ctx, 0, 0, form_path, text_path);
    measure::demand(loaded == VEL_OK, "the form does not load");
    for (std::uint32_t k = window; k <= count; ++k) {
        if (ctx.objects[k].type == VEL_TYPE_ENTRY) vel_set_password(&ctx, k, 1);
    }
    ctx.window_to_activate = window;
    vel_activate_window(&ctx);
    vel_draw_all_objects(&ctx, 1, 1);
    const double first = seconds_since(start);
    measure::demand(!form.has_one_on_top() || shows_the_last(display),
                    "what is on top does not show");
    const auto start_again = std::chrono::steady_clock::now();
    vel_draw_selected_window(&ctx);
    const double again = seconds_since(start_again);
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return {first, again, static_cast<double>(used.ru_maxrss) / 1024};
}

// None when the form was not shown, which the process has said.
std::optional<Figures> show_in_process(const Form &form) {
    int ends[2];
    measure::demand(pipe(ends) == 0, "there is no pipe");
    const pid_t child = fork();
    measure::demand(child >= 0, "there is no process");
    if (child == 0) {
        const Figures figures = show(form);
        _exit(write(ends[1], &figures, sizeof figures) == sizeof figures ? 0 : 1);
    }
    close(ends[1]);
    Figures figures{};
    const bool is_whole = read(ends[0], &figures, sizeof figures) == sizeof figures;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return is_whole ? std::optional(figures) : std::nullopt;
}

bool measure_form(const Form &form, const Files &files, std::size_t runs) {
    files.write(form);
    std::vector<double> seconds, again;
    double mebibytes = 0;
    for (std::size_t run = 0; run < runs; ++run) {
        const std::optional<Figures> figures = show_in_process(form);
        if (!figures) return false;
        seconds.push_back(figures->first);
        again.push_back(figures->again);
        mebibytes = std::max(mebibytes, figures->mebibytes);
    }
    std::sort(seconds.begin(), seconds.end());
    std::sort(again.begin(), again.end());
    std::printf("%-32s %6.2f s, at best %.2f, at worst %.2f; again %.2f s; %4.0f MiB\n", form.name,
                seconds[runs / 2], seconds.front(), seconds.back(), again[runs / 2], mebibytes);
    std::fflush(stdout);
    return true;
}

} // namespace

int main(int argc, char **argv) {
    const int runs = argc > 1 ? std::atoi(argv[1]) : 5;
    measure::demand(runs > 0, "usage: worst_bench [RUNS]");
    const Files files;
    files.write_picture(large_path, office::width, office::height);
    files.write_picture(small_path, 45, 45);
    std::printf("%u objects and texts of 999 characters, from files to a screen of %d x %d:\n",
                count, office::width, office::height);
    const bool are_shown = std::all_of(std::begin(forms), std::end(forms), [&](const Form &form) {
        return measure_form(form, files, static_cast<std::size_t>(runs));
    });
    return are_shown ? 0 : 1;
}
