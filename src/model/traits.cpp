#include "model/traits.h"

namespace velumo {

const Traits &traits_of(const vel_context &ctx, u32 number) {
    static constexpr Traits none;
    if (ctx.state == nullptr) return none;
    const auto found = ctx.state->traits.find(number);
    return found == ctx.state->traits.end() ? none : found->second;
}

Traits &own_traits(vel_context &ctx, u32 number) { return state_of(ctx).traits[number]; }

} // namespace velumo
