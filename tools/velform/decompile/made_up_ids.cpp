#include "decompile/made_up_ids.h"

#include <fmt/format.h>
#include <velumo.h>

#include "source/identifier.h"

namespace velform {
namespace {

constexpr std::size_t longest_words = 24;

// The letters and digits of the first words, with '_' between them.
std::string words_of(std::string_view text) {
    std::string words;
    bool is_between = false;
    for (const char c : text) {
        if (c == '\n' || words.size() >= longest_words) break;
        const bool belongs = is_letter(c) || is_digit(c);
        if (belongs && is_between && !words.empty()) words += '_';
        if (belongs) words += c;
        is_between = !belongs;
    }
    return lower_case(words);
}

} // namespace

MadeUpIds::MadeUpIds(const std::map<std::uint32_t, std::string> &taken) {
    for (const auto &[number, id] : taken) taken_.insert(id);
}

std::string MadeUpIds::id_for(std::string_view record, std::string_view text) {
    const RecordField &label = record_field(Field::label);
    const std::uint32_t type = number_at(record, record_field(Field::type).offset);
    const std::string name = type_name(type).empty() ? "object" : std::string(type_name(type));
    const std::string words =
        words_of(means_something(label, type) ? string_at(record, label.offset, label.size) : text);
    // The header would take "..._text" for the text of another object.
    const std::string stem = words.empty() || words.ends_with("text") ? name : name + "_" + words;
    std::string id = stem;
    while (id == name || !taken_.insert(id).second) id = fmt::format("{}_{}", stem, ++last_[stem]);
    return id;
}

} // namespace velform
