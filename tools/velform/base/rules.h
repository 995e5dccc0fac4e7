// The rules of `velform check`, by name.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace velform {

enum class Severity : std::uint8_t { error, warning };

enum class Rule : std::uint8_t {
#define RULE(name, ...) name,
#include "base/rules.inc"
};

struct RuleRow {
    Rule rule;
    Severity severity;
    std::string_view name; // as in "zero-size"
    std::string_view summary;
};

std::span<const RuleRow> all_rules();
const RuleRow &row_of(Rule rule);
std::optional<Rule> find_rule(std::string_view name);

} // namespace velform
