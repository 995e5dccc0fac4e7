#include "input/keyboard.h"

#include "input/caret.h"
#include "input/event_key.h"
#include "input/key_repeat.h"
#include "input/text_cursor.h"
#include "input/typing.h"

namespace velumo {
namespace {

constexpr u32 last_latin1_character = 0xFF;

struct ControlKey {
    SDLKey symbol;
    u32 code;
};
constexpr ControlKey control_keys[] = {
    {SDLK_BACKSPACE, VEL_KEY_BACKSPACE},
    {SDLK_DELETE, VEL_KEY_DELETE},
    {SDLK_RETURN, VEL_KEY_ENTER},
    {SDLK_KP_ENTER, VEL_KEY_ENTER},
    {SDLK_UP, VEL_KEY_UP},
    {SDLK_DOWN, VEL_KEY_DOWN},
    {SDLK_RIGHT, VEL_KEY_RIGHT},
    {SDLK_LEFT, VEL_KEY_LEFT},
    {SDLK_INSERT, VEL_KEY_INSERT},
    {SDLK_HOME, VEL_KEY_HOME},
    {SDLK_END, VEL_KEY_END},
    {SDLK_PAGEUP, VEL_KEY_PAGE_UP},
    {SDLK_PAGEDOWN, VEL_KEY_PAGE_DOWN},
    // On the key pad, while Num Lock does not make characters of them.
    {SDLK_KP_PERIOD, VEL_KEY_DELETE},
    {SDLK_KP8, VEL_KEY_UP},
    {SDLK_KP2, VEL_KEY_DOWN},
    {SDLK_KP6, VEL_KEY_RIGHT},
    {SDLK_KP4, VEL_KEY_LEFT},
    {SDLK_KP0, VEL_KEY_INSERT},
    {SDLK_KP7, VEL_KEY_HOME},
    {SDLK_KP1, VEL_KEY_END},
    {SDLK_KP9, VEL_KEY_PAGE_UP},
    {SDLK_KP3, VEL_KEY_PAGE_DOWN},
};

bool is_control_character(u32 c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

bool has(const SDL_keysym &key, int modifiers) { return (key.mod & modifiers) != 0; }

// Right Alt is AltGr where the layout makes another character of the key with it.
bool types_nothing(const SDL_keysym &key) {
    if (has(key, KMOD_CTRL | KMOD_LALT | KMOD_META)) return !has(key, KMOD_MODE);
    const u32 plain = static_cast<u32>(key.sym);
    return has(key, KMOD_RALT) && (key.unicode | 0x20U) == (plain | 0x20U);
}

// The character of a press; 0 for none.
u32 character_of(const SDL_keysym &key) {
    return types_nothing(key) || is_control_character(key.unicode) ? 0 : key.unicode;
}

u32 modifiers_of(const SDL_keysym &key) {
    return (has(key, KMOD_SHIFT) ? u32{VEL_KEY_SHIFT} : 0) |
           (has(key, KMOD_CTRL) ? u32{VEL_KEY_CONTROL} : 0);
}

// The key with its modifiers; 0 for keys that are no keys of an editor.
u32 control_key_of(const SDL_keysym &key) {
    if (has(key, KMOD_ALT | KMOD_META)) return VEL_KEY_NONE;
    for (const ControlKey &row : control_keys) {
        if (row.symbol == key.sym) return row.code | modifiers_of(key);
    }
    // With Ctrl, SDL gives the letters of the layout as the control characters 1 to 26;
    // sdl12-compat gives them as they are.
    const u32 letter = key.unicode < ' ' ? key.unicode + u32{'a'} - 1 : key.unicode | 0x20U;
    const bool is_letter = has(key, KMOD_CTRL) && letter >= 'a' && letter <= 'z';
    return is_letter ? letter | modifiers_of(key) : u32{VEL_KEY_NONE};
}

void hand_over(vel_context &ctx, u32 key, bool is_character) {
    ctx.final_key = key;
    ctx.key_printable = is_character ? 1 : 0;
    ctx.event.type = SDL_NOEVENT;
}

} // namespace

void use_layout() {
    if (SDL_EnableUNICODE(-1) != 0) return;
    SDL_EnableUNICODE(1);
    int delay = 0;
    int interval = 0;
    SDL_GetKeyRepeat(&delay, &interval);
    if (delay != 0) return;
    const KeyRepeat repeat = system_key_repeat();
    SDL_EnableKeyRepeat(repeat.delay, repeat.interval);
}

void translate_by_layout(vel_context &ctx) {
    if (ctx.event.type != SDL_KEYDOWN || text_owner(ctx, ctx.cursor_object) == 0) return;
    const SDL_keysym key = key_of(ctx.event);
    const u32 character = character_of(key);
    if (character > last_latin1_character) {
        refuse(ctx, VEL_REFUSED_CHARACTER, character);
        ctx.event.type = SDL_NOEVENT;
        show_object(ctx, ctx.cursor_object);
    } else if (character != 0) {
        hand_over(ctx, character, true);
    } else if (const u32 control = control_key_of(key);
               is_typing_key(ctx, ctx.cursor_object, control)) {
        hand_over(ctx, control, false);
    }
}

} // namespace velumo
