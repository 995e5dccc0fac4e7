/* The card on the right: one contact with its picture, as it is typed and as it is on disk. */
#include <SDL_image.h>
#include <stdio.h>
#include <string.h>

#include "app.h"
#include "picture_file.h"

static const uint32_t entries[] = {
    [NAME] = ADDRESSBOOK_NAME,           [STREET] = ADDRESSBOOK_STREET,
    [POST_CODE] = ADDRESSBOOK_POST_CODE, [TOWN] = ADDRESSBOOK_TOWN,
    [TELEPHONE] = ADDRESSBOOK_TELEPHONE, [EMAIL] = ADDRESSBOOK_EMAIL,
};
enum { ENTRIES = sizeof entries / sizeof *entries };

/* Makes each pixel the mean of step x step pixels; all of them have four bytes. */
static void shrink(const SDL_Surface *from, SDL_Surface *to, int step) {
    for (int y = 0; y < to->h; ++y) {
        for (int byte = 0; byte < 4 * to->w; ++byte) {
            const Uint8 *const start = (const Uint8 *)from->pixels + byte / 4 * 4 * step + byte % 4;
            int sum = 0;
            for (int k = 0; k < step * step; ++k) {
                sum += start[(y * step + k / step) * from->pitch + k % step * 4];
            }
            ((Uint8 *)to->pixels)[y * to->pitch + byte] = (Uint8)(sum / (step * step));
        }
    }
}

/* In the display's format, and smaller by a whole factor when it would not fit. */
static SDL_Surface *load_picture(const char *path, int width, int height) {
    SDL_Surface *const file = is_sound_picture(path) ? IMG_Load(path) : NULL;
    SDL_Surface *const whole = file == NULL ? NULL : SDL_DisplayFormat(file);
    SDL_Surface *small = NULL;
    int step = 1;
    while (whole != NULL && (whole->w / step > width || whole->h / step > height)) ++step;
    if (whole != NULL && whole->w >= step && whole->h >= step) {
        const SDL_PixelFormat *const f = whole->format;
        small = SDL_CreateRGBSurface(SDL_SWSURFACE, whole->w / step, whole->h / step, 32, f->Rmask,
                                     f->Gmask, f->Bmask, 0);
        if (small != NULL) shrink(whole, small, step);
    }
    SDL_FreeSurface(whole);
    SDL_FreeSurface(file);
    return small;
}

int show_picture(App *app, const char *path) {
    const vel_object *const frame = &app->context.objects[ADDRESSBOOK_PORTRAIT_FRAME];
    vel_object *const o = &app->context.objects[ADDRESSBOOK_PORTRAIT];
    if (path != app->picture) snprintf(app->picture, sizeof app->picture, "%s", path);
    if (app->nobody == NULL) app->nobody = o->image;
    if (o->image != app->nobody) SDL_FreeSurface(o->image);
    SDL_Surface *const picture = load_picture(path, (int)frame->width - 4, (int)frame->height - 4);
    o->image = picture != NULL ? picture : app->nobody;
    if (o->image == NULL) return 0; /* the form's own is missing */
    o->width = (uint32_t)o->image->w;
    o->height = (uint32_t)o->image->h;
    o->x = frame->x + (frame->width - o->width) / 2;
    o->y = frame->y + (frame->height - o->height) / 2;
    return picture != NULL;
}

static Contact read_card(App *app) {
    const vel_context *const ctx = &app->context;
    const vel_object *const notes = &ctx->objects[ADDRESSBOOK_NOTES];
    Contact contact = {app->card.id, {""}};
    for (int k = 0; k < ENTRIES; ++k) {
        vel_to_utf8(ctx->objects[entries[k]].label, contact.field[k], FIELD_SIZE, NULL);
    }
    vel_to_utf8(ctx->text_recs[notes->text_index].text, contact.field[NOTES], FIELD_SIZE, NULL);
    memcpy(contact.field[PICTURE], app->picture, FIELD_SIZE);
    return contact;
}

/* A contact that is not quite what the card can hold would be cut off when it is saved again. */
static int fits(App *app) {
    const Contact shown = read_card(app);
    for (int k = 0; k < FIELD_COUNT; ++k) {
        if (strcmp(shown.field[k], app->card.field[k]) != 0) return 0;
    }
    return 1;
}

static int show_card(App *app, const Contact *contact) {
    app->card = *contact;
    for (int k = 0; k < ENTRIES; ++k) set_label(app, entries[k], contact->field[k]);
    set_text(app, ADDRESSBOOK_NOTES, contact->field[NOTES]);
    show_picture(app, contact->field[PICTURE]);
    return select_card(app);
}

int open_card(App *app, int64_t id) {
    Contact contact;
    if (!store_load(&app->store, id, &contact)) return tell(app, app->store.message);
    show_card(app, &contact);
    if (fits(app)) return 1;
    new_card(app);
    return tell(app, "This contact has signs or lengths that cannot be shown here.");
}

int new_card(App *app) {
    static const Contact none;
    app->context.cursor_object = ADDRESSBOOK_NAME;
    return show_card(app, &none);
}

int save_card(App *app) {
    Contact contact = read_card(app);
    if (!store_save(&app->store, &contact)) return tell(app, app->store.message);
    app->card = contact;
    load_list(app);
    return report(app, "Saved", contact.id, contact.field[NAME]);
}

int leave_card(App *app) {
    if (fits(app)) return 1;
    const int answer =
        ask(app, "The changes to this contact have not been saved.", "Save", "Discard");
    return answer == 0 || (answer == 1 && save_card(app));
}

int delete_card(App *app) {
    const Contact contact = app->card;
    if (contact.id == 0) return tell(app, "Please choose a contact from the list first.");
    if (ask(app, "Delete this contact?", "Delete", "Keep") != 1) return 0;
    if (!store_run(&app->store, NULL, NULL, "DELETE FROM contact WHERE id = %lld", contact.id)) {
        return tell(app, app->store.message);
    }
    app->deleted = contact;
    new_card(app);
    load_list(app);
    return report(app, "Deleted", contact.id, contact.field[NAME]);
}

int undo_delete(App *app) {
    if (app->deleted.id == 0) return tell(app, "There is no deleted contact.");
    if (!store_save(&app->store, &app->deleted)) return tell(app, app->store.message);
    show_card(app, &app->deleted);
    app->deleted.id = 0;
    load_list(app);
    return report(app, "Restored", app->card.id, app->card.field[NAME]);
}
