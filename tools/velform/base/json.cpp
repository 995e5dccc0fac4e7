#include "base/json.h"

#include <cstdint>

#include <fmt/format.h>

namespace velform {

std::string json_string(std::string_view utf8) {
    std::string json = "\"";
    for (std::size_t k = 0; k < utf8.size(); ++k) {
        const auto byte = static_cast<std::uint8_t>(utf8[k]);
        // Also U+0080 to U+009F, which steer a terminal.
        const bool is_control = byte == 0xC2 && static_cast<std::uint8_t>(utf8[k + 1]) < 0xA0;
        if (is_control) {
            json += fmt::format("\\u{:04x}", static_cast<std::uint8_t>(utf8[++k]));
        } else if (byte < 0x20 || byte == 0x7F) {
            json += fmt::format("\\u{:04x}", byte);
        } else {
            if (byte == '"' || byte == '\\') json += '\\';
            json += utf8[k];
        }
    }
    return json + '"';
}

} // namespace velform
