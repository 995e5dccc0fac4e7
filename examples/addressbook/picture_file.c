#include "picture_file.h"

#include <stdio.h>
#include <string.h>
#include <sys/stat.h>

enum { LARGEST_FILE = 16 << 20, LONGEST_SIDE = 8192, HEAD = 26 };

static int is_side(long pixels) { return pixels > 0 && pixels <= LONGEST_SIDE; }

/* Big-endian, as in PNG and JPEG. */
static long number_at(const unsigned char *at, int size) {
    long number = 0;
    for (int k = 0; k < size; ++k) number = number << 8 | at[k];
    return number;
}

static int is_sound_bmp(const unsigned char *head) {
    long sides[2];
    for (int k = 0; k < 2; ++k) {
        const unsigned char *const at = head + 18 + 4 * k;
        sides[k] = at[0] | at[1] << 8 | at[2] << 16;
        if (at[3] == 0xff && k == 1) sides[k] = (1 << 24) - sides[k]; /* from top to bottom */
        if (at[3] != 0 && (at[3] != 0xff || k == 0)) return 0;
    }
    return is_side(sides[0]) && is_side(sides[1]);
}

/* Goes from segment to segment up to the one with the sides. */
static int is_sound_jpeg(FILE *file) {
    unsigned char segment[4], frame[5];
    fseek(file, 2, SEEK_SET);
    while (fread(segment, sizeof segment, 1, file) == 1 && segment[0] == 0xff) {
        const int kind = segment[1];
        const long size = number_at(segment + 2, 2);
        const int is_frame = kind >= 0xc0 && kind <= 0xcf && kind != 0xc4 && kind != 0xc8;
        if (is_frame) {
            return fread(frame, sizeof frame, 1, file) == 1 && is_side(number_at(frame + 1, 2)) &&
                   is_side(number_at(frame + 3, 2));
        }
        if (size < 2 || fseek(file, size - 2, SEEK_CUR) != 0) return 0;
    }
    return 0;
}

int is_sound_picture(const char *path) {
    unsigned char head[HEAD] = "";
    struct stat status;
    if (stat(path, &status) != 0 || !S_ISREG(status.st_mode)) return 0;
    FILE *const file = status.st_size <= LARGEST_FILE ? fopen(path, "r") : NULL;
    if (file == NULL) return 0;
    int is_sound = fread(head, HEAD, 1, file) == 1;
    if (is_sound && memcmp(head, "\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16) == 0) {
        is_sound = is_side(number_at(head + 16, 4)) && is_side(number_at(head + 20, 4));
    } else if (is_sound && memcmp(head, "BM", 2) == 0) {
        is_sound = is_sound_bmp(head);
    } else {
        is_sound = is_sound && memcmp(head, "\xff\xd8", 2) == 0 && is_sound_jpeg(file);
    }
    fclose(file);
    return is_sound;
}
