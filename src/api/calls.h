// How the exported functions call the core: with a form or not at all, and never letting an
// exception out. For the files of this folder.
#pragma once

#include <new>
#include <type_traits>

#include "model/objects.h"

namespace velumo {

// The core works on the objects of a context. There are none in a null context, before start-up
// and after vel_close().
inline bool has_form(const vel_context *ctx) { return ctx != nullptr && has_objects(*ctx); }
inline bool has_screen(const vel_context *ctx) { return ctx != nullptr && ctx->screen != nullptr; }

template <class... Pointers> bool are_given(const Pointers *...pointers) {
    return ((pointers != nullptr) && ...);
}

// Calls a function of the core with the context. Without a form nothing happens, and without
// memory nothing has; then the result is the other one.
template <class Result, class Context, class Function, class... Arguments>
Result in_form_or(Result otherwise, Context *ctx, Function function,
                  Arguments... arguments) noexcept try {
    return has_form(ctx) ? function(*ctx, arguments...) : otherwise;
} catch (const std::bad_alloc &) {
    return otherwise;
}

// The same, where the other result is 0 or there is none.
template <class Context, class Function, class... Arguments>
auto in_form(Context *ctx, Function function, Arguments... arguments) noexcept {
    using Result = std::invoke_result_t<Function, Context &, Arguments...>;
    if constexpr (std::is_void_v<Result>) {
        in_form_or(0, ctx, [&](Context &c) { return function(c, arguments...), 0; });
    } else {
        return in_form_or(Result(), ctx, function, arguments...);
    }
}

// Writes to where a program wants something, if it does.
template <class Value> void write(Value *to, Value value) {
    if (to != nullptr) *to = value;
}

inline const char *or_empty(const char *string) { return string == nullptr ? "" : string; }

} // namespace velumo
