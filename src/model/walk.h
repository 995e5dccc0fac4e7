// Walks from an object up to its masters, and down to its dependents and theirs. Both end, whatever
// a program writes into the records. For every subsystem.
#pragma once

#include <iterator>

#include "model/guard.h"
#include "model/objects.h"

namespace velumo {

// How many dependents walks may still visit. A form lists an object once, so this is enough to
// visit each several times, but not to follow a ring for ever.
class Steps {
public:
    explicit Steps(const vel_context &ctx);
    bool take() { return !is_guarded || (left_ != 0 && left_-- != 0); }

private:
    u32 left_;
};

// The masters of an object, the nearest first. A ring of them ends after it was seen wholly.
class Masters {
public:
    Masters(const vel_context &ctx, u32 object)
        : ctx_(ctx), first_(object_at(ctx, object).master) {}

    class Iterator {
    public:
        Iterator(const vel_context &ctx, u32 at) : ctx_(ctx), at_(at), seen_(at) {}
        u32 operator*() const { return at_; }
        Iterator &operator++();
        bool operator!=(std::default_sentinel_t) const { return at_ != 0; }

    private:
        const vel_context &ctx_;
        u32 at_;
        u32 seen_; // in a ring the walk comes back to it
        u32 steps_ = 0, steps_to_next_ = 1;
    };
    Iterator begin() const { return {ctx_, first_}; }
    static std::default_sentinel_t end() { return {}; }

private:
    const vel_context &ctx_;
    const u32 first_;
};

// Depth first, each dependent before its own. Of the levels above the present one the first few are
// here and the others on the heap, so that a form nested thousands of levels deep cannot exhaust
// the stack; without memory for them, what lies deeper is left out.
class DependentWalk {
public:
    DependentWalk(const vel_context &ctx, u32 master, Steps &steps);

    // The number of the next dependent; 0 at the end.
    u32 next();
    // Goes on with the dependents of the one that came last.
    void descend();

private:
    void ascend();

    const vel_context &ctx_;
    Steps &steps_;
    u32 last_ = 0;
    std::span<const u32> level_;
    using Level = std::span<const u32>;
    Level near_[16];
    std::size_t near_count_ = 0;
    std::vector<Level> above_; // when all of the near ones are taken
};

enum class Walk { descend, skip, stop };

// The visitor gets each number and says whether to go on below it.
template <class Visitor>
void walk_dependents(const vel_context &ctx, u32 master, Steps &steps, Visitor visit) {
    DependentWalk walk(ctx, master, steps);
    while (const u32 number = walk.next()) {
        const Walk way = visit(number);
        if (way == Walk::stop) return;
        if (way == Walk::descend) walk.descend();
    }
}
template <class Visitor> void walk_dependents(const vel_context &ctx, u32 master, Visitor visit) {
    Steps steps(ctx);
    walk_dependents(ctx, master, steps, visit);
}

} // namespace velumo
