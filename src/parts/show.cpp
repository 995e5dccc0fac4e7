#include "parts/show.h"

#include "render/display.h"
#include "render/geometry.h"
#include "render/paint.h"
#include "render/scene.h"

namespace velumo {

void show_part(vel_context &ctx, u32 part) {
    const u32 root = root_of(ctx, part);
    const u32 top = root == 0 ? part : root;
    const vel_object &o = object_at(ctx, top);
    if (top == ctx.active_window && top != 0) return show_edited_window(ctx);
    if (o.type != VEL_TYPE_MENU || o.hidden != 0) return show_all(ctx);
    settle_parts(ctx);
    paint_object(ctx, top);
    draw_dependents(ctx, top);
    update_display(ctx, sdl_rect(cut_rect(ctx, o)));
}

} // namespace velumo
