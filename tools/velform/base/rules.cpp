#include "base/rules.h"

#include <algorithm>

namespace velform {
namespace {

// A name of C++ with '-' for each '_'.
template <std::size_t size> struct RuleName {
    consteval explicit RuleName(const char (&name)[size]) : letters{} {
        std::replace_copy(name, name + size, letters, '_', '-');
    }
    char letters[size];
};

#define RULE(name, ...) constexpr RuleName name##_name(#name);
#include "base/rules.inc"

constexpr RuleRow rows[] = {
#define RULE(name, severity, summary)                                                              \
    {Rule::name, Severity::severity, name##_name.letters, summary},
#include "base/rules.inc"
};

} // namespace

std::span<const RuleRow> all_rules() { return rows; }

const RuleRow &row_of(Rule rule) { return rows[static_cast<std::size_t>(rule)]; }

std::optional<Rule> find_rule(std::string_view name) {
    const auto *found = std::ranges::find(rows, name, &RuleRow::name);
    return found == std::end(rows) ? std::nullopt : std::optional(found->rule);
}

} // namespace velform
