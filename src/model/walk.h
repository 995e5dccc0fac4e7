// Walks over the dependents of an object, and theirs. For every subsystem.
#pragma once

#include "model/objects.h"

namespace velumo {

// Depth first, each dependent before its own. Of the levels above the present one the first few are
// here and the others on the heap, so that a form nested thousands of levels deep cannot exhaust
// the stack; without memory for them, what lies deeper is left out.
class DependentWalk {
public:
    DependentWalk(const vel_context &ctx, u32 master);

    // The number of the next dependent; 0 at the end.
    u32 next();
    // Goes on with the dependents of the one that came last.
    void descend();

private:
    void ascend();

    const vel_context &ctx_;
    u32 last_ = 0;
    std::span<const u32> level_;
    using Level = std::span<const u32>;
    Level near_[16];
    std::size_t near_count_ = 0;
    std::vector<Level> above_; // when all of the near ones are taken
};

enum class Walk { descend, skip, stop };

// The visitor gets each number and says whether to go on below it.
template <class Visitor> void walk_dependents(const vel_context &ctx, u32 master, Visitor visit) {
    DependentWalk walk(ctx, master);
    while (const u32 number = walk.next()) {
        const Walk way = visit(number);
        if (way == Walk::stop) return;
        if (way == Walk::descend) walk.descend();
    }
}

} // namespace velumo
