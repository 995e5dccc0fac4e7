// The clipboard, and the primary selection that the middle button pastes. For the editor and for
// the loops, which serve other programs while they rest.
#pragma once

#include <string>

#include "model/objects.h"
#include "model/shared_clipboard.h"

namespace velumo {

// Texts are UTF-8. Throw std::bad_alloc.
void offer(vel_context &ctx, Board board, std::string text);
// Waits for the program that owns the text, but not for long; empty when there is none.
std::string offered(vel_context &ctx, Board board);

// Answers what other programs have asked for.
void serve_clipboard(vel_context &ctx);
// Descriptor that becomes readable when they ask; -1 when there is no connection.
int clipboard_connection(const vel_context &ctx);

} // namespace velumo
