#include "text/letters.h"

namespace velumo {
namespace {

bool is_latin_letter(u32 c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xFF);
}
bool is_digit(u32 c) { return c >= '0' && c <= '9'; }

} // namespace

u32 small_letter(u32 character) {
    const u32 c = character;
    const bool is_capital = (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
    return is_capital ? c + ('a' - 'A') : c;
}

// What the layout makes of the key comes first: an '@' that some layouts have on the right Alt key
// is no letter, whatever the key.
char letter_of(const SDL_keysym &key) {
    const bool is_typed = key.unicode > ' ' && key.unicode != 0x7F;
    const u32 c = is_typed ? key.unicode : static_cast<u32>(key.sym);
    return is_latin_letter(c) || is_digit(c) ? static_cast<char>(small_letter(c)) : '\0';
}

} // namespace velumo
