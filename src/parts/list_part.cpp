#include "parts/list_part.h"

#include "model/traits.h"
#include "parts/rows.h"
#include "parts/show.h"
#include "render/geometry.h"
#include "text/layout.h"
#include "text/letters.h"

namespace velumo {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds double_click{400};
constexpr milliseconds typing_pause{1000};
constexpr u32 most_rows_to_search = 1 << 20;

bool takes_many(const vel_context &ctx, u32 list) { return traits_of(ctx, list).many; }

void bring_in_sight(vel_context &ctx, u32 list, u32 row) {
    const List *items = find_list(ctx, list);
    const auto shown = static_cast<u32>(rows_of(ctx, list).size());
    i64 first = items->first;
    if (row != VEL_NO_ROW && shown != 0) {
        if (row < first) first = row;
        if (row >= first + shown) first = i64{row} - shown + 1;
    }
    show_from(ctx, list, first);
}

// A row that a step leads to, within the list.
u32 row_after(const List &items, i64 step) {
    const i64 from = items.current == VEL_NO_ROW ? (step > 0 ? -1 : 0) : i64{items.current};
    return static_cast<u32>(std::clamp<i64>(from + step, 0, i64{items.count} - 1));
}

Selecting how_by(const vel_context &ctx, u32 list, int modifiers) {
    if (!takes_many(ctx, list)) return Selecting::only;
    if ((modifiers & KMOD_SHIFT) != 0) return Selecting::up_to;
    return (modifiers & KMOD_CTRL) != 0 ? Selecting::too : Selecting::only;
}

// --- The mouse

class ListPress {
public:
    ListPress(vel_context &ctx, u32 list)
        : ctx_(ctx), list_(list), x_(ctx.event.button.x), y_(ctx.event.button.y) {}

    Press run() {
        const u32 row = row_under(ctx_, list_, x_, y_);
        if (row == VEL_NO_ROW)
            return drag(
                ctx_, [](i64, i64) {}, [] {});
        const Selecting how = how_by(ctx_, list_, SDL_GetModState());
        const bool answers = is_second_press(row) && how == Selecting::only;
        select_row(ctx_, list_, row, how);
        if (List *items = find_list(ctx_, list_)) items->is_answered = answers;
        show_part(ctx_, list_);
        const Press end = drag(
            ctx_, [this](i64 x, i64 y) { move_to(x, y); }, [this] { scroll(); });
        return end == Press::done ? Press::changed : end;
    }

private:
    bool is_second_press(u32 row) {
        List &items = *find_list(ctx_, list_);
        const bool is_second = items.pressed == row && now() - items.pressed_at < double_click;
        items.pressed = is_second ? VEL_NO_ROW : row;
        items.pressed_at = now();
        return is_second;
    }

    void move_to(i64 x, i64 y) {
        x_ = x, y_ = y;
        go_to(row_under(ctx_, list_, x, y));
    }

    // Beyond the first and the last row the list comes along.
    void scroll() {
        const List *items = find_list(ctx_, list_);
        const auto rows = rows_of(ctx_, list_);
        if (items == nullptr || rows.empty()) return;
        const i64 top = extent_of(object_at(ctx_, rows.front()), vertical).begin;
        const i64 bottom = extent_of(object_at(ctx_, rows.back()), vertical).end;
        if (y_ < top && items->first > 0) go_to(items->first - 1);
        const u32 next = items->first + static_cast<u32>(rows.size());
        if (y_ >= bottom && next < items->count) go_to(next);
    }

    void go_to(u32 row) {
        const List *items = find_list(ctx_, list_);
        if (items == nullptr || row == VEL_NO_ROW || row == items->current) return;
        select_row(ctx_, list_, row, takes_many(ctx_, list_) ? Selecting::up_to : Selecting::only);
        show_part(ctx_, list_);
    }

