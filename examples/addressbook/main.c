/* The address book: contacts in a list and on a card, kept in a file of SQLite. */
#include <libgen.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app.h"

static uint32_t filter(vel_context *ctx, SDL_Event *event) {
    App *const app = ctx->application_a[0];
    const int is_in_front = ctx->active_window == ADDRESSBOOK_BOOK;
    const SDLKey key = event->type == SDL_KEYDOWN ? event->key.keysym.sym : SDLK_UNKNOWN;
    const int button = event->type == SDL_MOUSEBUTTONDOWN ? event->button.button : 0;
    /* Num Lock and Caps Lock would switch Shift off. */
    if (key != SDLK_UNKNOWN) event->key.keysym.mod &= KMOD_SHIFT | KMOD_CTRL | KMOD_ALT;
    if (event->type == SDL_QUIT) return app->is_ending = 1, VEL_FILTER_END_LOOP;
    /* Only the help shows without a window; any click closes it. */
    if (ctx->active_window == 0 && event->type == SDL_MOUSEBUTTONUP) return VEL_FILTER_END_LOOP;
    /* The text cursor stays where it is while a dialog asks, so keys must not get there. */
    const int is_asking = !is_in_front && ctx->active_window != ADDRESSBOOK_OPEN;
    if (key == SDLK_ESCAPE) return is_in_front ? VEL_FILTER_DROP : VEL_FILTER_END_LOOP;
    if (is_asking && (event->type == SDL_KEYDOWN || event->type == SDL_KEYUP)) {
        return VEL_FILTER_DROP;
    }
    if (is_in_front && button == SDL_BUTTON_WHEELUP) scroll_list(app, -3);
    if (is_in_front && button == SDL_BUTTON_WHEELDOWN) scroll_list(app, 3);
    if (is_in_front && key == SDLK_PAGEUP) scroll_list(app, -ROWS);
    if (is_in_front && key == SDLK_PAGEDOWN) scroll_list(app, ROWS);
    return VEL_FILTER_PASS;
}

/* Searches as the user types: whatever key it was, the field holds other words then. */
static void search_when_idle(vel_context *ctx) {
    App *const app = ctx->application_a[0];
    const int is_in_front = ctx->active_window == ADDRESSBOOK_BOOK;
    const char *const words = ctx->objects[ADDRESSBOOK_SEARCH].label;
    if (is_in_front && strcmp(words, app->query) != 0) search_list(app);
}

static void run(App *app) {
    vel_context *const ctx = &app->context;
    load_list(app);
    new_card(app);
    ctx->cursor_object = ADDRESSBOOK_SEARCH;
    if (sqlite3_db_readonly(app->store.database, "main") == 1) {
        tell(app, "The address book is read-only. You can look at it but not change it.");
    }
    do {
        ctx->window_to_activate = ADDRESSBOOK_BOOK; /* which the user or the help may have closed */
        vel_activate_window(ctx);
        draw(app);
        const uint32_t object = vel_wait_for_object(ctx);
        app->is_ending = object == 0 || object == VEL_BUTTON_CLOSE || object == ADDRESSBOOK_QUIT;
        if (!app->is_ending) act(app, object);
    } while (!app->is_ending || !leave_card(app));
}

/* The file in the user's data folder, which is made; if that fails, opening the file fails. */
static void find_file(char *path, size_t size) {
    const char *folder = getenv("XDG_DATA_HOME"), *rest = "";
    if (folder == NULL || *folder != '/') folder = getenv("HOME"), rest = "/.local/share";
    snprintf(path, size, "%s%s/velumo-addressbook/contacts.db", folder ? folder : "", rest);
    for (char *slash = path; (slash = strchr(slash + 1, '/')) != NULL; *slash = '/') {
        *slash = 0;
        mkdir(path, 0700);
    }
}

int main(int count, char **arguments) {
    static App app;
    const int has_file = count == 3 && strcmp(arguments[1], "--db") == 0;
    char path[4096] = "", *program = realpath("/proc/self/exe", NULL);
    if (count != 1 && !has_file) return fprintf(stderr, "usage: addressbook [--db FILE]\n"), 2;
    if (!has_file) find_file(path, sizeof path);
    const int is_open = store_open(&app.store, has_file ? arguments[2] : path);
    /* The form, its pictures and the help are next to the program. */
    if (program == NULL || chdir(dirname(program)) != 0) return perror("addressbook"), EXIT_FAILURE;
    free(program);
    setvbuf(stdout, NULL, _IOLBF, 0);
    app.context.application_a[0] = &app;
    app.context.event_filter = filter;
    app.context.idle_hook = search_when_idle;
    const char *const problem = start_display(&app.context);
    if (problem != NULL)
        return fprintf(stderr, "addressbook: cannot start: %s\n", problem), EXIT_FAILURE;
    draw(&app);
    if (is_open) run(&app);
    if (!is_open) tell(&app, app.store.message);
    show_picture(&app, ""); /* the form's own, which the library frees */
    sqlite3_close(app.store.database);
    vel_close(&app.context);
    return is_open ? EXIT_SUCCESS : EXIT_FAILURE;
}
