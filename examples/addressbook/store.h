/* The contacts: on disk in one SQLite file, as a sorted list in memory, in and out as CSV. */
#pragma once

#include <signal.h>
#include <sqlite3.h>
#include <stdint.h>

enum { NAME, STREET, POST_CODE, TOWN, TELEPHONE, EMAIL, NOTES, PICTURE, FIELD_COUNT };
/* The longest field, the notes: 999 characters of up to two bytes, and a NUL. */
enum { FIELD_SIZE = 2000 };

typedef char Field[FIELD_SIZE]; /* UTF-8 */

typedef struct Contact {
    int64_t id; /* 0 = not stored yet */
    Field field[FIELD_COUNT];
} Contact;

typedef struct Store {
    sqlite3 *database;
    const volatile sig_atomic_t *stop; /* null, or what ends all work when it is no longer 0 */
    int64_t deadline;                  /* of what is being run, in milliseconds */
    char message[400]; /* why the last function that returned 0 did so, for the user */
} Store;

/* These return 1 when all is done and on disk, or 0 and leave the file as it was. */
int store_open(Store *store, const char *path);
int store_load(Store *store, int64_t id, Contact *contact);
int store_save(Store *store, Contact *contact); /* a new contact gets its id */
/* Runs SQL made as by sqlite3_mprintf, all of it or nothing; visits rows as sqlite3_exec does. */
int store_run(Store *store, sqlite3_callback visit, void *receiver, const char *format, ...);
int store_read_number(void *number, int count, char **values, char **names); /* one value */
int store_must_stop(const Store *store);
int store_fail(Store *store, const char *why); /* leaves the message and returns 0 */

/* The table 'found' has id, name and town of what was found, as a telephone book sorts them. */
int store_sort(Store *store); /* to be called after changes, before searching */
int store_search(Store *store, const char *words, int64_t *count); /* each begins a word */

/* exchange.c: files of comma-separated values */
int import_contacts(Store *store, const char *path); /* how many; negative = none */
int export_contacts(Store *store, const char *path); /* 1, or 0 and an old file is as it was */