    vel_context &ctx_;
    const u32 list_;
    i64 x_, y_;
};

// --- Titles

void mark_title(vel_context &ctx, u32 list, List &items) {
    const auto titles =
        dependents_of(object_at(ctx, object_at(ctx, list).dep_objs[header_of_list]));
    for (u32 column = 0; column < titles.size(); ++column) {
        vel_object &o = object_at(ctx, titles[column]);
        if (column == items.titles.size()) items.titles.emplace_back(o.label);
        std::string label = items.titles[column];
        if (column == items.sorted_column) label += items.is_descending ? "  v" : "  ^";
        o.label[label.copy(o.label, sizeof o.label - 1)] = '\0';
        format_object(ctx, titles[column]);
    }
}

// The column whose title an object is; VEL_NO_ROW for none.
u32 column_of_title(const vel_context &ctx, u32 list, u32 object) {
    const u32 header = object_at(ctx, list).dep_objs[header_of_list];
    const auto titles = dependents_of(object_at(ctx, header));
    const auto found = std::find(titles.begin(), titles.end(), object);
    return header == 0 || found == titles.end() ? VEL_NO_ROW
                                                : static_cast<u32>(found - titles.begin());
}

void sort_by(vel_context &ctx, u32 list, u32 column) {
    List *items = find_list(ctx, list);
    if (items == nullptr || items->sorter == nullptr) return;
    items->is_descending = items->sorted_column == column && !items->is_descending;
    items->sorted_column = column;
    items->sorter(&ctx, list, column, items->is_descending ? 1 : 0);
    items = find_list(ctx, list); // the program may show other rows
    if (items == nullptr) return;
    mark_title(ctx, list, *items);
    show_rows(ctx, list);
    show_part(ctx, list);
}

// --- Keys

// 0 for keys that are no character.
u32 character_of(const SDL_keysym &key) {
    if ((key.mod & (KMOD_CTRL | KMOD_ALT | KMOD_META)) != 0) return 0;
    const u32 character = key.unicode != 0 ? key.unicode : static_cast<u8>(letter_of(key));
    return character >= ' ' && character < 256 && character != 127 ? character : 0;
}

bool begins_with(const vel_cell &cell, const std::string &wanted) {
    for (std::size_t k = 0; k < wanted.size(); ++k) {
        const auto small = [](char c) { return small_letter(static_cast<u8>(c)); };
        if (small(cell.text[k]) != small(wanted[k])) return false;
    }
    return true;
}

// The first row from one on, round the list, that begins with what was typed; VEL_NO_ROW for none.
u32 row_beginning_with(const List &items, const std::string &wanted, u32 from) {
    for (u32 k = 0; k < std::min(items.count, most_rows_to_search); ++k) {
        const u32 row = (from + k) % items.count;
        if (begins_with(cell_of(items, row, 0), wanted)) return row;
    }
    return VEL_NO_ROW;
}

bool find_typed(vel_context &ctx, u32 list, u32 character) {
    List &items = *find_list(ctx, list);
    const bool goes_on = now() - items.typed_at < typing_pause && !items.typed.empty();
    items.typed_at = now();
    if (!goes_on) items.typed.clear();
    if (items.typed.size() + 1 < VEL_STRING_SIZE) items.typed += static_cast<char>(character);
    // A first character goes on from the next row, others stay where they fit.
    const u32 here = items.current == VEL_NO_ROW ? 0 : items.current;
    const bool stays = goes_on || items.current == VEL_NO_ROW;
    const u32 row = items.count == 0
                        ? VEL_NO_ROW
                        : row_beginning_with(items, items.typed, stays ? here : here + 1);
    if (row == VEL_NO_ROW) return false;
    select_row(ctx, list, row);
    return true;
}

// How many rows a key goes on; 0 for keys that do not.
i64 step_of(const vel_context &ctx, u32 list, SDLKey key) {
    const List &items = *find_list(ctx, list);
    const i64 page = std::max<i64>(static_cast<i64>(rows_of(ctx, list).size()) - 1, 1);
    switch (key) {
    case SDLK_UP:
        return -1;
    case SDLK_DOWN:
        return 1;
    case SDLK_PAGEUP:
        return -page;
    case SDLK_PAGEDOWN:
        return page;
    case SDLK_HOME:
        return -i64{items.count};
    case SDLK_END:
        return items.count;
    default:
        return 0;
    }
}

void move_current(vel_context &ctx, u32 list, i64 step, int modifiers) {
    List &items = *find_list(ctx, list);
    const u32 row = row_after(items, step);
    const Selecting how = how_by(ctx, list, modifiers);
    if (how != Selecting::too) return select_row(ctx, list, row, how);
    // With Ctrl only where keys go on from moves.
    items.current = row;
    bring_in_sight(ctx, list, row);
}

} // namespace

