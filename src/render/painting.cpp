#include "render/painting.h"

#include <new>

#include "render/changes.h"
#include "render/pixels.h"
#include "render/text_cache.h"
#include "render/visibility.h"
#include "text/fonts.h"

namespace velumo {
namespace {

constexpr std::size_t default_cache_size = std::size_t{4} << 20; // bytes
// A longer picture is painted in pieces, so that its operations do not fill the memory.
constexpr std::size_t max_ops = 8192;
constexpr int max_side = 32767; // of a surface, so that parts of boxes fit SDL_Rect

bool lies_on(const SDL_Surface &screen, const SDL_Surface *image) {
    const auto *pixels = static_cast<const u8 *>(screen.pixels);
    const std::less<> is_before;
    return image != nullptr && !is_before(image->pixels, pixels) &&
           is_before(image->pixels,
                     pixels + std::size_t{screen.pitch} * static_cast<std::size_t>(screen.h));
}

void paint_on(SDL_Surface &screen, const PaintOp &op, const Area &part) {
    switch (op.kind) {
    case PaintOp::Kind::box:
        fill_area(screen, part, op.colour);
        break;
    case PaintOp::Kind::run:
        if (op.takes_lock) lock(&screen);
        fill_run(screen, part, op.colour);
        if (op.takes_lock) unlock(&screen);
        break;
    case PaintOp::Kind::veil:
        lay_veil(screen, part, op.colour, op.opacity);
        break;
    case PaintOp::Kind::image:
    case PaintOp::Kind::text:
        blit(screen, op.image, op.from_x + part.left - op.area.left,
             op.from_y + part.top - op.area.top, part);
        break;
    }
}

// The surface as it was when a window was painted on it.
struct Ground {
    SDL_Surface *screen = nullptr;
    void *pixels = nullptr;
    int width = 0, height = 0, bytes = 0;
    Area clip{};

    explicit Ground(SDL_Surface &s)
        : screen(&s), pixels(s.pixels), width(s.w), height(s.h), bytes(s.format->BytesPerPixel),
          clip(area_of(s.clip_rect)) {}
    Ground() = default;
    bool operator==(const Ground &) const = default;
};

class Picture : public Kept {
public:
    TextCache lines;

    bool is_gathering() const { return depth_ != 0; }
    void open(const vel_context &ctx) {
        if (depth_++ != 0) return;
        lines.set_limit(ctx.text_cache_size == 0 ? default_cache_size : ctx.text_cache_size);
        is_whole_ = true;
    }
    bool close() { return --depth_ == 0; }

    void begin_object() { begins_group_ = true; }

