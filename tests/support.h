// A display, a font and tables, with the hand of a user. For tests through the public header.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "velumo.h"

// Where GoogleTest looks for them: with the types.
inline bool operator==(vel_colour a, vel_colour b) {
    return a.r == b.r && a.g == b.g && a.b == b.b;
}

namespace test {

using Names = std::vector<std::string>;
using Step = std::function<void()>;
using Steps = std::vector<Step>;

inline constexpr const char *font_file = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
inline constexpr vel_colour red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, white{255, 255, 255},
    black{0, 0, 0};

inline std::uint32_t u32(int value) { return static_cast<std::uint32_t>(value); }

inline vel_colour pixel_of(const SDL_Surface *s, int x, int y) {
    const int size = s->format->BytesPerPixel;
    std::uint32_t value = 0;
    std::memcpy(&value, static_cast<std::uint8_t *>(s->pixels) + y * s->pitch + x * size,
                static_cast<std::size_t>(size));
    vel_colour c{};
    SDL_GetRGB(value, s->format, &c.r, &c.g, &c.b);
    return c;
}

inline void fill(SDL_Surface *s, vel_colour c) {
    SDL_FillRect(s, nullptr, SDL_MapRGB(s->format, c.r, c.g, c.b));
}

inline SDL_Surface *make_surface(int width, int height) {
    return SDL_CreateRGBSurface(SDL_SWSURFACE, width, height, 32, 0xFF0000, 0xFF00, 0xFF, 0);
}

// A rectangle as messages name it.
inline std::string text_of(int x, int y, int width, int height) {
    return std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(width) + "x" +
           std::to_string(height);
}

// The rectangles that the display was asked to show.
inline std::vector<std::string> &updates() {
    static std::vector<std::string> rects;
    return rects;
}

// A display of 320 x 200 pixels, objects 1 to 29 and texts 1 to 4. The library does not know how
// long the tables are.
class Form : public testing::Test {
protected:
    explicit Form(int bits = 32) {
        SDL_Init(SDL_INIT_VIDEO);
        TTF_Init();
        ctx.font = TTF_OpenFont(font_file, 14);
        ctx.screen = SDL_SetVideoMode(320, 200, bits, SDL_SWSURFACE);
        ctx.screen_rect = {0, 0, 320, 200};
        ctx.screen_width = 320;
        ctx.screen_height = 200;
        ctx.background_colour = white;
        ctx.mark_colour = green;
        ctx.objects = objects = static_cast<vel_object *>(std::calloc(30, sizeof(vel_object)));
        ctx.object_count = 29;
        ctx.text_recs = texts = static_cast<vel_text_rec *>(std::calloc(5, sizeof(vel_text_rec)));
        ctx.text_bufs = buffers = static_cast<decltype(buffers)>(std::calloc(5, sizeof *buffers));
        ctx.text_count = 4;
        ctx.texts_loaded = 1;
        ctx.application_a[0] = this;
        ctx.idle_hook = [](vel_context *c) { static_cast<Form *>(c->application_a[0])->step(); };
        clear();
        drop_events(); // what setting the video mode brought
        updates().clear();
    }
    ~Form() override {
        ctx.objects = objects;
        ctx.object_count = 29;
        ctx.text_recs = texts;
        ctx.text_bufs = buffers;
        vel_close(&ctx);
    }

    // --- Tables

