/* The tour: shows a form with all kinds of objects, borders and windows until it is closed. */
#include <stdio.h>
#include <stdlib.h>

#include <velumo.h>

#include "tour.h"

enum { SCREEN_WIDTH = 800, SCREEN_HEIGHT = 600, FONT_SIZE = 13 };

static const char *const font_path = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
static const vel_colour desk = {0xe3, 0xe9, 0xf0};
static const vel_colour blue = {0x2f, 0x6f, 0xde};
static const vel_colour orange = {0xd9, 0x70, 0x3b};

/* The text of the chain; the library wants it in ISO 8859-1. */
static char story[] =
    "Am Morgen liegt der Nebel über den Hügeln, und die Fähre wartet schon am Ufer. Wer "
    "früh genug aufsteht, hört die Glocken aus dem Tal und riecht das Brot der Bäckerei. "
    "Gegen Mittag wird es warm; die Kinder laufen über die Brücke, und vor dem Rathaus "
    "stehen Stände mit Äpfeln, Käse und Honig. Ein Mann mit Hut verkauft Körbe, die er im "
    "Winter geflochten hat. Später zieht ein Gewitter auf, aber es dauert nicht lange. Dann "
    "tropft es nur noch von den Dächern, und die Straßen glänzen. Am Abend sitzen alle "
    "draußen, erzählen und lachen, bis der Mond über den Bäumen steht. Wer noch nicht müde "
    "ist, geht zum Fluss hinunter und zählt die Lichter der Schiffe. So vergeht ein Tag im "
    "Städtchen, und keiner hat es eilig. Morgen kommt die Fähre wieder, und mit ihr kommen "
    "Gäste, Briefe und Neuigkeiten aus der großen Stadt. Dann beginnt alles von vorn: "
    "Nebel, Glocken, Brot. Und wer geblieben ist, erzählt den Neuen, wie schön es gestern "
    "war.";

static int fail(const char *what, const char *why) {
    fprintf(stderr, "tour: %s: %s\n", what, why);
    return 0;
}

/* Keeps SDL to X: without a display it would draw with letters in the terminal. */
static int choose_video_driver(void) {
    static char x11[] = "SDL_VIDEODRIVER=x11";
    if (getenv("SDL_VIDEODRIVER") != NULL) return 1;
    if (getenv("DISPLAY") == NULL) return fail("there is no display", "DISPLAY is not set");
    return SDL_putenv(x11) == 0;
}

static int start_display(vel_context *ctx) {
    if (!choose_video_driver()) return 0;
    if (SDL_Init(SDL_INIT_VIDEO) != 0) return fail("SDL", SDL_GetError());
    if (TTF_Init() != 0) return fail("SDL_ttf", TTF_GetError());
    ctx->screen = SDL_SetVideoMode(SCREEN_WIDTH, SCREEN_HEIGHT, 32, SDL_SWSURFACE);
    if (ctx->screen == NULL) return fail("the display", SDL_GetError());
    ctx->font = TTF_OpenFont(font_path, FONT_SIZE);
    if (ctx->font == NULL) return fail(font_path, TTF_GetError());
    SDL_WM_SetCaption("Velumo", "Velumo");
    return 1;
}

static void fill_context(vel_context *ctx) {
    ctx->screen_width = SCREEN_WIDTH;
    ctx->screen_height = SCREEN_HEIGHT;
    ctx->screen_rect.w = SCREEN_WIDTH;
    ctx->screen_rect.h = SCREEN_HEIGHT;
    ctx->background_colour = desk;
    ctx->mark_colour_a = blue;
    ctx->mark_colour_b = orange;
    ctx->texts_loaded = 1;
}

/* Puts the frame buttons into a row above the right end of a window. */
static void place_frame_buttons(vel_context *ctx, uint32_t window) {
    const vel_object *const o = &ctx->objects[window];
    const uint32_t left = o->x + o->width - VEL_FRAME_BUTTONS * VEL_FRAME_BUTTON_SIZE;
    uint32_t k;
    for (k = 1; k <= VEL_FRAME_BUTTONS; ++k) {
        ctx->objects[k].x = left + (k - 1) * VEL_FRAME_BUTTON_SIZE;
        ctx->objects[k].y = o->y - 24;
        ctx->objects[k].hidden = 0;
    }
}

/* Fills the window stack, the front window first, and makes that one active. */
static void open_windows(vel_context *ctx) {
    static const uint32_t front_first[] = {TOUR_ORDER, TOUR_PHOTOS, TOUR_LOG};
    const uint32_t count = sizeof front_first / sizeof *front_first;
    uint32_t i;
    for (i = 0; i < count; ++i) {
        ctx->window_stack[i] = front_first[i];
        ctx->objects[front_first[i]].hidden = 0;
    }
    ctx->window_count = count;
    ctx->active_window = front_first[0];
    place_frame_buttons(ctx, ctx->active_window);
}

/* Turns UTF-8 into ISO 8859-1, in place; characters beyond that are not expected. */
static char *to_latin1(char *text) {
    const unsigned char *from = (const unsigned char *)text;
    char *to = text;
    for (; *from != 0; ++from) {
        const int is_pair = (*from & 0xe0) == 0xc0 && from[1] != 0;
        *to++ = (char)(is_pair ? (*from & 0x03) << 6 | (from[1] & 0x3f) : *from);
        from += is_pair;
    }
    *to = 0;
    return text;
}

static void wait_until_closed(vel_context *ctx) {
    while (SDL_WaitEvent(&ctx->event) == 1 && ctx->event.type != SDL_QUIT) {
        if (ctx->event.type == SDL_VIDEOEXPOSE) vel_draw_all_objects(ctx, 0, 1);
    }
}

int main(void) {
    static vel_context ctx;
    int32_t result;
    if (!start_display(&ctx)) return EXIT_FAILURE;
    fill_context(&ctx);
    result = vel_load_forms(&ctx, 0, 0, "tour.form", "tour.text");
    if (result != VEL_OK) {
        fail("tour.form and tour.text", vel_error_text(result));
        return EXIT_FAILURE;
    }
    ctx.objects[TOUR_NOTES].stream = to_latin1(story);
    open_windows(&ctx);
    vel_draw_all_objects(&ctx, 1, 1);
    wait_until_closed(&ctx);
    vel_close(&ctx);
    return EXIT_SUCCESS;
}
