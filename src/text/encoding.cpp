#include "text/encoding.h"

namespace velumo {
namespace {

constexpr char replacement = '?';

bool continues(u8 byte) { return (byte & 0xC0) == 0x80; }
bool is_control(char character) {
    const u8 byte = static_cast<u8>(character);
    return byte < 0x20 || (byte >= 0x7F && byte < 0xA0);
}

// Bytes that follow the first of a sequence.
std::size_t bytes_after(u8 first) {
    return first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
}

// A character of ISO 8859-1 in UTF-8.
struct Sequence {
    explicit Sequence(char latin1) {
        const u8 byte = static_cast<u8>(latin1);
        if (byte >= 0x80) bytes[size++] = static_cast<char>(0xC0 | byte >> 6);
        bytes[size++] = byte < 0x80 ? latin1 : static_cast<char>(0x80 | (byte & 0x3F));
    }

    char bytes[2];
    std::size_t size = 0;
};

// A text that is written into bounded room, which keeps a byte for the NUL.
class Writing {
public:
    Writing(std::span<char> to, std::size_t source_size) : to_(to), lost_{0, source_size} {}

    bool has_room_for(std::size_t bytes) const { return size_ + bytes < to_.size(); }
    void add(std::string_view bytes) { size_ += bytes.copy(&to_[size_], bytes.size()); }
    void lose(std::size_t place) {
        if (lost_.characters++ == 0) lost_.first = place;
    }
    bool has_lost() const { return lost_.characters != 0; }
    Lost end() {
        if (!to_.empty()) to_[size_] = '\0';
        return lost_;
    }

private:
    std::span<char> to_;
    std::size_t size_ = 0;
    Lost lost_;
};

} // namespace

std::optional<char> take_character(std::string_view &utf8) {
    const u8 first = static_cast<u8>(utf8.front());
    std::size_t length = 1;
    while (length <= bytes_after(first) && length < utf8.size() &&
           continues(static_cast<u8>(utf8[length]))) {
        ++length;
    }
    const u8 last = static_cast<u8>(utf8[length - 1]);
    utf8.remove_prefix(length);
    if (first < 0x80) return static_cast<char>(first);
    // The upper half of ISO 8859-1 begins with these two; no other form of it is UTF-8.
    const bool is_upper_half = length == 2 && (first == 0xC2 || first == 0xC3);
    if (!is_upper_half) return std::nullopt;
    return static_cast<char>((first & 3U) << 6 | (last & 0x3FU));
}

u32 code_point_of(std::string_view character) {
    constexpr u32 no_character = 0xFFFD;
    const u8 first = static_cast<u8>(character.front());
    const std::size_t more = bytes_after(first);
    const bool is_whole = character.size() == more + 1 && (first < 0x80 || more != 0);
    if (!is_whole) return no_character;
    u32 code = more == 0 ? first : first & (0x3FU >> more);
    for (const char byte : character.substr(1)) code = code << 6 | (static_cast<u8>(byte) & 0x3FU);
    return code;
}

Lost copy_as_latin1(std::string_view utf8, std::span<char> latin1) {
    Writing writing(latin1, utf8.size());
    for (std::string_view rest = utf8; !rest.empty();) {
        const std::size_t place = utf8.size() - rest.size();
        const std::optional<char> character = take_character(rest);
        if (character && writing.has_room_for(1)) {
            writing.add({&*character, 1});
        } else {
            writing.lose(place);
        }
    }
    return writing.end();
}

Lost copy_as_utf8(std::string_view latin1, std::span<char> utf8) {
    Writing writing(utf8, latin1.size());
    for (std::size_t place = 0; place < latin1.size(); ++place) {
        const Sequence sequence(latin1[place]);
        // A narrow character after a wide one that had no room is left out, too.
        if (!writing.has_lost() && writing.has_room_for(sequence.size)) {
            writing.add({sequence.bytes, sequence.size});
        } else {
            writing.lose(place);
        }
    }
    return writing.end();
}

std::string latin1_of(std::string_view utf8) {
    std::string latin1;
    while (!utf8.empty()) {
        const std::optional<char> character = take_character(utf8);
        latin1 += character && !is_control(*character) ? *character : replacement;
    }
    return latin1;
}

std::string utf8_of(std::string_view latin1) {
    std::string utf8;
    for (const char character : latin1) {
        const Sequence sequence(character);
        utf8.append(sequence.bytes, sequence.size);
    }
    return utf8;
}

} // namespace velumo