    vel_object &make(std::uint32_t number, std::uint32_t type, int x, int y, std::uint32_t width,
                     std::uint32_t height, std::uint32_t master = 0) {
        vel_object &o = objects[number];
        o.type = type;
        o.x = u32(x);
        o.y = u32(y);
        o.width = width;
        o.height = height;
        set_fill(o, red);
        o.text_b = 255;
        o.master = master;
        if (master != 0)
            *std::find(objects[master].dep_objs, objects[master].dep_objs + 99, 0U) = number;
        return o;
    }
    static void set_fill(vel_object &o, vel_colour c) {
        o.fill_r = c.r;
        o.fill_g = c.g;
        o.fill_b = c.b;
    }
    static void set_margins(vel_object &o, std::uint32_t margin) {
        o.margin_left = o.margin_right = o.margin_top = o.margin_bottom = margin;
    }
    static void set_label(vel_object &o, const std::string &label) {
        std::snprintf(o.label, sizeof o.label, "%s", label.c_str());
    }
    vel_object &make_text(std::uint32_t number, const std::string &text, std::uint32_t width) {
        vel_object &o = make(number, VEL_TYPE_TEXT, 20, 30, width, 100);
        o.text_index = 1;
        set_text(1, text);
        return o;
    }
    void set_text(std::uint32_t number, const std::string &text) {
        std::snprintf(texts[number].text, VEL_TEXT_SIZE, "%s", text.c_str());
    }
    char *line(std::uint32_t text, std::uint32_t number) const {
        return &buffers[text][number * VEL_LINE_SIZE];
    }
    void make_frame_buttons() {
        for (std::uint32_t k = 1; k <= 7; ++k) make(k, VEL_TYPE_LABEL, 0, 0, 16, 16).hidden = 1;
    }
    vel_object &make_window(std::uint32_t number, int x, int y, std::uint32_t width,
                            std::uint32_t height) {
        vel_object &o = make(number, VEL_TYPE_WINDOW, x, y, width, height);
        o.hidden = 1;
        return o;
    }
    vel_object &make_field(std::uint32_t number, int x, int y, std::uint32_t width,
                           std::uint32_t height, std::uint32_t master) {
        vel_object &o = make(number, VEL_TYPE_ENTRY, x, y, width, height, master);
        o.editable = 1;
        o.max_chars = 64;
        return o;
    }
    void open(std::uint32_t window) {
        ctx.window_to_activate = window;
        vel_activate_window(&ctx);
    }

    // --- What shows

    std::uint32_t width_of(const std::string &text) const {
        int width = 0;
        TTF_SizeText(ctx.font, text.c_str(), &width, nullptr);
        return u32(width);
    }
    std::uint32_t height() const { return u32(TTF_FontHeight(ctx.font)); }
    void clear() { fill(ctx.screen, white); }
    vel_colour at(int x, int y) const { return pixel_of(ctx.screen, x, y); }
    // The pixels of a colour, as "x,y x,y ...", row by row.
    std::string pixels(vel_colour c) const {
        std::string found;
        for (const int k : places_of(c)) found += (found.empty() ? "" : " ") + place_text(k);
        return found;
    }
    // The rectangle that a colour fills, "" for none, "ragged" when it is not filled.
    std::string box_of(vel_colour c) const {
        const std::vector<int> found = places_of(c);
        if (found.empty()) return "";
        const int x = found.front() % 320, y = found.front() / 320;
        const int width = found.back() % 320 - x + 1, height = found.back() / 320 - y + 1;
        for (int k = 0; k < std::ssize(found); ++k) {
            if (width <= 0 || found[u32(k)] != (y + k / width) * 320 + x + k % width)
                return "ragged";
        }
        return text_of(x, y, width, height);
    }
    // First pixel in which the screen differs from a surface of its size; empty when there is none.
    std::string difference(const SDL_Surface *wanted) const {
        for (int k = 0; k < 320 * 200; ++k) {
            if (!(at(k % 320, k / 320) == pixel_of(wanted, k % 320, k / 320))) return place_text(k);
        }
        return {};
    }
    // Expects the screen to be as it is when all is drawn on an empty one.
    void expect_drawn_afresh() {
        SDL_Surface *shown = SDL_ConvertSurface(ctx.screen, ctx.screen->format, SDL_SWSURFACE);
        clear();
        vel_draw_all_objects(&ctx, 0, 0);
        EXPECT_EQ(difference(shown), "");
        SDL_FreeSurface(shown);
    }

    // --- The user

