/* How texts are sorted. */
#pragma once

/* What a German telephone book (DIN 5007-2) sorts UTF-8 by: words of small letters and digits with
 * one blank between two, umlauts as two letters. The caller frees it; null = out of memory. */
char *make_sort_key(const char *text);
