// What of a picture shows in the end: what later boxes cover need not be painted. For painting.
#pragma once

#include <span>
#include <vector>

#include "render/paint_op.h"

namespace velumo {

// Operations of one object, which follow each other.
struct PaintGroup {
    u32 first; // operation; the last is the one before the next group's
    Area area; // all that they may touch of the surface
};

class Visibility {
public:
    // The boxes are clipped; runs of pixels are not. Throws std::bad_alloc.
    void find(std::span<const PaintOp> ops, std::span<const PaintGroup> groups, const Area &clip);

    // The parts of an operation that show. A run is shown whole.
    std::span<const Area> shown(std::size_t op) const {
        return {parts_.data() + shown_[op].first, shown_[op].count};
    }

private:
    struct Parts {
        u32 first, count;
    };

    bool is_covered(const Area &area) const;
    void add_cover(const Area &area);
    void show(std::size_t op, const Area &area) {
        shown_[op] = {static_cast<u32>(parts_.size()), 1};
        parts_.push_back(area);
    }
    void show_uncovered(std::size_t op, const Area &area);
    void add_uncovered(const Area &area, std::size_t next_cover, std::size_t most_parts);

    std::vector<Parts> shown_;
    std::vector<Area> parts_;
    std::vector<Area> covers_; // of the operations that come later
};

} // namespace velumo
