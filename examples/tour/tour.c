/* The tour: a desk with all kinds of objects, borders and windows, to click and to type on. */
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

#include <velumo.h>

#include "report.h"
#include "tour.h"

enum { SCREEN_WIDTH = 800, SCREEN_HEIGHT = 600, FONT_SIZE = 13, SCROLL_STEP = 10 };

static const char *const font_path = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
static const vel_colour desk = {0xe3, 0xe9, 0xf0};
static const vel_colour blue = {0x2f, 0x6f, 0xde};
static const vel_colour orange = {0xd9, 0x70, 0x3b};

/* What the program keeps; it hangs on the context. */
struct tour {
    struct report report;
    char shown_amount[VEL_STRING_SIZE]; /* what the total was worked out from */
    time_t shown_time;
    char sample_name[VEL_STRING_SIZE], sample_street[VEL_STRING_SIZE];
    char sample_amount[VEL_STRING_SIZE], sample_remark[VEL_TEXT_SIZE];
};

static struct tour *tour_of(vel_context *ctx) { return ctx->application_a[0]; }

/* ---- End, when a signal asks for it ---- */

/* A handler has no other place to write to. */
static volatile sig_atomic_t must_end;

static void on_signal(int number) { must_end = number; }

/* Before SDL starts, whose own handler works in SDL's queue of events, wherever that is
 * interrupted.
 */
static void handle_signals(void) {
    static const int signals[] = {SIGTERM, SIGINT, SIGHUP};
    struct sigaction action;
    size_t i;
    memset(&action, 0, sizeof action);
    action.sa_handler = on_signal;
    action.sa_flags = SA_RESTART;
    for (i = 0; i < sizeof signals / sizeof *signals; ++i) sigaction(signals[i], &action, NULL);
    signal(SIGPIPE, SIG_IGN); /* who follows on standard output may go away */
}

/* Ends every loop, also that of a dialog or a menu. */
static uint32_t filter(vel_context *ctx, SDL_Event *event) {
    (void)ctx;
    return must_end || event->type == SDL_QUIT ? VEL_FILTER_END_LOOP : VEL_FILTER_PASS;
}

/* The filter sees events only, so a signal becomes one. */
static void end_when_asked(void) {
    SDL_Event quit;
    quit.type = SDL_QUIT;
    if (must_end) SDL_PushEvent(&quit);
}

/* ---- Start ---- */

static int fail(const char *why) {
    fprintf(stderr, "tour: cannot start: %s\n", why);
    return 0;
}

/* Without a display, SDL would draw with letters in the terminal. */
static void choose_video_driver(void) {
    const char *const driver = getenv("SDL_VIDEODRIVER");
    if (driver == NULL || strcmp(driver, "dummy") != 0) setenv("SDL_VIDEODRIVER", "x11", 1);
}

static int start_display(vel_context *ctx) {
    choose_video_driver();
    if (SDL_Init(SDL_INIT_VIDEO) != 0) return fail(SDL_GetError());
    if (TTF_Init() != 0) return fail(TTF_GetError());
    ctx->screen = SDL_SetVideoMode(SCREEN_WIDTH, SCREEN_HEIGHT, 32, SDL_SWSURFACE);
    if (ctx->screen == NULL) return fail(SDL_GetError());
    ctx->font = TTF_OpenFont(font_path, FONT_SIZE);
    if (ctx->font == NULL) return fail(TTF_GetError());
    SDL_WM_SetCaption("Velumo Tour", "Velumo Tour");
    return 1;
}

static void fill_context(vel_context *ctx) {
    ctx->screen_width = SCREEN_WIDTH;
    ctx->screen_height = SCREEN_HEIGHT;
    ctx->screen_rect.w = SCREEN_WIDTH;
    ctx->screen_rect.h = SCREEN_HEIGHT;
    ctx->background_colour = desk;
    SDL_FillRect(ctx->screen, NULL, SDL_MapRGB(ctx->screen->format, desk.r, desk.g, desk.b));
    ctx->mark_colour_a = blue;
    ctx->mark_colour_b = orange;
    ctx->scroll_step = SCROLL_STEP;
    ctx->texts_loaded = 1;
    ctx->comfort = VEL_COMFORT_ALL;
    ctx->partial_redraw = 1; /* nothing but the form is drawn in the windows */
}

