// What the window routines share. For window management and the waiting loop.
#pragma once

#include "model/objects.h"

namespace velumo {

inline constexpr u32 buttons_of_full_frame[] = {1, 2, 3, 4, 5, 6, 7};
inline constexpr u32 buttons_of_reduced_frame[] = {VEL_BUTTON_MOVE, VEL_BUTTON_CLOSE};

// Frame buttons that a window of a kind has, as far as the table has them.
inline std::span<const u32> buttons_of_frame(const vel_context &ctx, u32 kind) {
    std::span<const u32> buttons;
    if (kind == VEL_WINDOW_FULL) buttons = buttons_of_full_frame;
    if (kind == VEL_WINDOW_REDUCED) buttons = buttons_of_reduced_frame;
    const auto end = std::upper_bound(buttons.begin(), buttons.end(), frame_button_count(ctx));
    return {buttons.begin(), end};
}

// Objects that vel_select_window gives the text cursor to.
inline bool takes_cursor(const vel_object &o) {
    return o.editable == 1 &&
           (o.type == VEL_TYPE_ENTRY || o.type == VEL_TYPE_NUMBER || o.type == VEL_TYPE_WINDOW ||
            o.type == VEL_TYPE_TEXT || o.type == VEL_TYPE_CHAIN);
}

// Full redraw of the screen, without formatting.
inline void redraw(vel_context &ctx) { vel_draw_all_objects(&ctx, 0, 1); }

inline void undraw_marks(vel_context &ctx, u32 window) {
    vel_undraw_selected_box(&ctx, window);
    vel_undraw_selected_lines(&ctx, window);
}

} // namespace velumo
