#include "window/dialogs.h"

#include "render/scene.h"
#include "window/activation.h"
#include "window/focus.h"
#include "window/selection.h"

namespace velumo {

u32 ask_in_window(vel_context &ctx, u32 window, u32 answer_a, u32 answer_b) {
    const Reach reach = reach_of_selection(answer_a, answer_b, true);
    const u32 focus = ctx.cursor_object;
    activate(ctx, window);
    if (has_comfort(ctx, VEL_COMFORT_KEYBOARD)) focus_answer(ctx, reach);
    show_all(ctx);
    const u32 answer = select_either(ctx, reach);
    if (!has_objects(ctx)) return answer;
    close_window(ctx, 0);
    if (has_comfort(ctx, VEL_COMFORT_KEYBOARD)) return_focus(ctx, focus);
    return answer;
}

} // namespace velumo
