// What a program can do: each function of the library, and changes of what it may change. For
// programs.
#pragma once

#include "program.h"

namespace fuzz {

// The script says which and with what.
void do_action(Program &program);

// The first ones change records and the context in any way; from this one on they call the library.
inline constexpr u8 open_window_action = 9, change_part_action = 23, wait_action = 30;
std::size_t action_count();

} // namespace fuzz
