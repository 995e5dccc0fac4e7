#include "render/nesting.h"

#include <new>

#include "model/walk.h"

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
Span nested_limits(const vel_context &ctx, u32 number, u32 root, const Axis &axis) {
    const u32 clip_mode = object_at(ctx, number).clip_mode;
    Span limits = not_limited_yet;
    for (const u32 master : Masters(ctx, number)) {
        if (master == root) break;
        const Span next = limits_of_master(ctx, object_at(ctx, master), clip_mode, axis);
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

std::size_t KnownLimits::place_of(u32 record) const {
    if (record >= places_.size()) return unknown;
    const std::size_t place = places_[record];
    return place < masters_.size() && masters_[place].record == record ? place : unknown;
}

Limits KnownLimits::limits_below(const vel_context &ctx, u32 master) {
    const std::size_t place = find(ctx, master);
    return {masters_[place].x.limits(), masters_[place].y.limits()};
}

// Those that are not known are appended from the lowest to the highest, and get their limits from
// the highest to the lowest. A ring of masters has its top where it closes.
std::size_t KnownLimits::find(const vel_context &ctx, u32 number) {
    const std::size_t first = masters_.size();
    std::size_t above = unknown;
    try {
        for (u32 at = number; at != 0 && above == unknown; at = object_at(ctx, at).master) {
            above = place_of(object_index(ctx, at));
            if (above == unknown) append(object_index(ctx, at));
        }
    } catch (...) {
        masters_.erase(masters_.begin() + static_cast<std::ptrdiff_t>(first), masters_.end());
        throw;
    }
    if (masters_.size() == first) return above;
    if (above != unknown && above >= first) above = unknown;
    for (std::size_t k = masters_.size(); k-- > first; above = k) {
        set_limits(ctx, masters_[k], above);
    }
    return first;
}

void KnownLimits::append(u32 record) {
    // In a table of unknown length any number may come.
    constexpr u32 most_records = 1U << 24;
    if (record >= most_records) throw std::bad_alloc();
    if (record >= places_.size()) places_.resize(record + record / 2 + 1);
    masters_.push_back({record});
    places_[record] = static_cast<u32>(masters_.size() - 1);
    ++looked_at_;
}

void KnownLimits::set_limits(const vel_context &ctx, Master &master, std::size_t above) noexcept {
    if (above == unknown) return;
    const vel_object &o = object_at(ctx, master.record);
    Master &next = masters_[above];
    next.limits_others = true;
    master.x = next.x.before(limits_of_master(ctx, o, clip_mode_, horizontal));
    master.y = next.y.before(limits_of_master(ctx, o, clip_mode_, vertical));
}

// Objects are mostly moved before what hangs on them is looked at. Where a form is so entangled
// that this fails again and again, the limits of before the move stay, so that no more masters are
// looked at again.
void KnownLimits::forget(const vel_context &ctx, u32 master) {
    constexpr std::size_t most_looks = 1U << 20;
    constexpr u32 no_record = 0xFFFFFFFF;
    const std::size_t place = place_of(object_index(ctx, master));
    if (place == unknown) return;
    if (!masters_[place].limits_others) {
        masters_[place].record = no_record;
    } else if (looked_at_ < most_looks || !is_guarded) {
        masters_.clear();
    }
}

void KnownLimits::clear() {
    masters_.clear();
    looked_at_ = 0;
}

Limits NestedLimits::limits_of(const vel_context &ctx, const vel_object &object) {
    return modes_[std::min(object.clip_mode, no_own_limits)].limits_below(ctx, object.master);
}

void NestedLimits::forget(const vel_context &ctx, u32 object) {
    for (KnownLimits &mode : modes_) mode.forget(ctx, object);
}

void NestedLimits::clear() {
    for (KnownLimits &mode : modes_) mode.clear();
}

} // namespace velumo
