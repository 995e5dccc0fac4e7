#include "model/own_fonts.h"

#include <cstring>

#include "model/guard.h"

namespace velumo {
namespace {

// What the fonts that one call opens cost together: as much as a single one of the largest size, or
// 256 of a usual one. Each costs the square of its size, or what measuring texts in it may take: a
// font more slows down all texts, as the caches hold what is known of a few.
constexpr u32 most_cost = max_font_size * max_font_size;
constexpr u32 usual_size = 125, cost_of_an_object = 8;

using SharedFile = std::shared_ptr<const FileContent>;

// Where a font reads from, as long as it is open.
struct Source {
    SharedFile file;
    OwnFonts *fonts = nullptr; // that know the font; none do while it is opened
    bool *is_closed = nullptr; // set when it is closed, while it is opened
    std::size_t at = 0;
};

struct OwnFont {
    TTF_Font *font;
    Source *source;
};

} // namespace

// The fonts that are open and were opened here. Closing one, whoever does it, closes its source,
// which takes it out.
class OwnFonts : public Kept {
public:
    ~OwnFonts() override {
        for (auto &[name, own] : open) own.source->fonts = nullptr;
    }

    void forget(const Source *source) {
        const auto closed = std::find_if(open.begin(), open.end(), [source](const auto &entry) {
            return entry.second.source == source;
        });
        if (closed == open.end()) return;
        const TTF_Font *font = closed->second.font;
        open.erase(closed);
        if (ctx == nullptr || ctx->objects == nullptr) return;
        for (u32 number = 1; number <= ctx->object_count; ++number) {
            vel_object &o = object_at(*ctx, number);
            if (o.own_font == font) o.own_font = nullptr;
        }
    }

