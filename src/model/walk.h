// Walks over the dependents of an object, and theirs. For every subsystem.
#pragma once

#include "model/objects.h"

namespace velumo {

// Depth first, each dependent before its own. The levels above the present one lie on the heap, so
// that a form nested thousands of levels deep cannot exhaust the stack; without memory for them,
// what lies deeper is left out.
class DependentWalk {
public:
    DependentWalk(const vel_context &ctx, u32 master);

    // The number of the next dependent; 0 at the end.
    u32 next();
    // Goes on with the dependents of the one that came last.
    void descend();

private:
    const vel_context &ctx_;
    u32 last_ = 0;
    std::span<const u32> level_;
    std::vector<std::span<const u32>> above_;
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
