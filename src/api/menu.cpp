// The exported function of menus.
#include "api/calls.h"
#include "menu/pull_down.h"

using namespace velumo;

uint32_t vel_move_out_menu(vel_context *ctx, uint32_t menu, uint32_t mode) noexcept {
    const MenuStart start{mode == 1 ? Hanging::below_title : Hanging::free};
    return in_form(ctx, run_menu, menu, start).entry;
}
