#include "model/walk.h"

#include <new>

namespace velumo {
namespace {

constexpr u32 visits_of_each = 8;
constexpr u32 visits_besides = 1000;
constexpr u32 objects_of_unknown_table = 4096;

u32 most_objects(const vel_context &ctx) {
    const u32 records = object_records(ctx);
    const u32 most = records != 0 ? records : std::max(ctx.object_count, objects_of_unknown_table);
    return std::min(most, (0xFFFFFFFF - visits_besides) / visits_of_each);
}

} // namespace

Steps::Steps(const vel_context &ctx) : left_(visits_of_each * most_objects(ctx) + visits_besides) {}

// The master that is compared with follows at ever longer distances, so that it comes into the ring
// and the ring fits between two of them.
Masters::Iterator &Masters::Iterator::operator++() {
    at_ = object_at(ctx_, at_).master;
    if (at_ == seen_ && is_guarded) {
        at_ = 0;
    } else if (++steps_ == steps_to_next_) {
        seen_ = at_;
        steps_ = 0;
        steps_to_next_ *= 2;
    }
    return *this;
}

DependentWalk::DependentWalk(const vel_context &ctx, u32 master, Steps &steps)
    : ctx_(ctx), steps_(steps), level_(dependents_of(object_at(ctx, master))) {}

u32 DependentWalk::next() {
    while (level_.empty() && near_count_ != 0) ascend();
    if (level_.empty() || !steps_.take()) return 0;
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
