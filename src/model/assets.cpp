#include "model/assets.h"

#include <cstdio>
#include <new>

#include "model/diagnostics.h"
#include "model/own_fonts.h"
#include "model/pictures.h"

namespace velumo {
namespace {

// Calls load for each object from first on that is to be loaded. The result is that of the last.
template <class Wanted, class Load>
i32 load_each(vel_context &ctx, u32 first, Wanted wanted, Load load) {
    i32 result = 0;
    for (std::uint64_t k = std::max<u32>(first, 1); k <= ctx.object_count; ++k) {
        vel_object &object = object_at(ctx, static_cast<u32>(k));
        if (wanted(object)) result = load(object) ? 1 : -1;
    }
    return result;
}

bool load_image(vel_object &object, PictureLoading &loading) {
    SDL_Surface *image = loading.load(object.image_path);
    if (image == nullptr) return false;
    object.image = image;
    object.width = static_cast<u32>(image->w);
    object.height = static_cast<u32>(image->h);
    object.type = VEL_TYPE_PICTURE;
    return true;
}

// Prints why fonts cannot be opened, where that is wanted.
class FontReport {
public:
    explicit FontReport(FontMessages messages) : messages_(messages) {}
    ~FontReport() {
        if (lines_.left_out() != 0) std::printf("TTF_OpenFont: %u more\n", lines_.left_out());
    }
    FontReport(const FontReport &) = delete;
    FontReport &operator=(const FontReport &) = delete;

    void add(const char *error) {
        if (messages_ == FontMessages::print && lines_.admits()) {
            std::printf("TTF_OpenFont: %s\n", printable(error).c_str());
        }
    }

private:
    const FontMessages messages_;
    LineCount lines_;
};

// Without memory it does not open.
bool load_font(vel_object &object, FontOpening &opening, FontReport &report) try {
    object.own_font = nullptr;
    object.own_font = opening.open(object.font_path, object.font_size);
    if (object.own_font == nullptr) report.add(SDL_GetError());
    return object.own_font != nullptr;
} catch (const std::bad_alloc &) {
    return false;
}

} // namespace

i32 load_images(vel_context &ctx, u32 first) {
    PictureLoading loading(ctx);
    return load_each(
        ctx, first, [](const vel_object &o) { return o.type == VEL_TYPE_PICTURE_UNLOADED; },
        [&loading](vel_object &o) { return load_image(o, loading); });
}

i32 load_fonts(vel_context &ctx, u32 first, FontMessages messages) {
    const auto has_own = [](const vel_object &o) { return o.font_choice == 1; };
    u32 objects = 0;
    load_each(ctx, first, has_own, [&objects](const vel_object &) { return ++objects != 0; });
    FontOpening opening(ctx, objects);
    FontReport report(messages);
    return load_each(ctx, first, has_own,
                     [&](vel_object &o) { return load_font(o, opening, report); });
}

void release_assets(vel_context &ctx) {
    for (u32 number = 1; number <= ctx.object_count; ++number) {
        const vel_object &object = object_at(ctx, number);
        const bool is_own = ctx.state == nullptr || !ctx.state->borrowed_images.contains(number);
        if (object.type == VEL_TYPE_PICTURE && is_own) SDL_FreeSurface(object.image);
    }
    close_own_fonts(ctx);
}

} // namespace velumo
