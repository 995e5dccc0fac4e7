#include "window/key_meaning.h"

#include <new>
#include <optional>

#include "input/event_key.h"
#include "input/events.h"
#include "model/types.h"
#include "parts/part.h"
#include "parts/tabs.h"
#include "render/scene.h"
#include "text/letters.h"
#include "window/activation.h"
#include "window/focus.h"
#include "window/title.h"

namespace velumo {
namespace {

using Kind = KeyMeaning::Kind;

constexpr KeyMeaning none{Kind::none, 0};
constexpr KeyMeaning done{Kind::done, 0};

constexpr int alt_keys = KMOD_ALT | KMOD_META; // SDL takes the Alt key for either

bool is_enter(SDLKey key) { return key == SDLK_RETURN || key == SDLK_KP_ENTER; }

class KeyPress {
public:
    KeyPress(vel_context &ctx, const Reach &reach)
        : ctx_(ctx), reach_(reach), key_(key_of(ctx.event)) {}

    KeyMeaning meaning() {
        if (has(alt_keys)) return has(KMOD_CTRL) ? none : with_alt();
        if (key_.sym == SDLK_TAB && has(KMOD_CTRL)) return raise_other_window();
        if (is_frame_button(ctx_.cursor_object)) return on_frame_button();
        if (const auto meaning = on_part()) return *meaning;
        switch (key_.sym) {
        case SDLK_TAB:
            if (reach_.on_tab != 0 && reach_.on_tab == ctx_.cursor_object && !has(KMOD_SHIFT))
                return {Kind::changed, reach_.on_tab};
            move_focus(ctx_, reach_, has(KMOD_SHIFT));
            return done;
        case SDLK_SPACE:
            return has_answer_focus(ctx_, reach_) ? press(ctx_.cursor_object) : none;
        case SDLK_RETURN:
        case SDLK_KP_ENTER:
            return enter();
        case SDLK_ESCAPE:
            return escape();
        case SDLK_F10:
            return reach_.selects ? none : open_first_menu();
        default:
            return none;
        }
    }

private:
    bool has(int modifiers) const { return (key_.mod & modifiers) != 0; }

    KeyMeaning press(u32 number) const {
        const bool is_title = !reach_.selects && menu_of_title(ctx_, number) != 0;
        return {is_title ? Kind::menu : Kind::answer, number};
    }

    // What the part that has the focus makes of the key.
    std::optional<KeyMeaning> on_part() {
        const u32 part = ctx_.cursor_object;
        if (!is_part_with_keys(ctx_, part) || !is_reachable(ctx_, part)) return {};
        const auto end = key_on_part(ctx_, part, key_);
        if (!end) return {};
        if (*end == Press::done) return done;
        const u32 tabs = tabs_of_tab(ctx_, part);
        const u32 number = tabs != 0 ? tabs : ctx_.cursor_object;
        return KeyMeaning{*end == Press::changed ? Kind::changed : Kind::over, number};
    }

    // In a text of many lines Enter breaks the line, and Ctrl and Enter answer.
    KeyMeaning enter() const {
        if (has_answer_focus(ctx_, reach_)) return press(ctx_.cursor_object);
        const vel_object &focus = object_at(ctx_, ctx_.cursor_object);
        if (is_editable(focus) && !is_field(focus) && !has(KMOD_CTRL)) return none;
        const u32 answer = answer_of_kind(ctx_, reach_, VEL_ANSWER_DEFAULT);
        return answer == 0 ? none : press(answer);
    }

    KeyMeaning escape() const {
        const u32 answer = answer_of_kind(ctx_, reach_, VEL_ANSWER_CANCEL);
        if (answer != 0) return press(answer);
        const bool can_close = reach_.selects || is_visible_button(VEL_BUTTON_CLOSE);
        return can_close ? KeyMeaning{Kind::frame_button, VEL_BUTTON_CLOSE} : done;
    }

    // --- Alt

    KeyMeaning with_alt() {
        if (key_.sym == SDLK_SPACE) return enter_frame();
        const char letter = letter_of(key_);
        const u32 number = letter == '\0' ? 0 : object_of_key(ctx_, reach_, letter);
        if (number == 0) return none;
        if (!reach_.selects && menu_of_title(ctx_, number) != 0) return {Kind::menu, number};
        if (is_editable(object_at(ctx_, number))) {
            set_focus(ctx_, number);
            return done;
        }
        return ends_loop(ctx_, reach_, number) ? KeyMeaning{Kind::answer, number} : done;
    }