static char *text_of(vel_context *ctx, uint32_t object) {
    return ctx->text_recs[ctx->objects[object].text_index].text;
}

static void open_window(vel_context *ctx, uint32_t window) {
    ctx->window_to_activate = window;
    vel_select_window(ctx);
}

/* ---- The order ---- */

/* Works out the total for the amount, right-aligned. */
static void show_total(vel_context *ctx) {
    enum { FIELD = 7, PRICE = 975 };
    char *const label = ctx->objects[TOUR_TOTAL].label;
    const long cents = PRICE * strtol(ctx->objects[TOUR_AMOUNT].label, NULL, 10);
    if (cents > 999999) {
        strcpy(label, "-----");
    } else {
        snprintf(label, VEL_STRING_SIZE, "%ld.%02ld", cents / 100, cents % 100);
    }
    vel_fill_form_with_dummies(ctx, label, TOUR_TOTAL, FIELD, ' ');
    vel_format_small_obj(ctx, TOUR_TOTAL);
    strcpy(tour_of(ctx)->shown_amount, ctx->objects[TOUR_AMOUNT].label);
}

/* Brings the cursor of a field back to its start, and what typing has scrolled. */
static void reset(vel_context *ctx, uint32_t mode, uint32_t field) {
    vel_reset_textobject(ctx, mode, field);
    ctx->objects[field].scroll_x = ctx->objects[field].scroll_y = 0;
}

static void set_field(vel_context *ctx, uint32_t field, const char *text) {
    strcpy(ctx->objects[field].label, text);
    reset(ctx, 0, field);
}

static void set_order(vel_context *ctx, const char *name, const char *street, const char *amount,
                      const char *remark) {
    set_field(ctx, TOUR_NAME, name);
    set_field(ctx, TOUR_STREET, street);
    set_field(ctx, TOUR_AMOUNT, amount);
    vel_load_window_text(ctx, TOUR_REMARK, remark);
    reset(ctx, 1, TOUR_REMARK);
    show_total(ctx);
    open_window(ctx, TOUR_ORDER);
    vel_draw_all_objects(ctx, 0, 1);
}

/* The sample is what the form holds at first. */
static void keep_sample(vel_context *ctx) {
    struct tour *const tour = tour_of(ctx);
    strcpy(tour->sample_name, ctx->objects[TOUR_NAME].label);
    strcpy(tour->sample_street, ctx->objects[TOUR_STREET].label);
    strcpy(tour->sample_amount, ctx->objects[TOUR_AMOUNT].label);
    strcpy(tour->sample_remark, text_of(ctx, TOUR_REMARK));
}

static void load_sample(vel_context *ctx) {
    const struct tour *const tour = tour_of(ctx);
    set_order(ctx, tour->sample_name, tour->sample_street, tour->sample_amount,
              tour->sample_remark);
}

static void save(vel_context *ctx) {
    char text[VEL_TEXT_SIZE];
    const uint32_t answer = vel_decide_window(ctx, TOUR_QUESTION, TOUR_YES, TOUR_NO);
    printf("answer: %s\n", answer == TOUR_YES ? "yes" : "no");
    if (answer == TOUR_YES) {
        const char *const amount = ctx->objects[TOUR_AMOUNT].label;
        snprintf(text, sizeof text, "Boxes ordered: %s", amount[0] != '\0' ? amount : "none");
        vel_load_window_text_buttons(ctx, TOUR_NOTICE, text, TOUR_UNDERSTOOD, TOUR_UNDERSTOOD);
        vel_notice_window(ctx, TOUR_NOTICE, TOUR_UNDERSTOOD);
        puts("saved");
    }
    vel_draw_all_objects(ctx, 0, 1);
}

