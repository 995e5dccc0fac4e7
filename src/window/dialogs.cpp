#include "window/dialogs.h"

#include "render/scene.h"
#include "window/activation.h"
#include "window/selection.h"

namespace velumo {

u32 ask_in_window(vel_context &ctx, u32 window, u32 answer_a, u32 answer_b) {
    activate(ctx, window);
    show_all(ctx);
    const u32 answer = select_either(ctx, answer_a, answer_b);
    close_window(ctx, 0);
    return answer;
}

} // namespace velumo
