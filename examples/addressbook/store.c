#include "store.h"

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <time.h>

#include "text.h"

/* A damaged or hostile file must not keep the user waiting; numbers of characters, milliseconds. */
enum { LONGEST_TEXT = 1000000, LONGEST_RUN = 5000, STEPS_BETWEEN_LOOKS = 1000 };

/* schema.sql, made into a string by the build. */
static const char schema[] =
#include "schema.inc"
    ;

static const struct {
    int code;
    const char *text;
} problems[] = {
    {SQLITE_BUSY, "Another program has locked the address book."},
    {SQLITE_READONLY, "The address book is read-only."},
    {SQLITE_CORRUPT, "The file is damaged."},
    {SQLITE_NOTADB, "The file is damaged or not an address book."},
    {SQLITE_CANTOPEN, "The file cannot be opened."},
    {SQLITE_FULL, "The disk is full."},
    {SQLITE_INTERRUPT, "This takes too long; the file may be damaged."},
    {SQLITE_TOOBIG, "The file holds a text that is too long."},
    {SQLITE_ABORT, "This contact is too long to be shown."},
    {SQLITE_AUTH, "The file is not an address book of this program."},
};

int store_fail(Store *store, const char *why) {
    snprintf(store->message, sizeof store->message, "%s", why);
    return 0;
}

/* SQLite reports a broken rule by its name, after a colon: the sentence for the user. */
static int fail_in_database(Store *store) {
    const int code = sqlite3_errcode(store->database);
    const char *const message = sqlite3_errmsg(store->database);
    const char *const colon = strstr(message, ": ");
    for (size_t k = 0; k < sizeof problems / sizeof *problems; ++k) {
        if (problems[k].code == code) return store_fail(store, problems[k].text);
    }
    return store_fail(store, code == SQLITE_CONSTRAINT && colon != NULL ? colon + 2 : message);
}

static int64_t now(void) {
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (int64_t)time.tv_sec * 1000 + time.tv_nsec / 1000000;
}

int store_must_stop(const Store *store) { return store->stop != NULL && *store->stop != 0; }

static int must_end(void *receiver) {
    const Store *const store = receiver;
    return store_must_stop(store) || now() > store->deadline;
}

int store_run(Store *store, sqlite3_callback visit, void *receiver, const char *format, ...) {
    const int was_changing = !sqlite3_get_autocommit(store->database);
    va_list arguments;
    va_start(arguments, format);
    char *const sql = sqlite3_vmprintf(format, arguments);
    va_end(arguments);
    if (sql == NULL) return store_fail(store, "There is not enough memory.");
    store->deadline = now() + LONGEST_RUN;
    const int is_done = sqlite3_exec(store->database, sql, visit, receiver, NULL) == SQLITE_OK ||
                        fail_in_database(store);
    sqlite3_free(sql);
    if (!is_done && !was_changing) sqlite3_exec(store->database, "ROLLBACK", NULL, NULL, NULL);
    return is_done;
}

int store_read_number(void *number, int count, char **values, char **names) {
    *(int64_t *)number = count == 1 && values[0] != NULL ? atoll(values[0]) : 0;
    return 0;
}

/* The SQL function book_order(text), so that queries sort as a telephone book does. */
static void book_order(sqlite3_context *result, int count, sqlite3_value **values) {
    const char *const text = (const char *)sqlite3_value_text(values[0]);
    char *const key = count == 1 && text != NULL ? make_sort_key(text) : NULL;
    sqlite3_result_text(result, key, -1, free);
}

static int read_message(void *store, int count, char **values, char **names) {
    return count == 1 && values[0] != NULL ? store_fail(store, values[0]) : 1;
}

/* An empty file becomes an address book; what is none is left alone. */
static int check_file(Store *store) {
    int64_t tables = 0;
    store_fail(store, "The file is damaged.");
    return store_run(store, store_read_number, &tables, "SELECT count(*) FROM sqlite_master") &&
           (tables != 0 || store_run(store, NULL, NULL, "%s", schema)) &&
           store_run(
               store, read_message, store,
               "SELECT CASE WHEN application_id <> 1447380034 OR user_version <> 1 "
               "OR NOT EXISTS (SELECT * FROM sqlite_master "
               "WHERE name = 'contact' AND type = 'table' AND rootpage > 0) "
               "OR (SELECT group_concat(name) FROM pragma_table_info('contact')) <> "
               "'id,name,street,post_code,town,telephone,email,notes,picture' "
               "THEN 'The file is not an address book of this program.' "
               "WHEN quick_check <> 'ok' THEN 'The file is damaged.' ELSE '' END "
               "FROM pragma_application_id, pragma_user_version, pragma_quick_check LIMIT 1") &&
           store->message[0] == 0;
}

