// Reads little-endian fields from bytes. For the form files.
#pragma once

#include <cstddef>
#include <cstring>
#include <span>

#include "model/objects.h"

namespace velumo {

using Bytes = std::span<const unsigned char>;

inline u32 little_endian(Bytes bytes, std::size_t offset) {
    return static_cast<u32>(bytes[offset]) | static_cast<u32>(bytes[offset + 1]) << 8 |
           static_cast<u32>(bytes[offset + 2]) << 16 | static_cast<u32>(bytes[offset + 3]) << 24;
}

// Copies a string up to its NUL; one that has none is ended inside its field.
template <std::size_t N> void copy_string(Bytes bytes, std::size_t offset, char (&field)[N]) {
    std::memcpy(field, bytes.data() + offset, N - 1);
    field[N - 1] = '\0';
    std::memset(field + std::strlen(field), 0, N - std::strlen(field));
}

} // namespace velumo
