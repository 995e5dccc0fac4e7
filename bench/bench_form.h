// A form made by hand, without files: a window with a field, a text and ninety labels.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <velumo.h>

namespace bench {

inline constexpr std::uint32_t width = 800, height = 600;
inline constexpr std::uint32_t window = 8, field = 9, text = 10, first_label = 11, labels = 90;
inline constexpr const char *font_path = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

class Form {
public:
    Form() {
        if (SDL_Init(SDL_INIT_VIDEO) != 0 || TTF_Init() != 0) fail();
        ctx.screen = SDL_SetVideoMode(width, height, 32, SDL_SWSURFACE);
        ctx.font = TTF_OpenFont(font_path, 13);
        if (ctx.screen == nullptr || ctx.font == nullptr) fail();
        ctx.screen_width = width;
        ctx.screen_height = height;
        ctx.screen_rect = {0, 0, width, height};
        ctx.objects = objects_.data();
        ctx.text_recs = texts_.data();
        ctx.text_bufs = buffers_.data();
        ctx.object_count = first_label + labels - 1;
        place(window, VEL_TYPE_WINDOW, 20, 40, 760, 540);
        objects_[window].master = 0;
        objects_[window].hidden = 1;
        place(field, VEL_TYPE_ENTRY, 30, 50, 300, 24);
        objects_[field].editable = 1;
        objects_[field].max_chars = 64;
        place(text, VEL_TYPE_TEXT, 340, 50, 420, 300);
        objects_[text].text_index = 1;
        for (std::uint32_t k = 0; k < labels; ++k) {
            place(first_label + k, VEL_TYPE_LABEL, 30 + k % 10 * 72, 360 + k / 10 * 22, 68, 20);
            std::snprintf(objects_[first_label + k].label, VEL_STRING_SIZE, "Feld %u", k);
        }
        for (std::uint32_t k = 0; k < labels + 2; ++k) objects_[window].dep_objs[k] = field + k;
        for (int k = 0; k < 27; ++k)
            std::strcat(texts_[1].text, "Grosse Kisten bitte vor die Tuer. ");
        vel_draw_all_objects(&ctx, 1, 0);
        ctx.window_to_activate = window;
        vel_select_window(&ctx);
    }
    ~Form() {
        TTF_CloseFont(ctx.font);
        SDL_FreeSurface(ctx.text_surface);
        TTF_Quit();
        SDL_Quit();
    }
    Form(const Form &) = delete;
    Form &operator=(const Form &) = delete;

    vel_context ctx{};

private:
    [[noreturn]] static void fail() {
        std::fprintf(stderr, "%s\n", SDL_GetError());
        std::exit(1);
    }

    void place(std::uint32_t number, std::uint32_t type, std::uint32_t x, std::uint32_t y,
               std::uint32_t w, std::uint32_t h) {
        vel_object &o = objects_[number];
        o.type = type;
        o.x = x;
        o.y = y;
        o.width = w;
        o.height = h;
        o.fill_r = o.fill_g = o.fill_b = 240;
        o.master = window;
    }

    std::vector<vel_object> objects_{first_label + labels};
    std::vector<vel_text_rec> texts_{2};
    std::vector<char[VEL_TEXT_BUFFER_SIZE]> buffers_{2};
};

} // namespace bench
