#include "parts/scroll_bar.h"

#include "model/traits.h"
#include "parts/scrolling.h"
#include "parts/show.h"

namespace velumo {
namespace {

constexpr i64 least_thumb = 12; // pixels, so that it can be pressed

u32 target_of(const vel_context &ctx, u32 bar) {
    return static_cast<u32>(traits_of(ctx, bar).target);
}

// A bar, what it scrolls, and how the lengths of the two go together.
class Bar {
public:
    Bar(vel_context &ctx, u32 bar)
        : o_(object_at(ctx, bar)), axis_(longer_axis(o_)), thumb_(object_at(ctx, o_.dep_objs[0])),
          scrolled_(ctx, target_of(ctx, bar), axis_),
          room_(inside_margins(o_, o_.*axis_.size, axis_)) {
        has_thumb_ = o_.dep_objs[0] != 0;
        const View &view = scrolled_.view();
        if (scrolled_.what() == Scrollable::What::nothing) return;
        begin_ = std::min(view.area.begin, view.contents.begin);
        whole_ = std::max(view.area.end, view.contents.end) - begin_;
        seen_ = std::max<i64>(view.area.end - view.area.begin, 0);
        at_ = view.area.begin - begin_;
    }

    void place_thumb() {
        if (!has_thumb_) return;
        thumb_.*axis_.position = as_field(room_.begin + thumb_start());
        thumb_.*axis_.size = as_field(thumb_length());
    }

    // Scrolls so that the thumb starts at a place, in pixels from the start of the bar.
    void go_to(i64 place) {
        const i64 free = length() - thumb_length();
        if (free <= 0) return;
        scroll_to((std::clamp<i64>(place, 0, free) * (whole_ - seen_) + free / 2) / free);
    }

    void turn_page(Direction contents) { scrolled_.move(contents, std::max<i64>(seen_ - 1, 1)); }

    const Axis &axis() const { return axis_; }
    i64 thumb_start() const {
        const i64 free = length() - thumb_length();
        return whole_ > seen_ ? at_ * free / (whole_ - seen_) : 0;
    }
    Span thumb() const {
        const i64 start = room_.begin + thumb_start();
        return {start, start + thumb_length()};
    }
    i64 begin() const { return room_.begin; }

private:
    i64 length() const { return std::clamp<i64>(room_.end - room_.begin, 0, longest_part); }
    i64 thumb_length() const {
        const i64 part = whole_ > 0 ? length() * seen_ / whole_ : length();
        return std::clamp<i64>(part, std::min(least_thumb, length()), length());
    }

    void scroll_to(i64 at) {
        if (at > at_) scrolled_.move(Direction::back, at - at_);
        if (at < at_) scrolled_.move(Direction::forward, at_ - at);
    }

    vel_object &o_;
    const Axis &axis_;
    vel_object &thumb_;
    bool has_thumb_ = false;
    Scrollable scrolled_;
    const Span room_;
    i64 begin_ = 0, whole_ = 0, seen_ = 0, at_ = 0; // of what is scrolled
};

class BarPress {
public:
    BarPress(vel_context &ctx, u32 bar)
        : ctx_(ctx), bar_(bar), x_(ctx.event.button.x), y_(ctx.event.button.y) {}

    Press run() {
        const Span thumb = Bar(ctx_, bar_).thumb();
        holds_thumb_ = thumb.holds(along());
        hold_ = along() - thumb.begin;
        if (!holds_thumb_) turn_page();
        return drag(
            ctx_, [this](i64 x, i64 y) { move_to(x, y); }, [this] { repeat_page(); });
    }

private:
    i64 along() const { return &longer_axis(object_at(ctx_, bar_)) == &vertical ? y_ : x_; }

    void move_to(i64 x, i64 y) {
        x_ = x, y_ = y;
        if (!holds_thumb_) return;
        Bar bar(ctx_, bar_);
        bar.go_to(along() - hold_ - bar.begin());
        show_part(ctx_, bar_);
    }

    // Towards the pointer, as long as the thumb has not come under it.
    void turn_page() {
        Bar bar(ctx_, bar_);
        if (bar.thumb().holds(along())) return;
        bar.turn_page(along() < bar.thumb().begin ? Direction::forward : Direction::back);
        show_part(ctx_, bar_);
    }

    void repeat_page() {
        constexpr u32 rests_before = 8;
        if (!holds_thumb_ && ++rests_ > rests_before) turn_page();
    }

    vel_context &ctx_;
    const u32 bar_;
    i64 x_, y_;
    i64 hold_ = 0; // where on the thumb the pointer holds it
    bool holds_thumb_ = false;
    u32 rests_ = 0;
};

} // namespace

u32 scrolled_by(const vel_context &ctx, u32 part) {
    return traits_of(ctx, part).part == scroll_bar_part ? target_of(ctx, part) : 0;
}

void place_thumb(vel_context &ctx, u32 bar) { Bar(ctx, bar).place_thumb(); }

Press press_scroll_bar(vel_context &ctx, u32 bar) { return BarPress(ctx, bar).run(); }

} // namespace velumo
