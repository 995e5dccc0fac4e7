#include "window/waiting.h"

#include <new>
#include <optional>

#include "input/events.h"
#include "input/hit_test.h"
#include "model/types.h"
#include "model/walk.h"
#include "render/geometry.h"
#include "render/scene.h"
#include "window/activation.h"
#include "window/button_actions.h"
#include "window/title.h"

namespace velumo {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds repeat_after{400};
constexpr milliseconds repeat_every{50};

// --- Tab

// The visible objects of the active window that take the cursor: itself, then depth first.
std::vector<u32> cursor_stops(const vel_context &ctx) {
    std::vector<u32> stops;
    const u32 window = ctx.active_window;
    if (window == 0) return stops;
    if (is_editable(object_at(ctx, window))) stops.push_back(window);
    walk_dependents(ctx, window, [&](u32 number) {
        const vel_object &o = object_at(ctx, number);
        if (!is_drawable(o)) return Walk::skip;
        if (is_editable(o)) stops.push_back(number);
        return Walk::descend;
    });
    return stops;
}

// Without memory for the list of stops, the cursor stays.
void move_cursor(vel_context &ctx, bool backwards) try {
    const std::vector<u32> stops = cursor_stops(ctx);
    if (stops.empty()) return;
    const auto here = std::find(stops.begin(), stops.end(), ctx.cursor_object);
    const auto place = static_cast<std::size_t>(here - stops.begin());
    std::size_t next = place + 1;
    if (here == stops.end())
        next = backwards ? stops.size() - 1 : 0;
    else if (backwards)
        next = place + stops.size() - 1;
    ctx.cursor_object = stops[next % stops.size()];
    show_active_window(ctx);
} catch (const std::bad_alloc &) {
}

bool is_press_of(const SDL_Event &event, SDLKey key) {
    return event.type == SDL_KEYDOWN && event.key.keysym.sym == key;
}
bool is_enter(const SDL_Event &event) {
    return is_press_of(event, SDLK_RETURN) || is_press_of(event, SDLK_KP_ENTER);
}

// --- Objects

bool is_frame_button(u32 number) { return number != 0 && number <= VEL_FRAME_BUTTONS; }

bool is_answer(const vel_object &o) {
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

// --- The loop

class FormLoop {
public:
    FormLoop(vel_context &ctx, const Dialog &dialog) : ctx_(ctx), dialog_(dialog) {}

    u32 run() {
        for (;;) {
            if (is_closed()) return VEL_BUTTON_CLOSE;
            const Polled polled = poll_event(ctx_);
            if (polled == Polled::end_of_loop) return 0;
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
        if (const u32 answer = answer_of_key()) {
            consume_event(ctx_);
            return answer;
        }
        if (is_press_of(ctx_.event, SDLK_TAB)) {
            move_cursor(ctx_, (ctx_.event.key.keysym.mod & KMOD_SHIFT) != 0);
            consume_event(ctx_);
        } else if (is_left_button(ctx_.event, Button::pressed)) {
            return press();
        } else if (is_left_button(ctx_.event, Button::released)) {
            return release();
        } else {
            handle_key_event(ctx_);
        }
        return {};
    }

    bool is_dialog() const { return dialog_.window != 0; }
    bool is_closed() const { return is_dialog() && object_at(ctx_, dialog_.window).hidden != 0; }

    // The answer that a key gives in a dialog; 0 for none.
    u32 answer_of_key() const {
        if (is_enter(ctx_.event)) return dialog_.on_enter;
        return is_press_of(ctx_.event, SDLK_ESCAPE) ? dialog_.on_escape : 0;
    }

    u32 object_under_pointer() const {
        const u32 number = object_under(ctx_, ctx_.event.button.x, ctx_.event.button.y);
        if (!is_dialog() || is_frame_button(number) || number == dialog_.window) return number;
        return root_of(ctx_, number) == dialog_.window ? number : 0;
    }

    std::optional<u32> press() {
        is_placing_ = false;
        const u32 number = object_under_pointer();
        if (is_frame_button(number)) {
            hold(number);
        } else if (menu_of_title(ctx_, number) != 0) {
            return open_menu(number);
        }
        return {};
    }

    void hold(u32 frame_button) {
        held_ = frame_button;
        next_press_ = now() + repeat_after;
        press_held_button();
    }

    std::optional<u32> open_menu(u32 title) {
        const MenuEnd end = open_menu_of_title(ctx_, title);
        consume_event(ctx_);
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
        if (is_answer(o)) return number;
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
    u32 held_ = 0;        // frame button under the pressed mouse button
    milliseconds next_press_{0};
    bool is_placing_ = false; // the release of the press that placed a window is still to come
};

} // namespace

u32 wait_for_object(vel_context &ctx) {
    return FormLoop(ctx, {.window = 0, .on_enter = 0, .on_escape = 0}).run();
}

u32 wait_in_dialog(vel_context &ctx, const Dialog &dialog) { return FormLoop(ctx, dialog).run(); }

} // namespace velumo
