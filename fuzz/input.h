// The bytes of a run, taken from their front. For the targets.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>

namespace fuzz {

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;
using i32 = std::int32_t;
using Bytes = std::span<const u8>;

// Where arithmetic and limits go wrong.
inline constexpr u32 boundary_values[] = {
    0x7F,       0x80,       0xFF,       0x100,      0x7FFF,     0x8000,     0x8001,     0xFFFF,
    0x10000,    0x10001,    0x7FFFFFFF, 0x80000000, 0x80000001, 0xFFFFFFFF, 0xFFFFFFFE, 0xFFFFFFF8,
    0xFFFFFFF0, 0xFFFFFFC0, 0xFFFFFF80, 0xFFFFFF00, 0xFFFF8000, 0xFFFF0000, 0x3FFFFFFF, 0x40000000,
    0xC0000000, 0x1FFFFFFF, 16000,      65000,      640,        999,        1000,       1001,
    5000,       400,        300,        0xFFFFFFF9};

// A number is one byte up to 199, one byte for a boundary value, or 255 and four bytes.
inline constexpr u8 plain_numbers = 200;
inline constexpr u8 written_out = 255;
static_assert(plain_numbers + std::size(boundary_values) < written_out);

class Input {
public:
    explicit Input(Bytes bytes) : rest_(bytes) {}

    bool is_empty() const { return rest_.empty(); }
    u8 peek() const { return rest_.empty() ? u8{0} : rest_.front(); }
    u8 byte() {
        const u8 value = peek();
        rest_ = rest_.subspan(rest_.empty() ? 0 : 1);
        return value;
    }
    u16 pair() {
        const u8 low = byte();
        return static_cast<u16>(low | byte() << 8);
    }
    u32 number() {
        const u8 first = byte();
        if (first < plain_numbers) return first;
        if (first - plain_numbers < static_cast<int>(std::size(boundary_values))) {
            return boundary_values[first - plain_numbers];
        }
        const u32 low = pair();
        return low | static_cast<u32>(pair()) << 16;
    }
    // A length and that many bytes.
    Bytes block() {
        const std::size_t wanted = byte();
        const std::size_t length = std::min(wanted, rest_.size());
        const Bytes taken = rest_.first(length);
        rest_ = rest_.subspan(length);
        return taken;
    }
    std::string string() {
        const Bytes bytes = block();
        return {bytes.begin(), bytes.end()};
    }

private:
    Bytes rest_;
};

} // namespace fuzz
