/* The display, and the messages and questions. */
#include <stdio.h>
#include <string.h>

#include "app.h"

const char *start_display(vel_context *ctx) {
    ctx->font_path = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
    ctx->font_size = 13;
    ctx->mark_colour_b = (vel_colour){0x2f, 0x6f, 0xde}; /* scrolling looks as resizing does */
    ctx->partial_redraw = 1; /* nothing but the form is drawn in the windows */
    int32_t result = vel_open_display(ctx, 800, 600, "Address Book");
    if (result != VEL_OK) return SDL_GetError();
    result = vel_load_forms(ctx, 0, 0, "addressbook.form", "addressbook.text");
    if (result != VEL_OK) return vel_error_text(result);
    vel_draw_all_objects(ctx, 1, 0); /* centres the captions; the rows are still empty */
    return NULL;
}

void draw(App *app) {
    vel_context *const ctx = &app->context;
    const vel_colour c = ctx->background_colour;
    vel_draw_box(ctx, 0, 0, ctx->screen_width, ctx->screen_height, c.r, c.g, c.b);
    vel_draw_all_objects(ctx, 0, 1);
}

void set_label(App *app, uint32_t object, const char *text) {
    vel_object *const o = &app->context.objects[object];
    vel_from_utf8(text, o->label, sizeof o->label, NULL);
    o->scroll_x = o->scroll_y = 0;
    vel_reset_textobject(&app->context, 0, object);
}

void set_text(App *app, uint32_t object, const char *text) {
    char latin1[VEL_TEXT_SIZE];
    vel_from_utf8(text, latin1, sizeof latin1, NULL);
    vel_load_window_text(&app->context, object, latin1);
    app->context.objects[object].scroll_y = 0;
    vel_reset_textobject(&app->context, 1, object);
}

/* A dialog has keys of its own; afterwards they go to where they went before. */
static uint32_t decide(App *app, uint32_t window, uint32_t first, uint32_t last) {
    vel_context *const ctx = &app->context;
    const uint32_t cursor = ctx->cursor_object;
    ctx->cursor_object = 0;
    const uint32_t answer = vel_decide_window(ctx, window, first, last);
    ctx->cursor_object = cursor;
    draw(app);
    return answer;
}

void show(App *app, uint32_t window, uint32_t ok) { decide(app, window, ok, ok); }

int tell(App *app, const char *text) {
    say("notice", 0, text);
    set_text(app, ADDRESSBOOK_NOTICE, text);
    show(app, ADDRESSBOOK_NOTICE, ADDRESSBOOK_NOTICE_OK);
    return 0;
}

int ask(App *app, const char *text, const char *yes, const char *no) {
    vel_context *const ctx = &app->context;
    set_text(app, ADDRESSBOOK_QUESTION, text);
    set_label(app, ADDRESSBOOK_YES, yes);
    set_label(app, ADDRESSBOOK_NO, no);
    vel_format_small_obj(ctx, ADDRESSBOOK_YES);
    vel_format_small_obj(ctx, ADDRESSBOOK_NO);
    vel_set_access_key(ctx, ADDRESSBOOK_YES, *yes);
    vel_set_access_key(ctx, ADDRESSBOOK_NO, *no);
    const uint32_t answer = decide(app, ADDRESSBOOK_QUESTION, ADDRESSBOOK_YES, ADDRESSBOOK_NO);
    return answer == ADDRESSBOOK_YES ? 1 : answer == ADDRESSBOOK_NO ? 0 : -1;
}

/* For those who follow from outside. Words of a file must not reach the terminal as controls, which
 * in UTF-8 are also 0x80 to 0x9f after 0xc2. */
void say(const char *done, int64_t number, const char *what) {
    printf("%s %lld ", done, (long long)number);
    for (const char *c = what; *c != 0; ++c) {
        const unsigned char byte = (unsigned char)*c;
        const int is_control = byte < 0x20 || byte == 0x7f ||
                               (c != what && c[-1] == '\xc2' && byte >= 0x80 && byte < 0xa0);
        putchar(is_control ? '?' : byte);
    }
    putchar('\n');
}

/* In the status line, and on standard output. */
int report(App *app, const char *done, int64_t number, const char *what) {
    char status[400], word[40];
    snprintf(status, sizeof status, "%s: %s", done, what);
    set_label(app, ADDRESSBOOK_STATUS, status);
    draw(app);
    snprintf(word, sizeof word, "%c%s", done[0] | 0x20, done + 1);
    say(word, number, what);
    return 1;
}
