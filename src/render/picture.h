// A picture as the operations that make it up: gathered, and painted as far as they show. For
// painting.
#pragma once

#include <optional>

#include "model/walk.h"
#include "render/text_block.h"
#include "render/text_cache.h"
#include "render/visibility.h"
#include "render/work.h"

namespace velumo {

class Picture : public Kept {
public:
    bool is_gathering() const { return depth_ != 0; }
    // For the walks of the picture that is open.
    std::optional<Steps> &steps() { return steps_; }

    // Texts are compared only when changes of a window are wanted.
    void open(const vel_context &ctx, bool compares_texts);
    // True when the outermost is closed.
    bool close() { return --depth_ == 0; }

    // False when it has become so large that what comes later is not painted.
    bool may_go_on() const;

    // What follows is the active window, which has work of its own.
    void begin_window() { window_begins_ = ops_.size(); }
    // What follows is of one object.
    void begin_object() { begins_group_ = true; }
    // Both add nothing where they return false, and throw std::bad_alloc: what cannot be kept until
    // it is painted.
    bool add(vel_context &ctx, PaintOp op);
    bool add(vel_context &ctx, const TextBlock &block);

    // Paints what was gathered.
    void paint(vel_context &ctx);
    // The same, to be compared with the next picture of a window.
    void paint_window(vel_context &ctx);
    // False, and nothing is painted, when it is not known what the surface shows.
    bool paint_changes_of_window(vel_context &ctx);
    std::span<const Area> changes() const { return changes_; }

private:
    // The surface as it was when a window was painted on it.
    struct Ground {
        SDL_Surface *screen = nullptr;
        void *pixels = nullptr;
        int width = 0, height = 0, bytes = 0;
        Area clip{};

        Ground() = default;
        explicit Ground(SDL_Surface &s);
        bool operator==(const Ground &) const = default;
    };

    void append(const SDL_Surface &screen, const PaintOp &op);
    void make_room(vel_context &ctx);
    void paint_ops(vel_context &ctx);
    void paint_block(vel_context &ctx, const PaintOp &op, std::span<const Area> parts);
    void paint_op(SDL_Surface &screen, PaintOp op, const Area &part);
    bool may_leave_out(const SDL_Surface &screen) const;
    bool find_visible(const SDL_Surface &screen);
    bool find_changes_on(SDL_Surface &screen);
    void paint_again(SDL_Surface &screen, const Area &area);
    std::size_t first_op_in(const Area &area, const Area &clip) const;
    void remember_window(const vel_context &ctx);
    void find_last_text(vel_context &ctx);
    void end(vel_context &ctx);

    u32 depth_ = 0; // of Painting
    std::optional<Steps> steps_;
    u32 ops_left_ = 0;                         // that the picture may still have
    Work work_;                                // that it may still cost
    std::optional<std::size_t> window_begins_; // with which operation, until that is painted
    std::vector<PaintOp> ops_;                 // in the order of painting
    std::vector<TextBlock> blocks_;            // the same, also what does not show
    std::vector<PaintGroup> groups_;           // what each object paints
    bool begins_group_ = false;
    bool is_whole_ = true; // nothing of it was painted already
    TextCache lines_;
    bool compares_texts_ = false;
    PaintOp last_text_; // that was to be painted, without a font when there was none
    std::size_t blocks_before_it_ = 0;
    Visibility visibility_;
    Ground ground_; // of the window painted last, if nothing was painted since
    std::vector<PaintOp> window_;
    std::vector<Area> changes_;
};

} // namespace velumo
