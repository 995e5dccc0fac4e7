#include "render/visibility.h"

namespace velumo {
namespace {

// Few large boxes cover most of what is covered at all, and comparing with many costs more than
// painting does.
constexpr i64 least_cover = 1024; // pixels
constexpr std::size_t max_covers = 16;
// Painting two parts costs more than painting a few pixels for nothing.
constexpr i64 least_cut = 512;
constexpr std::size_t max_parts = 24; // of one operation

} // namespace

// From the last operation to the first, so that what comes later is known.
void Visibility::find(std::span<const PaintOp> ops, std::span<const PaintGroup> groups,
                      const Area &clip) {
    covers_.clear();
    parts_.clear();
    shown_.assign(ops.size(), {0, 0});
    std::size_t end = ops.size();
    for (std::size_t g = groups.size(); g-- > 0; end = groups[g].first) {
        if (is_covered(groups[g].area)) continue;
        for (std::size_t k = end; k-- > groups[g].first;) {
            if (ops[k].kind == PaintOp::Kind::run) {
                show(k, ops[k].area);
                continue;
            }
            const Area area = common(ops[k].area, clip);
            show_uncovered(k, area);
            if (ops[k].kind == PaintOp::Kind::box) add_cover(area);
        }
    }
}

bool Visibility::is_covered(const Area &area) const {
    return std::any_of(covers_.begin(), covers_.end(),
                       [&area](const Area &cover) { return cover.contains(area); });
}

void Visibility::add_cover(const Area &area) {
    if (area.size() < least_cover || is_covered(area)) return;
    std::erase_if(covers_, [&area](const Area &cover) { return area.contains(cover); });
    if (covers_.size() < max_covers) {
        covers_.push_back(area);
        return;
    }
    const auto smallest =
        std::min_element(covers_.begin(), covers_.end(),
                         [](const Area &a, const Area &b) { return a.size() < b.size(); });
    if (smallest->size() < area.size()) *smallest = area;
}

void Visibility::show_uncovered(std::size_t op, const Area &area) {
    const std::size_t first = parts_.size();
    add_uncovered(area, 0, first + max_parts);
    shown_[op] = {static_cast<u32>(first), static_cast<u32>(parts_.size() - first)};
}

// Takes the covers out of the area one after the other: what is left above, below and at both sides
// of one is compared with those that follow.
void Visibility::add_uncovered(const Area &a, std::size_t next_cover, std::size_t most_parts) {
    if (a.is_empty()) return;
    for (std::size_t k = next_cover; k < covers_.size() && parts_.size() < most_parts; ++k) {
        const Area c = common(a, covers_[k]);
        if (c.is_empty() || c.size() < std::min(least_cut, a.size())) continue;
        add_uncovered({a.left, a.top, a.right, c.top}, k + 1, most_parts);
        add_uncovered({a.left, c.top, c.left, c.bottom}, k + 1, most_parts);
        add_uncovered({c.right, c.top, a.right, c.bottom}, k + 1, most_parts);
        add_uncovered({a.left, c.bottom, a.right, a.bottom}, k + 1, most_parts);
        return;
    }
    parts_.push_back(a);
}

} // namespace velumo
