// A context that draws into memory, with all that has to be released. For the pictures of forms.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <velumo.h>

namespace velform {

struct Size {
    std::uint32_t width, height;
};

// Reads a size like "800x600", with sides of at most 8192. Throws WrongUsage.
Size size_in(std::string_view text);

inline constexpr const char *standard_font = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

struct StageOptions {
    Size size;
    vel_colour background;
    std::string font = standard_font;
    int font_size = 14;
    bool any_picture = false; // all formats, not only those whose files are checked
    bool takes_events = false;
};

inline const unsigned char *bytes_of(const std::string &string) {
    return reinterpret_cast<const unsigned char *>(string.data());
}
// A form without pictures and fonts, which lasts as long as what its files hold.
inline vel_form_data form_data(const std::string &form, const std::string &text) {
    return {bytes_of(form), form.size(), bytes_of(text), text.size(), nullptr, 0};
}

class Stage {
public:
    // Throws FileProblem.
    explicit Stage(const StageOptions &options);
    ~Stage() { vel_close(&ctx_); }
    Stage(const Stage &) = delete;
    Stage &operator=(const Stage &) = delete;

    // Throws FileProblem.
    // The data lasts as long.
    void load(const vel_form_data &data) { check(vel_load_forms_from_memory(&ctx_, 0, 0, &data)); }
    void load(const std::string &form, const std::string &text) {
        check(vel_load_forms(&ctx_, 0, 0, form.c_str(), text.c_str()), form + " and " + text);
    }

    vel_context &ctx() { return ctx_; }

private:
    static void check(std::int32_t result, const std::string &what = "the form");
    void open_screen(const StageOptions &options);

    vel_context ctx_{};
};

struct FreeSurface {
    void operator()(SDL_Surface *surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, FreeSurface>;

// Throws std::bad_alloc.
Surface new_surface(Size size);
Surface copy_of(SDL_Surface &surface);

} // namespace velform
