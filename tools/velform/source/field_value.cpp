#include "source/field_value.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <vector>

#include <fmt/format.h>
#include <velumo.h>

#include "base/suggestion.h"
#include "source/identifier.h"
#include "source/latin1.h"
#include "source/toml_text.h"

namespace velform {
namespace {

// A value, or what is wrong: "`width` must be ..." goes on with the fault.
struct Reading {
    std::variant<std::int64_t, std::string> value;
    std::string fault;
    Rule rule = Rule::invalid_source;
};

Reading number_in(Range range, const toml::node &node) {
    const auto *integer = node.as_integer();
    const std::string wanted =
        fmt::format("must be a whole number from {} to {}", range.first, range.last);
    if (integer == nullptr) return {0, fmt::format("{}, not {}", wanted, kind_of(node))};
    const std::int64_t number = integer->get();
    if (number < range.first || number > range.last) {
        return {0, fmt::format("{}, not {}", wanted, number)};
    }
    return {number, {}};
}

Reading colour_in(const toml::node &node) {
    const auto *string = node.as_string();
    if (string == nullptr) {
        return {0, fmt::format("must be a colour like \"#20a0ff\", not {}", kind_of(node))};
    }
    const std::string_view text = string->get();
    std::uint32_t rgb = 0;
    const char *end = text.data() + text.size();
    if (text.size() == 7 && text[0] == '#') {
        const auto [stop, fault] = std::from_chars(text.data() + 1, end, rgb, 16);
        if (fault == std::errc{} && stop == end) return {std::int64_t{rgb}, {}};
    }
    return {0, "must be a colour: '#' and six hexadecimal digits, as in \"#20a0ff\""};
}

Reading too_long(std::string_view wanted, std::size_t limit, std::size_t size) {
    return {std::string{}, fmt::format("has {} {}; shorten it to {}", size, wanted, limit),
            Rule::too_long};
}

Reading latin1_of(const std::string &utf8, LineFeeds line_feeds, std::size_t limit) {
    Latin1 converted = to_latin1(utf8, line_feeds);
    if (!converted.fault.empty()) {
        return {std::string{}, fmt::format("contains {}", converted.fault)};
    }
    if (converted.text.size() > limit) return too_long("characters", limit, converted.text.size());
    return {std::move(converted.text), {}};
}

Reading path_of(const std::string &path) {
    if (path.find('\0') != std::string::npos) {
        return {std::string{}, "contains the control character U+0000; take it out"};
    }
    constexpr std::size_t limit = VEL_STRING_SIZE - 1;
    if (path.size() > limit) return too_long("bytes", limit, path.size());
    return {path, {}};
}

Reading string_in(Kind kind, const toml::node &node) {
    const auto *string = node.as_string();
    if (string == nullptr) {
        return {std::string{}, fmt::format("must be a string in quotes, not {}", kind_of(node))};
    }
    if (kind == Kind::object) return {string->get(), {}};
    if (kind == Kind::path) return path_of(string->get());
    if (kind == Kind::text) return latin1_of(string->get(), LineFeeds::allowed, VEL_TEXT_SIZE - 1);
    return latin1_of(string->get(), LineFeeds::refused, VEL_STRING_SIZE - 1);
}

Reading flag_in(Range range, const toml::node &node) {
    if (const auto *boolean = node.as_boolean()) return {std::int64_t{boolean->get()}, {}};
    if (node.is_integer()) return number_in(range, node);
    return {0, fmt::format("must be true or false, not {}", kind_of(node))};
}

std::vector<std::string_view> known_words(std::span<const Name> names) {
    std::vector<std::string_view> known(names.size());
    std::ranges::transform(names, known.begin(), &Name::name);
    return known;
}

std::string listed(std::span<const Name> names) {
    return fmt::format("\"{}\"", fmt::join(known_words(names), "\", \""));
}

std::string hint_at(std::string_view word, std::span<const Name> names) {
    return did_you_mean(word, known_words(names));
}

Reading words_in(std::span<const Name> names, const toml::node &node) {
    const std::string wanted = fmt::format("must be words out of {}", listed(names));
    const auto *string = node.as_string();
    if (string == nullptr) return {0, fmt::format("{}, not {}", wanted, kind_of(node))};
    std::int64_t bits = 0;
    std::istringstream words(string->get());
    for (std::string word; words >> word;) {
        const auto found = std::ranges::find(names, std::string_view(word), &Name::name);
        if (found == names.end()) {
            return {0, fmt::format("{}, not \"{}\"{}", wanted, word, hint_at(word, names))};
        }
        bits |= found->code;
    }
    return {bits, {}};
}

Reading letter_in(const toml::node &node) {
    const auto *string = node.as_string();
    const std::string_view text = string == nullptr ? std::string_view{} : string->get();
    if (text.size() == 1 && (is_letter(text[0]) || is_digit(text[0]))) {
        return {lower_case(text), {}};
    }
    return {std::string{}, "must be one letter from A to Z or one digit, as in \"s\""};
}

Reading code_in(Range range, std::span<const Name> names, const toml::node &node) {
    if (node.is_integer()) return number_in(range, node);
    const std::string wanted = fmt::format("must be one of {}", listed(names));
    const auto *string = node.as_string();
    if (string == nullptr) return {0, fmt::format("{}, not {}", wanted, kind_of(node))};
    const auto found = std::ranges::find(names, std::string_view(string->get()), &Name::name);
    if (found != names.end()) return {std::int64_t{found->code}, {}};
    return {0,
            fmt::format("{}, not \"{}\"{}", wanted, string->get(), hint_at(string->get(), names))};
}

Reading read(const RecordField &field, const toml::node &node) {
    switch (field.kind) {
    case Kind::number:
        return number_in(field.range, node);
    case Kind::colour:
        return colour_in(node);
    case Kind::flag:
        return flag_in(field.range, node);
    case Kind::letter:
        return letter_in(node);
    case Kind::code:
        return code_in(field.range, field.names, node);
    case Kind::words:
        return words_in(field.names, node);
    default:
        return string_in(field.kind, node);
    }
}

} // namespace

Setting read_value(const RecordField &field, const toml::node &node, Diagnostics &diagnostics) {
    Reading reading = read(field, node);
    const bool is_faulty = !reading.fault.empty();
    if (is_faulty) {
        diagnostics.error(position_of(node), fmt::format("`{}` {}", field.key, reading.fault),
                          reading.rule);
    }
    return {std::move(reading.value), position_of(node), is_faulty};
}

void read_shorthand(const Shorthand &shorthand, const toml::node &node, Settings &settings,
                    Diagnostics &diagnostics) {
    const auto *list = node.as_array();
    const bool is_one_for_all = list == nullptr && shorthand.takes_one_for_all && node.is_integer();
    if (!is_one_for_all && (list == nullptr || list->size() != shorthand.fields.size())) {
        diagnostics.error(position_of(node),
                          fmt::format("`{}` must be {}", shorthand.key, shorthand.meaning));
    }
    for (std::size_t k = 0; k < shorthand.fields.size(); ++k) {
        std::optional<Setting> &setting = settings[shorthand.fields[k]];
        if (setting) continue;
        const toml::node *value = is_one_for_all ? &node : list != nullptr ? list->get(k) : nullptr;
        if (value == nullptr) {
            setting = Setting{0, position_of(node), true};
        } else {
            setting = read_value(record_field(shorthand.fields[k]), *value, diagnostics);
        }
    }
}

} // namespace velform
