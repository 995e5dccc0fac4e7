#include "menu/pull_down.h"

#include "input/events.h"
#include "input/hit_test.h"
#include "render/display.h"
#include "render/geometry.h"
#include "render/paint.h"
#include "render/scene.h"

namespace velumo {
namespace {

constexpr u32 highlight_step = 20;
constexpr i64 sliver = 5; // pixels of the screen that a menu beyond its edge updates

// The entry under the pointer, darkened in its own record and given back its colour later.
class Highlight {
public:
    explicit Highlight(vel_context &ctx) : ctx_(ctx) {}
    ~Highlight() { give_back(); }
    Highlight(const Highlight &) = delete;
    Highlight &operator=(const Highlight &) = delete;

    u32 entry() const { return entry_; }

    void move_to(u32 entry) {
        give_back();
        entry_ = entry;
        vel_object &o = object_at(ctx_, entry_);
        for (std::size_t k = 0; k < std::size(components); ++k) {
            u32 &component = o.*components[k];
            // On purpose: what is too dark to be lowered is not raised later.
            lowered_[k] = component > highlight_step;
            if (lowered_[k]) component -= highlight_step;
        }
    }

private:
    static constexpr u32 vel_object::*components[] = {&vel_object::fill_r, &vel_object::fill_g,
                                                      &vel_object::fill_b};

    void give_back() {
        vel_object &o = object_at(ctx_, entry_);
        for (std::size_t k = 0; k < std::size(components); ++k) {
            if (lowered_[k]) o.*components[k] += highlight_step;
            lowered_[k] = false;
        }
    }

    vel_context &ctx_;
    u32 entry_ = 0;
    bool lowered_[std::size(components)] = {};
};

Point pointer() {
    int x = 0;
    int y = 0;
    SDL_GetMouseState(&x, &y);
    return {x, y};
}

class Menu {
public:
    Menu(vel_context &ctx, u32 number, Hanging hanging)
        : ctx_(ctx), number_(number), hanging_(hanging), highlight_(ctx) {}

    MenuEnd run() {
        consume_event(ctx_);
        menu().hidden = 0;
        paint();
        while (!finished_) pass();
        erase_object(ctx_, number_);
        menu().hidden = 1;
        return end_;
    }

private:
    vel_object &menu() { return object_at(ctx_, number_); }

    void pass() {
        const Polled polled = poll_event(ctx_);
        if (polled == Polled::end_of_loop) {
            end(MenuEnd::Cause::filter);
            return;
        }
        const Point mouse = pointer();
        if (has_dependents(menu())) {
            if (const u32 entry = entry_under(mouse)) enter(entry);
            if (is_left_button(ctx_.event, Button::released)) release();
        }
        // On purpose: these tests come last, so a pointer that has left takes back a choice made in
        // the same pass.
        if (has_left(mouse)) end(MenuEnd::Cause::left);
        if (polled == Polled::nothing && !finished_) rest(ctx_);
    }

    u32 entry_under(Point point) {
        for (const u32 entry : dependents_of(menu())) {
            if (is_drawable(object_at(ctx_, entry)) && is_hit(ctx_, entry, point.x, point.y)) {
                return entry;
            }
        }
        return 0;
    }

    void enter(u32 entry) {
        entered_ = true;
        if (entry == highlight_.entry()) return;
        highlight_.move_to(entry);
        paint();
    }

    void release() {
        const Point at{ctx_.event.button.x, ctx_.event.button.y};
        end_ = {MenuEnd::Cause::released, entry_under(at), at};
        finished_ = true;
        consume_event(ctx_);
    }

    void end(MenuEnd::Cause cause) {
        end_ = {cause, 0, {}};
        finished_ = true;
    }

    // On purpose: below a title the pointer may stay above the menu until it has been on an entry.
    bool has_left(Point point) {
        const Span columns = shown(horizontal);
        const Span rows = shown(vertical);
        return !columns.holds(point.x) || point.y >= rows.end ||
               (point.y < rows.begin && (entered_ || hanging_ == Hanging::free));
    }

    Span shown(const Axis &axis) {
        const u32 start = menu().*axis.position;
        return stretch(start, start + cut_size(ctx_, menu(), axis) - 1);
    }

    i64 update_start(const Axis &axis) {
        const i64 start = as_signed(menu().*axis.position);
        const i64 screen = as_signed(ctx_.*axis.screen_size);
        return start < 0 ? 0 : start >= screen ? screen - sliver : start;
    }

    void paint() {
        paint_object(ctx_, number_);
        draw_dependents(ctx_, number_);
        Rect rect = cut_rect(ctx_, menu());
        rect.x = update_start(horizontal);
        rect.y = update_start(vertical);
        update_display(ctx_, sdl_rect(rect));
    }

    vel_context &ctx_;
    const u32 number_;
    const Hanging hanging_;
    Highlight highlight_;
    MenuEnd end_{};
    bool entered_ = false;
    bool finished_ = false;
};

} // namespace

MenuEnd run_menu(vel_context &ctx, u32 menu, Hanging hanging) {
    if (names_nothing(ctx, menu)) return {MenuEnd::Cause::left, 0, {}};
    return Menu(ctx, menu, hanging).run();
}

} // namespace velumo
