#include "source/toml_quote.h"

#include <fmt/format.h>

namespace velform {

std::string in_quotes(std::string_view utf8) {
    const bool is_long = utf8.find('\n') != std::string_view::npos;
    const std::string_view quote = is_long ? "\"\"\"" : "\"";
    std::string text(quote);
    if (is_long) text += '\n';
    for (const char c : utf8) {
        if (c == '"' || c == '\\') {
            text += '\\';
            text += c;
        } else if (c >= 0 && (c < 0x20 || c == 0x7F) && c != '\n') {
            text += fmt::format("\\u{:04x}", static_cast<int>(c));
        } else {
            text += c;
        }
    }
    text += quote;
    return text;
}

} // namespace velform
