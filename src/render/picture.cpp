#include "render/picture.h"

#include <new>

#include "render/changes.h"
#include "render/pixels.h"
#include "text/font_table.h"
#include "text/fonts.h"

namespace velumo {
namespace {

constexpr std::size_t default_cache_size = std::size_t{4} << 20; // bytes
// A longer picture is painted in pieces, so that its operations do not fill the memory.
constexpr std::size_t max_ops = 65536;
// The lines of a text and what is around them, for each object that a file has room for. One that
// is made to paint more must not take minutes.
constexpr u32 most_ops = VEL_MAX_RECORDS * (VEL_TEXT_LINES + 24);
constexpr int max_side = 32767; // of a surface, so that parts of boxes fit SDL_Rect

// As the screen may with a picture that it is a part of. What SDL keeps encoded has no pixels, and
// a screen in the memory of the hardware has them only while it is locked.
bool share_pixels(const SDL_Surface &screen, const SDL_Surface *image) {
    if (image == nullptr || image->pixels == nullptr || screen.pixels == nullptr) return false;
    const auto start = [](const SDL_Surface &s) { return static_cast<const u8 *>(s.pixels); };
    const auto end = [start](const SDL_Surface &s) {
        return start(s) + std::size_t{s.pitch} * static_cast<std::size_t>(s.h);
    };
    const std::less<> is_before;
    return is_before(start(*image), end(screen)) && is_before(start(screen), end(*image));
}

// False without memory for what is known of its font.
bool has_font_id(const vel_context &ctx, PaintOp &text) {
    const FontTable *table = table_of(ctx, text.font);
    if (table != nullptr) text.font_id = table->id;
    return table != nullptr;
}

LineKey key_of(const PaintOp &text) { return {text.font_id, text.colour, text.text}; }

} // namespace

Picture::Ground::Ground(SDL_Surface &s)
    : screen(&s), pixels(s.pixels), width(s.w), height(s.h), bytes(s.format->BytesPerPixel),
      clip(area_of(s.clip_rect)) {}

void Picture::open(const vel_context &ctx, bool compares_texts) {
    if (depth_++ != 0) return;
    compares_texts_ = compares_texts;
    steps_.emplace(ctx);
    ops_left_ = most_ops;
    work_.begin(ctx.screen);
    lines_.set_limit(ctx.text_cache_size == 0 ? default_cache_size : ctx.text_cache_size);
    is_whole_ = true;
}

bool Picture::add(vel_context &ctx, PaintOp op) {
    const bool is_text = op.kind == PaintOp::Kind::text;
    if (is_text && !has_font_id(ctx, op)) return false;
    make_room(ctx);
    if (is_text && compares_texts_) op.line_number = lines_.line_of(key_of(op), op.font).number;
    append(*ctx.screen, op);
    if (is_text) {
        last_text_ = op;
        blocks_before_it_ = blocks_.size();
    }
    return true;
}

bool Picture::add(vel_context &ctx, const TextBlock &block) {
    PaintOp op{.kind = PaintOp::Kind::block, .area = area_of(block), .font = block.font};
    if (compares_texts_ || !has_font_id(ctx, op)) return false;
    make_room(ctx);
    op.block_number = static_cast<u32>(blocks_.size());
    blocks_.push_back(block);
    append(*ctx.screen, op);
    return true;
}

void Picture::make_room(vel_context &ctx) {
    if (std::max(ops_.size(), blocks_.size()) == max_ops) paint(ctx);
}

void Picture::append(const SDL_Surface &screen, const PaintOp &op) {
    const Area on_screen = common(op.area, area_of(screen));
    if (on_screen.is_empty() || !may_go_on()) return;
    --ops_left_;
    ops_.push_back(op);
    if (begins_group_ || groups_.empty()) {
        try {
            groups_.push_back({static_cast<u32>(ops_.size() - 1), on_screen});
        } catch (...) {
            ops_.pop_back();
            throw;
        }
        begins_group_ = false;
    }
    groups_.back().area = around(groups_.back().area, on_screen);
}

void Picture::paint(vel_context &ctx) {
    ground_ = {};
    is_whole_ = compares_texts_ = false;
    if (!ops_.empty()) paint_ops(ctx);
    end(ctx);
}

void Picture::paint_window(vel_context &ctx) {
    if (!ops_.empty()) paint_ops(ctx);
    remember_window(ctx);
    end(ctx);
}

bool Picture::paint_changes_of_window(vel_context &ctx) {
    if (!is_whole_ || ctx.screen == nullptr || !find_changes_on(*ctx.screen)) return false;
    for (const Area &area : changes_) paint_again(*ctx.screen, area);
    remember_window(ctx);
    end(ctx);
    return true;
}

bool Picture::may_go_on() const {
    return (ops_left_ != 0 || !is_guarded) && (work_.is_left() || window_begins_);
}

void Picture::paint_op(SDL_Surface &screen, PaintOp op, const Area &part) {
    if (!work_.is_left()) return;
    work_.spend(work_of(op.kind, common(part, area_of(screen)).size()));
    if (op.kind == PaintOp::Kind::text) {
        op.image = lines_.surface_for(screen, key_of(op), op.font, work_);
    }
    paint_part(screen, op, part);
}

void Picture::paint_ops(vel_context &ctx) {
    SDL_Surface &screen = *ctx.screen;
    const bool leaves_out = may_leave_out(screen) && find_visible(screen);
    for (std::size_t k = 0; k < ops_.size(); ++k) {
        if (k == window_begins_) work_.begin(&screen);
        const auto whole = std::span(&ops_[k].area, 1);
        const auto parts = leaves_out ? visibility_.shown(k) : whole;
        if (ops_[k].kind == PaintOp::Kind::block) {
            paint_block(ctx, ops_[k], parts);
        } else {
            for (const Area &part : parts) paint_op(screen, ops_[k], part);
        }
    }
}

void Picture::paint_block(vel_context &ctx, const PaintOp &op, std::span<const Area> parts) {
    if (parts.empty() || !work_.is_left()) return;
    const TextBlock &block = blocks_[op.block_number];
    work_.spend(work_of_looking_at(block.lines));
    const auto paint_line = [&](PaintOp line) {
        work_.spend(work_of_looking_at(1));
        line.font_id = op.font_id;
        for (const Area &part : parts) {
            const Area shown = common(line.area, part);
            if (!common(shown, area_of(*ctx.screen)).is_empty()) paint_op(*ctx.screen, line, shown);
        }
    };
    for_each_op(ctx, block, std::ref(paint_line));
}

// Where a pixel is refused with a message, each is refused; and what is painted from the surface
// itself needs what is painted there before, seen or not.
bool Picture::may_leave_out(const SDL_Surface &screen) const {
    const int bytes = screen.format->BytesPerPixel;
    const bool has_pixels = screen.format->BitsPerPixel >= 8 && bytes != 3 && bytes <= 4;
    return has_pixels && screen.w <= max_side && screen.h <= max_side &&
           std::none_of(ops_.begin(), ops_.end(),
                        [&screen](const PaintOp &op) { return share_pixels(screen, op.image); });
}

bool Picture::find_visible(const SDL_Surface &screen) try {
    visibility_.find(ops_, groups_, area_of(screen.clip_rect));
    return true;
} catch (const std::bad_alloc &) {
    return false;
}

bool Picture::find_changes_on(SDL_Surface &screen) try {
    if (!(ground_ == Ground(screen)) || !may_leave_out(screen)) return false;
    find_changes(window_, ops_, area_of(screen), changes_);
    return true;
} catch (const std::bad_alloc &) {
    return false;
}

void Picture::paint_again(SDL_Surface &screen, const Area &area) {
    const SDL_Rect whole = screen.clip_rect;
    const SDL_Rect part = sdl_rect(common(area, area_of(whole)));
    SDL_SetClipRect(&screen, &part);
    for (std::size_t k = first_op_in(area, area_of(whole)); k < ops_.size(); ++k) {
        const Area painted = common(ops_[k].area, area);
        if (!painted.is_empty()) paint_op(screen, ops_[k], painted);
    }
    SDL_SetClipRect(&screen, &whole);
}

// From the last box on that covers the area. Runs of pixels are not clipped, so that a box covers
// them only where it is not, either.
std::size_t Picture::first_op_in(const Area &area, const Area &clip) const {
    for (std::size_t k = ops_.size(); k-- > 0 && clip.contains(area);) {
        if (ops_[k].kind == PaintOp::Kind::box && ops_[k].area.contains(area)) return k;
    }
    return 0;
}

void Picture::remember_window(const vel_context &ctx) {
    ground_ = {};
    if (ctx.partial_redraw != 1 || !is_whole_ || ctx.screen == nullptr) return;
    window_.swap(ops_);
    ground_ = Ground(*ctx.screen);
}

// The blocks behind the last text that is known may have been covered, so that nobody looked what
// they paint.
void Picture::find_last_text(vel_context &ctx) {
    bool is_found = false;
    const auto look = [&](const PaintOp &op) {
        if (op.kind != PaintOp::Kind::text) return;
        last_text_ = op;
        is_found = true;
    };
    for (std::size_t k = blocks_.size(); k-- > blocks_before_it_ && !is_found;) {
        if (!work_.is_left()) return;
        if (blocks_[k].shows_dots) continue;
        work_.spend(work_of_looking_at(blocks_[k].lines));
        for_each_op(ctx, blocks_[k], std::ref(look));
    }
    if (is_found && !has_font_id(ctx, last_text_)) last_text_ = {};
}

void Picture::end(vel_context &ctx) {
    find_last_text(ctx);
    if (last_text_.font != nullptr) {
        lines_.hand_over(key_of(last_text_), last_text_.font, ctx.text_surface, work_);
    }
    last_text_ = {};
    blocks_before_it_ = 0;
    // All that was painted came before the window.
    if (window_begins_ == ops_.size()) work_.begin(ctx.screen);
    ops_.clear();
    blocks_.clear();
    groups_.clear();
    begins_group_ = false;
    window_begins_.reset();
    lines_.trim();
}

} // namespace velumo
