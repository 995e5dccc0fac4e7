#include "parts/part.h"

#include <new>

#include "model/traits.h"
#include "parts/choice.h"
#include "parts/list_part.h"
#include "parts/rows.h"
#include "parts/scroll_bar.h"
#include "parts/show.h"
#include "parts/tabs.h"
#include "parts/values.h"

namespace velumo {
namespace {

using PressPart = Press (*)(vel_context &ctx, u32 part, u32 object);
using KeyOnPart = std::optional<Press> (*)(vel_context &ctx, u32 part, const SDL_keysym &key);

template <Press (*press)(vel_context &, u32)>
Press press_anywhere(vel_context &ctx, u32 part, u32) {
    return press(ctx, part);
}

struct Actions {
    Part part;
    PressPart press;
    KeyOnPart key; // null: the part has no focus
    bool hovers;   // looks like a button
};
constexpr Actions all_actions[] = {
    {check_part, press_anywhere<press_check>, key_on_check, true},
    {radio_part, press_anywhere<press_check>, key_on_check, true},
    {list_part, press_list, key_on_list, false},
    {scroll_bar_part, press_anywhere<press_scroll_bar>, nullptr, false},
    {choice_part, press_anywhere<press_choice>, key_on_choice, true},
    {slider_part, press_anywhere<press_slider>, key_on_slider, false},
    {tabs_part, press_tab, nullptr, false}, // its tabs have it
};

const Actions *actions_of(const vel_context &ctx, u32 part) {
    const i32 kind = traits_of(ctx, part).part;
    const auto *found = std::find_if(std::begin(all_actions), std::end(all_actions),
                                     [kind](const Actions &a) { return a.part == kind; });
    return kind == no_part || found == std::end(all_actions) ? nullptr : found;
}

void start_part(vel_context &ctx, u32 number, const Traits &traits) {
    switch (traits.part) {
    case check_part:
    case radio_part:
        return show_mark(ctx, number);
    case slider_part:
    case progress_part:
        return set_value(ctx, number, traits.value);
    case list_part:
        return show_text_rows(ctx, number);
    case tabs_part:
        return show_page(ctx, number, static_cast<u32>(std::max(traits.value, 0)));
    default:
        return;
    }
}

// Its list is known only after all parts have started. Each list is for one choice.
void start_choice(vel_context &ctx, u32 number, const Traits &traits) {
    if (traits.part != choice_part) return;
    const u32 list = list_of_choice(ctx, number);
    const List *items = find_list(ctx, list);
    if (items != nullptr && items->current != VEL_NO_ROW) return;
    if (items == nullptr || traits.value < 0 || static_cast<u32>(traits.value) >= items->count)
        return;
    select_row(ctx, list, static_cast<u32>(traits.value));
    show_chosen(ctx, number);
}

// Parts may have been moved, resized and scrolled by whomever. Lists come before their bars.
void settle(vel_context &ctx) try {
    for (const auto &[number, traits] : ctx.state->traits) {
        if (traits.part == list_part) fill_list(ctx, number);
    }
    for (const auto &[number, traits] : ctx.state->traits) {
        if (traits.part == scroll_bar_part) place_thumb(ctx, number);
        if (has_value(ctx, number)) place_value(ctx, number);
        if (traits.part == tabs_part) place_marker(ctx, number);
    }
} catch (const std::bad_alloc &) {
}

} // namespace

u32 part_at(const vel_context &ctx, u32 object) {
    if (ctx.state == nullptr || ctx.state->traits.empty() || object == 0) return 0;
    if (const u32 tabs = tabs_of_tab(ctx, object)) return tabs;
    constexpr int levels = 4; // the picture in a cell in a row of a list
    u32 at = object;
    for (int level = 0; level < levels && at != 0; ++level) {
        const bool is_page_or_desk = traits_of(ctx, at).part == tabs_part;
        if (is_page_or_desk) return 0;
        if (actions_of(ctx, at) != nullptr) return at;
        at = object_at(ctx, at).master;
    }
    return 0;
}

bool is_part_with_keys(const vel_context &ctx, u32 object) {
    if (object == 0 || traits_of(ctx, object).answer == VEL_ANSWER_NONE) return false;
    const Actions *actions = actions_of(ctx, object);
    return actions != nullptr ? actions->key != nullptr : tabs_of_tab(ctx, object) != 0;
}

u32 hovered_part(const vel_context &ctx, u32 object) {
    if (tabs_of_tab(ctx, object) != 0) return object;
    const u32 part = part_at(ctx, object);
    const Actions *actions = part == 0 ? nullptr : actions_of(ctx, part);
    return actions != nullptr && actions->hovers && is_part_with_keys(ctx, part) ? part : 0;
}

Press press_part(vel_context &ctx, u32 part, u32 object) {
    const u32 focus = traits_of(ctx, part).part == tabs_part ? object : part;
    if (is_part_with_keys(ctx, focus)) focus_part(ctx, focus);
    return actions_of(ctx, part)->press(ctx, part, object);
}

std::optional<Press> key_on_part(vel_context &ctx, u32 part, const SDL_keysym &key) {
    const Actions *actions = actions_of(ctx, part);
    return actions != nullptr ? actions->key(ctx, part, key) : key_on_tab(ctx, part, key);
}

void start_parts(vel_context &ctx) {
    if (ctx.state == nullptr) return;
    // Starting changes traits but adds none.
    const auto traits = ctx.state->traits;
    for (const auto &[number, said] : traits) start_part(ctx, number, said);
    for (const auto &[number, said] : traits) start_choice(ctx, number, said);
    if (!traits.empty()) ctx.state->settle_parts = settle;
}

void focus_part(vel_context &ctx, u32 part) {
    if (ctx.cursor_object == part || !has_comfort(ctx, VEL_COMFORT_KEYBOARD)) return;
    ctx.cursor_object = part;
    show_part(ctx, part);
}

} // namespace velumo
