#include "report.h"

#include <stdio.h>
#include <string.h>

#include "tour.h"

static const struct {
    uint32_t number;
    const char *name;
} names[] = {
    {0, "none"},
    {VEL_BUTTON_CLOSE, "close"},
    {TOUR_ORDER, "order"},
    {TOUR_PHOTOS, "photos"},
    {TOUR_LOG, "log"},
    {TOUR_QUESTION, "question"},
    {TOUR_NOTICE, "notice"},
    {TOUR_NAME, "name"},
    {TOUR_STREET, "street"},
    {TOUR_AMOUNT, "amount"},
    {TOUR_REMARK, "remark"},
    {TOUR_LOAD, "load"},
    {TOUR_CLEAR, "clear"},
    {TOUR_SAVE, "save"},
    {TOUR_ORDER_ICON, "order_icon"},
    {TOUR_PHOTOS_ICON, "photos_icon"},
    {TOUR_LOG_ICON, "log_icon"},
    {TOUR_FILE_SAVE, "file_save"},
    {TOUR_FILE_QUIT, "file_quit"},
    {TOUR_EDIT_LOAD, "edit_load"},
    {TOUR_EDIT_CLEAR, "edit_clear"},
    {TOUR_VIEW_ORDER, "view_order"},
    {TOUR_VIEW_PHOTOS, "view_photos"},
    {TOUR_VIEW_LOG, "view_log"},
};

static const char *name_of(uint32_t number) {
    size_t i;
    for (i = 0; i < sizeof names / sizeof *names; ++i) {
        if (names[i].number == number) return names[i].name;
    }
    return "other";
}

/* Prints ISO 8859-1 as UTF-8, line ends as \n; what was pasted must not reach the terminal as
 * controls. */
static void print_text(const char *text) {
    const unsigned char *c = (const unsigned char *)text;
    for (; *c != 0; ++c) {
        if (*c == '\n') {
            fputs("\\n", stdout);
        } else if (*c < 0x20 || (*c >= 0x7f && *c < 0xa0)) {
            putchar('?');
        } else if (*c < 0x80) {
            putchar(*c);
        } else {
            printf("%c%c", 0xc0 | *c >> 6, 0x80 | (*c & 0x3f));
        }
    }
}

static void report_text(const char *field, const char *now, char *last) {
    if (strcmp(now, last) == 0) return;
    strcpy(last, now);
    printf("%s: ", field);
    print_text(now);
    putchar('\n');
}

/* Whether a pair of numbers has changed; the last ones then are as they are now. */
static int has_changed(uint32_t *last_x, uint32_t *last_y, uint32_t x, uint32_t y) {
    const int changed = *last_x != x || *last_y != y;
    *last_x = x;
    *last_y = y;
    return changed;
}

static void report_window(const vel_context *ctx, struct report *last) {
    const vel_object *const o = &ctx->objects[ctx->active_window];
    const int is_same = last->active == ctx->active_window;
    const char *const name = name_of(ctx->active_window);
    if (!is_same) printf("active: %s\n", name);
    last->active = ctx->active_window;
    if (has_changed(&last->x, &last->y, o->x, o->y) && is_same) {
        printf("moved: %s %d %d\n", name, (int)o->x, (int)o->y);
    }
    if (has_changed(&last->width, &last->height, o->width, o->height) && is_same) {
        printf("sized: %s %d %d\n", name, (int)o->width, (int)o->height);
    }
    if (has_changed(&last->scroll_x, &last->scroll_y, o->scroll_x, o->scroll_y) && is_same) {
        printf("scrolled: %s %d %d\n", name, (int)o->scroll_x, (int)o->scroll_y);
    }
}

void report_changes(const vel_context *ctx, struct report *last) {
    report_window(ctx, last);
    if (last->frame_mode != ctx->frame_mode) {
        printf("mode: %s\n", ctx->frame_mode == VEL_MODE_SCROLL ? "scroll" : "resize");
        last->frame_mode = ctx->frame_mode;
    }
    if (last->cursor != ctx->cursor_object) {
        printf("cursor: %s\n", name_of(ctx->cursor_object));
        last->cursor = ctx->cursor_object;
    }
    report_text("name", ctx->objects[TOUR_NAME].label, last->name);
    report_text("street", ctx->objects[TOUR_STREET].label, last->street);
    report_text("amount", ctx->objects[TOUR_AMOUNT].label, last->amount);
    report_text("remark", ctx->text_recs[ctx->objects[TOUR_REMARK].text_index].text, last->remark);
}

void report_click(uint32_t object) { printf("clicked: %s\n", name_of(object)); }
