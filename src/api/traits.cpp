// The exported functions of what objects are beyond their records.
#include "model/traits.h"
#include "api/calls.h"

using namespace velumo;

namespace {

// Lets change alter the traits of an object. Returns a code of vel_result.
template <class Change> i32 change_traits(vel_context *ctx, u32 object, Change change) {
    if (!has_form(ctx) || !is_known_object(*ctx, object)) return VEL_ERROR_ARGUMENT;
    return in_form_or(i32{VEL_ERROR_MEMORY}, ctx, [=](vel_context &c) {
        change(own_traits(c, object));
        return VEL_OK;
    });
}

} // namespace

int32_t vel_set_enabled(vel_context *ctx, uint32_t object, uint32_t enabled) noexcept {
    return change_traits(ctx, object, [=](Traits &traits) { traits.disabled = enabled == 0; });
}

uint32_t vel_is_enabled(const vel_context *ctx, uint32_t object) noexcept {
    return has_form(ctx) && is_known_object(*ctx, object) && is_enabled(*ctx, object) ? 1 : 0;
}

int32_t vel_set_password(vel_context *ctx, uint32_t object, uint32_t password) noexcept {
    return change_traits(ctx, object, [=](Traits &traits) { traits.password = password != 0; });
}

int32_t vel_set_answer(vel_context *ctx, uint32_t object, uint32_t answer) noexcept {
    if (answer > VEL_ANSWER_CANCEL) return VEL_ERROR_ARGUMENT;
    return change_traits(ctx, object, [=](Traits &traits) { traits.answer = answer; });
}

int32_t vel_set_access_key(vel_context *ctx, uint32_t object, char key) noexcept {
    const char kept = access_key_of(key);
    if (key != '\0' && kept == '\0') return VEL_ERROR_ARGUMENT;
    return change_traits(ctx, object, [=](Traits &traits) { traits.key = kept; });
}
