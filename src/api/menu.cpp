// The exported function of menus.
#include "menu/pull_down.h"

using namespace velumo;

uint32_t vel_move_out_menu(vel_context *ctx, uint32_t menu, uint32_t mode) noexcept {
    return run_menu(*ctx, menu, {mode == 1 ? Hanging::below_title : Hanging::free}).entry;
}
