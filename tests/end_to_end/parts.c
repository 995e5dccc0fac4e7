/* Shows each part and, whenever one of them is changed, prints what all of them say. */
#include "parts.h"
#include <stdio.h>
#include <velumo.h>

enum { ROWS = 1000 };

static void show_square(vel_context *ctx, uint32_t list, uint32_t row, uint32_t column,
                        vel_cell *cell) {
    const int is_reversed = ctx->application_a[0] != NULL;
    const uint32_t number = is_reversed ? ROWS - 1 - row : row;
    (void)list;
    snprintf(cell->text, sizeof cell->text, "%u", column == 0 ? number : number * number);
}

static void sort_squares(vel_context *ctx, uint32_t list, uint32_t column, uint32_t descending) {
    (void)list;
    ctx->application_a[0] = descending ? ctx : NULL;
    printf("sorted %u %u\n", column, descending);
}

int main(void) {
    static vel_context ctx;
    setvbuf(stdout, NULL, _IOLBF, 0);
    if (vel_open_display(&ctx, 800, 600, "Parts") != VEL_OK ||
        vel_load_forms_from_memory(&ctx, 0, 0, &PARTS_FORM) != VEL_OK)
        return 1;
    vel_list_show(&ctx, PARTS_LIST, ROWS, show_square);
    vel_list_sort_by(&ctx, PARTS_LIST, sort_squares);
    ctx.window_to_activate = PARTS_WINDOW;
    vel_activate_window(&ctx);
    vel_draw_all_objects(&ctx, 1, 1);
    puts("ready");
    while (vel_wait_for_object(&ctx) != 0)
        printf("check %u radio %u%u choice %u slider %d list %d%s page %u other %u\n",
               vel_get_checked(&ctx, PARTS_CHECK), vel_get_checked(&ctx, PARTS_LEFT),
               vel_get_checked(&ctx, PARTS_RIGHT), vel_list_selected(&ctx, PARTS_SIZE, 0),
               vel_get_value(&ctx, PARTS_SLIDER), (int32_t)vel_list_selected(&ctx, PARTS_LIST, 0),
               vel_list_answered(&ctx, PARTS_LIST) ? "!" : "", vel_shown_page(&ctx, PARTS_TABS),
               vel_get_checked(&ctx, PARTS_OTHER));
    vel_close(&ctx);
    return 0;
}
