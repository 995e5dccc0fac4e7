#include "input/word_bounds.h"

namespace velumo {
namespace {

enum class Sort { blank, letter, sign };

Sort sort_of(char character) {
    const u8 c = static_cast<u8>(character);
    if (c == ' ' || c == '\n' || c == 0xA0) return Sort::blank;
    const bool is_ascii_letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    const bool is_digit = c >= '0' && c <= '9';
    const bool is_accented = c >= 0xC0 && c != 0xD7 && c != 0xF7;
    return is_ascii_letter || is_digit || is_accented || c == '_' ? Sort::letter : Sort::sign;
}

} // namespace

u32 word_start_before(std::string_view text, u32 index) {
    while (index > 0 && sort_of(text[index - 1]) == Sort::blank) --index;
    return index == 0 ? 0 : word_at(text, index - 1).first;
}

u32 word_start_after(std::string_view text, u32 index) {
    if (index < text.size()) index = word_at(text, index).end;
    while (index < text.size() && sort_of(text[index]) == Sort::blank) ++index;
    return index;
}

Bounds word_at(std::string_view text, u32 index) {
    if (text.empty()) return {0, 0};
    index = std::min(index, static_cast<u32>(text.size()) - 1);
    const Sort sort = sort_of(text[index]);
    Bounds word{index, index + 1};
    while (word.first > 0 && sort_of(text[word.first - 1]) == sort) --word.first;
    while (word.end < text.size() && sort_of(text[word.end]) == sort) ++word.end;
    return word;
}

} // namespace velumo
