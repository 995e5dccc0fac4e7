#include "render/limits.h"

#include <new>

namespace velumo {
namespace {

NestedLimits *known_limits(const vel_context &ctx) {
    NestedLimits *known =
        ctx.state == nullptr ? nullptr : static_cast<NestedLimits *>(ctx.state->limits.get());
    return known == nullptr || known->users == 0 ? nullptr : known;
}

bool is_nested(const vel_context &ctx, const vel_object &o) {
    return o.master != 0 && object_at(ctx, o.master).master != 0;
}

Limits climbed_limits(const vel_context &ctx, u32 number) {
    const vel_object &object = object_at(ctx, number);
    const u32 root = root_of(ctx, number);
    if (object.master == root) {
        return {direct_limits(ctx, object, horizontal), direct_limits(ctx, object, vertical)};
    }
    return {nested_limits(ctx, number, root, horizontal),
            nested_limits(ctx, number, root, vertical)};
}

} // namespace

Limits dependent_limits(const vel_context &ctx, u32 number) {
    if (NestedLimits *known = known_limits(ctx)) return dependent_limits(ctx, number, *known);
    return climbed_limits(ctx, number);
}

Limits dependent_limits(const vel_context &ctx, u32 number, NestedLimits &known) try {
    const vel_object &object = object_at(ctx, number);
    return is_nested(ctx, object) ? known.limits_of(ctx, object) : climbed_limits(ctx, number);
} catch (const std::bad_alloc &) {
    return climbed_limits(ctx, number);
}

Limits text_limits(const vel_context &ctx, u32 number) {
    const vel_object &object = object_at(ctx, number);
    if (object.master == 0) {
        return {inside_margins(object, cut_size(ctx, object, horizontal), horizontal),
                inside_margins(object, cut_size(ctx, object, vertical), vertical)};
    }
    const Limits outer = dependent_limits(ctx, number);
    return {tighter(inside_margins(object, object.width, horizontal), outer.x),
            tighter(inside_margins(object, object.height, vertical), outer.y)};
}

KnownMasters::KnownMasters(const vel_context &ctx) : ctx_(ctx) {
    if (ctx.state == nullptr || ctx.state->draws_plainly) return;
    try {
        ++kept<NestedLimits>(ctx.state->limits).users;
        are_kept_ = true;
    } catch (const std::bad_alloc &) {
    }
}

NestedLimits *KnownMasters::limits() const { return are_kept_ ? known_limits(ctx_) : nullptr; }

KnownMasters::~KnownMasters() {
    if (!are_kept_) return;
    NestedLimits &known = *known_limits(ctx_);
    if (--known.users == 0) known.clear();
}

void forget_master(const vel_context &ctx, u32 object) {
    if (NestedLimits *known = known_limits(ctx)) known->forget(ctx, object);
}

} // namespace velumo