    void make_room(vel_context &ctx) {
        if (ops_.size() == max_ops) paint(ctx);
    }
    // Throws std::bad_alloc; nothing is added then.
    void add(const vel_context &ctx, const PaintOp &op) {
        const Area on_screen = common(op.area, area_of(*ctx.screen));
        if (on_screen.is_empty()) return;
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
    void note_text(RenderedLine &line) { last_line_ = &line; }

    // Paints what was gathered.
    void paint(vel_context &ctx) {
        forget_window();
        is_whole_ = false;
        if (!ops_.empty()) paint_ops(*ctx.screen);
        end(ctx);
    }
    void paint_window(vel_context &ctx) {
        if (!ops_.empty()) paint_ops(*ctx.screen);
        remember_window(ctx);
        end(ctx);
    }
    // False, and nothing is painted, when it is not known what the surface shows.
    bool paint_changes_of_window(vel_context &ctx) {
        if (!is_whole_ || ctx.screen == nullptr || !find_changes_on(*ctx.screen)) return false;
        for (const Area &area : changes_) paint_again(*ctx.screen, area);
        remember_window(ctx);
        end(ctx);
        return true;
    }
    std::span<const Area> changes() const { return changes_; }

    // Something else was painted.
    void forget_window() { ground_ = {}; }

private:
    void paint_part(SDL_Surface &screen, PaintOp op, const Area &part) {
        if (op.kind == PaintOp::Kind::text) op.image = lines.surface_for(screen, *op.line);
        paint_on(screen, op, part);
    }

    void paint_ops(SDL_Surface &screen) {
        const bool leaves_out = may_leave_out(screen) && find_visible(screen);
        for (std::size_t k = 0; k < ops_.size(); ++k) {
            const auto whole = std::span(&ops_[k].area, 1);
            for (const Area &part : leaves_out ? visibility_.shown(k) : whole) {
                paint_part(screen, ops_[k], part);
            }
        }
    }

    // Where a pixel is refused with a message, each is refused; and what is painted from the
    // surface itself needs what is painted there before, seen or not.
    bool may_leave_out(const SDL_Surface &screen) const {
        const int bytes = screen.format->BytesPerPixel;
        const bool has_pixels = screen.format->BitsPerPixel >= 8 && bytes != 3 && bytes <= 4;
        return has_pixels && screen.w <= max_side && screen.h <= max_side &&
               std::none_of(ops_.begin(), ops_.end(),
                            [&screen](const PaintOp &op) { return lies_on(screen, op.image); });
    }

    bool find_visible(const SDL_Surface &screen) try {
        visibility_.find(ops_, groups_, area_of(screen.clip_rect));
        return true;
    } catch (const std::bad_alloc &) {
        return false;
    }

    bool find_changes_on(SDL_Surface &screen) try {
        if (!(ground_ == Ground(screen)) || !may_leave_out(screen)) return false;
        find_changes(window_, ops_, area_of(screen), changes_);
        return true;
    } catch (const std::bad_alloc &) {
        return false;
    }

    // Paints what there is in one area, from the last box on that covers it.
    void paint_again(SDL_Surface &screen, const Area &area) {
        const SDL_Rect whole = screen.clip_rect;
        const SDL_Rect part = sdl_rect(common(area, area_of(whole)));
        SDL_SetClipRect(&screen, &part);
        for (std::size_t k = first_op_in(area, area_of(whole)); k < ops_.size(); ++k) {
            const Area painted = common(ops_[k].area, area);
            if (!painted.is_empty()) paint_part(screen, ops_[k], painted);
        }
        SDL_SetClipRect(&screen, &whole);
    }
    // Runs of pixels are not clipped, so that a box covers them only where it is not, either.
    std::size_t first_op_in(const Area &area, const Area &clip) const {
        for (std::size_t k = ops_.size(); k-- > 0 && clip.contains(area);) {
            if (ops_[k].kind == PaintOp::Kind::box && ops_[k].area.contains(area)) return k;
        }
        return 0;
    }

    void remember_window(const vel_context &ctx) {
        forget_window();
        if (ctx.partial_redraw != 1 || !is_whole_ || ctx.screen == nullptr) return;
        window_.swap(ops_);
        ground_ = Ground(*ctx.screen);
    }

    void end(vel_context &ctx) {
        if (last_line_ != nullptr) lines.hand_over(*last_line_, ctx.text_surface);
        last_line_ = nullptr;
        ops_.clear();
        groups_.clear();
        begins_group_ = false;
        lines.trim();
    }

    u32 depth_ = 0;                  // of Painting
    std::vector<PaintOp> ops_;       // in the order of painting
    std::vector<PaintGroup> groups_; // what each object paints
    bool begins_group_ = false;
    bool is_whole_ = true;              // nothing of it was painted already
    RenderedLine *last_line_ = nullptr; // that was to be painted
    Visibility visibility_;
    Ground ground_; // of the window that was painted last, if it is still as it was
    std::vector<PaintOp> window_;
    std::vector<Area> changes_;
};

Picture *picture_of(const vel_context &ctx) {
    return ctx.state == nullptr ? nullptr : static_cast<Picture *>(ctx.state->picture.get());
}

Picture *gathering_picture(const vel_context &ctx) {
    Picture *picture = picture_of(ctx);
    return picture != nullptr && picture->is_gathering() ? picture : nullptr;
}

// In its place among the other operations.
void paint_without_memory(vel_context &ctx, const PaintOp &op) {
    if (Picture *picture = picture_of(ctx)) picture->paint(ctx);
    paint_on(*ctx.screen, op, op.area);
}

void paint_text_at_once(vel_context &ctx, const TextLine &line, PaintOp place) {
    if (Picture *picture = picture_of(ctx)) picture->paint(ctx);
    const SDL_Color colour{line.colour.r, line.colour.g, line.colour.b, 0};
    SDL_FreeSurface(ctx.text_surface);
    ctx.text_surface = TTF_RenderText_Blended(line.font, line.text, colour);
    place.image = ctx.text_surface;
    paint_on(*ctx.screen, place, place.area);
}

} // namespace

Painting::Painting(vel_context &ctx, Of what) : ctx_(ctx), what_(what), fonts_stay_(ctx) {
    try {
        if (state_of(ctx).draws_plainly) return;
        kept<Picture>(ctx.state->picture).open(ctx);
        is_gathering_ = true;
    } catch (const std::bad_alloc &) {
    }
}

std::optional<std::span<const Area>> Painting::finish() {
    Picture *picture = is_gathering_ ? picture_of(ctx_) : nullptr;
    is_gathering_ = false;
    if (picture == nullptr || !picture->close()) return {};
    switch (what_) {
    case Of::anything:
        picture->paint(ctx_);
        break;
    case Of::changes_of_window:
        if (picture->paint_changes_of_window(ctx_)) return picture->changes();
        [[fallthrough]];
    case Of::window:
        picture->paint_window(ctx_);
        break;
    }
    return {};
}

void begin_object(vel_context &ctx) {
    if (Picture *picture = gathering_picture(ctx)) picture->begin_object();
}

void paint(vel_context &ctx, const PaintOp &op) {
    if (ctx.screen == nullptr) return;
    Picture *picture = gathering_picture(ctx);
    try {
        if (picture != nullptr) {
            picture->make_room(ctx);
            return picture->add(ctx, op);
        }
    } catch (const std::bad_alloc &) {
    }
    paint_without_memory(ctx, op);
}

void paint_text(vel_context &ctx, const TextLine &line, PaintOp place) {
    if (ctx.screen == nullptr) return;
    Picture *picture = gathering_picture(ctx);
    const FontTable *table = picture == nullptr ? nullptr : table_of(ctx, line.font);
    try {
        if (table != nullptr) {
            picture->make_room(ctx);
            RenderedLine &rendered = picture->lines.line_of(*table, line.colour, line.text);
            place.line = &rendered;
            place.line_number = rendered.number;
            picture->add(ctx, place);
            return picture->note_text(rendered);
        }
    } catch (const std::bad_alloc &) {
    }
    paint_text_at_once(ctx, line, place);
}

} // namespace velumo
