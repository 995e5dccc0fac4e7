#include "parts/tabs.h"

#include "model/traits.h"
#include "model/types.h"
#include "model/walk.h"
#include "parts/show.h"

namespace velumo {
namespace {

// The dependents are the marker of the tab whose page shows, the tabs, and as many pages.
constexpr u32 marker_of_tabs = 0, first_tab = 1;

u32 tab_number(const vel_context &ctx, u32 tabs, u32 page) {
    return object_at(ctx, tabs).dep_objs[first_tab + page];
}
u32 page_number(const vel_context &ctx, u32 tabs, u32 page) {
    return object_at(ctx, tabs).dep_objs[first_tab + page_count(ctx, tabs) + page];
}

// A page is hidden by its width, which it gets back.
void hide(vel_context &ctx, u32 page) {
    vel_object &o = object_at(ctx, page);
    if (o.width == 0) return;
    state_of(ctx).hidden_widths[page] = o.width;
    o.width = 0;
}

// All pages have one width, and that of the one in sight follows when the tabs are resized.
void show(vel_context &ctx, u32 page, u32 width_in_sight) {
    const auto found = state_of(ctx).hidden_widths.find(page);
    if (found == ctx.state->hidden_widths.end()) return;
    object_at(ctx, page).width = width_in_sight != 0 ? width_in_sight : found->second;
    ctx.state->hidden_widths.erase(found);
}

bool is_below(const vel_context &ctx, u32 object, u32 top) {
    for (const u32 master : Masters(ctx, object)) {
        if (master == top) return true;
    }
    return false;
}

} // namespace

u32 page_count(const vel_context &ctx, u32 tabs) {
    if (traits_of(ctx, tabs).part != tabs_part) return 0;
    const auto pieces = dependents_of(object_at(ctx, tabs));
    return static_cast<u32>(pieces.size() - std::min<std::size_t>(pieces.size(), first_tab)) / 2;
}

void show_page(vel_context &ctx, u32 tabs, u32 page) {
    const u32 count = page_count(ctx, tabs);
    if (page >= count) return;
    Traits &traits = own_traits(ctx, tabs);
    const auto before = static_cast<u32>(traits.value);
    const u32 width = before < count ? object_at(ctx, page_number(ctx, tabs, before)).width : 0;
    traits.value = as_signed(page);
    for (u32 k = 0; k < count; ++k) {
        const u32 number = page_number(ctx, tabs, k);
        const bool holds_focus = is_below(ctx, ctx.cursor_object, number);
        if (k == page) {
            show(ctx, number, width);
        } else {
            hide(ctx, number);
            if (holds_focus) ctx.cursor_object = tab_number(ctx, tabs, page);
        }
    }
    place_marker(ctx, tabs);
}

void place_marker(vel_context &ctx, u32 tabs) {
    const u32 number = object_at(ctx, tabs).dep_objs[marker_of_tabs];
    const auto page = static_cast<u32>(traits_of(ctx, tabs).value);
    if (number == 0 || page >= page_count(ctx, tabs)) return;
    vel_object &marker = object_at(ctx, number);
    const vel_object &tab = object_at(ctx, tab_number(ctx, tabs, page));
    marker.x = tab.x;
    marker.width = tab.width;
}

u32 tabs_of_tab(const vel_context &ctx, u32 object) {
    const u32 tabs = object_at(ctx, object).master;
    for (u32 page = 0; page < page_count(ctx, tabs); ++page) {
        if (tab_number(ctx, tabs, page) == object) return tabs;
    }
    return 0;
}

Press press_tab(vel_context &ctx, u32 tabs, u32 object) {
    for (u32 page = 0; page < page_count(ctx, tabs); ++page) {
        if (tab_number(ctx, tabs, page) == object) show_page(ctx, tabs, page);
    }
    show_part(ctx, tabs);
    const Press end = drag(
        ctx, [](i64, i64) {}, [] {});
    return end == Press::done ? Press::changed : end;
}

std::optional<Press> key_on_tab(vel_context &ctx, u32 tab, const SDL_keysym &key) {
    const u32 tabs = tabs_of_tab(ctx, tab);
    const u32 count = page_count(ctx, tabs);
    if (count == 0) return {};
    u32 page = 0;
    while (tab_number(ctx, tabs, page) != tab) ++page;
    if (key.sym == SDLK_LEFT)
        page = (page + count - 1) % count;
    else if (key.sym == SDLK_RIGHT)
        page = (page + 1) % count;
    else if (key.sym != SDLK_SPACE && key.sym != SDLK_RETURN && key.sym != SDLK_KP_ENTER)
        return {};
    ctx.cursor_object = tab_number(ctx, tabs, page);
    show_page(ctx, tabs, page);
    show_part(ctx, tabs);
    return Press::changed;
}

} // namespace velumo
