// The picture that is being made: what objects paint is gathered first, and painted when all of it
// is known. For drawing.
#pragma once

#include <optional>
#include <span>

#include "model/walk.h"
#include "render/text_block.h"
#include "text/fonts.h"

namespace velumo {

// What is drawn as long as one of these lives is painted when the outermost ends: in its order, but
// without what is covered later. Without memory for it, everything is painted at once.
class Painting {
public:
    enum class Of {
        anything,
        window,           // the active one, all of it
        changes_of_window // only what differs from that painted last, if nothing else was since
    };
    explicit Painting(vel_context &ctx, Of what = Of::anything);
    ~Painting() { finish(); }
    Painting(const Painting &) = delete;
    Painting &operator=(const Painting &) = delete;

    // Paints now. Returns where a window has changed; nothing when all of it was painted.
    std::optional<std::span<const Area>> finish();

    // For the walks over dependents that the picture consists of.
    Steps &steps();

private:
    vel_context &ctx_;
    const Of what_;
    const FontsStay fonts_stay_;
    Steps own_steps_;
    bool is_gathering_ = false;
};

// What follows is the active window, which shows whatever is under it.
void begin_window(const vel_context &ctx);
// What follows is painted by one object.
void begin_object(vel_context &ctx);

// False when the picture that is being made has become so large that what follows is not painted.
bool may_go_on(const vel_context &ctx);

// Both paint with the picture that is being made, or at once. The line of text that is painted last
// is text_surface.
void paint(vel_context &ctx, const PaintOp &op);
void paint(vel_context &ctx, const TextBlock &block);

} // namespace velumo
