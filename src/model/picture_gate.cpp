#include "model/picture_gate.h"

#include <array>
#include <string_view>

namespace velumo {
namespace {

// Numbers of a file. What lies beyond its end is 0.
class Fields {
public:
    explicit Fields(Bytes file) : file_(file) {}

    u32 byte(std::size_t at) const { return at < file_.size() ? file_[at] : 0; }
    u32 big16(std::size_t at) const { return byte(at) << 8 | byte(at + 1); }
    u32 big32(std::size_t at) const { return big16(at) << 16 | big16(at + 2); }
    u32 little16(std::size_t at) const { return byte(at) | byte(at + 1) << 8; }
    u32 little32(std::size_t at) const { return little16(at) | little16(at + 2) << 16; }
    bool has(std::size_t at, std::size_t size) const {
        return at <= file_.size() && size <= file_.size() - at;
    }
    Bytes part(std::size_t at, std::size_t size) const { return file_.subspan(at, size); }

private:
    Bytes file_;
};

// SDL holds no wider surface.
i64 pixels_of_sides(i64 width, i64 height) {
    constexpr i64 widest = 16383, highest = 65535;
    const bool fits = width > 0 && width <= widest && height > 0 && height <= highest;
    return fits && width * height <= most_pixels ? width * height : 0;
}

// --- PNG: chunks up to IEND

constexpr auto crc_table = [] {
    std::array<u32, 256> table{};
    for (u32 k = 0; k < 256; ++k) {
        u32 value = k;
        for (int bit = 0; bit < 8; ++bit) value = value >> 1 ^ (value & 1 ? 0xEDB88320U : 0);
        table[k] = value;
    }
    return table;
}();

u32 crc_of(Bytes bytes) {
    u32 crc = ~0U;
    for (const unsigned char byte : bytes) crc = crc >> 8 ^ crc_table[(crc ^ byte) & 0xFF];
    return ~crc;
}

i64 pixels_of_png(Bytes file) {
    constexpr u32 header = 0x49484452, data = 0x49444154, end = 0x49454E44; // IHDR, IDAT, IEND
    const Fields fields(file);
    if (fields.big32(8) != 13 || fields.big32(12) != header) return 0;
    bool has_data = false;
    for (std::size_t at = 8; fields.has(at, 12);) {
        const std::size_t size = fields.big32(at);
        if (!fields.has(at + 12, size)) return 0;
        const u32 name = fields.big32(at + 4);
        const bool is_critical = (name & 0x20000000) == 0;
        if (is_critical && crc_of(fields.part(at + 4, size + 4)) != fields.big32(at + 8 + size)) {
            return 0;
        }
        if (name == data) has_data = true;
        if (name == end) {
            return has_data ? pixels_of_sides(fields.big32(16), fields.big32(20)) : 0;
        }
        at += 12 + size;
    }
    return 0;
}

// --- BMP

struct BmpHeader {
    u32 pixels_at, size, bits, compression, colours;
    i64 width, height;
};

BmpHeader bmp_header(const Fields &fields) {
    const u32 size = fields.little32(14);
    if (size == 12) {
        return {fields.little32(10), size, fields.little16(24), 0, 0, fields.little16(18),
                fields.little16(20)};
    }
    return {fields.little32(10),
            size,
            fields.little16(28),
            fields.little32(30),
            fields.little32(46),
            as_signed(fields.little32(18)),
            std::abs(i64{as_signed(fields.little32(22))})};
}

// Runs, and pieces as they are, up to the code that ends the picture.
bool are_whole_runs(const Fields &fields, std::size_t at, u32 bits) {
    while (fields.has(at, 2)) {
        const u32 count = fields.byte(at), code = fields.byte(at + 1);
        at += 2;
        if (count != 0 || code == 0) continue;
        if (code == 1) return true;
        const u32 bytes = bits == 8 ? code : (code + 1) / 2;
        at += code == 2 ? 2 : bytes + bytes % 2;
    }
    return false;
}

i64 pixels_of_bmp(Bytes file) {
    constexpr std::array<u32, 7> depths = {1, 4, 8, 15, 16, 24, 32};
    constexpr u32 plain = 0, runs_of_8 = 1, runs_of_4 = 2, masks = 3;
    const Fields fields(file);
    const BmpHeader h = bmp_header(fields);
    const bool is_header = (h.size == 12 || h.size >= 40) && fields.has(14, h.size);
    const bool is_depth = std::find(depths.begin(), depths.end(), h.bits) != depths.end();
    const i64 pixels = pixels_of_sides(h.width, h.height);
    if (!is_header || !is_depth || pixels == 0 || !fields.has(h.pixels_at, 1)) return 0;
    // SDL_image reads as many colours as the file names into room for 256.
    const u32 colours = h.bits > 8 ? 0 : h.colours == 0 ? 1U << h.bits : h.colours;
    if (colours > 256 || !fields.has(14 + h.size, std::size_t{colours} * (h.size == 12 ? 3 : 4))) {
        return 0;
    }
    if ((h.compression == runs_of_8 && h.bits == 8) ||
        (h.compression == runs_of_4 && h.bits == 4)) {
        return are_whole_runs(fields, h.pixels_at, h.bits) ? pixels : 0;
    }
    if (h.compression != plain && (h.compression != masks || h.bits < 15)) return 0;
    const i64 row = (h.width * (h.bits == 15 ? 16 : h.bits) + 7) / 8, padded = (row + 3) / 4 * 4;
    const auto size = static_cast<std::size_t>(padded * (h.height - 1) + row);
    return fields.has(h.pixels_at, size) ? pixels : 0;
}

// --- JPEG: segments and scans up to the end of the picture

// Where the next marker is after the data of a scan.
std::size_t end_of_scan(const Fields &fields, std::size_t at) {
    for (; fields.has(at, 2); ++at) {
        const u32 code = fields.byte(at + 1);
        const bool is_restart = code >= 0xD0 && code <= 0xD7;
        if (fields.byte(at) == 0xFF && code != 0 && code != 0xFF && !is_restart) break;
    }
    return at;
}

bool is_frame(u32 code) {
    return code >= 0xC0 && code <= 0xCF && code != 0xC4 && code != 0xC8 && code != 0xCC;
}

// Each scan of a progressive picture goes over all of it: with more than are usual it takes as long
// as a larger one.
i64 pixels_in_scans(i64 scans, i64 pixels) {
    constexpr i64 usual = 8, small = i64{1} << 22, most = i64{1} << 29;
    if (scans == 0 || scans * std::max(pixels, small) > most) return 0;
    return pixels * std::max(scans, usual) / usual;
}

i64 pixels_of_jpeg(Bytes file) {
    constexpr u32 end = 0xD9, scan = 0xDA;
    const Fields fields(file);
    i64 pixels = 0, scans = 0;
    for (std::size_t at = 2; fields.has(at, 2);) {
        if (fields.byte(at) != 0xFF) return 0;
        const u32 code = fields.byte(at + 1);
        if (code == 0xFF) { // fills up
            ++at;
            continue;
        }
        if (code == end) return pixels_in_scans(scans, pixels);
        const u32 size = fields.big16(at + 2);
        if (size < 2 || !fields.has(at + 2, size)) return 0;
        if (is_frame(code)) {
            if (pixels != 0) return 0;
            pixels = pixels_of_sides(fields.big16(at + 7), fields.big16(at + 5));
            if (pixels == 0) return 0;
        }
        at += 2 + std::size_t{size};
        if (code != scan) continue;
        if (pixels == 0) return 0;
        ++scans;
        at = end_of_scan(fields, at);
    }
    return 0;
}

// SDL shifts by what lies beside the bits of a colour.
bool is_mask(u32 mask) {
    const u32 bits = mask == 0 ? 0 : mask >> std::countr_zero(mask);
    return bits <= 0xFF && (bits & (bits + 1)) == 0;
}

} // namespace

PictureFormat picture_format(Bytes file) {
    using Start = std::string_view;
    const Start text(reinterpret_cast<const char *>(file.data()), file.size());
    if (text.starts_with("\x89PNG")) return PictureFormat::png;
    if (text.starts_with("BM")) return PictureFormat::bmp;
    if (text.starts_with("\xFF\xD8")) return PictureFormat::jpeg;
    return PictureFormat::other;
}

i64 pixels_to_decode(PictureFormat format, Bytes file) {
    switch (format) {
    case PictureFormat::png:
        return pixels_of_png(file);
    case PictureFormat::bmp:
        return pixels_of_bmp(file);
    case PictureFormat::jpeg:
        return pixels_of_jpeg(file);
    case PictureFormat::other:
        break;
    }
    return 0;
}

bool is_drawable_picture(const SDL_Surface &picture) {
    const SDL_PixelFormat &f = *picture.format;
    const bool is_depth = f.BitsPerPixel == 8 ? f.palette != nullptr
                                              : f.BitsPerPixel == 15 || f.BitsPerPixel == 16 ||
                                                    f.BitsPerPixel == 24 || f.BitsPerPixel == 32;
    return is_depth && picture.pixels != nullptr && picture.w > 0 && picture.h > 0 &&
           picture.pitch >= picture.w * f.BytesPerPixel && is_mask(f.Rmask) && is_mask(f.Gmask) &&
           is_mask(f.Bmask) && is_mask(f.Amask);
}

} // namespace velumo
