#include "source/styles.h"

#include <algorithm>

#include <fmt/format.h>

namespace velform {
namespace {

constexpr int deepest_style = 16;
const Settings nothing;

} // namespace

StyleResolver::StyleResolver(const FormSource &source, Diagnostics &diagnostics)
    : source_(source), diagnostics_(diagnostics) {
    for (const auto &[name, style] : source.styles) names_.add(name);
    for (const auto &[name, style] : source.styles) resolve_style({name, style.where});
}

Settings StyleResolver::resolve(const Block &block) {
    Settings settings;
    for (const StyleUse &use : block.styles) settings.overlay(resolve_style(use));
    settings.overlay(block.own);
    return settings;
}

bool StyleResolver::lacks_style(const Block &block) const {
    return std::ranges::any_of(block.styles, [this](const StyleUse &use) {
        const auto found = resolved_.find(use.name);
        return found == resolved_.end() || found->second.lacks_style;
    });
}

const Settings &StyleResolver::resolve_style(const StyleUse &use) {
    const auto style = source_.styles.find(use.name);
    if (style == source_.styles.end()) {
        diagnostics_.error(
            use.where, fmt::format("there is no style '{}'{}", use.name, names_.hint(use.name)));
        return nothing;
    }
    const auto [entry, is_new] = resolved_.try_emplace(use.name);
    Resolved &resolved = entry->second;
    if (!is_new && !resolved.is_finished) {
        diagnostics_.error(use.where, fmt::format("the style '{}' includes itself; take it out of "
                                                  "this list",
                                                  use.name));
    } else if (is_new && depth_ == deepest_style) {
        diagnostics_.error(use.where, fmt::format("styles include styles more than {} times; say "
                                                  "more in fewer styles",
                                                  deepest_style));
    } else if (is_new) {
        ++depth_;
        resolved.settings = resolve(style->second);
        resolved.lacks_style = lacks_style(style->second);
        --depth_;
    }
    resolved.is_finished = resolved.is_finished || is_new;
    return resolved.settings;
}

} // namespace velform
