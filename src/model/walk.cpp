#include "model/walk.h"

#include <new>

namespace velumo {

DependentWalk::DependentWalk(const vel_context &ctx, u32 master)
    : ctx_(ctx), level_(dependents_of(object_at(ctx, master))) {}

u32 DependentWalk::next() {
    while (level_.empty() && near_count_ != 0) ascend();
    if (level_.empty()) return 0;
    last_ = level_.front();
    level_ = level_.subspan(1);
    return last_;
}

void DependentWalk::ascend() {
    if (above_.empty()) {
        level_ = near_[--near_count_];
    } else {
        level_ = above_.back();
        above_.pop_back();
    }
}

void DependentWalk::descend() try {
    const vel_object &o = object_at(ctx_, last_);
    if (!has_dependents(o)) return;
    if (near_count_ < std::size(near_)) {
        near_[near_count_++] = level_;
    } else {
        above_.push_back(level_);
    }
    level_ = dependents_of(o);
} catch (const std::bad_alloc &) {
}

} // namespace velumo