/* Nothing that is written in the file runs: no trigger, no view, no function with effects. */
static void trust_nothing(Store *store) {
    static const struct {
        int option, value;
    } options[] = {
        {SQLITE_DBCONFIG_DEFENSIVE, 1},
        {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
        {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
        {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
    };
    for (size_t k = 0; k < sizeof options / sizeof *options; ++k) {
        sqlite3_db_config(store->database, options[k].option, options[k].value, NULL);
    }
    sqlite3_limit(store->database, SQLITE_LIMIT_LENGTH, LONGEST_TEXT);
    sqlite3_progress_handler(store->database, STEPS_BETWEEN_LOOKS, must_end, store);
}

int store_open(Store *store, const char *path) {
    struct stat status;
    if (stat(path, &status) == 0 && !S_ISREG(status.st_mode)) {
        return store_fail(store, "The file cannot be opened.");
    }
    if (sqlite3_open(path, &store->database) != SQLITE_OK) return fail_in_database(store);
    trust_nothing(store);
    sqlite3_busy_timeout(store->database, 500);
    sqlite3_create_function(store->database, "book_order", 1, SQLITE_UTF8 | SQLITE_DIRECTONLY, NULL,
                            book_order, NULL, NULL);
    /* EXTRA is FULL and syncs the folder as well: a change is on disk before it is reported. */
    return store_run(store, NULL, NULL,
                     "PRAGMA synchronous = EXTRA; PRAGMA temp_store = MEMORY; "
                     "PRAGMA cell_size_check = ON; PRAGMA mmap_size = 0") &&
           check_file(store);
}

static int read_contact(void *contact, int count, char **values, char **names) {
    Contact *const c = contact;
    store_read_number(&c->id, 1, values, names);
    for (int k = 0; k < FIELD_COUNT && k + 1 < count; ++k) {
        const char *const value = values[k + 1] != NULL ? values[k + 1] : "";
        if (strlen(value) >= FIELD_SIZE) return 1;
        strcpy(c->field[k], value);
    }
    return 0;
}

int store_load(Store *store, int64_t id, Contact *contact) {
    contact->id = 0;
    return store_run(store, read_contact, contact, "SELECT * FROM contact WHERE id = %lld", id) &&
           (contact->id != 0 || store_fail(store, "This contact no longer exists."));
}

int store_save(Store *store, Contact *contact) {
    const Field *const f = (const Field *)contact->field;
    if (!store_run(store, NULL, NULL,
                   "REPLACE INTO contact VALUES (nullif(%lld, 0), %Q, %Q, %Q, %Q, %Q, %Q, %Q, %Q)",
                   contact->id, f[NAME], f[STREET], f[POST_CODE], f[TOWN], f[TELEPHONE], f[EMAIL],
                   f[NOTES], f[PICTURE])) {
        return 0;
    }
    contact->id = sqlite3_last_insert_rowid(store->database);
    return 1;
}

/* Sorting by the bytes as well keeps 'ae' and 'ä' apart, and puts 'ae' first. */
int store_sort(Store *store) {
    return store_run(store, NULL, NULL,
                     "DROP TABLE IF EXISTS temp.book; CREATE TEMP TABLE book AS SELECT id, name, "
                     "town, ' ' || book_order(name || ' ' || street || ' ' || post_code || ' ' || "
                     "town || ' ' || telephone || ' ' || email || ' ' || notes) AS words "
                     "FROM contact ORDER BY book_order(name), name, id");
}

int store_search(Store *store, const char *words, int64_t *count) {
    return store_run(store, store_read_number, count,
                     "DROP TABLE IF EXISTS temp.found; CREATE TEMP TABLE found AS "
                     "WITH asked AS MATERIALIZED (SELECT ' ' || value AS word FROM "
                     "json_each('[\"' || replace(book_order(%Q), ' ', '\",\"') || '\"]')) "
                     "SELECT id, name, town FROM book WHERE NOT EXISTS "
                     "(SELECT * FROM asked WHERE instr(words, word) = 0) ORDER BY rowid;"
                     "SELECT count(*) FROM found",
                     words);
}
