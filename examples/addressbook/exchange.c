/* Contacts as comma-separated values, as RFC 4180 has them, in UTF-8 with a header line. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include "store.h"

static const char header[] = "Name,Street,Postcode,Town,Telephone,Email,Notes,Picture";

typedef struct Reader {
    Store *store;
    FILE *file;
    int line, begin; /* where it reads, and where the record began */
} Reader;
enum { PROBLEM = EOF - 1, LARGEST_FILE = 16 << 20 };

static int fail(Reader *reader, const char *problem) {
    char message[500];
    snprintf(message, sizeof message, "Line %d: %s", reader->begin, problem);
    store_fail(reader->store, message);
    return PROBLEM;
}

/* A line may end with a line feed alone. */
static int next(Reader *reader) {
    int c = getc(reader->file);
    if (c == '\r' && (c = getc(reader->file)) != '\n') ungetc(c, reader->file), c = '\r';
    reader->line += c == '\n';
    return c;
}

static int ends_field(int c) { return c == ',' || c == '\n' || c == EOF; }

/* Returns what ended the field. */
static int read_field(Reader *reader, char *field) {
    size_t length = 0;
    int c = next(reader);
    const int is_quoted = c == '"';
    if (is_quoted) c = next(reader);
    for (; is_quoted || !ends_field(c); c = next(reader)) {
        if (c == '"' && !is_quoted)
            return fail(reader, "There is a quotation mark inside a field.");
        if (c == '"' && (c = next(reader)) != '"') break;
        if (c == EOF) return fail(reader, "A quotation mark is not closed.");
        if (c == 0) return fail(reader, "This is not a text file.");
        if (length == FIELD_SIZE - 1) return fail(reader, "A field is too long.");
        field[length++] = (char)c;
    }
    field[length] = 0;
    return ends_field(c) ? c : fail(reader, "A comma is missing after a quotation mark.");
}

/* Returns 1; 0 at the end of the file, and PROBLEM. */
static int read_record(Reader *reader, Field *fields) {
    int count = 0, end = EOF;
    do { /* empty lines are skipped */
        reader->begin = reader->line;
        end = read_field(reader, fields[0]);
    } while (end == '\n' && fields[0][0] == 0);
    if (end == EOF && fields[0][0] == 0) {
        return ferror(reader->file) ? fail(reader, "The file cannot be read.") : 0;
    }
    while (end == ',' && ++count < FIELD_COUNT) end = read_field(reader, fields[count]);
    if (end == PROBLEM) return PROBLEM;
    return count == FIELD_COUNT - 1 ? 1 : fail(reader, "There must be eight fields.");
}

/* Returns the number of contacts, or PROBLEM. Skips a byte order mark. */
static int read_contacts(Reader *reader) {
    Contact contact;
    char line[sizeof header + 6] = "";
    int count = 0, result = 0;
    if (fgets(line, sizeof line, reader->file) != NULL) line[strcspn(line, "\r\n")] = 0;
    if (strcmp(line + (memcmp(line, "\xef\xbb\xbf", 3) == 0 ? 3 : 0), header) != 0) {
        return fail(reader,
                    "This line must be: Name,Street,Postcode,Town,Telephone,Email,Notes,Picture");
    }
    for (++reader->line; (result = read_record(reader, contact.field)) == 1; ++count) {
        contact.id = 0;
        if (store_must_stop(reader->store)) return fail(reader, "The import was ended.");
        if (!store_save(reader->store, &contact)) return fail(reader, reader->store->message);
    }
    return result == 0 ? count : PROBLEM;
}

int import_contacts(Store *store, const char *path) {
    struct stat status;
    /* Anything but a file, a pipe for one, could let the program wait. */
    const int is_file = stat(path, &status) == 0 && S_ISREG(status.st_mode);
    if (is_file && status.st_size > LARGEST_FILE) {
        return store_fail(store, "The file is larger than 16 MiB.") - 1;
    }
    Reader reader = {store, is_file ? fopen(path, "r") : NULL, 1, 1};
    if (reader.file == NULL) return store_fail(store, "The file cannot be read.") - 1;
    int count = store_run(store, NULL, NULL, "BEGIN IMMEDIATE") ? read_contacts(&reader) : PROBLEM;
    if (count >= 0 && !store_run(store, NULL, NULL, "COMMIT")) count = PROBLEM;
    if (count < 0) sqlite3_exec(store->database, "ROLLBACK", NULL, NULL, NULL);
    fclose(reader.file);
    return count;
}

static int write_row(void *file, int count, char **values, char **names) {
    return count != 1 || values[0] == NULL || fprintf(file, "%s\r\n", values[0]) < 0;
}

/* Writes a new file and puts it in the place of the old one when it is whole. */
int export_contacts(Store *store, const char *path) {
    char draft[FIELD_SIZE + 8] = "";
    snprintf(draft, sizeof draft, "%s.XXXXXX", path);
    const int descriptor = mkstemp(draft);
    FILE *const file = descriptor < 0 ? NULL : fdopen(descriptor, "w");
    store_fail(store, "The file cannot be written.");
    if (file == NULL) return 0;
    fprintf(file, "%s\r\n", header);
    int is_done =
        store_run(store, write_row, file,
                  "SELECT printf('\"%%w\",\"%%w\",%%s,\"%%w\",\"%%w\",\"%%w\",\"%%w\",\"%%w\"', "
                  "name, street, post_code, town, telephone, email, notes, picture) "
                  "FROM contact ORDER BY book_order(name), name, id");
    is_done = is_done && fflush(file) == 0 && !ferror(file) && fsync(descriptor) == 0;
    fclose(file);
    if (is_done && rename(draft, path) == 0) return 1;
    unlink(draft);
    return 0;
}