    KeyMeaning open_first_menu() const {
        const u32 title = first_title(ctx_, reach_);
        return title == 0 ? none : KeyMeaning{Kind::menu, title};
    }

    // --- Windows

    KeyMeaning raise_other_window() {
        const u32 count = std::min<u32>(ctx_.window_count, VEL_MAX_WINDOWS);
        if (reach_.is_dialog || reach_.selects || count < 2) return done;
        ctx_.window_to_activate = ctx_.window_stack[has(KMOD_SHIFT) ? 1 : count - 1];
        if (ctx_.window_to_activate != 0) select_wanted_object(ctx_);
        return done;
    }

    // --- Frame buttons

    bool is_visible_button(u32 button) const {
        return button <= frame_button_count(ctx_) && is_reachable(ctx_, button);
    }
    // A selection knows the close button only.
    bool is_button_stop(u32 button) const {
        return is_visible_button(button) && (!reach_.selects || button == VEL_BUTTON_CLOSE);
    }

    // The next stop after a button in a direction; the button itself when there is no other.
    u32 button_after(u32 button, u32 step) const {
        for (u32 k = 0; k < VEL_FRAME_BUTTONS; ++k) {
            button = (button - 1 + step) % VEL_FRAME_BUTTONS + 1;
            if (is_button_stop(button)) break;
        }
        return button;
    }

    KeyMeaning enter_frame() {
        const u32 first = button_after(VEL_FRAME_BUTTONS, 1);
        if (!is_button_stop(first) || is_frame_button(ctx_.cursor_object)) return done;
        state_of(ctx_).focus_before_frame = ctx_.cursor_object;
        set_focus(ctx_, first);
        return done;
    }

    KeyMeaning on_frame_button() {
        const u32 button = ctx_.cursor_object;
        if (key_.sym == SDLK_SPACE || is_enter(key_.sym)) {
            return is_button_stop(button) ? KeyMeaning{Kind::frame_button, button} : done;
        }
        const bool is_tab = key_.sym == SDLK_TAB;
        if (key_.sym == SDLK_ESCAPE)
            set_focus(ctx_, ctx_.state == nullptr ? 0 : ctx_.state->focus_before_frame);
        else if (key_.sym == SDLK_LEFT || (is_tab && has(KMOD_SHIFT)))
            set_focus(ctx_, button_after(button, VEL_FRAME_BUTTONS - 1));
        else if (key_.sym == SDLK_RIGHT || is_tab)
            set_focus(ctx_, button_after(button, 1));
        return done;
    }

    vel_context &ctx_;
    const Reach &reach_;
    const SDL_keysym key_;
};

// What must not happen again while the key is held.
bool acts_once(const KeyMeaning &meaning, SDLKey key) {
    return key == SDLK_ESCAPE || meaning.kind == Kind::answer || meaning.kind == Kind::menu ||
           (meaning.kind == Kind::frame_button && meaning.object == VEL_BUTTON_CLOSE);
}

} // namespace

// Without memory nothing happens.
KeyMeaning meaning_of_key(vel_context &ctx, const Reach &reach, HeldKeys &held) try {
    held.follow(ctx.event);
    if (ctx.event.type != SDL_KEYDOWN) return none;
    const SDL_keysym key = key_of(ctx.event);
    if (has_comfort(ctx, VEL_COMFORT_KEYBOARD)) {
        const KeyMeaning meaning = KeyPress(ctx, reach).meaning();
        if (!acts_once(meaning, key.sym)) return meaning;
        if (held.has(key.sym)) return done;
        held.hold(key.sym);
        return meaning;
    }
    if (is_enter(key.sym) && reach.on_enter != 0) return {Kind::answer, reach.on_enter};
    if (key.sym == SDLK_ESCAPE && reach.on_escape != 0) return {Kind::answer, reach.on_escape};
    if (key.sym != SDLK_TAB || reach.selects) return none;
    move_focus(ctx, reach, (key.mod & KMOD_SHIFT) != 0);
    return done;
} catch (const std::bad_alloc &) {
    return done;
}

void edit_by_key(vel_context &ctx) {
    const u32 focus = ctx.cursor_object;
    const bool can_be_typed_in =
        focus == 0 || (type_of(object_at(ctx, focus)).takes_cursor && is_enabled(ctx, focus));
    if (can_be_typed_in || !has_comfort(ctx, VEL_COMFORT_KEYBOARD)) {
        handle_key_event(ctx);
    } else {
        // A key that was pressed before the focus came here is not typed where it goes next.
        ctx.key_code = VEL_KEY_NONE;
    }
}

} // namespace velumo
