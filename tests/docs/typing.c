/* Draws the pictures of docs/text.md and docs/events.md: typing selection|refusal|states BMP */
#include <stdlib.h>
#include <string.h>

#include <velumo.h>

#include "typing.h"

enum { WIDTH = 400, HEIGHT = 192 };

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

static void show_refusal(vel_context *ctx) {
    vel_set_selection(ctx, TYPING_BOXES, 2, 2);
    ctx->cursor_object = TYPING_BOXES;
    type(ctx, 'x');
    vel_draw_all_objects(ctx, 0, 1);
}

static void show_selection(vel_context *ctx) {
    const char *const text = ctx->text_recs[ctx->objects[TYPING_BODY].text_index].text;
    const char *const first = strstr(text, "gate"), *const last = strstr(text, " boxes");
    ctx->cursor_object = TYPING_BODY;
    vel_set_selection(ctx, TYPING_BODY, (uint32_t)(first - text), (uint32_t)(last - text));
    vel_draw_all_objects(ctx, 0, 1);
}

static int is_saved(const vel_context *ctx, const char *path) {
    return SDL_SaveBMP(ctx->screen, path) == 0;
}

/* States show only while a loop runs. */
static void save_and_end(vel_context *ctx) {
    SDL_Event event = {.type = SDL_QUIT};
    if (is_saved(ctx, ctx->application_a[0])) ctx->application_a[1] = ctx;
    SDL_PushEvent(&event);
}

static int save_states(vel_context *ctx, char *path) {
    const vel_object *hovered = &ctx->objects[TYPING_HOVERED];
    SDL_Event event = {.type = SDL_MOUSEMOTION};
    event.motion.x = (Uint16)(hovered->x + 20);
    event.motion.y = (Uint16)(hovered->y + 20);
    SDL_PushEvent(&event);
    ctx->cursor_object = TYPING_FOCUSED;
    vel_draw_all_objects(ctx, 0, 1);
    ctx->application_a[0] = path;
    ctx->idle_hook = save_and_end;
    vel_wait_for_object(ctx);
    return ctx->application_a[1] != NULL;
}

int main(int count, char **words) {
    static vel_context ctx;
    if (count != 3 || !start(&ctx)) return 1;
    const int shows_states = strcmp(words[1], "states") == 0;
    ctx.window_to_activate = shows_states ? TYPING_STATES : TYPING_NOTE;
    vel_activate_window(&ctx);
    vel_draw_all_objects(&ctx, 1, 1);
    int is_done = 0;
    if (shows_states) {
        is_done = save_states(&ctx, words[2]);
    } else {
        (strcmp(words[1], "refusal") == 0 ? show_refusal : show_selection)(&ctx);
        is_done = is_saved(&ctx, words[2]);
    }
    vel_close(&ctx);
    return is_done ? 0 : 1;
}
