/* What the user can do: the buttons, the menus and the rows of the list. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include "app.h"

/* Starts at the path, or at home with a name or pattern; returns 1 and the path chosen. */
static int choose_file(App *app, Field path, const char *name) {
    const char *const home = getenv("HOME");
    if (*path == 0) snprintf(path, FIELD_SIZE, "%s/%s", home != NULL ? home : "", name);
    const int32_t answer = vel_choose_file(&app->context, ADDRESSBOOK_OPEN, path, FIELD_SIZE);
    draw(app);
    return answer < 0 ? tell(app, "This file cannot be chosen.") : answer;
}

static int import_file(App *app) {
    Field path = "";
    if (!choose_file(app, path, "*.csv")) return 0;
    const int count = import_contacts(&app->store, path);
    if (count < 0) return tell(app, app->store.message);
    load_list(app);
    return report(app, "Imported", count, path);
}

static int export_file(App *app) {
    Field path = "";
    if (!choose_file(app, path, "addressbook.csv")) return 0;
    const int is_there = access(path, F_OK) == 0;
    if (is_there && ask(app, "This file already exists.", "Replace", "Keep") != 1) return 0;
    if (!export_contacts(&app->store, path)) return tell(app, app->store.message);
    return report(app, "Exported", 0, path);
}

static int choose_picture(App *app) {
    Field path;
    memcpy(path, app->picture, FIELD_SIZE);
    if (!choose_file(app, path, "")) return 0;
    return show_picture(app, path) || tell(app, "This file cannot be shown as a picture.") ||
           show_picture(app, "");
}

static int remove_picture(App *app) { return show_picture(app, ""); }

/* The page lies on the desk, beneath all windows, so the book closes until the next click or key.
 */
static int show_help(App *app) {
    vel_context *const ctx = &app->context;
    vel_object *const page = &ctx->objects[ADDRESSBOOK_HELP_PAGE];
    struct stat status;
    const int is_there = stat("help.stream", &status) == 0 && status.st_size > 0;
    page->stream = is_there ? vel_read_external_stream("help.stream") : NULL;
    if (page->stream == NULL) return tell(app, "The guide is missing.");
    page->stream[status.st_size - 1] = 0; /* the library adds none; the file has a byte for it */
    vel_format_stream_to_linked_objects(ctx, ADDRESSBOOK_HELP_PAGE);
    /* The flow counts the lines of one column only; those that it left empty show nothing. */
    for (int k = 0; k < 2; ++k)
        ctx->objects[page->dep_objs[k]].number_of_lines = VEL_TEXT_LINES - 1;
    vel_close_win(ctx, ADDRESSBOOK_BOOK);
    page->hidden = 0;
    draw(app);
    vel_wait_for_object(ctx);
    page->hidden = 1;
    free(page->stream);
    page->stream = NULL;
    return 1;
}

static int show_about(App *app) {
    show(app, ADDRESSBOOK_ABOUT_BOX, ADDRESSBOOK_ABOUT_OK);
    return 1;
}

/* The user may stay at the card, whose row is selected then. */
static int open_selected(App *app) {
    const int64_t id = selected_contact(app);
    if (id == 0 || id == app->card.id) return 0;
    return leave_card(app) ? open_card(app, id) : select_card(app);
}

static const struct {
    uint32_t object;
    int (*act)(App *app);
    int leaves_card;
} actions[] = {
    {ADDRESSBOOK_NEW, new_card, 1},
    {ADDRESSBOOK_MENU_NEW, new_card, 1},
    {ADDRESSBOOK_SAVE, save_card, 0},
    {ADDRESSBOOK_MENU_SAVE, save_card, 0},
    {ADDRESSBOOK_DELETE, delete_card, 0},
    {ADDRESSBOOK_MENU_DELETE, delete_card, 0},
    {ADDRESSBOOK_UNDO, undo_delete, 1},
    {ADDRESSBOOK_IMPORT, import_file, 0},
    {ADDRESSBOOK_EXPORT, export_file, 0},
    {ADDRESSBOOK_CHOOSE_PICTURE, choose_picture, 0},
    {ADDRESSBOOK_REMOVE_PICTURE, remove_picture, 0},
    {ADDRESSBOOK_PEOPLE, open_selected, 0},
    {ADDRESSBOOK_HELP, show_help, 0},
    {ADDRESSBOOK_ABOUT, show_about, 0},
};

void act(App *app, uint32_t object) {
    for (size_t k = 0; k < sizeof actions / sizeof *actions; ++k) {
        if (actions[k].object != object) continue;
        if (!actions[k].leaves_card || leave_card(app)) actions[k].act(app);
    }
}
