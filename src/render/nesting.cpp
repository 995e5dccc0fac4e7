#include "render/nesting.h"

namespace velumo {
namespace {

// The inner area of an object that is the master of a master. A root that the screen cuts ends
// where the screen does, or at its margin when that comes first.
Span parent_area(const vel_context &ctx, u32 number, const Axis &axis) {
    const vel_object &parent = object_at(ctx, number);
    Span area = inside_margins(parent, parent.*axis.size, axis);
    const u32 cut = cut_size(ctx, parent, axis);
    if (parent.master == 0 && parent.*axis.size > cut) {
        const u32 last_shown = parent.*axis.position + cut - 1;
        if (as_signed(last_shown) <= area.end) area.end = as_signed(last_shown + 1);
    }
    return area;
}

constexpr Span not_limited_yet{1, 0}; // strictly between 0 and 0
constexpr i64 no_end = 0;             // so far

// The limits that one master on the way sets by itself.
// On purpose: here its frame is taken one pixel up and to the left of where it is, and a clip mode
// without limits of its own sets none.
Span own_limits(const vel_object &master, u32 clip_mode, const Axis &axis) {
    const u32 first = master.*axis.position - 1;
    const u32 last = first + master.*axis.size - 1;
    switch (clip_mode) {
    case VEL_CLIP_MARGINS:
        return between(first + master.*axis.margin_before - 1,
                       last - master.*axis.margin_after + 1);
    case VEL_CLIP_FRAME:
        return between(first - 1, last + 1);
    default:
        return not_limited_yet;
    }
}

Span tighter(Span a, Span b) { return {std::max(a.begin, b.begin), std::min(a.end, b.end)}; }

// What a master on the way sets together with its own master.
Span limits_of_master(const vel_context &ctx, const vel_object &m, u32 clip_mode,
                      const Axis &axis) {
    return tighter(own_limits(m, clip_mode, axis), parent_area(ctx, m.master, axis));
}

// The clip modes that set limits of their own, and any other.
constexpr u32 no_own_limits = 2;
static_assert(VEL_CLIP_MARGINS < no_own_limits && VEL_CLIP_FRAME < no_own_limits);

} // namespace

Span direct_limits(const vel_context &ctx, const vel_object &object, const Axis &axis) {
    const vel_object &master = object_at(ctx, object.master);
    const u32 start = master.*axis.position;
    const u32 size = cut_size(ctx, master, axis);
    const u32 end = start + size;
    const bool is_cut = master.*axis.size > size;
    switch (object.clip_mode) {
    case VEL_CLIP_MARGINS: {
        const Span inner = inside_margins(master, size, axis);
        // On purpose: where the screen cuts the master, the margin there is not kept free.
        return is_cut ? Span{inner.begin, as_signed(end)} : inner;
    }
    case VEL_CLIP_FRAME:
        return between(start - 1, end);
    default:
        // On purpose: without limits of its own, an object inside an uncut master shows nowhere.
        return between(0, is_cut ? end : 0);
    }
}

// From the nearest master to the one below the root.
// On purpose: an end of 0 counts as none, so that the masters after it begin again.
Span nested_limits(const vel_context &ctx, const vel_object &object, u32 root, const Axis &axis) {
    Span limits = not_limited_yet;
    for (u32 master = object.master; master != root; master = object_at(ctx, master).master) {
        const Span next = limits_of_master(ctx, object_at(ctx, master), object.clip_mode, axis);
        limits = limits.end == no_end ? Span{std::max(limits.begin, next.begin), next.end}
                                      : tighter(limits, next);
    }
    return limits;
}

Tightest Tightest::before(Span nearer) const {
    Tightest all = *this;
    all.begin_ = std::max(begin_, nearer.begin);
    all.least_end_ = std::min(least_end_, nearer.end);
    if (nearer.end == no_end) {
        all.begins_again_ = true;
        all.end_after_ = is_empty_ ? no_end : end();
    } else if (nearer.end < no_end) {
        all.begins_again_ = false;
    }
    all.is_empty_ = false;
    return all;
}

Limits WayOfMode::limits_below(const vel_context &ctx, u32 master) {
    climbed_.clear();
    for (u32 at = master; !leads_to(ctx, at); at = object_at(ctx, at).master) {
        climbed_.push_back(at);
        if (object_at(ctx, at).master == 0) {
            clear();
            break;
        }
    }
    // A long climb takes its room at once; one level more grows it as vectors do.
    const std::size_t length = levels_.size() + climbed_.size();
    if (length > 2 * levels_.capacity()) levels_.reserve(length);
    for (; !climbed_.empty(); climbed_.pop_back()) append(ctx, climbed_.back());
    return {levels_.back().x.limits(), levels_.back().y.limits()};
}

// Mostly to its end, or to an object just below its end, which is not worth a search.
bool WayOfMode::leads_to(const vel_context &ctx, u32 number) {
    if (numbers_.empty()) return false;
    if (numbers_.back() == number) return true;
    return object_at(ctx, number).master != numbers_.back() && is_on_it(number);
}

// Cuts off what comes after it.
bool WayOfMode::is_on_it(u32 number) {
    const auto found = std::find(numbers_.rbegin(), numbers_.rend(), number);
    if (found == numbers_.rend()) return false;
    cut(static_cast<std::size_t>(numbers_.rend() - found));
    return true;
}

void WayOfMode::cut(std::size_t length) {
    const auto kept = static_cast<std::ptrdiff_t>(length);
    numbers_.erase(numbers_.begin() + kept, numbers_.end());
    levels_.erase(levels_.begin() + kept, levels_.end());
}

void WayOfMode::append(const vel_context &ctx, u32 number) {
    Level level;
    if (!levels_.empty()) {
        const vel_object &o = object_at(ctx, number);
        const Level &above = levels_.back();
        level.x = above.x.before(limits_of_master(ctx, o, clip_mode_, horizontal));
        level.y = above.y.before(limits_of_master(ctx, o, clip_mode_, vertical));
    }
    levels_.push_back(level);
    try {
        numbers_.push_back(number);
    } catch (...) {
        levels_.pop_back();
        throw;
    }
}

Limits Way::limits_of(const vel_context &ctx, const vel_object &object) {
    return ways_[std::min(object.clip_mode, no_own_limits)].limits_below(ctx, object.master);
}

void Way::forget(u32 object) {
    for (WayOfMode &way : ways_) way.forget(object);
}

void Way::clear() {
    for (WayOfMode &way : ways_) way.clear();
}

} // namespace velumo
