// Names that become constants of a C header.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace velform {

inline constexpr std::size_t longest_identifier = 255;

// Ask no locale: a form must not depend on who compiles it.
constexpr bool is_letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }

constexpr bool is_identifier(std::string_view name) {
    return !name.empty() && name.size() <= longest_identifier && is_letter(name.front()) &&
           std::ranges::all_of(name,
                               [](char c) { return is_letter(c) || is_digit(c) || c == '_'; });
}

inline std::string upper_case(std::string_view name) {
    std::string result(name);
    for (char &c : result) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return result;
}

inline std::string lower_case(std::string_view name) {
    std::string result(name);
    for (char &c : result) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

} // namespace velform
