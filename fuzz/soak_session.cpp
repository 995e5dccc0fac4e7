// A text to type into and a button to click, for a long session. F12 prints how often the button
// was clicked and which text was typed since the last time.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "velumo.h"

namespace {

constexpr uint32_t window = 8, edited = 9, button = 10;
constexpr const char *font = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

unsigned clicks;

uint32_t see(vel_context *ctx, SDL_Event *event) {
    if (event->type == SDL_QUIT) std::exit(EXIT_SUCCESS);
    if (event->type != SDL_KEYDOWN || event->key.keysym.sym != SDLK_F12) return VEL_FILTER_PASS;
    std::printf("%u clicks %s\n", clicks, ctx->text_recs[1].text);
    std::fflush(stdout);
    clicks = 0;
    ctx->text_recs[1] = {};
    vel_reset_textobject(ctx, 1, edited);
    vel_draw_all_objects(ctx, 1, 1);
    return VEL_FILTER_DROP;
}

void make(vel_context &ctx, uint32_t number, uint32_t type, uint32_t y, uint32_t height) {
    vel_object &o = ctx.objects[number];
    o.type = type;
    o.x = 50, o.y = y, o.width = 700, o.height = height;
    o.fill_r = o.fill_g = o.fill_b = 255;
    if (number == window) return;
    o.master = window;
    ctx.objects[window].dep_objs[number - edited] = number;
}

} // namespace

int main() {
    static vel_context ctx;
    if (SDL_Init(SDL_INIT_VIDEO) != 0 || TTF_Init() != 0) return EXIT_FAILURE;
    ctx.screen = SDL_SetVideoMode(800, 600, 32, SDL_SWSURFACE);
    ctx.font = TTF_OpenFont(font, 12);
    if (ctx.screen == nullptr || ctx.font == nullptr) return EXIT_FAILURE;
    ctx.screen_width = 800, ctx.screen_height = 600;
    ctx.screen_rect = {0, 0, 800, 600};
    ctx.objects = static_cast<vel_object *>(std::calloc(button + 1, sizeof(vel_object)));
    ctx.object_count = button;
    ctx.text_recs = static_cast<vel_text_rec *>(std::calloc(2, sizeof(vel_text_rec)));
    ctx.text_bufs =
        static_cast<char(*)[VEL_TEXT_BUFFER_SIZE]>(std::calloc(2, VEL_TEXT_BUFFER_SIZE));
    ctx.text_count = 1;
    make(ctx, window, VEL_TYPE_WINDOW, 40, 540);
    make(ctx, edited, VEL_TYPE_TEXT, 60, 400);
    make(ctx, button, VEL_TYPE_LABEL, 500, 60);
    ctx.objects[edited].editable = 1;
    ctx.objects[edited].text_index = 1;
    ctx.comfort = VEL_COMFORT_ALL;
    ctx.event_filter = see;
    SDL_EventState(SDL_MOUSEMOTION, SDL_IGNORE);
    ctx.window_to_activate = window;
    vel_select_window(&ctx);
    std::puts("ready");
    std::fflush(stdout);
    for (;;) {
        if (vel_wait_for_object(&ctx) == button) ++clicks;
    }
}
