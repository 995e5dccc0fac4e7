// Whether the library guards itself against files, fonts, pictures and chains that no form tool
// makes. For every subsystem.
#pragma once

namespace velumo {

// Only fuzz/ builds the library without, to show that what a valid form shows does not depend on
// it.
#ifdef VELUMO_UNGUARDED
inline constexpr bool is_guarded = false;
#else
inline constexpr bool is_guarded = true;
#endif

} // namespace velumo
