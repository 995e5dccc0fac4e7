#include "draw/outline.h"

#include <algorithm>
#include <vector>

#include "base/status.h"

namespace velform {
namespace {

constexpr vel_colour edge{0x00, 0x6F, 0xD6}, margin{0x00, 0x94, 0x52}, limit{0xD6, 0x1F, 0x2C},
    paper{0xFF, 0xFF, 0xFF};
constexpr int tag_font_size = 9;
constexpr int dot_distance = 3;

// Half open, in pixels of the display.
struct Area {
    std::int64_t left, top, right, bottom;
    bool is_empty() const { return left >= right || top >= bottom; }
    bool operator==(const Area &) const = default;
};

Area common(const Area &a, const Area &b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

std::int64_t as_signed(std::uint32_t number) { return static_cast<std::int32_t>(number); }

Area area_of(const vel_object &o) {
    const std::int64_t x = as_signed(o.x), y = as_signed(o.y);
    return {x, y, x + o.width, y + o.height};
}

Area inside_margins(const vel_object &o) {
    const Area all = area_of(o);
    return {all.left + o.margin_left, all.top + o.margin_top, all.right - o.margin_right,
            all.bottom - o.margin_bottom};
}

// What the masters of a dependent leave of the display.
Area limits_of(const vel_context &ctx, std::uint32_t object) {
    std::uint32_t left = 0, right = 0, top = 0, bottom = 0;
    vel_get_borders_for_dep_object(&ctx, object, &left, &right, &top, &bottom);
    return {as_signed(left) + 1, as_signed(top) + 1, as_signed(right), as_signed(bottom)};
}

class Overlay {
public:
    Overlay(const vel_context &ctx, SDL_Surface &screen, const std::string &font)
        : ctx_(ctx), screen_(screen), tag_font_(TTF_OpenFont(font.c_str(), tag_font_size)) {
        if (tag_font_ == nullptr) throw FileProblem(TTF_GetError());
    }
    ~Overlay() { TTF_CloseFont(tag_font_); }
    Overlay(const Overlay &) = delete;
    Overlay &operator=(const Overlay &) = delete;

    void draw(std::uint32_t object, const std::string &name) {
        const vel_object &o = ctx_.objects[object];
        const Area all = area_of(o), inner = inside_margins(o);
        if (inner != all) outline(inner, margin, dot_distance);
        outline(all, edge, 1);
        if (o.master != 0) {
            const Area shown = common(all, limits_of(ctx_, object));
            if (shown != all) outline(shown, limit, 1);
        }
        tag(all, name);
    }

private:
    void outline(const Area &area, vel_colour colour, int distance) {
        if (area.is_empty()) return;
        for (const auto y : {area.top, area.bottom - 1}) {
            for_dots(area.left, area.right, screen_.w, distance,
                     [&](std::int64_t x) { dot(x, y, colour); });
        }
        for (const auto x : {area.left, area.right - 1}) {
            for_dots(area.top, area.bottom, screen_.h, distance,
                     [&](std::int64_t y) { dot(x, y, colour); });
        }
    }

    // Only on the screen: an object may be as large as numbers go.
    template <typename Draw>
    static void for_dots(std::int64_t begin, std::int64_t end, int size, int distance, Draw draw) {
        std::int64_t at = begin;
        if (at < 0) at += (-at + distance - 1) / distance * distance;
        for (; at < std::min<std::int64_t>(end, size); at += distance) draw(at);
    }

    void dot(std::int64_t x, std::int64_t y, vel_colour colour) {
        if (x < 0 || y < 0 || x >= screen_.w || y >= screen_.h) return;
        SDL_Rect one{static_cast<Sint16>(x), static_cast<Sint16>(y), 1, 1};
        SDL_FillRect(&screen_, &one, SDL_MapRGB(screen_.format, colour.r, colour.g, colour.b));
    }

    // At the upper right corner, where captions and texts seldom reach, on a ground of its own.
    void tag(const Area &area, const std::string &name) {
        const Area seen = common(area, {0, 0, screen_.w, screen_.h});
        if (name.empty() || seen.is_empty()) return;
        const SDL_Color ink{edge.r, edge.g, edge.b, 0}, ground{paper.r, paper.g, paper.b, 0};
        const Surface words(TTF_RenderText_Shaded(tag_font_, name.c_str(), ink, ground));
        if (words == nullptr) throw std::bad_alloc();
        SDL_Rect at{static_cast<Sint16>(std::max<std::int64_t>(seen.right - words->w - 1, 0)),
                    static_cast<Sint16>(seen.top + 1), 0, 0};
        SDL_BlitSurface(words.get(), nullptr, &screen_, &at);
    }

    const vel_context &ctx_;
    SDL_Surface &screen_;
    TTF_Font *tag_font_;
};

enum class Shown : std::uint8_t { unknown, no, yes };

// Whether neither the object nor one of those around it is hidden; each is looked at once.
bool is_shown(const vel_context &ctx, std::uint32_t object, std::vector<Shown> &known) {
    std::vector<std::uint32_t> climbed;
    Shown shown = Shown::yes;
    for (std::uint32_t at = object; at != 0; at = ctx.objects[at].master) {
        if (known[at] != Shown::unknown) {
            shown = known[at];
            break;
        }
        known[at] = Shown::no; // ends a ring
        climbed.push_back(at);
    }
    for (; !climbed.empty(); climbed.pop_back()) {
        if (ctx.objects[climbed.back()].hidden != 0) shown = Shown::no;
        known[climbed.back()] = shown;
    }
    return known[object] == Shown::yes;
}

} // namespace

void draw_outlines(const vel_context &ctx, SDL_Surface &picture, ObjectFinder &finder,
                   const std::string &font) {
    Overlay overlay(ctx, picture, font);
    std::vector<Shown> known(ctx.object_count + 1);
    for (std::uint32_t object = VEL_FRAME_BUTTONS + 1; object <= ctx.object_count; ++object) {
        if (!is_shown(ctx, object, known)) continue;
        overlay.draw(object, finder.has_names() ? finder.name_of(object) : std::to_string(object));
    }
}

} // namespace velform
