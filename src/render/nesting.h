// How the limits of nested masters follow from each other. For the limits of objects.
#pragma once

#include <limits>
#include <vector>

#include "render/geometry.h"

namespace velumo {

// Limits that a top-level master sets to its direct dependents.
Span direct_limits(const vel_context &ctx, const vel_object &object, const Axis &axis);

// The tightest limits of all masters of an object that has several.
Span nested_limits(const vel_context &ctx, u32 number, u32 root, const Axis &axis);

// The tightest limits from one master upwards. A nearer one can be put before them.
class Tightest {
public:
    Tightest before(Span nearer) const;
    Span limits() const { return {begin_, end()}; }

private:
    i64 end() const { return begins_again_ ? end_after_ : least_end_; }

    i64 begin_ = 1;
    i64 least_end_ = std::numeric_limits<i64>::max();
    bool begins_again_ = false; // after an end of 0, before any that is less
    i64 end_after_ = 0;         // then
    bool is_empty_ = true;
};

// What the masters of nested objects set together, as far as it is known: each master is looked at
// once, in whatever order objects are.
class KnownLimits {
public:
    explicit KnownLimits(u32 clip_mode) : clip_mode_(clip_mode) {}

    // Of the objects whose master is this one, below a root. Throws std::bad_alloc.
    Limits limits_below(const vel_context &ctx, u32 master);
    // Also what is known of others, when that followed from it.
    void forget(const vel_context &ctx, u32 master);
    void clear();

private:
    struct Master {
        u32 record;
        bool limits_others = false; // that are known
        Tightest x{}, y{};
    };

    static constexpr std::size_t unknown = std::numeric_limits<std::size_t>::max();
    std::size_t place_of(u32 record) const;
    std::size_t find(const vel_context &ctx, u32 number);
    void append(u32 record);
    void set_limits(const vel_context &ctx, Master &master, std::size_t above) noexcept;

    const u32 clip_mode_;
    std::vector<Master> masters_;
    std::vector<u32> places_; // in it, by record; anything for those that are not there
    std::size_t looked_at_ = 0;
};

class NestedLimits : public Kept {
public:
    u32 users = 0;

    // The limits of an object whose master has a master. Throws std::bad_alloc.
    Limits limits_of(const vel_context &ctx, const vel_object &object);

    // To be called when an object was moved or resized.
    void forget(const vel_context &ctx, u32 object);
    void clear();

private:
    KnownLimits modes_[3] = {KnownLimits(0), KnownLimits(1), KnownLimits(2)};
};

} // namespace velumo