void show_list(vel_context &ctx, u32 list, u32 count, List::Cell cell) {
    List &items = state_of(ctx).lists[list];
    items.selected.clear();
    items.current = items.anchor = items.pressed = VEL_NO_ROW;
    items.is_answered = false;
    object_at(ctx, list).scroll_y = 0;
    show_items(ctx, list, count, std::move(cell));
}

void show_text_rows(vel_context &ctx, u32 list) {
    show_list(ctx, list, count_text_rows(ctx, list),
              [&ctx, list](u32 row, u32 column, vel_cell &cell) {
                  read_text_row(ctx, list, row, column, cell);
              });
}

void select_row(vel_context &ctx, u32 list, u32 row, Selecting how) {
    List *items = find_list(ctx, list);
    if (items == nullptr) return;
    items->is_answered = false;
    if (how == Selecting::too) {
        mark_row(ctx, list, row, !items->selected.has(row));
        items = find_list(ctx, list);
    } else {
        items->selected.clear();
        const u32 from =
            how == Selecting::up_to && items->anchor != VEL_NO_ROW ? items->anchor : row;
        if (row != VEL_NO_ROW) items->selected.add(std::min(from, row), std::max(from, row));
        if (how == Selecting::only || items->anchor == VEL_NO_ROW) items->anchor = row;
    }
    items->current = row;
    bring_in_sight(ctx, list, row);
}

void mark_row(vel_context &ctx, u32 list, u32 row, bool selected) {
    List *items = find_list(ctx, list);
    if (items == nullptr || row >= items->count) return;
    if (selected)
        items->selected.add(row, row);
    else
        items->selected.remove(row);
    items->anchor = row;
    show_rows(ctx, list);
}

u32 row_under(const vel_context &ctx, u32 list, i64 x, i64 y) {
    const auto rows = rows_of(ctx, list);
    for (const u32 row : rows) {
        const vel_object &o = object_at(ctx, row);
        if (o.width == 0 || !extent_of(o, vertical).holds(y)) continue;
        const auto item = item_of_row(ctx, row);
        if (item && extent_of(object_at(ctx, list), horizontal).holds(x))
            return static_cast<u32>(*item);
    }
    return VEL_NO_ROW;
}

Press press_list(vel_context &ctx, u32 list, u32 object) {
    if (find_list(ctx, list) == nullptr) return Press::done;
    const u32 column = column_of_title(ctx, list, object);
    if (column == VEL_NO_ROW) return ListPress(ctx, list).run();
    const Press end = drag(
        ctx, [](i64, i64) {}, [] {});
    if (end == Press::done) sort_by(ctx, list, column);
    return end;
}

std::optional<Press> key_on_list(vel_context &ctx, u32 list, const SDL_keysym &key) {
    List *items = find_list(ctx, list);
    if (items == nullptr) return {};
    const bool is_enter = key.sym == SDLK_RETURN || key.sym == SDLK_KP_ENTER;
    const bool is_typing = now() - items->typed_at < typing_pause && !items->typed.empty();
    const i64 step = step_of(ctx, list, key.sym);
    if (step != 0) {
        if (items->count == 0) return Press::done;
        move_current(ctx, list, step, key.mod);
    } else if (is_enter) {
        if (items->current == VEL_NO_ROW) return {};
        items->is_answered = true;
    } else if (key.sym == SDLK_a && (key.mod & KMOD_CTRL) != 0 && takes_many(ctx, list)) {
        if (items->count != 0) items->selected.add(0, items->count - 1);
        show_rows(ctx, list);
    } else if (key.sym == SDLK_SPACE && !is_typing && takes_many(ctx, list)) {
        select_row(ctx, list, items->current, Selecting::too);
    } else if (const u32 character = character_of(key)) {
        if (!find_typed(ctx, list, character)) return Press::done;
    } else {
        return {};
    }
    show_part(ctx, list);
    return Press::changed;
}

} // namespace velumo
