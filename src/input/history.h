// Undo and redo: the steps that changed a text. For comfortable typing.
#pragma once

#include <optional>
#include <string_view>

#include "model/objects.h"

namespace velumo {

// The history of an object's text, which a program may have changed since: then it begins again.
// Throws std::bad_alloc.
History &history_of(vel_context &ctx, u32 object, std::string_view text);

// Keeps a step that was done, and what the text is after it. Characters typed one after the other
// are one step for each word, with the blanks after it.
enum class Joins { never, typed_character };
void keep_step(History &history, Step step, Joins joins, std::string_view text);

// The step to take back or to do again, if there is one; it then counts as undone or done.
std::optional<Step> step_back(History &history);
std::optional<Step> step_forward(History &history);

} // namespace velumo
