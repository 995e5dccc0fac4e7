// Menus that hang below the titles which open them.
#include "window/title.h"

#include "window/window.h"

namespace velumo {
namespace {

constexpr u32 below_title = 1; // mode of the menu

bool can_be_title(const vel_object &o) {
    return o.type == VEL_TYPE_LABEL || o.type == VEL_TYPE_PICTURE_UNLOADED ||
           o.type == VEL_TYPE_PICTURE;
}

// Left edges in line, unless the menu would then reach beyond the screen.
i32 left_edge(const vel_context &ctx, const vel_object &title, const vel_object &menu) {
    const i32 last_place = as_signed(ctx.screen_width - menu.width);
    return std::max(std::min(as_signed(title.x), last_place), 0);
}

void hang_below(vel_context &ctx, const vel_object &title, u32 number) {
    vel_object &menu = object_at(ctx, number);
    const u32 dx = static_cast<u32>(left_edge(ctx, title, menu)) - menu.x;
    const u32 dy = title.y + title.height - menu.y;
    menu.x += dx;
    menu.y += dy;
    vel_update_dep_objs_after_move(&ctx, number, dx, dy);
}

bool was_clicked(const vel_context &ctx, u32 title, const MenuEnd &end) {
    return end.cause == MenuEnd::Cause::released && end.entry == 0 &&
           vel_test_all_objects(&ctx, static_cast<u32>(end.at.x), static_cast<u32>(end.at.y)) ==
               title;
}

} // namespace

u32 menu_of_title(const vel_context &ctx, u32 title) {
    const vel_object &o = object_at(ctx, title);
    if (!can_be_title(o) || !has_object(ctx, o.max_chars)) return 0;
    return object_at(ctx, o.max_chars).type == VEL_TYPE_MENU ? o.max_chars : 0;
}

MenuEnd open_menu_of_title(vel_context &ctx, u32 title) {
    const u32 menu = menu_of_title(ctx, title);
    hang_below(ctx, object_at(ctx, title), menu);
    MenuEnd end = run_menu(ctx, menu, below_title);
    // The release of the click that opened the menu does not close it, that of the next one does.
    if (was_clicked(ctx, title, end)) end = run_menu(ctx, menu, below_title);
    redraw(ctx);
    return end;
}

} // namespace velumo
