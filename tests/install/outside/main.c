/* Loads a form of one object that it writes itself, and tells by its exit status whether the record
   arrived. */
#include <stdio.h>
#include <string.h>

#include <velumo.h>

static int write_form(const char *path) {
    unsigned char record[sizeof(vel_object_file_rec)];
    FILE *file = fopen(path, "wb");
    if (file == NULL) return 0;
    memset(record, 0, sizeof record);
    record[8] = 120; /* width */
    record[12] = 45; /* height */
    return fwrite(record, sizeof record, 1, file) == 1 && fclose(file) == 0;
}

int main(void) {
    static vel_context ctx;
    const char *const form = "outside.form";
    int32_t result;

    if (strcmp(vel_error_text(VEL_OK), vel_error_text(VEL_ERROR_FORM_FILE)) == 0) return 1;
    if (vel_load_forms(&ctx, 0, 0, "no such file", "") != VEL_ERROR_FORM_FILE) return 2;
    if (!write_form(form)) return 3;
    result = vel_load_forms(&ctx, 0, 0, form, "");
    remove(form);
    if (result != VEL_OK) return 4;
    if (ctx.object_count != 1 || ctx.objects[1].width != 120 || ctx.objects[1].height != 45)
        return 5;
    vel_close(&ctx);
    return 0;
}
