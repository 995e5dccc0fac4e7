// The flow of one stream of text through a chain of objects. For layout and the interface.
#pragma once

#include "text/words.h"

namespace velumo {

// A place in a chain: a member by its position in the master's list, and a place in its text.
struct ChainPlace {
    u32 position, member;
    Place place;
};

// Returns the line reached in the last member.
u32 format_chain(vel_context &ctx, u32 master);

// Places one word and sets its length to 0, going on to following members where lines run out.
// Returns -1 when the chain ended, else 0 or 1 as vel_copy_word_big does.
i32 place_word_in_chain(vel_context &ctx, u32 master, ChainPlace &at, Word &word, bool break_after);

// The member that is left keeps the number of its lines. An object that is no member ends the
// chain; position, member and text are then those of the failed attempt.
bool go_to_next_member(vel_context &ctx, u32 master, ChainPlace &at);

} // namespace velumo
