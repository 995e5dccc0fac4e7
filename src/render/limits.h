// The limits that masters set to what objects and their texts show. For drawing, text layout and
// hit tests.
#pragma once

#include "render/nesting.h"

namespace velumo {

Limits dependent_limits(const vel_context &ctx, u32 object);
// The same for a walk that keeps them itself.
Limits dependent_limits(const vel_context &ctx, u32 object, NestedLimits &known);
Limits text_limits(const vel_context &ctx, u32 object);

// As long as one of these lives, the limits that the masters of one object set together are known
// for the next: a walk down a form does not climb to its top for each object.
class KnownMasters {
public:
    explicit KnownMasters(const vel_context &ctx);
    ~KnownMasters();
    // Null when there is no state to keep it in.
    NestedLimits *limits() const;
    KnownMasters(const KnownMasters &) = delete;
    KnownMasters &operator=(const KnownMasters &) = delete;

private:
    const vel_context &ctx_;
    bool are_kept_ = false;
};

// To be called when an object was moved or resized meanwhile.
void forget_master(const vel_context &ctx, u32 object);

} // namespace velumo
