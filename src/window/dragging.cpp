#include "window/dragging.h"

#include "input/event_key.h"
#include "input/events.h"
#include "model/traits.h"
#include "model/types.h"
#include "render/geometry.h"
#include "window/frame_actions.h"

namespace velumo {
namespace {

constexpr i64 strip_height = 24;
constexpr i64 corner_size = 12;
constexpr i64 least_size = 48; // that dragging leaves; a smaller window does not shrink

struct Pixels {
    i64 x, y;
};

Pixels place_of(const vel_object &o) { return {as_signed(o.x), as_signed(o.y)}; }
Pixels size_of(const vel_object &o) { return {o.width, o.height}; }

class WindowDrag {
public:
    explicit WindowDrag(vel_context &ctx)
        : ctx_(ctx), window_(ctx.active_window), pressed_(pointer_at(ctx.event.button)),
          place_(place_of(window())), size_(size_of(window())) {}

    bool begins_on(u32 object) {
        if (names_nothing(ctx_, window_) || !is_top_level_window(window())) return false;
        resizes_ = is_on_corner(object);
        return resizes_ || is_on_strip(object);
    }

    // What moves the pointer in between is joined: the window follows when nothing else waits.
    TextPress run() {
        Pixels pointer = pressed_;
        consume_event(ctx_);
        for (;;) {
            const Polled polled = poll_event(ctx_);
            if (polled == Polled::end_of_loop) return TextPress::end_of_loop;
            if (ctx_.event.type == SDL_QUIT) return quit();
            if (polled == Polled::nothing) {
                follow(pointer);
                rest(ctx_);
                continue;
            }
            if (is_left_button(ctx_.event, Button::released)) return release();
            if (ctx_.event.type == SDL_MOUSEMOTION) pointer = pointer_at(ctx_.event.motion);
            if (ctx_.event.type == SDL_KEYDOWN && key_of(ctx_.event).sym == SDLK_ESCAPE) put_back();
            consume_event(ctx_);
        }
    }

private:
    template <class Event> static Pixels pointer_at(const Event &event) {
        return {event.x, event.y};
    }

    vel_object &window() { return object_at(ctx_, window_); }

    bool is_on_corner(u32 object) {
        const bool is_inside = object == window_ || root_of(ctx_, object) == window_;
        return is_inside && window().window_kind == VEL_WINDOW_FULL &&
               pressed_.x >= place_.x + size_.x - corner_size &&
               pressed_.y >= place_.y + size_.y - corner_size;
    }

    // A plain window has no button that moves it, either.
    bool is_on_strip(u32 object) {
        return object == window_ && window().window_kind < VEL_WINDOW_PLAIN &&
               !is_editable(window()) && pressed_.y < place_.y + strip_height;
    }

    // The event filter may close the window meanwhile.
    bool is_there() const { return ctx_.active_window == window_; }

    void follow(Pixels pointer) {
        if (is_put_back_ || !is_there()) return;
        const Pixels by{pointer.x - pressed_.x, pointer.y - pressed_.y};
        if (resizes_)
            resize_to({wanted_size(by.x, place_.x, size_.x, horizontal),
                       wanted_size(by.y, place_.y, size_.y, vertical)});
        else
            move_to({place_in_sight(ctx_, place_.x + by.x, horizontal),
                     place_in_sight(ctx_, place_.y + by.y, vertical)});
    }

    i64 wanted_size(i64 by, i64 place, i64 size, const Axis &axis) const {
        const i64 room = i64{ctx_.*axis.screen_size} - place;
        return std::clamp(size + by, std::min(size, least_size), std::max(size, room));
    }

    void move_to(Pixels to) {
        const Pixels at = place_of(window());
        if (to.x == at.x && to.y == at.y) return;
        has_changed_ = true;
        show_moved(ctx_, as_field(to.x), as_field(to.y));
    }

    void resize_to(Pixels to) {
        const Pixels now = size_of(window());
        if (to.x == now.x && to.y == now.y) return;
        has_changed_ = true;
        show_resized(ctx_, to.x - now.x, to.y - now.y);
    }

    void put_back() {
        if (is_there()) resizes_ ? resize_to(size_) : move_to(place_);
        is_put_back_ = has_changed_ = true;
    }

    TextPress release() {
        follow(pointer_at(ctx_.event.button));
        if (!has_changed_) return TextPress::clicked;
        consume_event(ctx_);
        return TextPress::selected;
    }

    TextPress quit() {
        put_quit_back(ctx_);
        return TextPress::quit;
    }

    vel_context &ctx_;
    const u32 window_;
    const Pixels pressed_, place_, size_; // at the start
    bool resizes_ = false, has_changed_ = false, is_put_back_ = false;
};

} // namespace

TextPress drag_window(vel_context &ctx, u32 object) {
    if (!has_comfort(ctx, VEL_COMFORT_WINDOWS) || object == 0) return TextPress::elsewhere;
    WindowDrag drag(ctx);
    return drag.begins_on(object) ? drag.run() : TextPress::elsewhere;
}

} // namespace velumo
