#include "decompile/trait_words.h"

#include <charconv>

#include "source/identifier.h"

namespace velform {
namespace {

constexpr std::int64_t all_words = 15; // of an anchor

bool reads_number(std::string_view text, std::int64_t &number) {
    const char *const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    return fault == std::errc{} && stop == end;
}

void set_number(Settings &settings, Field field, std::string_view text) {
    const RecordField &row = record_field(field);
    const Range range = row.kind == Kind::words ? Range{0, all_words} : row.range;
    std::int64_t number = 0;
    if (reads_number(text, number) && number >= range.first && number <= range.last) {
        settings[field] = Setting{number, {}};
    }
}

void set_letter(Settings &settings, Field field, std::string_view text) {
    if (text.size() != 1 || !(is_letter(text[0]) || is_digit(text[0]))) return;
    settings[field] = Setting{std::string(text), {}};
}

void set_phrase(Settings &settings, Field field, std::string_view text) {
    settings[field] = Setting{std::string(text), {}};
}

// Takes the next word from the front of a line.
void read_word(std::string_view &line, Settings &settings) {
    const std::string_view rest = line;
    const std::string_view word = line.substr(0, line.find(' '));
    line.remove_prefix(std::min(word.size() + 1, line.size()));
    const std::size_t equals = std::min(word.find('='), word.size());
    const std::string_view name = word.substr(0, equals);
    const std::string_view value = word.substr(std::min(equals + 1, word.size()));
    const bool has_value = equals < word.size();
#define ANSWER(field, key, spelt, ...)                                                             \
    if (!has_value && name == spelt) settings[Field::field] = Setting{1, {}};
#define MARK ANSWER
#define LETTER(field, key, spelt, ...)                                                             \
    if (has_value && name == spelt) set_letter(settings, Field::field, value);
#define VALUE(field, kind, key, spelt, ...)                                                        \
    if (has_value && name == spelt) set_number(settings, Field::field, value);
#define PHRASE(field, key, spelt, ...)                                                             \
    if (has_value && name == spelt) {                                                              \
        set_phrase(settings, Field::field, rest.substr(equals + 1));                               \
        line = {};                                                                                 \
    }
#include "model/traits.inc"
}

void read_line(std::string_view line, std::map<std::uint32_t, Settings> &objects) {
    const std::string_view word = line.substr(0, line.find(' '));
    std::int64_t number = 0;
    if (!reads_number(word, number) || number <= 0) return;
    line.remove_prefix(std::min(word.size() + 1, line.size()));
    Settings &settings = objects[static_cast<std::uint32_t>(number)];
    while (!line.empty()) read_word(line, settings);
}

} // namespace

std::map<std::uint32_t, Settings> read_trait_words(std::span<const std::string_view> texts) {
    std::map<std::uint32_t, Settings> objects;
    for (std::string_view text : texts) {
        while (!text.empty()) {
            const std::string_view line = text.substr(0, text.find('\n'));
            read_line(line, objects);
            text.remove_prefix(std::min(line.size() + 1, text.size()));
        }
    }
    return objects;
}

} // namespace velform
