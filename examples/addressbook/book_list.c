/* The list on the left: what was found, read from disk as far as it is in sight. */
#include <stdio.h>
#include <string.h>

#include "app.h"

typedef struct Wanted {
    uint32_t column;
    vel_cell *cell;
} Wanted;

/* The first value is the contact, which no column shows. */
static int read_cell(void *receiver, int count, char **values, char **names) {
    const Wanted *const wanted = receiver;
    const char *const text = values[wanted->column + 1];
    vel_from_utf8(text != NULL ? text : "", wanted->cell->text, sizeof wanted->cell->text, NULL);
    return 0;
}

static void show_contact(vel_context *ctx, uint32_t list, uint32_t row, uint32_t column,
                         vel_cell *cell) {
    App *const app = ctx->application_a[0];
    Wanted wanted = {column, cell};
    store_run(&app->store, read_cell, &wanted, "SELECT * FROM found WHERE rowid = %u + 1", row);
}

int64_t selected_contact(App *app) {
    const uint32_t row = vel_list_selected(&app->context, ADDRESSBOOK_PEOPLE, 0);
    int64_t id = 0;
    if (row != VEL_NO_ROW)
        store_run(&app->store, store_read_number, &id, "SELECT id FROM found WHERE rowid = %u + 1",
                  row);
    return id;
}

int select_card(App *app) {
    int64_t row = 0;
    store_run(&app->store, store_read_number, &row, "SELECT rowid FROM found WHERE id = %lld",
              app->card.id);
    vel_list_select(&app->context, ADDRESSBOOK_PEOPLE, row == 0 ? VEL_NO_ROW : (uint32_t)row - 1);
    vel_draw_and_screenup_selected_window(&app->context);
    return 1;
}

void search_list(App *app) {
    char words[2 * VEL_STRING_SIZE], footer[60];
    int64_t found = 0;
    memcpy(app->query, app->context.objects[ADDRESSBOOK_SEARCH].label, sizeof app->query);
    vel_to_utf8(app->query, words, sizeof words, NULL);
    if (!store_search(&app->store, words, &found)) found = 0;
    snprintf(footer, sizeof footer, "Found: %lld", (long long)found);
    set_label(app, ADDRESSBOOK_FOUND, footer);
    vel_list_show(&app->context, ADDRESSBOOK_PEOPLE, (uint32_t)found, show_contact);
    vel_draw_and_screenup_selected_window(&app->context);
    say("found", found, words);
}

void load_list(App *app) {
    if (!store_sort(&app->store)) tell(app, app->store.message);
    search_list(app);
    select_card(app);
}
