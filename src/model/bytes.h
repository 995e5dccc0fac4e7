// Reads little-endian fields from bytes. For the form files.
#pragma once

#include <bit>
#include <cstddef>
#include <cstring>
#include <span>

#include "model/objects.h"

namespace velumo {

using Bytes = std::span<const unsigned char>;

inline u32 little_endian(Bytes bytes, std::size_t offset) {
    u32 value = 0;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return std::endian::native == std::endian::little ? value : __builtin_bswap32(value);
}

// Copies a string up to its NUL into a field of zeros; one that has none is ended inside its field.
template <std::size_t N> void copy_string(Bytes bytes, std::size_t offset, char (&field)[N]) {
    const auto *string = reinterpret_cast<const char *>(bytes.data() + offset);
    std::memcpy(field, string, strnlen(string, N - 1));
}

} // namespace velumo
