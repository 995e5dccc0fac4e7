// A screen, a font and tables filled by hand, for tests through the public header.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "velumo.h"

// Where GoogleTest looks for them: beside the type.
inline bool operator==(vel_colour a, vel_colour b) {
    return a.r == b.r && a.g == b.g && a.b == b.b;
}
inline void PrintTo(vel_colour c, std::ostream *os) {
    *os << '(' << int{c.r} << ' ' << int{c.g} << ' ' << int{c.b} << ')';
}

namespace test {

inline constexpr const char *font_file = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
inline constexpr vel_colour red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, white{255, 255, 255},
    black{0, 0, 0}, grey{128, 128, 128};

inline SDL_Surface *make_surface(int width, int height, int bits) {
    const bool deep = bits >= 24;
    SDL_Surface *s =
        bits == 8
            ? SDL_CreateRGBSurface(SDL_SWSURFACE, width, height, 8, 0, 0, 0, 0)
            : SDL_CreateRGBSurface(SDL_SWSURFACE, width, height, bits, deep ? 0xFF0000 : 0xF800,
                                   deep ? 0xFF00 : 0x07E0, deep ? 0xFF : 0x1F, 0);
    if (bits == 8) {
        SDL_Color colours[256];
        for (int k = 0; k < 256; ++k) {
            const auto level = [](int v, int steps) { return static_cast<Uint8>(v * 255 / steps); };
            colours[k] = {level(k >> 5, 7), level(k >> 2 & 7, 7), level(k & 3, 3), 0};
        }
        SDL_SetColors(s, colours, 0, 256);
    }
    return s;
}

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

// The pixels of a colour, as "x,y x,y ...", row by row.
inline std::string pixels_of_colour(const SDL_Surface *s, vel_colour c) {
    std::string found;
    for (int y = 0; y < s->h; ++y) {
        for (int x = 0; x < s->w; ++x) {
            if (pixel_of(s, x, y) == c) {
                if (!found.empty()) found += " ";
                found += std::to_string(x) + "," + std::to_string(y);
            }
        }
    }
    return found;
}

// First pixel in which two surfaces of one size differ; empty when there is none.
inline std::string difference(const SDL_Surface *a, const SDL_Surface *b) {
    for (int y = 0; y < a->h; ++y) {
        for (int x = 0; x < a->w; ++x) {
            if (!(pixel_of(a, x, y) == pixel_of(b, x, y))) {
                return std::to_string(x) + "," + std::to_string(y);
            }
        }
    }
    return {};
}

// Objects 1 to 19 and texts 1 to 4 on a screen of 320 x 200 pixels. The tables are filled by hand:
// the library is not told how long they are.
class Form : public testing::Test {
protected:
    explicit Form(int bits = 32) : objects(20), texts(5), buffers(5) {
        TTF_Init();
        ctx.font = TTF_OpenFont(font_file, 14);
        ctx.screen = make_surface(320, 200, bits);
        ctx.screen_rect = {0, 0, 320, 200};
        ctx.screen_width = 320;
        ctx.screen_height = 200;
        ctx.background_colour = white;
        ctx.mark_colour = green;
        ctx.objects = objects.data();
        ctx.object_count = 19;
        ctx.text_recs = texts.data();
        ctx.text_bufs = &buffers[0].bytes;
        ctx.text_count = 4;
        fill(ctx.screen, white);
    }
    ~Form() override {
        SDL_FreeSurface(ctx.text_surface);
        SDL_FreeSurface(ctx.screen);
        TTF_CloseFont(ctx.font);
        TTF_Quit();
    }

    vel_object &make(std::uint32_t number, std::uint32_t type, int x, int y, std::uint32_t width,
                     std::uint32_t height, std::uint32_t master = 0) {
        vel_object &o = objects[number];
        o.type = type;
        o.x = static_cast<std::uint32_t>(x);
        o.y = static_cast<std::uint32_t>(y);
        o.width = width;
        o.height = height;
        o.fill_r = 255; // red, and blue text
        o.text_b = 255;
        o.master = master;
        if (master != 0) {
            std::uint32_t *entry = objects[master].dep_objs;
            while (*entry != 0) ++entry;
            *entry = number;
        }
        return o;
    }
    static void set_margins(vel_object &o, std::uint32_t margin) {
        o.margin_left = o.margin_right = o.margin_top = o.margin_bottom = margin;
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
    std::string line(std::uint32_t text, std::uint32_t number) const {
        return &buffers[text].bytes[number * VEL_LINE_SIZE];
    }
    std::uint32_t width_of(const std::string &text) const {
        int width = 0;
        TTF_SizeText(ctx.font, text.c_str(), &width, nullptr);
        return static_cast<std::uint32_t>(width);
    }
    vel_colour at(int x, int y) const { return pixel_of(ctx.screen, x, y); }
    std::string pixels(vel_colour c) const { return pixels_of_colour(ctx.screen, c); }

    struct Buffer {
        char bytes[VEL_TEXT_BUFFER_SIZE];
    };
    vel_context ctx{};
    std::vector<vel_object> objects;
    std::vector<vel_text_rec> texts;
    std::vector<Buffer> buffers;
};

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
    std::string write(const std::string &name, const std::string &bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
        return file(name);
    }

private:
    std::filesystem::path path_;
};

} // namespace test
