#include "input/text_mouse.h"

#include <new>

#include "input/caret.h"
#include "input/events.h"
#include "input/hit_test.h"
#include "input/text_cursor.h"
#include "input/typing.h"
#include "input/word_bounds.h"
#include "model/traits.h"
#include "model/types.h"

namespace velumo {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds double_click{400};
constexpr milliseconds scroll_every{50};

// Whether the user may select in an object. The first press on a window behind others raises it.
bool is_selectable(const vel_context &ctx, u32 object) {
    const bool is_behind =
        object != ctx.active_window && is_top_level_window(object_at(ctx, object));
    return !is_behind && has_comfort(ctx, VEL_COMFORT_TYPING) && text_owner(ctx, object) != 0 &&
           is_enabled(ctx, object);
}

// How often the button was pressed at one place.
u32 count_presses(vel_context &ctx, u32 owner, u32 index) {
    Presses &last = state_of(ctx).presses;
    const milliseconds time = now();
    const bool goes_on = last.owner == owner && last.index == index && last.count < 3 &&
                         time - last.time < double_click;
    last = {time, owner, index, goes_on ? last.count + 1 : 1};
    return last.count;
}

class TextDrag {
public:
    TextDrag(vel_context &ctx, u32 object)
        : ctx_(ctx), object_(object), x_(ctx.event.button.x), y_(ctx.event.button.y) {}

    TextPress run() {
        start();
        for (;;) {
            const Polled polled = poll_event(ctx_);
            if (polled == Polled::end_of_loop) return TextPress::end_of_loop;
            if (ctx_.event.type == SDL_QUIT) return quit();
            if (polled == Polled::event) {
                if (is_left_button(ctx_.event, Button::released)) return release();
                if (ctx_.event.type == SDL_MOUSEMOTION) move_to(ctx_.event.motion);
                consume_event(ctx_);
            } else {
                scroll();
                rest(ctx_, scroll_every);
            }
        }
    }

private:
    void start() {
        if (is_editable(object_at(ctx_, object_))) ctx_.cursor_object = object_;
        TextCursor cursor(ctx_, object_);
        const RowPlace place = place_under(ctx_, cursor.rows(), object_, x_, y_);
        const u32 index = cursor.rows().index_of(place);
        const u32 presses = count_presses(ctx_, cursor.owner(), index);
        const bool extends = (SDL_GetModState() & KMOD_SHIFT) != 0;
        cursor.forget_goal();
        cursor.go(place, extends ? TextCursor::Reach::select : TextCursor::Reach::move);
        if (presses == 2) select_word(cursor, index);
        if (presses == 3) cursor.select(cursor.row().first, cursor.row().end());
        selects_ = presses > 1 || extends;
        show(cursor);
    }

    void select_word(TextCursor &cursor, u32 index) {
        const TextRows &rows = cursor.rows();
        const bool is_password = traits_of(ctx_, cursor.owner()).password;
        const Bounds word =
            is_password ? Bounds{0, rows.length()} : word_at(rows.characters(), index);
        cursor.select(word.first, word.end);
    }

    void move_to(const SDL_MouseMotionEvent &motion) {
        x_ = motion.x;
        y_ = motion.y;
        reach();
    }

    // The selection ends at the pointer, also in another member of a chain.
    void reach() {
        // An event filter may have changed the object meanwhile.
        if (text_owner(ctx_, object_) == 0) return;
        const u32 under = object_under(ctx_, x_, y_);
        if (text_owner(ctx_, under) == text_owner(ctx_, object_)) object_ = under;
        TextCursor cursor(ctx_, object_);
        const RowPlace place = place_under(ctx_, cursor.rows(), object_, x_, y_);
        if (cursor.rows().index_of(place) == cursor.index()) return;
        cursor.go(place, TextCursor::Reach::select);
        selects_ = true;
        show(cursor);
    }

    // Beyond the edge the text comes along, the faster the farther the pointer is.
    void scroll() {
        const Limits sight = sight_of(ctx_, object_);
        if (selects_ && !sight.hold(x_, y_)) reach();
    }

    TextPress release() {
        if (!selects_) return TextPress::clicked;
        consume_event(ctx_);
        return TextPress::selected;
    }

    TextPress quit() {
        put_quit_back(ctx_);
        return TextPress::quit;
    }

    void show(TextCursor &cursor) { show_object(ctx_, cursor.settle(ctx_)); }

    vel_context &ctx_;
    u32 object_;
    i64 x_, y_; // of the pointer
    bool selects_ = false;
};

} // namespace

// Without memory for its rows, a text is none that could be selected.
TextPress press_in_text(vel_context &ctx, u32 object) try {
    if (is_selectable(ctx, object)) return TextDrag(ctx, object).run();
    if (ctx.state != nullptr) ctx.state->presses = {};
    return TextPress::elsewhere;
} catch (const std::bad_alloc &) {
    return TextPress::elsewhere;
}

bool paste_in_text(vel_context &ctx, u32 object) try {
    if (!is_selectable(ctx, object) || !is_editable(object_at(ctx, object))) return false;
    ctx.cursor_object = object;
    TextCursor cursor(ctx, object);
    const SDL_MouseButtonEvent &at = ctx.event.button;
    cursor.go(place_under(ctx, cursor.rows(), object, at.x, at.y), TextCursor::Reach::move);
    // The characters may be those that are selected here, in the text or elsewhere.
    cursor.settle(ctx);
    consume_event(ctx);
    paste(ctx, Board::primary);
    return true;
} catch (const std::bad_alloc &) {
    return false;
}

} // namespace velumo
