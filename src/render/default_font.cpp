#include "render/default_font.h"

#include <SDL.h>

#ifdef VELUMO_FONTCONFIG
#include <fontconfig/fontconfig.h>
#include <memory>
#endif

namespace velumo {

#ifdef VELUMO_FONTCONFIG

namespace {

struct ConfigCloser {
    void operator()(FcConfig *config) const { FcConfigDestroy(config); }
};
struct PatternCloser {
    void operator()(FcPattern *pattern) const { FcPatternDestroy(pattern); }
};
using Config = std::unique_ptr<FcConfig, ConfigCloser>;
using Pattern = std::unique_ptr<FcPattern, PatternCloser>;

constexpr const char *wanted_font = "sans:scalable=true";

Pattern match(FcConfig *config) {
    const Pattern wanted(FcNameParse(reinterpret_cast<const FcChar8 *>(wanted_font)));
    if (wanted == nullptr || !FcConfigSubstitute(config, wanted.get(), FcMatchPattern)) return {};
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    return Pattern(FcFontMatch(config, wanted.get(), &result));
}

} // namespace

// With a configuration of its own, so that one of the program stays as it is.
std::optional<FontFile> find_default_font() {
    const Config config(FcInitLoadConfigAndFonts());
    const Pattern found = config == nullptr ? Pattern() : match(config.get());
    FcChar8 *path = nullptr;
    if (found == nullptr || FcPatternGetString(found.get(), FC_FILE, 0, &path) != FcResultMatch) {
        SDL_SetError("the system has no font for 'sans'; name one in font_path");
        return {};
    }
    int index = 0;
    FcPatternGetInteger(found.get(), FC_INDEX, 0, &index);
    constexpr int within_file = 0xFFFF; // the other bits name a variant
    return FontFile{reinterpret_cast<const char *>(path), index & within_file};
}

#else

std::optional<FontFile> find_default_font() {
    SDL_SetError("no font_path is set, and this library was built without fontconfig to find one");
    return {};
}

#endif

} // namespace velumo
