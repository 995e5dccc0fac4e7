/* Prints what the user does, a line for each action, so that it can be followed from outside. */
#ifndef REPORT_H
#define REPORT_H

#include <velumo.h>

/* What was printed last. */
struct report {
    uint32_t active, frame_mode, cursor;
    uint32_t x, y, width, height, scroll_x, scroll_y;
    char name[VEL_STRING_SIZE], street[VEL_STRING_SIZE], amount[VEL_STRING_SIZE];
    char remark[VEL_TEXT_SIZE];
};

/* Prints what has changed since the last call. */
void report_changes(const vel_context *ctx, struct report *last);

/* Prints an object that was clicked on. */
void report_click(uint32_t object);

#endif
