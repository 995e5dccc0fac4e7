#include "model/assets.h"

#include <SDL_image.h>
#include <cstdio>
#include <sys/stat.h>

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

// Opening a named pipe would wait for its writer, and a terminal for its user. What cannot be
// looked at is left to the loaders, which say why.
bool may_be_read(const char *path) {
    struct stat status {};
    if (::stat(path, &status) != 0 || S_ISREG(status.st_mode)) return true;
    SDL_SetError("%s is no regular file", path);
    return false;
}

bool load_image(vel_object &object) {
    SDL_Surface *image = may_be_read(object.image_path) ? IMG_Load(object.image_path) : nullptr;
    if (image == nullptr) return false;
    object.image = image;
    object.width = static_cast<u32>(image->w);
    object.height = static_cast<u32>(image->h);
    object.type = VEL_TYPE_PICTURE;
    return true;
}

bool load_font(vel_object &object, FontMessages messages) {
    object.own_font = may_be_read(object.font_path)
                          ? TTF_OpenFont(object.font_path, static_cast<int>(object.font_size))
                          : nullptr;
    if (object.own_font == nullptr && messages == FontMessages::print) {
        std::printf("TTF_OpenFont: %s\n", SDL_GetError());
    }
    return object.own_font != nullptr;
}

} // namespace

i32 load_images(vel_context &ctx, u32 first) {
    return load_each(
        ctx, first, [](const vel_object &o) { return o.type == VEL_TYPE_PICTURE_UNLOADED; },
        load_image);
}

i32 load_fonts(vel_context &ctx, u32 first, FontMessages messages) {
    return load_each(
        ctx, first, [](const vel_object &o) { return o.font_choice == 1; },
        [messages](vel_object &o) { return load_font(o, messages); });
}

void release_assets(vel_context &ctx) {
    for (u32 number = 1; number <= ctx.object_count; ++number) {
        vel_object &object = object_at(ctx, number);
        if (object.font_choice == 1 && object.own_font != nullptr) TTF_CloseFont(object.own_font);
        if (object.type == VEL_TYPE_PICTURE) SDL_FreeSurface(object.image);
    }
}

} // namespace velumo
