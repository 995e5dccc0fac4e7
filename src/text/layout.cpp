#include "text/layout.h"

#include "model/types.h"
#include "text/flow.h"
#include "text/format.h"

namespace velumo {

void format_object(vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    if (!has_area(o)) return;
    switch (type_of(o).text) {
    case TextKind::caption:
        format_caption(ctx, number);
        break;
    case TextKind::paragraphs:
        format_text(ctx, number);
        break;
    case TextKind::chain:
        // The head lays out its members.
        if (o.master == 0) format_chain(ctx, number);
        break;
    case TextKind::none:
        break;
    }
}

} // namespace velumo
