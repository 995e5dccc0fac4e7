/* Settings that are checked before they are accepted, in a form that is the whole X window. */
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "settings.h"
#include <velumo.h>

/* Before SDL starts, whose own handlers are not made for a storm of signals. */
static volatile sig_atomic_t must_end;
static void on_signal(int number) { must_end = number; }
static void end_when_asked(vel_context *ctx) {
    SDL_Event quit = {.type = SDL_QUIT};
    if (ctx != NULL && must_end) SDL_PushEvent(&quit);
}

/* The first field that is wrong; 0 for none. */
static uint32_t fault_in(const vel_context *ctx, const char **fault) {
    const int port = atoi(ctx->objects[SETTINGS_PORT].label);
    *fault = "The name is missing.";
    if (ctx->objects[SETTINGS_NAME].label[0] == '\0') return SETTINGS_NAME;
    *fault = "The server needs a dot, as in mail.example.org.";
    if (strchr(ctx->objects[SETTINGS_SERVER].label, '.') == NULL) return SETTINGS_SERVER;
    *fault = "The port is a number from 1 to 65535.";
    return port < 1 || port > 65535 ? SETTINGS_PORT : 0;
}

/* Tells the user what is wrong and puts the cursor there; 1 if nothing is. */
static int check(vel_context *ctx) {
    const char *fault = NULL;
    const uint32_t field = fault_in(ctx, &fault);
    if (field == 0) return 1;
    vel_load_window_text(ctx, SETTINGS_NOTICE, fault);
    vel_notice_window(ctx, SETTINGS_NOTICE, SETTINGS_OK);
    ctx->cursor_object = field;
    vel_draw_all_objects(ctx, 0, 1);
    return 0;
}

int main(void) {
    static vel_context ctx = {.idle_hook = end_when_asked, .open_flags = VEL_OPEN_RESIZABLE};
    uint32_t hit;
    signal(SIGTERM, on_signal);
    int32_t result = vel_open_display(&ctx, 420, 350, "Settings");
    if (result == VEL_OK) result = vel_load_forms_from_memory(&ctx, 0, 0, &SETTINGS_FORM);
    if (result != VEL_OK) {
        fprintf(stderr, "settings: cannot start: %s: %s\n", vel_error_text(result), SDL_GetError());
        return 1;
    }
    vel_draw_all_objects(&ctx, 1, 1);
    do hit = vel_wait_for_object(&ctx);
    while (hit != 0 && hit != SETTINGS_CANCEL && (hit != SETTINGS_SAVE || !check(&ctx)));
    if (hit == SETTINGS_SAVE)
        printf("%s, %s:%s, row %u, encrypted %u\n", ctx.objects[SETTINGS_NAME].label,
               ctx.objects[SETTINGS_SERVER].label, ctx.objects[SETTINGS_PORT].label,
               vel_list_selected(&ctx, SETTINGS_EVERY, 0), vel_get_checked(&ctx, SETTINGS_SECURE));
    vel_close(&ctx);
    return 0;
}
