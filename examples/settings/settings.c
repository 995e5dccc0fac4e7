/* Settings that are checked before they are saved, in a form that is the whole X window. */
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <velumo.h>

#include "settings.h"

static volatile sig_atomic_t must_end;
static void on_signal(int number) { must_end = number; }

static void end_when_asked(vel_context *ctx) {
    SDL_Event quit = {.type = SDL_QUIT};
    (void)ctx;
    if (must_end) SDL_PushEvent(&quit);
}

static const char *text_of(const vel_context *ctx, uint32_t field) {
    return ctx->objects[field].label;
}

/* The first field that is wrong; 0 for none. */
static uint32_t fault_in(const vel_context *ctx, const char **fault) {
    const int port = atoi(text_of(ctx, SETTINGS_PORT));
    *fault = "The name is missing.";
    if (*text_of(ctx, SETTINGS_NAME) == '\0') return SETTINGS_NAME;
    *fault = "The address needs a dot, as in mail.example.org.";
    if (strchr(text_of(ctx, SETTINGS_ADDRESS), '.') == NULL) return SETTINGS_ADDRESS;
    *fault = "The port is a number from 1 to 65535.";
    return port < 1 || port > 65535 ? SETTINGS_PORT : 0;
}

static void save(vel_context *ctx) {
    printf("name=%s\naddress=%s\nport=%s\nuser=%s\nevery=%u\nsecure=%u\nsound=%u\n",
           text_of(ctx, SETTINGS_NAME), text_of(ctx, SETTINGS_ADDRESS),
           text_of(ctx, SETTINGS_PORT), text_of(ctx, SETTINGS_USER),
           vel_list_selected(ctx, SETTINGS_EVERY, 0), vel_get_checked(ctx, SETTINGS_SECURE),
           vel_get_checked(ctx, SETTINGS_SOUND));
}

int main(void) {
    static vel_context ctx = {.idle_hook = end_when_asked, .open_flags = VEL_OPEN_RESIZABLE};
    const char *fault = NULL;
    uint32_t answer, field = 0;
    int32_t result;
    signal(SIGTERM, on_signal);
    result = vel_open_display(&ctx, 420, 360, "Settings");
    if (result == VEL_OK) result = vel_load_forms_from_memory(&ctx, 0, 0, &SETTINGS_FORM);
    if (result != VEL_OK) return fprintf(stderr, "settings: %s\n", vel_error_text(result)), 1;
    vel_draw_all_objects(&ctx, 1, 1);
    while ((answer = vel_wait_for_object(&ctx)) != 0 && answer != SETTINGS_CANCEL) {
        if (answer != SETTINGS_SAVE) continue;
        if ((field = fault_in(&ctx, &fault)) == 0) break;
        vel_load_window_text(&ctx, SETTINGS_NOTICE, fault);
        vel_notice_window(&ctx, SETTINGS_NOTICE, SETTINGS_OK);
        ctx.cursor_object = field;
        vel_draw_all_objects(&ctx, 0, 1);
    }
    if (answer == SETTINGS_SAVE) save(&ctx);
    vel_close(&ctx);
    return 0;
}
