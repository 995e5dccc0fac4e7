#include "render/changes.h"

namespace velumo {
namespace {

bool overlap(const Area &a, const Area &b) { return !common(a, b).is_empty(); }

class Changes {
public:
    Changes(const Area &clip, std::vector<Area> &areas) : clip_(clip), areas_(areas) {
        areas_.clear();
    }

    // What overlaps becomes one area, so that nothing is painted twice.
    void add(const Area &wanted) {
        Area area = common(wanted, clip_);
        if (area.is_empty()) return;
        for (std::size_t k = 0; k < areas_.size();) {
            if (!overlap(areas_[k], area) && areas_.size() < max_changes) {
                ++k;
                continue;
            }
            area = around(areas_[k], area);
            areas_.erase(areas_.begin() + static_cast<std::ptrdiff_t>(k));
            k = 0;
        }
        areas_.push_back(area);
    }

private:
    const Area clip_;
    std::vector<Area> &areas_;
};

// Painted again, it changes what it was painted on, unless that is painted again before it.
bool mixes(const PaintOp &op) {
    switch (op.kind) {
    case PaintOp::Kind::box:
    case PaintOp::Kind::run:
        return false;
    case PaintOp::Kind::image:
        return op.image != nullptr && (op.image->flags & (SDL_SRCALPHA | SDL_SRCCOLORKEY)) != 0;
    case PaintOp::Kind::veil:
    case PaintOp::Kind::text:
    case PaintOp::Kind::block:
        break;
    }
    return true;
}

} // namespace

bool PaintOp::paints_same_as(const PaintOp &other) const {
    return kind == other.kind && opacity == other.opacity && colour.r == other.colour.r &&
           colour.g == other.colour.g && colour.b == other.colour.b && area == other.area &&
           from_x == other.from_x && from_y == other.from_y && line_number == other.line_number &&
           image == other.image;
}

void find_changes(std::span<const PaintOp> before, std::span<const PaintOp> after, const Area &clip,
                  std::vector<Area> &areas) {
    Changes changes(clip, areas);
    const auto same = [](const PaintOp &a, const PaintOp &b) { return a.paints_same_as(b); };
    const Area ground =
        after.empty() || after[0].kind != PaintOp::Kind::box ? Area{} : common(after[0].area, clip);
    for (const PaintOp &op : after) {
        if (mixes(op) && !ground.contains(common(op.area, clip))) changes.add(op.area);
    }
    // Operations come and go in the middle, where a line is typed.
    const std::size_t most = std::min(before.size(), after.size());
    std::size_t first = 0;
    while (first < most && same(before[first], after[first])) ++first;
    before = before.subspan(first);
    after = after.subspan(first);
    while (!before.empty() && !after.empty() && same(before.back(), after.back())) {
        before = before.first(before.size() - 1);
        after = after.first(after.size() - 1);
    }
    const bool is_one_to_one = before.size() == after.size();
    for (std::size_t k = 0; k < std::max(before.size(), after.size()); ++k) {
        if (is_one_to_one && same(before[k], after[k])) continue;
        if (k < before.size()) changes.add(before[k].area);
        if (k < after.size()) changes.add(after[k].area);
    }
}

} // namespace velumo
