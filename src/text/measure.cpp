#include "text/measure.h"

#include <new>

#include "text/font_table.h"
#include "text/fonts.h"

namespace velumo {
namespace {

template <u32 (FontTable::*width_in)(const char *)>
u32 measured(const vel_context &ctx, TTF_Font *font, const char *text) try {
    if (font == nullptr) return 0;
    FontTable *table = table_of(ctx, font);
    return table != nullptr ? (table->*width_in)(text) : width_asked_of(font, text);
} catch (const std::bad_alloc &) {
    return width_asked_of(font, text);
}

template <class Find> Fitting fitting(const vel_context &ctx, TTF_Font *font, Find find) try {
    FontTable *table = font == nullptr ? nullptr : table_of(ctx, font);
    return table == nullptr ? Fitting() : find(*table);
} catch (const std::bad_alloc &) {
    return {};
}

} // namespace

TTF_Font *font_of(const vel_context &ctx, const vel_object &object) {
    switch (object.font_choice) {
    case 0:
        return ctx.font;
    case 1:
        return object.own_font;
    default:
        return nullptr;
    }
}

u32 font_height(TTF_Font *font) {
    return font == nullptr ? 0 : static_cast<u32>(TTF_FontHeight(font));
}

u32 text_width(const vel_context &ctx, TTF_Font *font, const char *text) {
    return measured<&FontTable::width>(ctx, font, text);
}

u32 growing_width(const vel_context &ctx, TTF_Font *font, const char *text) {
    return measured<&FontTable::growing_width>(ctx, font, text);
}

Fitting fitting_words(const vel_context &ctx, TTF_Font *font, std::string_view line,
                      std::string_view text, u32 line_width) {
    return fitting(ctx, font,
                   [&](FontTable &table) { return table.fitting_words(line, text, line_width); });
}

Fitting fitting_characters(const vel_context &ctx, TTF_Font *font, std::string_view line,
                           std::string_view text, u32 line_width) {
    return fitting(ctx, font, [&](FontTable &table) {
        return table.fitting_characters(line, text, line_width);
    });
}

} // namespace velumo
