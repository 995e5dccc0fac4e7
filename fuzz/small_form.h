// A form of 20 objects of every type, and its three texts, for a surface of 100 by 80 pixels. For
// exhaustive runs and fault loops.
#pragma once

#include "form_bytes.h"

namespace fuzz {

inline constexpr u32 small_window = 8, small_entry = 11, small_text = 10, small_menu = 14,
                     small_dialog = 15, small_list = 17;

FormBytes small_form();

} // namespace fuzz
