#include "text/fonts.h"

#include <new>

#include "text/font_table.h"

namespace velumo {
namespace {

// More than a form uses. A program that opens fonts without end must not fill the memory.
constexpr std::size_t max_fonts = 64;

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
        if (last_ != nullptr && last_call_ == call_ && last_->look().font == font) return *last_;
        last_ = &found_table(font);
        last_call_ = call_;
        return *last_;
    }

private:
    FontTable &found_table(TTF_Font *font) {
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
    FontTable *last_ = nullptr; // asked for last, in last_call_
    std::uint64_t last_call_ = 0;
    u32 last_id_ = 0;
};

} // namespace

FontTable *table_of(const vel_context &ctx, TTF_Font *font) try {
    if (ctx.state == nullptr || ctx.state->draws_plainly) return nullptr;
    return &kept<Fonts>(ctx.state->fonts).table_of(font);
} catch (const std::bad_alloc &) {
    return nullptr;
}

FontsStay::FontsStay(vel_context &ctx) {
    try {
        auto &fonts = kept<Fonts>(state_of(ctx).fonts);
        if (fonts.depth++ == 0) fonts.begin_call();
        depth_ = &fonts.depth;
    } catch (const std::bad_alloc &) {
    }
}

FontsStay::~FontsStay() {
    if (depth_ != nullptr) --*depth_;
}

} // namespace velumo
