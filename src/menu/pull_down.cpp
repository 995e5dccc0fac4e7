#include "menu/pull_down.h"

#include "input/event_key.h"
#include "input/events.h"
#include "input/held_keys.h"
#include "input/hit_test.h"
#include "model/traits.h"
#include "render/display.h"
#include "render/geometry.h"
#include "render/paint.h"
#include "render/scene.h"
#include "text/letters.h"

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
        if (!has_objects(ctx_)) return;
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

enum class Way { on, back };

class Menu {
public:
    Menu(vel_context &ctx, u32 number, const MenuStart &start)
        : ctx_(ctx), number_(number), start_(start), highlight_(ctx) {}

    MenuEnd run() {
        consume_event(ctx_);
        menu().hidden = 0;
        paint();
        if (start_.opened == Opened::by_key) {
            follow_keys();
            go_on_from(0, Way::on);
        }
        while (!finished_) pass();
        if (!has_objects(ctx_)) return end_;
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
        if (polled == Polled::quit) {
            put_quit_back(ctx_);
            end(MenuEnd::Cause::left);
            return;
        }
        if (polled == Polled::event && ctx_.event.type == SDL_VIDEORESIZE) {
            end(MenuEnd::Cause::left); // what it hangs on may be elsewhere
            return;
        }
        if (polled == Polled::event && has_comfort(ctx_, VEL_COMFORT_KEYBOARD)) handle_key();
        const Point mouse = pointer();
        if (has_dependents(menu())) {
            const u32 entry = ignores(mouse) ? 0 : entry_under(mouse);
            if (entry != 0) enter(entry);
            if (is_left_button(ctx_.event, Button::released)) release();
        }
        // On purpose: these tests come last, so a pointer that has left takes back a choice made in
        // the same pass.
        if (!ignores(mouse) && has_left(mouse)) end(MenuEnd::Cause::left);
        if (polled == Polled::nothing && !finished_) rest(ctx_);
    }

    u32 entry_under(Point point) {
        for (const u32 entry : dependents_of(menu())) {
            if (can_be_chosen(entry) && is_hit(ctx_, entry, point.x, point.y)) return entry;
        }
        return 0;
    }

    bool can_be_chosen(u32 entry) const {
        return is_drawable(object_at(ctx_, entry)) && is_enabled(ctx_, entry);
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

    void end(MenuEnd::Cause cause, u32 entry = 0) {
        end_ = {cause, entry, {}};
        finished_ = true;
    }

    // --- Keys

    // From now on the pointer does not count until it has moved into the menu.
    void follow_keys() {
        ignored_pointer_ = pointer();
        has_ignored_pointer_ = true;
    }

    bool ignores(Point mouse) {
        const bool is_at_rest = mouse.x == ignored_pointer_.x && mouse.y == ignored_pointer_.y;
        if (has_ignored_pointer_ && !is_at_rest && entry_under(mouse) != 0) {
            has_ignored_pointer_ = false;
        }
        return has_ignored_pointer_;
    }

    void handle_key() {
        held_keys_.follow(ctx_.event);
        if (ctx_.event.type != SDL_KEYDOWN) return;
        const SDL_keysym key = key_of(ctx_.event);
        consume_event(ctx_);
        follow_keys();
        switch (key.sym) {
        case SDLK_UP:
            go_on_from(highlight_.entry(), Way::back);
            break;
        case SDLK_DOWN:
            go_on_from(highlight_.entry(), Way::on);
            break;
        case SDLK_HOME:
            go_on_from(0, Way::on);
            break;
        case SDLK_END:
            go_on_from(0, Way::back);
            break;
        case SDLK_LEFT:
            if (start_.has_neighbours) end(MenuEnd::Cause::previous_title);
            break;
        case SDLK_RIGHT:
            if (start_.has_neighbours) end(MenuEnd::Cause::next_title);
            break;
        case SDLK_RETURN:
        case SDLK_KP_ENTER:
        case SDLK_SPACE:
            if (!held_keys_.has(key.sym)) choose(highlight_.entry());
            break;
        case SDLK_ESCAPE:
            end(MenuEnd::Cause::left);
            break;
        default:
            if (!held_keys_.has(key.sym)) choose(entry_of_key(letter_of(key)));
            break;
        }
    }

    void choose(u32 entry) {
        if (entry != 0 && can_be_chosen(entry)) end(MenuEnd::Cause::released, entry);
    }

    u32 entry_of_key(char letter) {
        if (letter == '\0') return 0;
        for (const u32 entry : dependents_of(menu())) {
            if (traits_of(ctx_, entry).key == letter && can_be_chosen(entry)) return entry;
        }
        return 0;
    }

    // Goes round the entries, from one of them or, with 0, from outside, to the next that can be
    // chosen.
    void go_on_from(u32 entry, Way way) {
        const auto entries = dependents_of(menu());
        const auto count = static_cast<u32>(entries.size());
        const auto found = std::find(entries.begin(), entries.end(), entry);
        const bool is_inside = found != entries.end();
        u32 place = is_inside        ? static_cast<u32>(found - entries.begin())
                    : way == Way::on ? count - 1
                                     : 0;
        for (u32 k = 0; k < count; ++k) {
            place = way == Way::on ? (place + 1) % count : (place + count - 1) % count;
            if (!can_be_chosen(entries[place])) continue;
            enter(entries[place]);
            return;
        }
    }

    // On purpose: below a title the pointer may stay above the menu until it has been on an entry.
    bool has_left(Point point) {
        const Span columns = shown(horizontal);
        const Span rows = shown(vertical);
        return !columns.holds(point.x) || point.y >= rows.end ||
               (point.y < rows.begin && (entered_ || start_.hanging == Hanging::free));
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
    const MenuStart start_;
    Highlight highlight_;
    MenuEnd end_{};
    bool entered_ = false;
    bool finished_ = false;
    Point ignored_pointer_{};
    bool has_ignored_pointer_ = false;
    HeldKeys held_keys_;
};

} // namespace

MenuEnd run_menu(vel_context &ctx, u32 menu, const MenuStart &start) {
    if (names_nothing(ctx, menu)) return {MenuEnd::Cause::left, 0, {}};
    begin_loop(ctx);
    return Menu(ctx, menu, start).run();
}

} // namespace velumo
