#include "text/fonts.h"

#include <new>

#include "text/font_table.h"

namespace velumo {
namespace {

// As many as one load opens, and some. A program that opens fonts without end must not fill the
// memory.
constexpr std::size_t max_fonts = 300;

struct KnownFont {
    std::unique_ptr<FontTable> table;
    std::uint64_t looked_at; // call in which it was
};

class Fonts : public Kept {
public:
    u32 depth = 0; // of FontsStay

    void begin_call() { ++call_; }

    FontTable &table_of(TTF_Font *font) {
        if (depth == 0) begin_call();
        // The last ones first: a font that was used before is mostly the next one, too.
        for (std::size_t k = fonts_.size(); k-- > 0;) {
            if (fonts_[k].table->look().font != font) continue;
            if (fonts_[k].looked_at == call_) return *fonts_[k].table;
            return looked_at_again(k);
        }
        return added(FontLook(font));
    }

    FontTable &looked_at_again(std::size_t k) {
        const FontLook look(fonts_[k].table->look().font);
        KnownFont known = std::move(fonts_[k]);
        fonts_.erase(fonts_.begin() + static_cast<std::ptrdiff_t>(k));
        if (known.table->look() != look) return added(look);
        known.looked_at = call_;
        fonts_.push_back(std::move(known));
        return *fonts_.back().table;
    }

    FontTable &added(const FontLook &look) {
        if (fonts_.size() == max_fonts) fonts_.erase(fonts_.begin());
        fonts_.push_back({std::make_unique<FontTable>(look, ++last_id_), call_});
        return *fonts_.back().table;
    }

    std::vector<KnownFont> fonts_; // the one looked at last at the end
    std::uint64_t call_ = 0;
    u32 last_id_ = 0;
};

} // namespace

FontTable *found_table(const vel_context &ctx, TTF_Font *font) try {
    if (ctx.state == nullptr || ctx.state->draws_plainly) return nullptr;
    auto &fonts = kept<Fonts>(ctx.state->fonts);
    FontTable &table = fonts.table_of(font);
    if (fonts.depth != 0) {
        ctx.state->looked_at_font = font;
        ctx.state->looked_at_table = &table;
    }
    return &table;
} catch (const std::bad_alloc &) {
    return nullptr;
}

FontsStay::FontsStay(vel_context &ctx) : ctx_(ctx) {
    try {
        auto &fonts = kept<Fonts>(state_of(ctx).fonts);
        if (fonts.depth++ == 0) fonts.begin_call();
        are_known_ = true;
    } catch (const std::bad_alloc &) {
    }
}

FontsStay::~FontsStay() {
    if (!are_known_ || --static_cast<Fonts &>(*ctx_.state->fonts).depth != 0) return;
    ctx_.state->looked_at_font = nullptr;
}

} // namespace velumo
