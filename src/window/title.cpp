#include "window/title.h"

#include "input/hit_test.h"
#include "model/types.h"
#include "render/scene.h"
#include "window/following.h"

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

} // namespace

u32 menu_of_title(const vel_context &ctx, u32 title) {
    const vel_object &o = object_at(ctx, title);
    if (!type_of(o).can_be_title || !is_known_object(ctx, o.max_chars)) return 0;
    return object_at(ctx, o.max_chars).type == VEL_TYPE_MENU ? o.max_chars : 0;
}

MenuEnd open_menu_of_title(vel_context &ctx, u32 title) {
    const u32 menu = menu_of_title(ctx, title);
    hang_below(ctx, object_at(ctx, title), menu);
    MenuEnd end = run_menu(ctx, menu, Hanging::below_title);
    // The release of the click that opened the menu does not close it, that of the next one does.
    if (was_clicked(ctx, title, end)) end = run_menu(ctx, menu, Hanging::below_title);
    show_all(ctx);
    return end;
}

} // namespace velumo