    vel_context *ctx = nullptr;
    std::map<FontName, OwnFont> open;
    std::map<std::string, std::weak_ptr<const FileContent>> files;
};

namespace {

OwnFonts &fonts_of(vel_context &ctx) {
    auto &fonts = kept<OwnFonts>(state_of(ctx).own_fonts);
    fonts.ctx = &ctx;
    return fonts;
}

Source &source_of(SDL_RWops *stream) {
    return *static_cast<Source *>(stream->hidden.unknown.data1);
}

int seek(SDL_RWops *stream, int offset, int whence) {
    Source &source = source_of(stream);
    const i64 size = static_cast<i64>(source.file->size);
    const i64 start = whence == RW_SEEK_SET   ? 0
                      : whence == RW_SEEK_CUR ? static_cast<i64>(source.at)
                                              : size;
    source.at = static_cast<std::size_t>(std::clamp<i64>(start + offset, 0, size));
    return static_cast<int>(source.at);
}

int read(SDL_RWops *stream, void *to, int size, int count) {
    Source &source = source_of(stream);
    if (size <= 0 || count <= 0) return 0;
    const std::size_t items = std::min<std::size_t>(
        static_cast<std::size_t>(count), (source.file->size - source.at) / static_cast<u32>(size));
    std::memcpy(to, source.file->bytes().data() + source.at, items * static_cast<u32>(size));
    source.at += items * static_cast<u32>(size);
    return static_cast<int>(items);
}

int write(SDL_RWops *, const void *, int, int) { return -1; }

int close(SDL_RWops *stream) {
    const std::unique_ptr<Source> source(&source_of(stream));
    if (source->fonts != nullptr) source->fonts->forget(source.get());
    if (source->is_closed != nullptr) *source->is_closed = true;
    SDL_FreeRW(stream);
    return 0;
}

SDL_RWops *stream_from(std::unique_ptr<Source> source) {
    SDL_RWops *stream = SDL_AllocRW();
    if (stream == nullptr) return nullptr;
    stream->seek = seek;
    stream->read = read;
    stream->write = write;
    stream->close = close;
    stream->hidden.unknown.data1 = source.release();
    return stream;
}

struct FontCloser {
    void operator()(TTF_Font *font) const { TTF_CloseFont(font); }
};

TTF_Font *open_plainly(const char *path, u32 size) {
    if (File(path, Access::read_only).size()) return TTF_OpenFont(path, static_cast<int>(size));
    set_file_error(path, FileError::open);
    return nullptr;
}

// Programs may have files of the same name, of which the disk has another.
std::string name_of(const vel_context &ctx, const char *path) {
    std::string name = path;
    const vel_form_file *file = file_in_program(ctx, path);
    if (file != nullptr) name.append(reinterpret_cast<const char *>(&file->bytes), sizeof(void *));
    return name;
}

// The file of a font that is open, or read now. Null with SDL's error text.
SharedFile file_of(OwnFonts &fonts, FormFiles &files, const std::string &name, const char *path) {
    if (const auto known = fonts.files.find(name); known != fonts.files.end()) {
        if (SharedFile file = known->second.lock()) return file;
    }
    FileContent content = files.read(path);
    if (content.error != FileError::none) {
        set_file_error(path, content.error);
        return nullptr;
    }
    auto file = std::make_shared<const FileContent>(std::move(content));
    fonts.files[name] = file;
    return file;
}

TTF_Font *open_checked(OwnFonts &fonts, FontGate &gate, const SharedFile &file, const char *path,
                       const FontName &name) {
    const u32 size = name.second;
    if (!may_be_font(file->bytes())) {
        SDL_SetError("%s is no font", path);
        return nullptr;
    }
    auto owned = std::make_unique<Source>();
    owned->file = file;
    Source *source = owned.get();
    SDL_RWops *stream = stream_from(std::move(owned));
    if (stream == nullptr) return nullptr;
    bool is_closed = false;
    source->is_closed = &is_closed;
    const int points = static_cast<int>(size);
    std::unique_ptr<TTF_Font, FontCloser> font(TTF_OpenFontRW(stream, 1, points));
    if (font == nullptr) {
        if (!is_closed) SDL_RWclose(stream);
        return nullptr;
    }
    source->is_closed = nullptr;
    if (!gate.is_sound(font.get(), size, file->bytes())) {
        SDL_SetError("%s is damaged", path);
        return nullptr;
    }
    fonts.open.insert({name, {font.get(), source}});
    source->fonts = &fonts;
    return font.release();
}

} // namespace

TTF_Font *FontOpening::open(const char *path, u32 size) {
    if (!is_guarded && !is_in_program(ctx_, path)) return open_plainly(path, size);
    OwnFonts &fonts = fonts_of(ctx_);
    const FontName name(name_of(ctx_, path), size);
    if (const auto known = fonts.open.find(name); known != fonts.open.end()) {
        return known->second.font;
    }
    if (const auto known = failed_.find(name); known != failed_.end()) {
        SDL_SetError("%s", known->second.c_str());
        return nullptr;
    }
    TTF_Font *font = open_first(fonts, path, name);
    if (font == nullptr) failed_[name] = SDL_GetError();
    return font;
}

TTF_Font *FontOpening::open_first(OwnFonts &fonts, const char *path, const FontName &name) {
    const u32 size = name.second;
    if (size > max_font_size) {
        SDL_SetError("%s: no font has %u points", path, size);
        return nullptr;
    }
    const u32 side = std::max(size, usual_size);
    const u32 cost = std::max(side * side, cost_of_an_object * objects_);
    if (cost_ + cost > most_cost) {
        SDL_SetError("%s: too many fonts", path);
        return nullptr;
    }
    const SharedFile file = file_of(fonts, files_, name.first, path);
    if (file == nullptr) return nullptr;
    cost_ += cost;
    return open_checked(fonts, gate_, file, path, name);
}

void close_own_fonts(vel_context &ctx) {
    for (u32 number = 1; number <= ctx.object_count; ++number) {
        vel_object &o = object_at(ctx, number);
        if (o.font_choice == 1 && o.own_font != nullptr) TTF_CloseFont(o.own_font);
    }
    if (ctx.state == nullptr || ctx.state->own_fonts == nullptr) return;
    OwnFonts &fonts = fonts_of(ctx);
    while (!fonts.open.empty()) TTF_CloseFont(fonts.open.begin()->second.font);
}

} // namespace velumo
