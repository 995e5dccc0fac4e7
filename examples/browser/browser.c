/* Shows the lines of a text file in a list, finds words in them, and has room for a note. */
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <velumo.h>

#include "browser.h"

/* What the program keeps; it hangs on the context. */
struct book {
    char path[4096];
    char *text;   /* with a NUL for each line end */
    char **lines; /* where they begin in it */
    uint32_t count;
};

/* SDL's own handlers are not made for a storm of signals, so these come before SDL starts. */
static volatile sig_atomic_t must_end;
static void on_signal(int number) { must_end = number; }
static void end_when_asked(vel_context *ctx) {
    SDL_Event quit = {.type = SDL_QUIT};
    (void)ctx;
    if (must_end) SDL_PushEvent(&quit);
}

static void show_line(vel_context *ctx, uint32_t list, uint32_t row, uint32_t column,
                      vel_cell *cell) {
    const struct book *book = ctx->application_a[0];
    (void)list;
    if (column == 0)
        snprintf(cell->text, sizeof cell->text, "%u", row + 1);
    else
        vel_from_utf8(book->lines[row], cell->text, sizeof cell->text, NULL);
}

/* Reads the file of the path; where it cannot be read, the one before stays. */
static void read_book(vel_context *ctx, struct book *book) {
    char *text = vel_read_external_stream(book->path);
    char **lines = text == NULL ? NULL : malloc((strlen(text) + 1) * sizeof *lines);
    uint32_t count = 0;
    if (lines == NULL) {
        free(text);
        return;
    }
    for (char *line = strtok(text, "\n"); line != NULL; line = strtok(NULL, "\n"))
        lines[count++] = line;
    free(book->text);
    free(book->lines);
    book->text = text, book->lines = lines, book->count = count;
    vel_list_show(ctx, BROWSER_LINES, count, show_line);
}

/* Selects the next line that has the word, after the last the first. */
static void find_next(vel_context *ctx, const struct book *book) {
    const uint32_t selected = vel_list_selected(ctx, BROWSER_LINES, 0);
    const uint32_t start = selected == VEL_NO_ROW ? 0 : selected + 1;
    char word[2 * VEL_STRING_SIZE];
    vel_to_utf8(ctx->objects[BROWSER_SEARCH].label, word, sizeof word, NULL);
    for (uint32_t k = 0; k < book->count; ++k) {
        const uint32_t row = (start + k) % book->count;
        if (strstr(book->lines[row], word) == NULL) continue;
        vel_list_select(ctx, BROWSER_LINES, row);
        return;
    }
}

static void act(vel_context *ctx, struct book *book, uint32_t answer) {
    if (answer == BROWSER_NEXT) find_next(ctx, book);
    if (answer == BROWSER_FIRST) vel_list_select(ctx, BROWSER_LINES, 0);
    if (answer == BROWSER_LAST) vel_list_select(ctx, BROWSER_LINES, book->count - 1);
    if (answer == BROWSER_OPEN &&
        vel_choose_file(ctx, BROWSER_CHOOSE, book->path, sizeof book->path) == 1)
        read_book(ctx, book);
    vel_draw_all_objects(ctx, 0, 1);
}

int main(int count, char **arguments) {
    static struct book book;
    static vel_context ctx = {.idle_hook = end_when_asked, .open_flags = VEL_OPEN_RESIZABLE};
    signal(SIGTERM, on_signal);
    int32_t result = vel_open_display(&ctx, 640, 440, "Browser");
    if (result == VEL_OK) result = vel_load_forms_from_memory(&ctx, 0, 0, &BROWSER_FORM);
    if (result != VEL_OK) {
        fprintf(stderr, "browser: cannot start: %s: %s\n", vel_error_text(result), SDL_GetError());
        return 1;
    }
    ctx.application_a[0] = &book;
    snprintf(book.path, sizeof book.path, "%s", count == 2 ? arguments[1] : "");
    read_book(&ctx, &book);
    vel_draw_all_objects(&ctx, 1, 1);
    for (uint32_t answer; (answer = vel_wait_for_object(&ctx)) != 0 && answer != BROWSER_QUIT;)
        act(&ctx, &book, answer);
    free(book.text);
    free(book.lines);
    vel_close(&ctx);
    return 0;
}
