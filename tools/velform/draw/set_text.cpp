#include "draw/set_text.h"

#include <algorithm>
#include <span>

#include <fmt/format.h>

#include "base/status.h"
#include "form/record_table.h"
#include "source/latin1.h"

namespace velform {
namespace {

constexpr std::size_t longest_in_field = 64; // characters

// Where the words of an object are, and how many there may be with a NUL.
std::span<char> place_of_words(vel_context &ctx, vel_object &o) {
    if (o.text_index != 0) return ctx.text_recs[o.text_index].text;
    if (!means_something(record_field(Field::label), o.type)) return {};
    const std::span<char> label = o.label;
    return o.type == VEL_TYPE_LABEL ? label : label.first(longest_in_field + 1);
}

} // namespace

void set_text(vel_context &ctx, ObjectFinder &finder, const std::string &assignment) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos) {
        throw WrongUsage(fmt::format("a text must be like name=Words, not '{}'", assignment));
    }
    const std::string name = assignment.substr(0, equals);
    vel_object &o = ctx.objects[finder.find(ctx, name)];
    const std::span<char> place = place_of_words(ctx, o);
    if (place.empty()) throw WrongUsage(fmt::format("'{}' has no text to set", name));
    const LineFeeds line_feeds = o.text_index != 0 ? LineFeeds::allowed : LineFeeds::refused;
    const auto [words, fault] = to_latin1(assignment.substr(equals + 1), line_feeds);
    if (!fault.empty()) {
        throw WrongUsage(fmt::format("the text for '{}' contains {}", name, fault));
    }
    if (words.size() >= place.size()) {
        throw WrongUsage(fmt::format("the text for '{}' has {} characters; {} is the limit", name,
                                     words.size(), place.size() - 1));
    }
    std::ranges::fill(place, '\0');
    std::ranges::copy(words, place.begin());
    o.text_length = static_cast<std::uint32_t>(words.size());
}

} // namespace velform
