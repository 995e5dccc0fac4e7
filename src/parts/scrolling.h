// How far something is scrolled, and scrolling it: the rows of a list, the lines of a text, the
// contents of a window. For the wheel and scroll bars.
#pragma once

#include "model/axis.h"
#include "model/following.h"
#include "render/geometry.h"

namespace velumo {

// A length on one axis that shows a part of something longer, in pixels or in rows.
struct View {
    Span area, contents;

    bool fits() const { return contents.begin >= area.begin && contents.end <= area.end; }
    // How far the contents may move, at most by a step.
    i64 room(Direction direction, i64 step) const {
        const i64 hidden =
            direction == Direction::forward ? area.begin - contents.begin : contents.end - area.end;
        return std::clamp<i64>(hidden, 0, step);
    }
};

// Something of an object that scrolls along an axis.
class Scrollable {
public:
    enum class What { nothing, lines, rows, contents };

    Scrollable(vel_context &ctx, u32 object, const Axis &axis);

    What what() const { return what_; }
    const View &view() const { return view_; }
    // Moves what shows, by at most as much as is out of sight. In pixels; in rows for a list.
    void move(Direction direction, i64 distance);
    // The usual distance of a notch of the wheel.
    i64 notch() const;

private:
    bool has_lines() const;
    Span lines() const;
    bool scrolls_along(const vel_object &o) const;
    bool has_scrolling_dependents() const;
    View view_of_contents() const;

    vel_context &ctx_;
    const u32 number_;
    vel_object &o_;
    const Axis &axis_;
    What what_ = What::nothing;
    View view_{};
};

} // namespace velumo
