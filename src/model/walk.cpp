#include "model/walk.h"

#include <new>

namespace velumo {

DependentWalk::DependentWalk(const vel_context &ctx, u32 master)
    : ctx_(ctx), level_(dependents_of(object_at(ctx, master))) {}

u32 DependentWalk::next() {
    while (level_.empty() && !above_.empty()) {
        level_ = above_.back();
        above_.pop_back();
    }
    if (level_.empty()) return 0;
    last_ = level_.front();
    level_ = level_.subspan(1);
    return last_;
}

void DependentWalk::descend() try {
    const vel_object &o = object_at(ctx_, last_);
    if (!has_dependents(o)) return;
    above_.push_back(level_);
    level_ = dependents_of(o);
} catch (const std::bad_alloc &) {
}

} // namespace velumo
