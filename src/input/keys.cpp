#include "input/keys.h"

#include "input/event_key.h"
#include "input/keyboard.h"
#include "model/traits.h"

namespace velumo {
namespace {

enum class Kind { character, control };

// Codes of the key symbols from first to last; the codes of a range rise with the symbols.
struct KeyRow {
    u32 first, last;
    u32 plain, shifted, alt;
    Kind kind;
};

constexpr KeyRow key(u32 symbol, u32 shifted, u32 alt) {
    return {symbol, symbol, symbol, shifted, alt, Kind::character};
}
constexpr KeyRow key(u32 symbol, u32 shifted) { return key(symbol, shifted, symbol); }
constexpr KeyRow letters(u32 first, u32 last) {
    return {first, last, first, first - 32, first, Kind::character};
}
constexpr KeyRow controls(u32 first, u32 last, u32 code) {
    return {first, last, code, code, code, Kind::control};
}

// The first row that has a symbol counts. Characters are those of ISO 8859-1.
constexpr KeyRow key_rows[] = {
    key(' ', ' '),
    key(246, 214),       // o umlaut
    key(252, 220),       // u umlaut
    key(228, 196),       // a umlaut
    key(223, '?', '\\'), // sharp s
    // On purpose: Alt and e give a code that is no character, and so type nothing.
    key('e', 'E', 321),
    key('q', 'Q', '@'),
    letters('a', 'z'),
    key('1', '!'),
    key('2', '"'),
    // On purpose: Shift and 3 give the paragraph sign with its sign carried on to 32 bits, which is
    // no character, and so type nothing.
    key('3', static_cast<u32>(-89)),
    key('4', '$'),
    key('5', '%'),
    key('6', '&'),
    key('7', '/', '{'),
    key('8', '(', '['),
    key('9', ')', ']'),
    key('0', '=', '}'),
    key('+', '*', '~'),
    key('#', '\''),
    key(',', ';'),
    key('.', ':'),
    key('-', '_'),
    key('<', '<', '|'),
    // On purpose: no key has this symbol, the acute accent carried on to 32 bits, so that the
    // accent is what the row for all others makes of it.
    key(static_cast<u32>(-76), '`'),
    controls(SDLK_UP, SDLK_INSERT, VEL_KEY_UP),
    controls(SDLK_BACKSPACE, SDLK_BACKSPACE, VEL_KEY_BACKSPACE),
    controls(SDLK_DELETE, SDLK_DELETE, VEL_KEY_DELETE),
    controls(SDLK_RETURN, SDLK_RETURN, VEL_KEY_ENTER),
    controls(SDLK_KP_ENTER, SDLK_KP_ENTER, VEL_KEY_ENTER),
    {1, 255, 1, 1, 1, Kind::character}, // without 0, the symbol of keys that SDL does not know
};

const KeyRow *row_of(u32 symbol) {
    const auto *row =
        std::find_if(std::begin(key_rows), std::end(key_rows),
                     [symbol](const KeyRow &r) { return r.first <= symbol && symbol <= r.last; });
    return row == std::end(key_rows) ? nullptr : row;
}

// On purpose: the modifiers are compared as a whole, so a key counts as plain with Caps Lock or
// with two modifiers.
u32 code_of(const KeyRow &row, u32 symbol, u32 modifiers) {
    const u32 step = symbol - row.first;
    if (modifiers == KMOD_LSHIFT || modifiers == KMOD_RSHIFT) return row.shifted + step;
    return (modifiers == KMOD_LALT ? row.alt : row.plain) + step;
}

// On purpose: a numeric field looks at the key, not at what it gives: shifted digits count, too.
bool is_digit_key(u32 symbol) { return symbol >= SDLK_0 && symbol <= SDLK_9; }

} // namespace

void translate_key_press(vel_context &ctx) {
    if (has_comfort(ctx, VEL_COMFORT_TYPING)) {
        translate_by_layout(ctx);
        return;
    }
    if (ctx.cursor_object == 0 || ctx.event.type != SDL_KEYDOWN) return;
    const SDL_keysym keysym = key_of(ctx.event);
    const auto symbol = static_cast<u32>(keysym.sym);
    const KeyRow *row = row_of(symbol);
    if (row != nullptr) ctx.key_printable = row->kind == Kind::character ? 1 : 0;
    if (object_at(ctx, ctx.cursor_object).type == VEL_TYPE_NUMBER) {
        ctx.key_printable = is_digit_key(symbol) ? 1 : 0;
    }
    const u32 code = row == nullptr ? 0 : code_of(*row, symbol, static_cast<u32>(keysym.mod));
    if (code == 0) return;
    ctx.key_code = code;
    ctx.event.key.keysym.sym = SDLK_UNKNOWN;
    ctx.event.type = SDL_NOEVENT;
}

void deliver_key(vel_context &ctx) {
    if (ctx.event.type != SDL_KEYUP || ctx.key_code == 0) return;
    ctx.final_key = ctx.key_code;
    ctx.key_code = 0;
}

} // namespace velumo
