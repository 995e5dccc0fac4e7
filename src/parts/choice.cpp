#include "parts/choice.h"

#include <cstring>

#include "input/event_key.h"
#include "input/hit_test.h"
#include "model/following.h"
#include "model/traits.h"
#include "parts/list_part.h"
#include "parts/rows.h"
#include "parts/scroll_bar.h"
#include "parts/scrolling.h"
#include "parts/show.h"
#include "render/scene.h"
#include "text/layout.h"

namespace velumo {
namespace {

bool is_enter(SDLKey key) {
    return key == SDLK_RETURN || key == SDLK_KP_ENTER || key == SDLK_SPACE;
}

u32 menu_of_choice(const vel_context &ctx, u32 choice) {
    const u32 menu = object_at(ctx, choice).max_chars;
    const vel_object &o = object_at(ctx, menu);
    return menu != 0 && o.type == VEL_TYPE_MENU && o.master == 0 ? menu : 0;
}

u32 selected_row(const vel_context &ctx, u32 list) {
    const List *items = find_list(ctx, list);
    return items == nullptr ? VEL_NO_ROW : items->selected.next(0);
}

// The list below its field, or above it where there is no room, until something is chosen.
class OpenChoice {
public:
    OpenChoice(vel_context &ctx, u32 choice)
        : ctx_(ctx), choice_(choice), menu_(menu_of_choice(ctx, choice)),
          list_(list_of_choice(ctx, choice)), before_(selected_row(ctx, list_)) {}

    Press run() {
        place();
        object_at(ctx_, menu_).hidden = 0;
        if (before_ != VEL_NO_ROW) select_row(ctx_, list_, before_);
        show_part(ctx_, list_);
        while (!end_) pass();
        if (!has_objects(ctx_)) return Press::end_of_loop;
        if (is_cancelled_) select_row(ctx_, list_, before_);
        object_at(ctx_, menu_).hidden = 1;
        show_chosen(ctx_, choice_);
        show_all(ctx_);
        const bool is_changed = *end_ == Press::done && selected_row(ctx_, list_) != before_;
        return is_changed ? Press::changed : *end_;
    }

private:
    void place() {
        const vel_object &field = object_at(ctx_, choice_);
        vel_object &menu = object_at(ctx_, menu_);
        const i64 below = i64{as_signed(field.y)} + field.height;
        const i64 above = i64{as_signed(field.y)} - menu.height;
        const bool fits = below + menu.height <= ctx_.screen_height || above < 0;
        const Shift by{field.x - menu.x, as_field(fits ? below : above) - menu.y};
        shift_object(menu, by);
        follow_move(ctx_, menu_, by);
    }

    void pass() {
        switch (poll_event(ctx_)) {
        case Polled::end_of_loop:
            return finish(Press::end_of_loop, true);
        case Polled::quit:
            put_quit_back(ctx_);
            return finish(Press::quit, true);
        case Polled::nothing:
            return rest(ctx_);
        case Polled::event:
            break;
        }
        if (is_left_button(ctx_.event, Button::pressed)) return press();
        if (ctx_.event.type == SDL_MOUSEBUTTONDOWN) turn_wheel(ctx_.event.button.button);
        const bool is_key = ctx_.event.type == SDL_KEYDOWN;
        const bool is_motion = ctx_.event.type == SDL_MOUSEMOTION;
        const SDL_Event event = ctx_.event;
        consume_event(ctx_);
        if (is_key) follow_key(key_of(event));
        if (is_motion) follow_pointer(event.motion.x, event.motion.y);
    }

    void press() {
        const i64 x = ctx_.event.button.x, y = ctx_.event.button.y;
        const u32 under = dependent_under(ctx_, menu_, x, y);
        if (under == 0) {
            const Press end = drag(
                ctx_, [](i64, i64) {}, [] {});
            return finish(end, true);
        }
        const u32 bar = object_at(ctx_, list_).dep_objs[bar_of_list];
        const bool is_bar = under == bar || object_at(ctx_, under).master == bar;
        const Press end =
            is_bar && bar != 0 ? press_scroll_bar(ctx_, bar) : press_list(ctx_, list_, under);
        if (end == Press::quit || end == Press::end_of_loop) return finish(end, true);
        if (end == Press::changed) finish(Press::done, false);
    }

    void turn_wheel(u8 button) {
        const bool is_up = button == SDL_BUTTON_WHEELUP;
        if (!is_up && button != SDL_BUTTON_WHEELDOWN) return;
        Scrollable scrollable(ctx_, list_, vertical);
        scrollable.move(is_up ? Direction::forward : Direction::back, scrollable.notch());
        show_part(ctx_, list_);
    }

    void follow_pointer(i64 x, i64 y) {
        const u32 row = row_under(ctx_, list_, x, y);
        if (row == VEL_NO_ROW || row == selected_row(ctx_, list_)) return;
        select_row(ctx_, list_, row);
        show_part(ctx_, list_);
    }

    void follow_key(const SDL_keysym &key) {
        if (key.sym == SDLK_ESCAPE || key.sym == SDLK_TAB) return finish(Press::done, true);
        if (is_enter(key.sym)) return finish(Press::done, false);
        key_on_list(ctx_, list_, key);
    }

    void finish(Press end, bool is_cancelled) {
        end_ = end;
        is_cancelled_ = is_cancelled;
    }

    vel_context &ctx_;
    const u32 choice_, menu_, list_, before_;
    std::optional<Press> end_;
    bool is_cancelled_ = false;
};

bool can_open(const vel_context &ctx, u32 choice) {
    const u32 menu = menu_of_choice(ctx, choice);
    return menu != 0 && object_at(ctx, menu).hidden != 0 &&
           find_list(ctx, list_of_choice(ctx, choice)) != nullptr;
}

} // namespace

u32 list_of_choice(const vel_context &ctx, u32 choice) {
    if (traits_of(ctx, choice).part != choice_part) return 0;
    const u32 list = object_at(ctx, menu_of_choice(ctx, choice)).dep_objs[0];
    return traits_of(ctx, list).part == list_part ? list : 0;
}

void show_chosen(vel_context &ctx, u32 choice) {
    const u32 list = list_of_choice(ctx, choice);
    const u32 row = selected_row(ctx, list);
    const List *items = find_list(ctx, list);
    if (items == nullptr) return;
    const vel_cell cell = row == VEL_NO_ROW ? vel_cell{} : cell_of(*items, row, 0);
    vel_object &o = object_at(ctx, choice);
    std::memcpy(o.label, cell.text, sizeof o.label);
    format_object(ctx, choice);
}

Press press_choice(vel_context &ctx, u32 choice) {
    const Press end = drag(
        ctx, [](i64, i64) {}, [] {});
    if (end != Press::done || !can_open(ctx, choice)) return end;
    return OpenChoice(ctx, choice).run();
}

std::optional<Press> key_on_choice(vel_context &ctx, u32 choice, const SDL_keysym &key) {
    if (is_enter(key.sym)) {
        return can_open(ctx, choice) ? OpenChoice(ctx, choice).run() : Press::done;
    }
    const u32 list = list_of_choice(ctx, choice);
    const u32 before = selected_row(ctx, list);
    const auto end = key_on_list(ctx, list, key);
    if (!end) return {};
    show_chosen(ctx, choice);
    show_part(ctx, choice);
    return selected_row(ctx, list) == before ? Press::done : *end;
}

} // namespace velumo