/* ---- What goes on meanwhile ---- */

/* A label may be drawn alone while no window lies over it. */
static int is_clock_free(const vel_context *ctx) {
    enum { ROOM = 24 }; /* for the frame buttons above a window */
    const vel_object *const clock = &ctx->objects[TOUR_CLOCK];
    uint32_t i;
    for (i = 0; i < ctx->window_count; ++i) {
        if (ctx->objects[ctx->window_stack[i]].y < clock->y + clock->height + ROOM) return 0;
    }
    return 1;
}

static void show_time(vel_context *ctx) {
    const time_t now = time(NULL);
    vel_object *const clock = &ctx->objects[TOUR_CLOCK];
    if (now == tour_of(ctx)->shown_time || !is_clock_free(ctx)) return;
    tour_of(ctx)->shown_time = now;
    strftime(clock->label, sizeof clock->label, "%H:%M:%S", localtime(&now));
    vel_format_small_obj(ctx, TOUR_CLOCK);
    vel_evoke_object(ctx, TOUR_CLOCK);
    SDL_UpdateRect(ctx->screen, (Sint32)clock->x, (Sint32)clock->y, clock->width, clock->height);
}

static void on_idle(vel_context *ctx) {
    end_when_asked();
    report_changes(ctx, &tour_of(ctx)->report);
    if (strcmp(tour_of(ctx)->shown_amount, ctx->objects[TOUR_AMOUNT].label) != 0) {
        show_total(ctx);
        if (ctx->active_window == TOUR_ORDER) vel_draw_and_screenup_selected_window(ctx);
    }
    show_time(ctx);
}

/* ---- The tour ---- */

/* Does what the user asked for; returns 0 when the tour ends. */
static int act_on(vel_context *ctx, uint32_t object) {
    report_click(object);
    switch (object) {
    case 0:
    case TOUR_FILE_QUIT:
        return 0;
    case TOUR_ORDER_ICON:
    case TOUR_VIEW_ORDER:
        open_window(ctx, TOUR_ORDER);
        break;
    case TOUR_PHOTOS_ICON:
    case TOUR_VIEW_PHOTOS:
        open_window(ctx, TOUR_PHOTOS);
        break;
    case TOUR_LOG_ICON:
    case TOUR_VIEW_LOG:
        open_window(ctx, TOUR_LOG);
        break;
    case TOUR_LOAD:
    case TOUR_EDIT_LOAD:
        load_sample(ctx);
        break;
    case TOUR_CLEAR:
    case TOUR_EDIT_CLEAR:
        set_order(ctx, "", "", "", "");
        break;
    case TOUR_SAVE:
    case TOUR_FILE_SAVE:
        save(ctx);
        break;
    default:
        break;
    }
    return 1;
}

int main(void) {
    static vel_context ctx;
    static struct tour tour;
    int32_t result;
    setvbuf(stdout, NULL, _IOLBF, 0);
    handle_signals();
    if (!start_display(&ctx)) return EXIT_FAILURE;
    fill_context(&ctx);
    result = vel_load_forms(&ctx, 0, 0, "tour.form", "tour.text");
    if (result != VEL_OK) {
        fail(vel_error_text(result));
        return EXIT_FAILURE;
    }
    ctx.application_a[0] = &tour;
    ctx.idle_hook = on_idle;
    ctx.event_filter = filter;
    ctx.objects[TOUR_NOTES].stream = text_of(&ctx, TOUR_NOTES);
    keep_sample(&ctx);
    show_total(&ctx);
    vel_draw_all_objects(&ctx, 1, 0);
    open_window(&ctx, TOUR_LOG);
    open_window(&ctx, TOUR_PHOTOS);
    open_window(&ctx, TOUR_ORDER);
    while (act_on(&ctx, vel_wait_for_object(&ctx))) continue;
    vel_close(&ctx);
    puts("end");
    return EXIT_SUCCESS;
}
