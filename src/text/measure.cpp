#include "text/measure.h"

namespace velumo {

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

u32 text_width(TTF_Font *font, const char *text) {
    int width = 0;
    if (font != nullptr) TTF_SizeText(font, text, &width, nullptr);
    return static_cast<u32>(width);
}

} // namespace velumo
