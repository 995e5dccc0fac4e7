/* Texts for the screen, which shows ISO 8859-1, and for files, which hold UTF-8. */
#pragma once

#include <stddef.h>

/* These cut what does not fit into size bytes; to_latin1 writes '?' for what it does not have. */
void to_latin1(const char *utf8, char *latin1, size_t size);
void to_utf8(const char *latin1, char *utf8, size_t size);

/* What a German telephone book (DIN 5007-2) sorts UTF-8 by: words of small letters and digits with
 * one blank between two, umlauts as two letters. The caller frees it; null = out of memory. */
char *make_sort_key(const char *text);
