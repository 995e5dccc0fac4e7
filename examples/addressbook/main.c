/* The address book: contacts in a list and on a card, kept in a file of SQLite. */
#include <libgen.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app.h"

/* A handler has no other place to write to. */
static volatile sig_atomic_t is_asked_to_end;

static void ask_to_end(int number) { is_asked_to_end = 1; }

int must_end(void) { return is_asked_to_end != 0; }

/* Before SDL starts, whose own handler works in SDL's queue of events, wherever that is
 * interrupted.
 */
static void handle_signals(void) {
    static const int signals[] = {SIGTERM, SIGINT, SIGHUP};
    const struct sigaction action = {.sa_handler = ask_to_end, .sa_flags = SA_RESTART};
    for (int k = 0; k < 3; ++k) sigaction(signals[k], &action, NULL);
    signal(SIGPIPE, SIG_IGN); /* who follows on standard output may go away */
}

/* Escape closes a menu or leaves the frame buttons; it must not close the book. */
static int would_close_book(const vel_context *ctx) {
    static const uint32_t menus[] = {ADDRESSBOOK_FILE_MENU, ADDRESSBOOK_CONTACT_MENU,
                                     ADDRESSBOOK_HELP_MENU};
    for (int k = 0; k < 3; ++k) {
        if (!ctx->objects[menus[k]].hidden) return 0;
    }
    return ctx->cursor_object == 0 || ctx->cursor_object > VEL_FRAME_BUTTONS;
}

static uint32_t filter(vel_context *ctx, SDL_Event *event) {
    App *const app = ctx->application_a[0];
    const int is_key = event->type == SDL_KEYDOWN;
    if (event->type == SDL_QUIT || must_end()) return app->is_ending = 1, VEL_FILTER_END_LOOP;
    /* Only the help shows without a window; any click or key closes it. */
    if (ctx->active_window == 0 && (is_key || event->type == SDL_MOUSEBUTTONUP)) {
        return VEL_FILTER_END_LOOP;
    }
    if (ctx->active_window != ADDRESSBOOK_BOOK) return VEL_FILTER_PASS;
    const int is_escape = is_key && event->key.keysym.sym == SDLK_ESCAPE;
    return is_escape && would_close_book(ctx) ? VEL_FILTER_DROP : VEL_FILTER_PASS;
}

/* Searches as the user types: whatever key it was, the field holds other words then. A signal makes
 * an event, for which the filter ends whatever loop runs. */
static void when_idle(vel_context *ctx) {
    App *const app = ctx->application_a[0];
    SDL_Event quit = {.type = SDL_QUIT};
    if (must_end()) SDL_PushEvent(&quit);
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
    } while (!app->is_ending || !(must_end() || leave_card(app)));
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
    handle_signals();
    app.store.stop = &is_asked_to_end;
    const int is_open = store_open(&app.store, has_file ? arguments[2] : path);
    /* The form, its pictures and the help are next to the program. */
    if (program == NULL || chdir(dirname(program)) != 0) return perror("addressbook"), EXIT_FAILURE;
    free(program);
    setvbuf(stdout, NULL, _IOLBF, 0);
    app.context.application_a[0] = &app;
    app.context.event_filter = filter;
    app.context.idle_hook = when_idle;
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
