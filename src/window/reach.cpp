#include "window/reach.h"

#include "model/types.h"
#include "parts/part.h"

namespace velumo {
namespace {

bool is_among_answers(const Reach &reach, u32 number) {
    return number == reach.answers[0] || number == reach.answers[1];
}

bool is_clicked_answer(const vel_object &o) {
    switch (type_of(o).answer) {
    case Answer::always:
        return true;
    case Answer::unless_editable:
        return o.editable == 0;
    case Answer::at_top_level:
        return o.master == 0;
    case Answer::never:
        break;
    }
    return false;
}

} // namespace

bool is_frame_button(u32 number) { return number != 0 && number <= VEL_FRAME_BUTTONS; }

bool is_reachable(const vel_context &ctx, u32 number) {
    return is_drawable(object_at(ctx, number)) && is_enabled(ctx, number);
}

bool is_on_desktop(const vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    return o.master == 0 && o.type != VEL_TYPE_MENU && type_of(o).is_on_desktop &&
           is_reachable(ctx, number);
}

// What takes the cursor without being editable would be typed in when it had the focus.
bool is_key_answer(const vel_context &ctx, const Reach &reach, u32 number) {
    if (number == 0 || type_of(object_at(ctx, number)).takes_cursor) return false;
    if (is_part_with_keys(ctx, number)) return false;
    if (reach.selects) return is_among_answers(reach, number);
    return number == reach.on_enter || number == reach.on_escape ||
           traits_of(ctx, number).answer != VEL_ANSWER_NONE;
}

bool can_be_focused(const vel_context &ctx, const Reach &reach, u32 number) {
    return is_editable(object_at(ctx, number)) || is_key_answer(ctx, reach, number) ||
           is_part_with_keys(ctx, number);
}

bool ends_loop(const vel_context &ctx, const Reach &reach, u32 number) {
    return reach.selects ? is_among_answers(reach, number)
                         : is_clicked_answer(object_at(ctx, number));
}

} // namespace velumo
