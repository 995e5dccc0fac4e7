/* Loads its form, and ends with status 0 when the label has arrived. */
#include <string.h>

#include <velumo.h>

#include "outside.h"

int main(void) {
    static vel_context ctx;
    int is_there;
    if (vel_load_forms(&ctx, 0, 0, "outside.form", "outside.text") != VEL_OK) return 1;
    is_there = strcmp(ctx.objects[OUTSIDE_ANSWER].label, "Hello") == 0;
    vel_close(&ctx);
    return is_there ? 0 : 2;
}
