/* Shows the lines of a text file in a list, finds words in them and keeps a note with the file. */
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <velumo.h>

#include "browser.h"

/* What the program keeps; it hangs on the context. */
struct book {
    char path[4096], note_path[4096 + 8];
    char *text;   /* with a NUL for each line end */
    char **lines; /* where they begin in it */
    uint32_t count;
};

static volatile sig_atomic_t must_end;
static void on_signal(int number) { must_end = number; }

static void end_when_asked(vel_context *ctx) {
    SDL_Event quit = {.type = SDL_QUIT};
    (void)ctx;
    if (must_end) SDL_PushEvent(&quit);
}

static struct book *book_of(const vel_context *ctx) { return ctx->application_a[0]; }

static void show_line(vel_context *ctx, uint32_t list, uint32_t row, uint32_t column,
                      vel_cell *cell) {
    (void)list;
    if (column == 0) snprintf(cell->text, sizeof cell->text, "%u", row + 1);
    if (column == 1)
        vel_from_utf8(book_of(ctx)->lines[row], cell->text, sizeof cell->text, NULL);
}

/* Splits the text of the book into its lines. */
static int split(struct book *book) {
    char *at = book->text;
    uint32_t room = 1;
    for (; *at != '\0'; ++at) room += *at == '\n';
    free(book->lines);
    book->lines = malloc(room * sizeof *book->lines);
    book->count = 0;
    if (book->lines == NULL) return 0;
    for (at = strtok(book->text, "\n"); at != NULL; at = strtok(NULL, "\n"))
        book->lines[book->count++] = at;
    return 1;
}

static void read_book(vel_context *ctx) {
    struct book *book = book_of(ctx);
    char *note;
    char *text = vel_read_external_stream(book->path);
    if (text == NULL) return;
    free(book->text);
    book->text = text;
    if (!split(book)) return;
    snprintf(book->note_path, sizeof book->note_path, "%s.note", book->path);
    note = vel_read_external_stream(book->note_path);
    vel_load_window_text(ctx, BROWSER_NOTE, note != NULL ? note : "");
    vel_reset_textobject(ctx, 1, BROWSER_NOTE);
    free(note);
    vel_list_show(ctx, BROWSER_LINES, book->count, show_line);
}

static void write_note(const vel_context *ctx) {
    FILE *file = *book_of(ctx)->note_path != '\0' ? fopen(book_of(ctx)->note_path, "w") : NULL;
    if (file == NULL) return;
    fputs(ctx->text_recs[BROWSER_NOTE_TEXT].text, file);
    fclose(file);
}

static void find_next(vel_context *ctx) {
    const struct book *book = book_of(ctx);
    const uint32_t from = vel_list_selected(ctx, BROWSER_LINES, 0);
    char word[2 * VEL_STRING_SIZE];
    uint32_t k;
    vel_to_utf8(ctx->objects[BROWSER_SEARCH].label, word, sizeof word, NULL);
    for (k = 1; k <= book->count; ++k) {
        const uint32_t row = (from + k) % book->count; /* no row and 1 is 0 */
        if (strstr(book->lines[row], word) == NULL) continue;
        vel_list_select(ctx, BROWSER_LINES, row);
        return;
    }
}

static int act(vel_context *ctx, uint32_t answer) {
    struct book *book = book_of(ctx);
    if (answer == BROWSER_NEXT) find_next(ctx);
    if (answer == BROWSER_FIRST) vel_list_select(ctx, BROWSER_LINES, 0);
    if (answer == BROWSER_LAST) vel_list_select(ctx, BROWSER_LINES, book->count - 1);
    if (answer == BROWSER_OPEN) {
        write_note(ctx);
        if (vel_choose_file(ctx, BROWSER_CHOOSE, book->path, sizeof book->path) == 1) read_book(ctx);
    }
    vel_draw_all_objects(ctx, 0, 1);
    return answer != 0 && answer != BROWSER_QUIT;
}
