// Rendered lines of text, kept for the next time they are painted. For painting.
#pragma once

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

#include "render/work.h"

namespace velumo {

// Null when the font cannot render it, without memory for it, and when it would be larger than any
// form shows.
SDL_Surface *render_line(TTF_Font *font, const char *text, vel_colour colour);

struct LineKey {
    u32 font; // id of its table
    vel_colour colour;
    std::string_view text;

    bool operator==(const LineKey &other) const;
};

struct RenderedLine {
    std::string text;
    LineKey key; // its text is the one above
    TTF_Font *font;
    u32 number;
    u32 draws = 0;
    SDL_Surface *surface = nullptr;            // null until it is painted, and when the font cannot
    std::list<RenderedLine>::iterator place{}; // its own, in one of the lists
};

class TextCache {
public:
    TextCache() = default;
    ~TextCache();
    TextCache(const TextCache &) = delete;
    TextCache &operator=(const TextCache &) = delete;

    // The text is not rendered yet. Throws std::bad_alloc.
    RenderedLine &line_of(const LineKey &key, TTF_Font *font);

    // To be drawn on the screen; null when the font cannot render it, without memory for it, and
    // when no work is left for rendering it.
    SDL_Surface *surface_for(const SDL_Surface &screen, const LineKey &key, TTF_Font *font,
                             Work &work);
    // Hands the surface of a line to the program, which may free it.
    void hand_over(const LineKey &key, TTF_Font *font, SDL_Surface *&text_surface, Work &work);

    // Forgets the lines that were not used for longest, as far as they do not fit. Until then a
    // line that was given stays; its surface may not.
    void trim();
    void set_limit(std::size_t bytes) { limit_ = bytes; }

private:
    struct KeyHash {
        std::size_t operator()(const LineKey &key) const;
    };
    using Lines = std::list<RenderedLine>;

    RenderedLine *line_if_memory(const LineKey &key, TTF_Font *font);
    bool is_run_length_encoded(const RenderedLine &line) const;
    void encode(RenderedLine &line, const SDL_Surface &screen);
    void render(RenderedLine &line, Work &work);
    void drop_surface(RenderedLine &line);

    Lines waiting_;  // without a surface, the one asked for last in front
    Lines rendered_; // the one painted last in front
    std::unordered_map<LineKey, Lines::iterator, KeyHash> places_;
    std::size_t bytes_ = 0, limit_ = 0;
    u32 last_number_ = 0;
    Uint32 checked_masks_[3] = {}; // of the screens that encoded lines were compared for
    bool is_encoding_exact_ = false;
};

} // namespace velumo
