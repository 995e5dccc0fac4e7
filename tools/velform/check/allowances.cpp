#include "check/allowances.h"

#include <algorithm>
#include <unordered_map>

#include <fmt/format.h>

#include "base/printable.h"
#include "base/suggestion.h"

namespace velform {
namespace {

constexpr std::string_view mark = "# velform: allow ";
constexpr std::string_view blanks = " \t\r";

std::string_view trimmed(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
    const std::size_t end = text.find_last_not_of(blanks) + 1;
    return text.substr(begin, std::max(begin, end) - begin);
}

struct Allowance {
    Position where;
    std::uint32_t line; // that it is for
    std::string_view rule;
    bool is_needed = false;
};

class Reader {
public:
    std::vector<Allowance> read(std::string_view source) {
        for (std::uint32_t line = 1; !source.empty(); ++line) {
            const std::size_t end = std::min(source.find('\n'), source.size());
            read_line(line, source.substr(0, end));
            source.remove_prefix(std::min(source.size(), end + 1));
        }
        return std::move(allowances_);
    }

private:
    void read_line(std::uint32_t line, std::string_view words) {
        const std::size_t at = words.rfind(mark);
        const bool is_comment = trimmed(words).starts_with('#');
        if (!is_comment) take_waiting(line, words);
        if (at == words.npos) return;
        for (std::size_t begin = at + mark.size(); begin < words.size();) {
            const std::size_t end = std::min(words.find(',', begin), words.size());
            const std::string_view rule = trimmed(words.substr(begin, end - begin));
            const std::size_t before =
                characters_in(words.substr(0, begin)) + words.substr(begin).find(rule);
            const Position where{line, static_cast<std::uint32_t>(before + 1)};
            allowances_.push_back({where, is_comment ? 0 : line, rule});
            begin = end + 1;
        }
    }

    // Comments of their own wait for the next line that is none.
    void take_waiting(std::uint32_t line, std::string_view words) {
        if (trimmed(words).empty()) return;
        for (auto waiting = allowances_.rbegin();
             waiting != allowances_.rend() && waiting->line == 0; ++waiting) {
            waiting->line = line;
        }
    }

    std::vector<Allowance> allowances_;
};

} // namespace

void apply_allowances(std::string_view source, Allowed rules, Diagnostics &diagnostics) {
    std::vector<Allowance> allowances = Reader().read(source);
    std::unordered_multimap<std::uint32_t, Allowance *> by_line;
    for (Allowance &allowance : allowances) by_line.emplace(allowance.line, &allowance);
    diagnostics.remove_if([&by_line](const Finding &finding) {
        if (severity_of(finding) == Severity::error) return false;
        bool is_allowed = false;
        const auto [begin, end] = by_line.equal_range(finding.where.line);
        for (auto found = begin; found != end; ++found) {
            if (found->second->rule != row_of(finding.rule).name) continue;
            is_allowed = found->second->is_needed = true;
        }
        return is_allowed;
    });
    if (rules == Allowed::of_some_rules) return;
    Suggestions names;
    for (const RuleRow &row : all_rules()) names.add(row.name);
    for (const Allowance &allowance : allowances) {
        if (!find_rule(allowance.rule)) {
            diagnostics.warning(
                allowance.where, Rule::unknown_rule,
                fmt::format("there is no rule '{}'{}", allowance.rule, names.hint(allowance.rule)));
        } else if (!allowance.is_needed) {
            diagnostics.warning(allowance.where, Rule::needless_allowance,
                                fmt::format("nothing breaks the rule '{}' here", allowance.rule));
        }
    }
}

} // namespace velform
