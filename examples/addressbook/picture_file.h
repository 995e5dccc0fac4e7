/* Which files are given to the decoders of pictures. */
#pragma once

/* Whether a regular file is a PNG, BMP or JPEG by its content, of at most 16 MiB and 8192 pixels a
 * side: the decoders of other formats do not withstand a damaged file, and a small file can hold a
 * picture that fills the memory. */
int is_sound_picture(const char *path);
