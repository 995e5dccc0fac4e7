// A form of 20 objects, and its three texts, for a surface of 100 by 80 pixels. For
// exhaustive runs and fault loops.
#pragma once

#include "form_bytes.h"

namespace fuzz {

inline constexpr u32 small_window = 8, small_text = 9, small_menu = 11, small_dialog = 13,
                     small_list = 15, small_name = 17;

FormBytes small_form();

} // namespace fuzz
