#include "model/walk.h"

namespace velumo {

DependentWalk::DependentWalk(const vel_context &ctx, u32 master)
    : ctx_(ctx), levels_{dependents_of(object_at(ctx, master))} {}

u32 DependentWalk::next() {
    while (!levels_.empty() && levels_.back().empty()) levels_.pop_back();
    if (levels_.empty()) return 0;
    last_ = levels_.back().front();
    levels_.back() = levels_.back().subspan(1);
    return last_;
}

void DependentWalk::descend() { levels_.push_back(dependents_of(object_at(ctx_, last_))); }

} // namespace velumo
