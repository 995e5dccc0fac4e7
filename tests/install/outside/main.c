/* Loads the form that is in it, from another folder, and ends with status 0 when the label has
 * arrived, and a picture of the frame.
 */
#define _POSIX_C_SOURCE 200809L
#include <string.h>
#include <unistd.h>

#include <velumo.h>

#include "outside.h"
#include "second.h"

int main(void) {
    static vel_context ctx;
    int is_there;
    if (chdir("/") != 0) return 1;
    if (vel_load_forms_from_memory(&ctx, 0, 0, &OUTSIDE_FORM) != VEL_OK) return 1;
    is_there = strcmp(ctx.objects[OUTSIDE_ANSWER].label, "Hello") == 0 &&
               ctx.objects[VEL_BUTTON_CLOSE].type == VEL_TYPE_PICTURE;
    is_there = is_there && SECOND_FORM.form_size != 0; /* two forms at once */
    vel_close(&ctx);
    return is_there ? 0 : 2;
}
