#include "window/frame_buttons.h"

#include "render/geometry.h"
#include "render/marks.h"
#include "render/scene.h"

namespace velumo {
namespace {

constexpr u32 height_of_button_row = 24;

constexpr u32 buttons_of_full_frame[] = {1, 2, 3, 4, 5, 6, 7};
constexpr u32 buttons_of_reduced_frame[] = {VEL_BUTTON_MOVE, VEL_BUTTON_CLOSE};

// Frame buttons that a window of a kind has, as far as the table has them.
std::span<const u32> buttons_of_frame(const vel_context &ctx, u32 kind) {
    std::span<const u32> buttons;
    if (kind == VEL_WINDOW_FULL) buttons = buttons_of_full_frame;
    if (kind == VEL_WINDOW_REDUCED) buttons = buttons_of_reduced_frame;
    const auto end = std::upper_bound(buttons.begin(), buttons.end(), frame_button_count(ctx));
    return {buttons.begin(), end};
}

// The row ends at the right edge of the window; the reduced frame has its two buttons at the end.
u32 places_from_end(u32 button, u32 kind) {
    const bool next_to_last = kind == VEL_WINDOW_REDUCED && button == VEL_BUTTON_MOVE;
    return next_to_last ? 2 : VEL_FRAME_BUTTONS + 1 - button;
}

void place_button(vel_context &ctx, u32 button, const vel_object &window) {
    const u32 right = window.x + cut_size(ctx, window, horizontal);
    vel_object &o = object_at(ctx, button);
    o.hidden = 0;
    o.x = right - VEL_FRAME_BUTTON_SIZE * places_from_end(button, window.window_kind);
    o.y = window.y - height_of_button_row;
}

} // namespace

void place_frame_buttons(vel_context &ctx) {
    const vel_object &window = object_at(ctx, ctx.active_window);
    const bool has_window = !names_nothing(ctx, ctx.active_window) && window.hidden == 0;
    // On purpose: a plain window leaves the buttons where they were.
    if (has_window && window.window_kind >= VEL_WINDOW_PLAIN) return;
    for (u32 button = 1; button <= frame_button_count(ctx); ++button) {
        object_at(ctx, button).hidden = 1;
    }
    if (!has_window) return;
    for (const u32 button : buttons_of_frame(ctx, window.window_kind)) {
        place_button(ctx, button, window);
    }
}

void erase_frame(vel_context &ctx, u32 window) {
    erase_marks(ctx, window);
    for (const u32 button : buttons_of_frame(ctx, object_at(ctx, window).window_kind)) {
        if (object_at(ctx, button).hidden == 0) erase_object(ctx, button);
    }
}

void remove_frame(vel_context &ctx, u32 window) {
    erase_marks(ctx, window);
    for (const u32 button : buttons_of_frame(ctx, object_at(ctx, window).window_kind)) {
        erase_object(ctx, button);
        object_at(ctx, button).hidden = 1;
    }
}

void erase_frame_before_move(vel_context &ctx, u32 window) {
    erase_marks(ctx, window);
    const u32 kind = object_at(ctx, window).window_kind;
    for (const u32 button : buttons_of_frame(ctx, kind)) {
        const bool is_hidden = object_at(ctx, button).hidden != 0;
        // On purpose: with a full frame erasing stops at the first button that is hidden.
        if (is_hidden && kind == VEL_WINDOW_FULL) return;
        if (!is_hidden) erase_object(ctx, button);
    }
}

} // namespace velumo
