#include "text.h"

#include <stdlib.h>
#include <string.h>

/* What À to ß sort as, and à to ÿ but for the last; × and ÷ are blanks. */
static const char *const accented[] = {
    "a", "a", "a", "a", "ae", "a", "ae", "c", "e", "e", "e", "e", "i",  "i", "i",  "i",
    "d", "n", "o", "o", "o",  "o", "oe", " ", "o", "u", "u", "u", "ue", "y", "th", "ss",
};

/* The letters of the character at a place, and how many bytes it has; a blank for other signs. */
static const char *letters_at(const unsigned char *at, char *letter, int *size) {
    const int is_accented = at[0] == 0xc3 && (at[1] & 0xc0) == 0x80;
    *size = is_accented ? 2 : 1;
    if (is_accented) return at[1] == 0xbf ? "y" : accented[at[1] & 0x1f];
    *letter = (char)(*at >= 'A' && *at <= 'Z' ? *at - 'A' + 'a' : *at);
    if (strchr("abcdefghijklmnopqrstuvwxyz0123456789", *letter) == NULL) *letter = ' ';
    return letter;
}

char *make_sort_key(const char *text) {
    char *const key = malloc(2 * strlen(text) + 1);
    char *end = key;
    int size;
    for (; key != NULL && *text != 0; text += size) {
        char letter[2] = "";
        const char *letters = letters_at((const unsigned char *)text, letter, &size);
        if (*letters == ' ' && (end == key || end[-1] == ' ')) continue;
        while (*letters != 0) *end++ = *letters++;
    }
    if (key == NULL) return NULL;
    if (end != key && end[-1] == ' ') --end;
    *end = 0;
    return key;
}
