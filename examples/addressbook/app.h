/* The program: its state, and what its parts offer to each other. */
#pragma once

#include <velumo.h>

#include "addressbook.h"
#include "store.h"

typedef struct App {
    vel_context context;
    Store store;
    Contact card;                /* the contact on the right, as it is on disk */
    Contact deleted;             /* what was deleted last, to be brought back */
    Field picture;               /* file of the picture shown, perhaps not saved yet */
    SDL_Surface *nobody;         /* shown instead of a picture */
    char query[VEL_STRING_SIZE]; /* what the list was searched for last */
    int is_ending;
} App;

/* main.c */
int must_end(void); /* a signal has asked for it: nobody is there to answer questions */

/* screen.c; texts are UTF-8 */
const char *start_display(vel_context *ctx); /* returns what went wrong, or null */
void draw(App *app);
void set_label(App *app, uint32_t object, const char *text);
void set_text(App *app, uint32_t object, const char *text);
void show(App *app, uint32_t window, uint32_t ok);
int tell(App *app, const char *text);                                 /* returns 0 */
int ask(App *app, const char *text, const char *yes, const char *no); /* 1, 0; -1 = neither */
void say(const char *done, int64_t number, const char *what); /* on standard output, one line */
int report(App *app, const char *done, int64_t number, const char *what); /* returns 1 */

/* book_list.c */
void load_list(App *app); /* after a change on disk */
void search_list(App *app);
int select_card(App *app);          /* its row; returns 1 */
int64_t selected_contact(App *app); /* 0 = none */

/* card.c; these return 1 when they have done it */
int leave_card(App *app); /* asks about unsaved input; 0 = the user stays */
int open_card(App *app, int64_t id);
int new_card(App *app);
int save_card(App *app);
int delete_card(App *app);
int undo_delete(App *app);
int show_picture(App *app, const char *path); /* 0 = there is none, as for "" */

void act(App *app, uint32_t object); /* actions.c */