    static void push(SDL_Event event) { EXPECT_EQ(SDL_PushEvent(&event), 0); }
    static void drop_events() {
        SDL_Event event;
        while (SDL_PollEvent(&event) != 0) continue;
    }
    static void push_type(Uint8 type) {
        SDL_Event event{};
        event.type = type;
        push(event);
    }
    static void push_mouse(bool pressed, int x, int y, Uint8 button = SDL_BUTTON_LEFT) {
        SDL_Event event{};
        const Uint8 type = pressed ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        const Uint8 state = pressed ? SDL_PRESSED : SDL_RELEASED;
        event.button = {type, 0, button, state, static_cast<Uint16>(x), static_cast<Uint16>(y)};
        push(event);
    }
    static void press(int x, int y) { push_mouse(true, x, y); }
    static void release(int x, int y) { push_mouse(false, x, y); }
    static void move_pointer(int x, int y) {
        SDL_Event event{};
        event.motion = {SDL_MOUSEMOTION,        0, 0, static_cast<Uint16>(x),
                        static_cast<Uint16>(y), 0, 0};
        push(event);
    }
    static void point(int x, int y) {
        SDL_WarpMouse(static_cast<Uint16>(x), static_cast<Uint16>(y));
    }
    static void push_key(int symbol, int modifiers = KMOD_NONE) {
        for (const Uint8 type : {Uint8{SDL_KEYDOWN}, Uint8{SDL_KEYUP}}) {
            SDL_Event event{};
            const auto sym = static_cast<SDLKey>(symbol);
            event.key = {type, 0, 0, {0, sym, static_cast<SDLMod>(modifiers), 0}};
            push(event);
        }
    }
    // A press and a release, or only one of them, within the corner of an object.
    void press_on(std::uint32_t number) const { push_on(true, number); }
    void release_on(std::uint32_t number) const { push_on(false, number); }
    void click_on(std::uint32_t number) const { press_on(number), release_on(number); }
    void end_loops_on_quit() {
        ctx.event_filter = [](vel_context *, SDL_Event *e) -> std::uint32_t {
            return e->type == SDL_QUIT ? VEL_FILTER_END_LOOP : VEL_FILTER_PASS;
        };
    }
    // Does the next step whenever a loop of the library rests.
    void set_steps(Steps steps) {
        steps_ = std::move(steps);
        next_ = 0;
    }
    bool all_steps_done() const { return next_ == steps_.size(); }
    Step click(std::uint32_t number) {
        return [this, number] { click_on(number); };
    }
    static Step key(int symbol) {
        return [symbol] { push_key(symbol); };
    }

    vel_context ctx{};
    vel_object *objects;
    vel_text_rec *texts;
    char (*buffers)[VEL_TEXT_BUFFER_SIZE];

private:
    static std::string place_text(int k) {
        return std::to_string(k % 320) + "," + std::to_string(k / 320);
    }
    std::vector<int> places_of(vel_colour c) const {
        std::vector<int> found;
        for (int k = 0; k < 320 * 200; ++k) {
            if (at(k % 320, k / 320) == c) found.push_back(k);
        }
        return found;
    }
    void step() {
        if (next_ < steps_.size()) steps_[next_++]();
    }
    void push_on(bool pressed, std::uint32_t number) const {
        push_mouse(pressed, static_cast<int>(objects[number].x + 3),
                   static_cast<int>(objects[number].y + 3));
    }

    Steps steps_;
    std::size_t next_ = 0;
};

inline std::string contents(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A folder of the test's own, gone with it.
class Folder {
public:
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "velumo-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test");
        path_ = name;
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;

    std::string file(const std::string &name) const { return (path_ / name).string(); }
    std::string write(const std::string &name, const std::string &bytes = "") const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
        return file(name);
    }
    // Empty files, and folders where the name ends with a slash.
    void fill(const Names &names) const {
        for (const std::string &name : names) {
            if (name.back() == '/') {
                std::filesystem::create_directories(file(name));
            } else {
                write(name);
            }
        }
    }

private:
    std::filesystem::path path_;
};

} // namespace test
