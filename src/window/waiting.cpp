#include "window/waiting.h"

#include <optional>

#include "input/events.h"
#include "input/hit_test.h"
#include "input/text_mouse.h"
#include "model/types.h"
#include "parts/part.h"
#include "parts/tip.h"
#include "render/geometry.h"
#include "window/activation.h"
#include "window/button_actions.h"
#include "window/dragging.h"
#include "window/key_meaning.h"
#include "window/pointer_states.h"
#include "window/title.h"
#include "window/wheel.h"

namespace velumo {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds repeat_after{400};
constexpr milliseconds repeat_every{50};

class FormLoop {
public:
    FormLoop(vel_context &ctx, const Dialog &dialog)
        : ctx_(ctx), dialog_(dialog), reach_{.is_dialog = dialog.window != 0,
                                             .on_enter = dialog.on_enter,
                                             .on_escape = dialog.on_escape,
                                             .on_tab = dialog.on_tab},
          pointer_(ctx, reach_) {}

    u32 run() {
        begin_loop(ctx_);
        for (;;) {
            if (is_closed()) return VEL_BUTTON_CLOSE;
            const Polled polled = poll_event(ctx_);
            if (polled == Polled::end_of_loop || polled == Polled::quit) return 0;
            tips_.follow(polled);
            if (polled == Polled::event) {
                if (const auto result = handle_event()) return *result;
            }
            repeat_press();
            if (polled == Polled::nothing) rest(ctx_, longest_rest_now());
        }
    }

private:
    // What the loop returns, if the event ends it.
    std::optional<u32> handle_event() {
        if (ctx_.event.type == SDL_QUIT) return 0;
        if (scroll_by_wheel(ctx_, reach_)) return {};
        pointer_.follow_event();
        if (is_left_button(ctx_.event, Button::pressed)) return press();
        if (is_left_button(ctx_.event, Button::released)) return release();
        if (is_middle_press(ctx_.event)) {
            paste_in_text(ctx_, object_under_pointer());
            return {};
        }
        const KeyMeaning meaning = meaning_of_key(ctx_, reach_, held_keys_);
        if (meaning.kind == KeyMeaning::Kind::none) {
            edit_by_key(ctx_);
            return {};
        }
        consume_event(ctx_);
        return act_on_key(meaning);
    }

    std::optional<u32> act_on_key(const KeyMeaning &meaning) {
        switch (meaning.kind) {
        case KeyMeaning::Kind::answer:
        case KeyMeaning::Kind::changed:
            return meaning.object;
        case KeyMeaning::Kind::over:
            return 0;
        case KeyMeaning::Kind::menu:
            return open_menu(meaning.object, Opened::by_key);
        case KeyMeaning::Kind::frame_button:
            return use_button(meaning.object);
        default:
            return {};
        }
    }

    // A key does what the pointer does by pressing and releasing the button.
    std::optional<u32> use_button(u32 number) {
        ctx_.window_to_activate = number;
        use_frame_button(ctx_, number);
        if (number == VEL_BUTTON_MOVE) held_keys_ = HeldKeys(); // that which ended the move, too
        if (number == VEL_BUTTON_CLOSE && ctx_.active_window == 0) return number;
        return {};
    }

    bool is_dialog() const { return dialog_.window != 0; }
    bool is_closed() const {
        return is_dialog() && has_objects(ctx_) && object_at(ctx_, dialog_.window).hidden != 0;
    }

    u32 object_under_pointer() const {
        const u32 number = object_under(ctx_, ctx_.event.button.x, ctx_.event.button.y);
        if (!is_dialog() || is_frame_button(number) || number == dialog_.window) return number;
        return root_of(ctx_, number) == dialog_.window ? number : 0;
    }

    std::optional<u32> press() {
        is_placing_ = false;
        const u32 number = object_under_pointer();
        const u32 part = part_at(ctx_, number);
        if (is_frame_button(number)) {
            hold(number);
        } else if (part != 0) {
            return press_on_part(part, number);
        } else if (menu_of_title(ctx_, number) != 0) {
            return open_menu(number, Opened::by_pointer);
        } else {
            return press_text(number);
        }
        return {};
    }

    std::optional<u32> press_on_part(u32 part, u32 number) {
        const Press end = press_part(ctx_, part, number);
        pointer_.let_go();
        if (end == Press::changed) return part;
        if (end == Press::done) return {};
        return 0;
    }

    std::optional<u32> press_text(u32 number) {
        const TextPress drag = drag_window(ctx_, number);
        switch (drag == TextPress::elsewhere ? press_in_text(ctx_, number) : drag) {
        case TextPress::clicked:
            return release();
        case TextPress::quit:
        case TextPress::end_of_loop:
            return 0;
        default:
            return {};
        }
    }

    void hold(u32 frame_button) {
        held_ = frame_button;
        next_press_ = now() + repeat_after;
        press_held_button();
    }

    std::optional<u32> open_menu(u32 title, Opened opened) {
        const MenuEnd end = open_menu_of_title(ctx_, title, reach_, opened);
        consume_event(ctx_);
        pointer_.let_go();
        held_keys_ = HeldKeys(); // the key that closed the menu may still be down
        if (end.cause == MenuEnd::Cause::filter) return 0;
        if (end.entry != 0) return end.entry;
        return {};
    }

    void repeat_press() {
        if (held_ == 0 || now() < next_press_) return;
        next_press_ = now() + repeat_every;
        press_held_button();
    }

    void press_held_button() {
        ctx_.window_to_activate = held_;
        press_frame_button(ctx_, held_);
    }

    milliseconds longest_rest_now() const {
        if (held_ == 0) return longest_rest;
        return std::clamp(next_press_ - now(), milliseconds{0}, longest_rest);
    }

    std::optional<u32> release() {
        held_ = 0;
        const u32 number = is_placing_ ? 0 : object_under_pointer();
        is_placing_ = false;
        consume_event(ctx_);
        if (number == 0) return {};
        if (is_frame_button(number)) return release_button(number);
        const vel_object &o = object_at(ctx_, number);
        if (is_top_level_window(o) || is_editable(o)) {
            ctx_.window_to_activate = number;
            select_wanted_object(ctx_);
            return {};
        }
        if (ends_loop(ctx_, reach_, number)) return number;
        return {};
    }

    std::optional<u32> release_button(u32 number) {
        ctx_.window_to_activate = number;
        release_frame_button(ctx_, number);
        is_placing_ = number == VEL_BUTTON_MOVE;
        if (number == VEL_BUTTON_CLOSE && ctx_.active_window == 0) return number;
        return {};
    }

    vel_context &ctx_;
    const Dialog dialog_; // without a window for the whole form
    const Reach reach_;
    PointerStates pointer_;
    Tips tips_{ctx_};
    HeldKeys held_keys_;
    u32 held_ = 0; // frame button under the pressed mouse button
    milliseconds next_press_{0};
    bool is_placing_ = false; // the release of the press that placed a window is still to come
};

} // namespace

u32 wait_for_object(vel_context &ctx) {
    return FormLoop(ctx, {.window = 0, .on_enter = 0, .on_escape = 0}).run();
}

u32 wait_in_dialog(vel_context &ctx, const Dialog &dialog) { return FormLoop(ctx, dialog).run(); }

} // namespace velumo
