// Tabs: a marker, the tabs in a row, and below them the pages.
#include <algorithm>
#include <numeric>

#include <fmt/format.h>

#include "kinds/pieces.h"

namespace velform {
namespace {

constexpr Pixels marker_height = 3, tab_height = 28;
constexpr Pixels page_top = marker_height + tab_height - 1; // their outlines share a line
constexpr Pixels letter_width = 8, tab_padding = 24, least_tab = 60, narrowest_tab = 16;

// As wide as their titles need in most fonts, or less where all do not fit.
std::vector<Pixels> tab_widths(const PartSource &part, Pixels room) {
    std::vector<Pixels> widths;
    for (const PageSource &page : part.pages) {
        const std::size_t length = page.title ? page.title->string().size() : 0;
        widths.push_back(
            std::max(least_tab, static_cast<Pixels>(length) * letter_width + tab_padding));
    }
    if (std::accumulate(widths.begin(), widths.end(), Pixels{0}) > room) {
        std::ranges::fill(widths, room / static_cast<Pixels>(widths.size()));
    }
    return widths;
}

ObjectSource tab_of(const PageSource &page, const Rect &rect) {
    ObjectSource tab = piece(Role::tab, rect);
    tab.where = page.where;
    if (page.title) tab.own[Field::label] = page.title;
    if (page.key) tab.own[Field::access_key] = page.key;
    set(tab.own, Field::focus, 1);
    return tab;
}

} // namespace

void make_tabs(ObjectSource &object, PartSource &part, const PartContext &context) {
    const Measures measures(object, context);
    const std::int64_t shown = measures.of(Field::value);
    const auto count = static_cast<std::int64_t>(part.pages.size());
    if (count == 0) {
        context.diagnostics.error(part.where, "a set of tabs needs `pages`");
        return;
    }
    if (shown < 0 || shown >= count) {
        report(object, Field::value, context,
               fmt::format("`value` must be one of the {} pages, from 0", count));
    }
    if (measures.width() < count * narrowest_tab || measures.height() < page_top + tab_height) {
        return report(object, Field::width, context,
                      fmt::format("the tabs must be at least {} pixels wide and {} high",
                                  count * narrowest_tab, page_top + tab_height));
    }
    set_part(object.own, PartCode::tabs);
    set_standard(object.own, Field::focus, 0);
    const std::vector<Pixels> widths = tab_widths(part, measures.width());
    std::vector<ObjectSource> tabs, pages;
    // The last line of a master is kept free of what is in what it holds.
    const Rect page{0, page_top, measures.width() - 1, measures.height() - page_top - 1};
    Pixels left = 0;
    object.objects.push_back(piece(Role::marker, {0, 0, widths[0], marker_height}));
    for (std::size_t k = 0; k < widths.size(); ++k) {
        if (static_cast<std::int64_t>(k) == shown) {
            set(object.objects.front().own, Field::x, left);
            set(object.objects.front().own, Field::width, widths[k]);
        }
        tabs.push_back(tab_of(part.pages[k], {left, marker_height, widths[k], tab_height}));
        pages.push_back(piece(Role::page, page));
        pages.back().objects = std::move(part.pages[k].objects);
        set(pages.back().own, Field::focus, 0);
        measures.anchor(pages.back(), all_edges);
        left += widths[k] - 1;
    }
    std::ranges::move(tabs, std::back_inserter(object.objects));
    std::ranges::move(pages, std::back_inserter(object.objects));
}

} // namespace velform
