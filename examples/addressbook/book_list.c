/* The rows on the left: a part of what was found. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "app.h"

static const vel_colour row_fills[] = {{0xff, 0xff, 0xff}, {0xd6, 0xe4, 0xfb}};

/* A row without columns is an empty one. */
static int add_row(void *receiver, int count, char **values, char **names) {
    App *const app = receiver;
    const uint32_t row = app->rows++, cells[] = {ADDRESSBOOK_ROW + row, ADDRESSBOOK_ROW_TOWN + row};
    const int is_empty = count == 0 || values[0] == NULL;
    const int64_t id = app->row_ids[row] = is_empty ? 0 : atoll(values[0]);
    const vel_colour fill = row_fills[id != 0 && id == app->card.id];
    for (int k = 0; k < 2; ++k) {
        vel_object *const o = &app->context.objects[cells[k]];
        o->fill_r = fill.r, o->fill_g = fill.g, o->fill_b = fill.b;
        vel_set_enabled(&app->context, cells[k], id != 0); /* Tab passes empty rows over */
        set_label(app, cells[k], is_empty || values[k + 1] == NULL ? "" : values[k + 1]);
    }
    return 0;
}

/* The thumb shows which part of the list is seen; it has at least 12 pixels. */
static void place_thumb(App *app) {
    const vel_object *const track = &app->context.objects[ADDRESSBOOK_TRACK];
    vel_object *const thumb = &app->context.objects[ADDRESSBOOK_THUMB];
    const int64_t hidden = app->found > ROWS ? app->found - ROWS : 0;
    const int64_t rest = (track->height - 12) * hidden / (hidden + ROWS);
    thumb->height = track->height - (uint32_t)rest;
    thumb->y = track->y + (uint32_t)(hidden == 0 ? 0 : rest * app->first / hidden);
}

int scroll_list(App *app, int64_t rows) {
    app->first += rows;
    if (app->first > app->found - ROWS) app->first = app->found - ROWS;
    if (app->first < 0) app->first = 0;
    app->rows = 0;
    store_run(&app->store, add_row, app,
              "SELECT * FROM found WHERE rowid > %lld ORDER BY rowid LIMIT %d", app->first, ROWS);
    while (app->rows < ROWS) add_row(app, 0, NULL, NULL);
    place_thumb(app);
    vel_draw_and_screenup_selected_window(&app->context);
    return 1;
}

void search_list(App *app) {
    char words[2 * VEL_STRING_SIZE], footer[60];
    memcpy(app->query, app->context.objects[ADDRESSBOOK_SEARCH].label, sizeof app->query);
    vel_to_utf8(app->query, words, sizeof words, NULL);
    if (!store_search(&app->store, words, &app->found)) app->found = 0;
    snprintf(footer, sizeof footer, "Found: %lld", (long long)app->found);
    set_label(app, ADDRESSBOOK_FOUND, footer);
    scroll_list(app, -app->first);
    say("found", app->found, words);
}

void load_list(App *app) {
    const int64_t first = app->first;
    if (!store_sort(&app->store)) tell(app, app->store.message);
    search_list(app);
    scroll_list(app, first);
}
