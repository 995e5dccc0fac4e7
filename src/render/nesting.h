// How the limits of nested masters follow from each other. For the limits of objects.
#pragma once

#include <limits>

#include "render/geometry.h"

namespace velumo {

// Limits that a top-level master sets to its direct dependents.
Span direct_limits(const vel_context &ctx, const vel_object &object, const Axis &axis);

// The tightest limits of all masters of an object that has several.
Span nested_limits(const vel_context &ctx, const vel_object &object, u32 root, const Axis &axis);

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

// The masters from a root down to one of its dependents, and what they set together to objects of
// one clip mode.
class WayOfMode {
public:
    explicit WayOfMode(u32 clip_mode) : clip_mode_(clip_mode) {}

    // Of the objects whose master is this one, below a root. The way then ends there. Throws
    // std::bad_alloc.
    Limits limits_below(const vel_context &ctx, u32 master);
    void forget(u32 object) {
        if (is_on_it(object)) cut(numbers_.size() - 1);
    }
    void clear() { cut(0); }

private:
    struct Level {
        Tightest x, y;
    };

    bool leads_to(const vel_context &ctx, u32 number);
    bool is_on_it(u32 number);
    void cut(std::size_t length);
    void append(const vel_context &ctx, u32 number);

    const u32 clip_mode_;
    std::vector<u32> numbers_;
    std::vector<Level> levels_;
    std::vector<u32> climbed_; // masters below the way, the lowest first
};

class Way : public Kept {
public:
    u32 users = 0;

    // The limits of an object whose master has a master. Those of the next object nearby then cost
    // no climbing. Throws std::bad_alloc.
    Limits limits_of(const vel_context &ctx, const vel_object &object);

    // To be called when an object was moved or resized.
    void forget(u32 object);
    void clear();

private:
    WayOfMode ways_[3] = {WayOfMode(0), WayOfMode(1), WayOfMode(2)};
};

} // namespace velumo
