/* Draws what typing looks like, for docs/text.md: typing selection|refusal PICTURE.BMP */
#include <stdlib.h>
#include <string.h>

#include <velumo.h>

#include "typing.h"

enum { WIDTH = 400, HEIGHT = 192, FLASH_IS_SURE = 50 /* milliseconds */ };

static int start(vel_context *ctx) {
    const vel_colour desk = {0xe3, 0xe9, 0xf0}, orange = {0xd9, 0x70, 0x3b};
    if (SDL_Init(SDL_INIT_VIDEO) != 0 || TTF_Init() != 0) return 0;
    ctx->screen = SDL_SetVideoMode(WIDTH, HEIGHT, 32, SDL_SWSURFACE);
    ctx->font = TTF_OpenFont("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", 13);
    if (ctx->screen == NULL || ctx->font == NULL) return 0;
    ctx->screen_width = WIDTH;
    ctx->screen_height = HEIGHT;
    ctx->screen_rect = (SDL_Rect){0, 0, WIDTH, HEIGHT};
    ctx->background_colour = desk;
    ctx->mark_colour_a = ctx->mark_colour_b = orange;
    ctx->texts_loaded = 1;
    ctx->comfort = VEL_COMFORT_ALL;
    SDL_FillRect(ctx->screen, NULL, SDL_MapRGB(ctx->screen->format, desk.r, desk.g, desk.b));
    return vel_load_forms(ctx, 0, 0, "typing.form", "typing.text") == VEL_OK;
}

static void type(vel_context *ctx, char character) {
    memset(&ctx->event, 0, sizeof ctx->event);
    ctx->event.type = SDL_KEYDOWN;
    ctx->event.key.keysym.sym = (SDLKey)character;
    ctx->event.key.keysym.unicode = (Uint16)character;
    vel_getfirstkeyinformation(ctx);
    vel_get_text(ctx);
}

/* The caret shows its colour for a moment only; on a busy machine that may be over. */
static void show_refusal(vel_context *ctx) {
    Uint32 begin;
    vel_set_selection(ctx, TYPING_BOXES, 2, 2);
    ctx->cursor_object = TYPING_BOXES;
    do {
        begin = SDL_GetTicks();
        type(ctx, 'x');
        vel_draw_all_objects(ctx, 0, 1);
    } while (SDL_GetTicks() - begin > FLASH_IS_SURE);
}

static void show_selection(vel_context *ctx) {
    const char *const text = ctx->text_recs[ctx->objects[TYPING_BODY].text_index].text;
    const char *const first = strstr(text, "gate"), *const last = strstr(text, " boxes");
    ctx->cursor_object = TYPING_BODY;
    vel_set_selection(ctx, TYPING_BODY, (uint32_t)(first - text), (uint32_t)(last - text));
    vel_draw_all_objects(ctx, 0, 1);
}

int main(int count, char **words) {
    static vel_context ctx;
    if (count != 3 || !start(&ctx)) return 1;
    ctx.window_to_activate = TYPING_NOTE;
    vel_activate_window(&ctx);
    vel_draw_all_objects(&ctx, 1, 1);
    if (strcmp(words[1], "refusal") == 0) {
        show_refusal(&ctx);
    } else {
        show_selection(&ctx);
    }
    const int is_saved = SDL_SaveBMP(ctx.screen, words[2]) == 0;
    vel_close(&ctx);
    return is_saved ? 0 : 1;
}
