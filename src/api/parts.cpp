// The exported functions of parts: lists, check boxes, values and tabs.
#include "api/calls.h"
#include "model/traits.h"
#include "parts/choice.h"
#include "parts/list_part.h"
#include "parts/rows.h"
#include "parts/tabs.h"
#include "parts/values.h"

using namespace velumo;

namespace {

constexpr u32 most_rows = 1 << 24;

// The list that a number means: its own, or that of a choice; 0 for none.
u32 list_meant(const vel_context &ctx, u32 number) {
    if (!is_known_object(ctx, number)) return 0;
    const u32 list = list_of_choice(ctx, number);
    if (list != 0) return list;
    return traits_of(ctx, number).part == list_part ? number : 0;
}

const List *list_in(const vel_context *ctx, u32 number) {
    return has_form(ctx) ? find_list(*ctx, list_meant(*ctx, number)) : nullptr;
}

// Lets change alter a list, and shows in a choice what is selected then. Returns a code of
// vel_result.
template <class Change> i32 change_list(vel_context *ctx, u32 number, Change change) {
    if (list_in(ctx, number) == nullptr) return VEL_ERROR_ARGUMENT;
    return in_form_or(i32{VEL_ERROR_MEMORY}, ctx, [=](vel_context &c) {
        const u32 list = list_meant(c, number);
        const i32 result = change(c, list, *find_list(c, list));
        if (list != number) show_chosen(c, number);
        return result;
    });
}

bool is_check(const vel_context &ctx, u32 object) {
    const i32 part = traits_of(ctx, object).part;
    return part == check_part || part == radio_part;
}

template <class IsPart, class Change>
i32 change_part(vel_context *ctx, u32 object, IsPart is_part, Change change) {
    if (!has_form(ctx) || !is_known_object(*ctx, object) || !is_part(*ctx, object))
        return VEL_ERROR_ARGUMENT;
    return in_form_or(i32{VEL_ERROR_MEMORY}, ctx, [=](vel_context &c) {
        change(c);
        return VEL_OK;
    });
}

template <class IsPart> i32 value_of(const vel_context *ctx, u32 object, IsPart is_part) {
    const bool is_it = has_form(ctx) && is_known_object(*ctx, object) && is_part(*ctx, object);
    return is_it ? traits_of(*ctx, object).value : 0;
}

} // namespace

int32_t vel_list_show(vel_context *ctx, uint32_t list, uint32_t count,
                      vel_list_source source) noexcept {
    if (source != nullptr && count > most_rows) return VEL_ERROR_ARGUMENT;
    return change_list(ctx, list, [=](vel_context &c, u32 number, List &) {
        if (source == nullptr) {
            show_text_rows(c, number);
        } else {
            show_list(c, number, count, [&c, list, source](u32 row, u32 column, vel_cell &cell) {
                source(&c, list, row, column, &cell);
            });
        }
        return VEL_OK;
    });
}

uint32_t vel_list_count(const vel_context *ctx, uint32_t list) noexcept {
    const List *items = list_in(ctx, list);
    return items == nullptr ? 0 : items->count;
}

int32_t vel_list_sort_by(vel_context *ctx, uint32_t list, vel_list_sorter sorter) noexcept {
    return change_list(ctx, list, [=](vel_context &, u32, List &items) {
        items.sorter = sorter;
        return VEL_OK;
    });
}

uint32_t vel_list_selected(const vel_context *ctx, uint32_t list, uint32_t from) noexcept {
    const List *items = list_in(ctx, list);
    return items == nullptr ? VEL_NO_ROW : items->selected.next(from);
}

int32_t vel_list_select(vel_context *ctx, uint32_t list, uint32_t row) noexcept {
    return change_list(ctx, list, [=](vel_context &c, u32 number, const List &items) {
        if (row != VEL_NO_ROW && row >= items.count) return VEL_ERROR_ARGUMENT;
        select_row(c, number, row);
        return VEL_OK;
    });
}

int32_t vel_list_mark(vel_context *ctx, uint32_t list, uint32_t row, uint32_t selected) noexcept {
    return change_list(ctx, list, [=](vel_context &c, u32 number, const List &items) {
        if (row >= items.count || !traits_of(c, number).many) return VEL_ERROR_ARGUMENT;
        mark_row(c, number, row, selected != 0);
        return VEL_OK;
    });
}

uint32_t vel_list_answered(const vel_context *ctx, uint32_t list) noexcept {
    const List *items = list_in(ctx, list);
    return items != nullptr && items->is_answered ? 1 : 0;
}

uint32_t vel_get_checked(const vel_context *ctx, uint32_t object) noexcept {
    return value_of(ctx, object, is_check) != 0 ? 1 : 0;
}

int32_t vel_set_checked(vel_context *ctx, uint32_t object, uint32_t checked) noexcept {
    return change_part(ctx, object, is_check,
                       [=](vel_context &c) { set_checked(c, object, checked != 0); });
}

int32_t vel_get_value(const vel_context *ctx, uint32_t object) noexcept {
    return value_of(ctx, object, has_value);
}

int32_t vel_set_value(vel_context *ctx, uint32_t object, int32_t value) noexcept {
    return change_part(ctx, object, has_value,
                       [=](vel_context &c) { set_value(c, object, value); });
}

int32_t vel_show_page(vel_context *ctx, uint32_t tabs, uint32_t page) noexcept {
    return change_part(
        ctx, tabs,
        [page](const vel_context &c, u32 number) { return page < page_count(c, number); },
        [=](vel_context &c) { show_page(c, tabs, page); });
}

uint32_t vel_shown_page(const vel_context *ctx, uint32_t tabs) noexcept {
    const auto is_tabs = [](const vel_context &c, u32 number) {
        return page_count(c, number) != 0;
    };
    return static_cast<u32>(value_of(ctx, tabs, is_tabs));
}
