// Where two pictures of the same window differ. For painting.
#pragma once

#include <span>
#include <vector>

#include "render/paint_op.h"

namespace velumo {

inline constexpr std::size_t max_changes = 8;

// Finds the areas outside of which painting all of the new picture over the old one would change no
// pixel. They are few, lie on the clip area and do not overlap. Throws std::bad_alloc.
void find_changes(std::span<const PaintOp> before, std::span<const PaintOp> after, const Area &clip,
                  std::vector<Area> &changes);

} // namespace velumo
