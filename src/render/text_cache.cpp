#include "render/text_cache.h"

#include <functional>
#include <new>

#include "model/guard.h"

namespace velumo {
namespace {

// Encoding costs as much as drawing three times.
constexpr u32 draws_before_encoding = 2;
constexpr std::size_t bytes_of_a_line = sizeof(RenderedLine) + 100; // with its place in the table

std::size_t bytes_of(const SDL_Surface &s) {
    return static_cast<std::size_t>(s.pitch) * static_cast<std::size_t>(s.h);
}
std::size_t bytes_of(const RenderedLine &line) { return bytes_of_a_line + line.text.size(); }

struct SurfaceDeleter {
    void operator()(SDL_Surface *surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

// One row for each opacity, in colours of all kinds.
Surface sample_line(Uint32 flags) {
    Surface s(SDL_CreateRGBSurface(SDL_SWSURFACE | SDL_SRCALPHA, 16, 256, 32, 0xFF0000, 0xFF00,
                                   0xFF, 0xFF000000));
    if (s == nullptr) return s;
    auto *pixels = static_cast<Uint32 *>(s->pixels);
    for (Uint32 k = 0; k < 16 * 256; ++k) pixels[k] = k / 16 << 24 | (k * 2654435761U >> 8);
    SDL_SetAlpha(s.get(), flags, SDL_ALPHA_OPAQUE);
    return s;
}

Surface sample_screen(const SDL_PixelFormat &f) {
    Surface s(SDL_CreateRGBSurface(SDL_SWSURFACE, 16, 256, 32, f.Rmask, f.Gmask, f.Bmask, 0));
    if (s == nullptr) return s;
    auto *pixels = static_cast<Uint32 *>(s->pixels);
    for (Uint32 k = 0; k < 16 * 256; ++k) pixels[k] = k * 2246822519U >> 8;
    return s;
}

// Whether an encoded surface gives the pixels of the plain one, which is SDL's affair.
bool is_encoding_exact_on(const SDL_PixelFormat &format) {
    const Surface plain = sample_line(SDL_SRCALPHA);
    const Surface encoded = sample_line(SDL_SRCALPHA | SDL_RLEACCEL);
    const Surface a = sample_screen(format), b = sample_screen(format);
    if (!plain || !encoded || !a || !b) return false;
    SDL_UpperBlit(plain.get(), nullptr, a.get(), nullptr);
    SDL_UpperBlit(encoded.get(), nullptr, b.get(), nullptr);
    // An opaque pixel also writes its opacity, into bits that hold no colour.
    const Uint32 colours = format.Rmask | format.Gmask | format.Bmask;
    const auto *first = static_cast<const Uint32 *>(a->pixels);
    return std::equal(first, first + 16 * 256, static_cast<const Uint32 *>(b->pixels),
                      [=](Uint32 p, Uint32 q) { return ((p ^ q) & colours) == 0; });
}

constexpr int longest_side = 16000; // pixels
constexpr i64 largest_line = i64{1} << 24;

bool may_be_rendered(TTF_Font *font, const char *text) {
    int width = 0, height = 0;
    return TTF_SizeText(font, text, &width, &height) == 0 && width <= longest_side &&
           height <= longest_side && i64{width} * height <= largest_line;
}

} // namespace

SDL_Surface *render_line(TTF_Font *font, const char *text, vel_colour colour) {
    if (is_guarded && !may_be_rendered(font, text)) return nullptr;
    return TTF_RenderText_Blended(font, text, {colour.r, colour.g, colour.b, 0});
}

bool LineKey::operator==(const LineKey &other) const {
    return font == other.font && colour.r == other.colour.r && colour.g == other.colour.g &&
           colour.b == other.colour.b && text == other.text;
}

std::size_t TextCache::KeyHash::operator()(const LineKey &key) const {
    const u32 colour = u32{key.colour.r} << 16 | u32{key.colour.g} << 8 | key.colour.b;
    return std::hash<std::string_view>()(key.text) ^ (key.font * 0x9E3779B1U + colour);
}

TextCache::~TextCache() {
    for (const RenderedLine &line : rendered_) SDL_FreeSurface(line.surface);
}

RenderedLine &TextCache::line_of(const LineKey &key, TTF_Font *font) {
    const auto found = places_.find(key);
    if (found != places_.end()) {
        RenderedLine &line = *found->second;
        if (line.surface == nullptr) waiting_.splice(waiting_.begin(), waiting_, line.place);
        return line;
    }
    waiting_.push_front({std::string(key.text), key, font, ++last_number_});
    RenderedLine &line = waiting_.front();
    line.key.text = line.text;
    line.place = waiting_.begin();
    try {
        places_.emplace(line.key, line.place);
    } catch (...) {
        waiting_.pop_front();
        throw;
    }
    bytes_ += bytes_of(line);
    return line;
}

RenderedLine *TextCache::line_if_memory(const LineKey &key, TTF_Font *font) try {
    return &line_of(key, font);
} catch (const std::bad_alloc &) {
    return nullptr;
}

SDL_Surface *TextCache::surface_for(const SDL_Surface &screen, const LineKey &key, TTF_Font *font,
                                    Work &work) {
    RenderedLine *found = line_if_memory(key, font);
    if (found == nullptr) return nullptr;
    RenderedLine &line = *found;
    if (line.surface == nullptr) render(line, work);
    if (line.surface == nullptr) return nullptr;
    rendered_.splice(rendered_.begin(), rendered_, line.place);
    if (++line.draws > draws_before_encoding) encode(line, screen);
    return line.surface;
}

void TextCache::hand_over(const LineKey &key, TTF_Font *font, SDL_Surface *&text_surface,
                          Work &work) {
    RenderedLine *found = line_if_memory(key, font);
    if (found == nullptr) return;
    RenderedLine &line = *found;
    if (line.surface != nullptr && line.surface == text_surface) return;
    // The program sees the pixels as the font rendered them.
    if (is_run_length_encoded(line)) drop_surface(line);
    if (line.surface == nullptr) render(line, work);
    if (line.surface != nullptr) ++line.surface->refcount;
    SDL_FreeSurface(text_surface);
    text_surface = line.surface;
}

bool TextCache::is_run_length_encoded(const RenderedLine &line) const {
    return line.surface != nullptr && (line.surface->flags & SDL_RLEACCELOK) != 0;
}

void TextCache::encode(RenderedLine &line, const SDL_Surface &screen) {
    const bool is_handed_over = line.surface->refcount > 1;
    if (is_handed_over || is_run_length_encoded(line)) return;
    const SDL_PixelFormat &f = *screen.format;
    if (f.BytesPerPixel != 4 || f.Amask != 0) return;
    const Uint32 masks[] = {f.Rmask, f.Gmask, f.Bmask};
    if (!std::equal(masks, masks + 3, checked_masks_)) {
        std::copy(masks, masks + 3, checked_masks_);
        is_encoding_exact_ = is_encoding_exact_on(f);
    }
    if (is_encoding_exact_) {
        SDL_SetAlpha(line.surface, SDL_SRCALPHA | SDL_RLEACCEL, SDL_ALPHA_OPAQUE);
    }
}

void TextCache::render(RenderedLine &line, Work &work) {
    if (!work.is_left()) return;
    line.surface = render_line(line.font, line.text.c_str(), line.key.colour);
    const SDL_Surface *surface = line.surface;
    work.spend(work_of_rendering(surface == nullptr ? 0 : i64{surface->w} * surface->h));
    if (surface == nullptr) return;
    rendered_.splice(rendered_.begin(), waiting_, line.place);
    line.draws = 0;
    bytes_ += bytes_of(*line.surface);
    while (bytes_ > limit_ && &rendered_.back() != &line) drop_surface(rendered_.back());
}

void TextCache::drop_surface(RenderedLine &line) {
    if (line.surface == nullptr) return;
    bytes_ -= bytes_of(*line.surface);
    SDL_FreeSurface(line.surface);
    line.surface = nullptr;
    waiting_.splice(waiting_.begin(), rendered_, line.place);
}

void TextCache::trim() {
    while (bytes_ > limit_ && !places_.empty()) {
        if (waiting_.empty()) drop_surface(rendered_.back());
        bytes_ -= bytes_of(waiting_.back());
        places_.erase(waiting_.back().key);
        waiting_.pop_back();
    }
}

} // namespace velumo
