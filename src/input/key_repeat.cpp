#include "input/key_repeat.h"

#include <SDL.h>

#if defined(VELUMO_X11)
#include <xcb/xcbext.h>

#include "clipboard/x11_connection.h"
#endif

namespace velumo {
namespace {

constexpr KeyRepeat usual{SDL_DEFAULT_REPEAT_DELAY, SDL_DEFAULT_REPEAT_INTERVAL};

#if defined(VELUMO_X11)

// Libxcb itself does not know this extension. These are its messages, as far as they matter here.
constexpr char extension_name[] = "XKEYBOARD";
constexpr std::uint16_t oldest_version = 1, core_keyboard = 0x100;
constexpr std::uint32_t repeats_keys = 1;
enum Code : std::uint8_t { use_extension = 0, get_controls = 6 };
struct Request {
    std::uint8_t extension;
    Code code;
    std::uint16_t length, argument, none;
};
struct Controls {
    std::uint32_t header, length, others_before[3];
    std::uint16_t delay, interval;
    std::uint32_t others_between[8], enabled, each_key[8];
};
static_assert(sizeof(Request) == 8 && sizeof(Controls) == 92);

// The answer has at least 32 bytes.
Received<Controls> ask(const X11Connection &server, Request request) {
    const xcb_protocol_request_t about{1, nullptr, request.extension, 0};
    iovec parts[3]{}; // the first two are for libxcb
    parts[2] = {&request, sizeof request};
    const unsigned number = xcb_send_request(server.raw(), XCB_REQUEST_CHECKED, parts + 2, &about);
    xcb_generic_error_t *error = nullptr;
    Received<Controls> answer(
        static_cast<Controls *>(xcb_wait_for_reply(server.raw(), number, &error)));
    std::free(error);
    return answer;
}

KeyRepeat repeat_of_server() {
    const X11Connection server;
    if (!server.is_alive()) return usual;
    const auto asked = xcb_query_extension(server.raw(), sizeof extension_name - 1, extension_name);
    const Received<xcb_query_extension_reply_t> extension(
        xcb_query_extension_reply(server.raw(), asked, nullptr));
    if (extension == nullptr || extension->present == 0) return usual;
    const std::uint8_t opcode = extension->major_opcode;
    ask(server, {opcode, use_extension, 0, oldest_version, 0});
    const auto controls = ask(server, {opcode, get_controls, 0, core_keyboard, 0});
    const bool is_whole = controls != nullptr && controls->length >= (sizeof(Controls) - 32) / 4;
    if (!is_whole || controls->delay == 0 || controls->interval == 0) return usual;
    if ((controls->enabled & repeats_keys) == 0) return {0, 0};
    return {controls->delay, controls->interval};
}

#endif

} // namespace

KeyRepeat system_key_repeat() {
#if defined(VELUMO_X11)
    if (runs_on_x11()) return repeat_of_server();
#endif
    return usual;
}

} // namespace velumo
