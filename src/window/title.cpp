#include "window/title.h"

#include <new>

#include "input/hit_test.h"
#include "model/following.h"
#include "model/types.h"
#include "render/geometry.h"
#include "render/scene.h"

namespace velumo {
namespace {

// Left edges in line, unless the menu would then reach beyond the screen.
i32 left_edge(const vel_context &ctx, const vel_object &title, const vel_object &menu) {
    const i32 last_place = as_signed(ctx.screen_width - menu.width);
    return std::max(std::min(as_signed(title.x), last_place), 0);
}

void hang_below(vel_context &ctx, const vel_object &title, u32 number) {
    vel_object &menu = object_at(ctx, number);
    const Shift by{as_field(left_edge(ctx, title, menu)) - menu.x, title.y + title.height - menu.y};
    shift_object(menu, by);
    follow_move(ctx, number, by);
}

bool was_clicked(const vel_context &ctx, u32 title, const MenuEnd &end) {
    return end.cause == MenuEnd::Cause::released && end.entry == 0 &&
           object_under(ctx, end.at.x, end.at.y) == title;
}

// The title before or after one, round the window or the desktop that it is on; without memory for
// the list of titles it is the title itself.
u32 neighbour_of(const vel_context &ctx, u32 title, const Reach &reach, bool backwards) try {
    const u32 root = root_of(ctx, title);
    const bool is_in_window = root != 0 && root == ctx.active_window;
    std::vector<u32> titles;
    const auto note = [&](u32 number) {
        if (menu_of_title(ctx, number) != 0) titles.push_back(number);
        return false;
    };
    Steps steps(ctx);
    if (is_in_window)
        walk_reachable_in(ctx, root, steps, note);
    else if (!reach.is_dialog)
        walk_reachable_desktop(ctx, steps, note);
    const auto here = std::find(titles.begin(), titles.end(), title);
    if (here == titles.end()) return title;
    const auto place = static_cast<std::size_t>(here - titles.begin());
    return titles[(place + (backwards ? titles.size() - 1 : 1)) % titles.size()];
} catch (const std::bad_alloc &) {
    return title;
}

} // namespace

u32 menu_of_title(const vel_context &ctx, u32 title) {
    const vel_object &o = object_at(ctx, title);
    if (!type_of(o).can_be_title || !is_known_object(ctx, o.max_chars)) return 0;
    return object_at(ctx, o.max_chars).type == VEL_TYPE_MENU ? o.max_chars : 0;
}

u32 first_title(const vel_context &ctx, const Reach &reach) {
    u32 found = 0;
    walk_everywhere(ctx, reach, [&](u32 number) {
        if (menu_of_title(ctx, number) != 0) found = number;
        return found != 0;
    });
    return found;
}

MenuEnd open_menu_of_title(vel_context &ctx, u32 title, const Reach &reach, Opened opened) {
    for (;;) {
        const u32 menu = menu_of_title(ctx, title);
        const bool has_neighbours = has_comfort(ctx, VEL_COMFORT_KEYBOARD);
        hang_below(ctx, object_at(ctx, title), menu);
        MenuEnd end = run_menu(ctx, menu, {Hanging::below_title, opened, has_neighbours});
        // The release of the click that opened the menu does not close it, that of the next one
        // does.
        if (opened == Opened::by_pointer && was_clicked(ctx, title, end))
            end = run_menu(ctx, menu, {Hanging::below_title, opened, has_neighbours});
        if (!has_objects(ctx)) return end;
        show_all(ctx);
        const bool goes_back = end.cause == MenuEnd::Cause::previous_title;
        if (!goes_back && end.cause != MenuEnd::Cause::next_title) return end;
        title = neighbour_of(ctx, title, reach, goes_back);
        opened = Opened::by_key;
    }
}

} // namespace velumo
