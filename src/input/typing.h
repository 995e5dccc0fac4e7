// Comfortable typing: what each key does to the caret, the selection and the text. For the loops.
#pragma once

#include "clipboard/clipboard.h"

namespace velumo {

// Larger key codes are no characters.
inline constexpr u32 last_character_code = 255;

// Whether typing in an object has a use for a key, with its modifiers. The others are left to the
// window: Tab, Escape, and in a field Enter and the keys that go up and down.
bool is_typing_key(const vel_context &ctx, u32 object, u32 key);

// Takes final_key and shows what changed; leaves the key where there is no text.
void type_key(vel_context &ctx);

// Puts a text that was copied in place of what is selected in the cursor object.
void paste(vel_context &ctx, Board board);

} // namespace velumo
