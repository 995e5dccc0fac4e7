#include "model/traits.h"

#include <charconv>
#include <string_view>

#include "model/tables.h"

namespace velumo {
namespace {

#define SIGNATURE(line) constexpr std::string_view signature = line;
#include "model/traits.inc"

#define PART(name, code) static_assert(name##_part == (code));
#include "model/traits.inc"

// Takes a piece from the front of a text, up to the first `end`, which is dropped.
std::string_view take_until(char end, std::string_view &text) {
    const std::string_view piece = text.substr(0, text.find(end));
    text.remove_prefix(std::min(text.size(), piece.size() + 1));
    return piece;
}

void note_key(std::string_view said, char &key) {
    if (said.size() == 1 && access_key_of(said[0]) != '\0') key = access_key_of(said[0]);
}

void note_value(std::string_view said, i32 &value) {
    i32 number = 0;
    const char *const end = said.data() + said.size();
    const auto [stop, fault] = std::from_chars(said.data(), end, number);
    if (fault == std::errc{} && stop == end) value = number;
}

void note_word(std::string_view said, Traits &traits) {
#define ANSWER(field, key, word, code, ...)                                                        \
    if (said == (word)) traits.answer = code;
#define LETTER(field, key, word, member, ...)                                                      \
    if (said.starts_with(word "=")) note_key(said.substr(std::size(word)), traits.member);
#define MARK(field, key, word, member, ...)                                                        \
    if (said == (word)) traits.member = true;
#define VALUE(field, kind, key, word, member, ...)                                                 \
    if (said.starts_with(word "=")) note_value(said.substr(std::size(word)), traits.member);
#include "model/traits.inc"
}

// Takes a phrase, which goes to the end of the line.
bool take_phrase(std::string_view &line, Traits &traits) {
#define PHRASE(field, key, word, member, ...)                                                      \
    if (line.starts_with(word "=")) {                                                              \
        traits.member = line.substr(std::size(word));                                              \
        return true;                                                                               \
    }
#include "model/traits.inc"
    return false;
}

void read_line(std::string_view line, u32 last_object, std::map<u32, Traits> &traits) {
    const std::string_view digits = take_until(' ', line);
    const char *const end = digits.data() + digits.size();
    u32 number = 0;
    const auto [stop, fault] = std::from_chars(digits.data(), end, number);
    if (fault != std::errc{} || stop != end || number == 0 || number > last_object) return;
    Traits &said = traits[number];
    while (!line.empty() && !take_phrase(line, said)) note_word(take_until(' ', line), said);
}

} // namespace

std::map<u32, Traits> read_traits(const Tables &tables) {
    std::map<u32, Traits> traits;
    if (tables.object_count == 0) return traits;
    const u32 first = tables.objects[1].text_index;
    if (first == 0) return traits;
    for (std::uint64_t k = first; k <= tables.text_count; ++k) {
        std::string_view text = tables.texts[k].text;
        if (take_until('\n', text) != signature) break;
        while (!text.empty()) read_line(take_until('\n', text), tables.object_count, traits);
    }
    return traits;
}

const Traits &traits_of(const vel_context &ctx, u32 number) {
    static const Traits none;
    if (ctx.state == nullptr) return none;
    const auto found = ctx.state->traits.find(number);
    return found == ctx.state->traits.end() ? none : found->second;
}

Traits &own_traits(vel_context &ctx, u32 number) { return state_of(ctx).traits[number]; }

char access_key_of(char character) {
    if (character >= 'A' && character <= 'Z') return static_cast<char>(character - 'A' + 'a');
    const bool is_kept =
        (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9');
    return is_kept ? character : '\0';
}

} // namespace velumo
