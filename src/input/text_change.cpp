#include "input/text_change.h"

#include <cstring>

#include "input/caret.h"
#include "model/traits.h"
#include "model/types.h"
#include "text/format.h"

namespace velumo {
namespace {

bool is_control(u8 character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}
bool is_digit(char character) { return character >= '0' && character <= '9'; }

vel_refusal objection(const vel_object &o, char character) {
    if (character == '\n') return is_field(o) ? VEL_REFUSED_LINES : VEL_REFUSED_NOTHING;
    if (is_control(static_cast<u8>(character))) return VEL_REFUSED_CHARACTER;
    const bool is_misplaced = o.type == VEL_TYPE_NUMBER && !is_digit(character);
    return is_misplaced ? VEL_REFUSED_DIGIT : VEL_REFUSED_NOTHING;
}

u32 capacity(const vel_object &o) {
    return is_field(o) ? std::min(max_field_characters, o.max_chars) : max_text_characters;
}

void leave_out_misfits(vel_context &ctx, const vel_object &o, std::string &characters) {
    std::string taken;
    for (const char character : characters) {
        const vel_refusal reason = objection(o, character);
        if (reason == VEL_REFUSED_NOTHING) {
            taken += character;
        } else {
            refuse(ctx, reason, static_cast<u8>(character));
        }
    }
    characters = std::move(taken);
}

void cut(vel_context &ctx, std::string &characters, std::size_t length, vel_refusal reason) {
    if (length >= characters.size()) return;
    refuse(ctx, reason, static_cast<u8>(characters[length]));
    characters.resize(length);
}

// A text is shown whole, or it would be typed without being seen. Only formatting knows whether it
// is, so the change is made, and made again with less where it was too much.
class ShownWhole {
public:
    ShownWhole(vel_context &ctx, u32 owner, const Replacement &replacement)
        : ctx_(ctx), owner_(owner), wanted_(replacement), undo_{replacement.at, 0, ""} {
        undo_.inserted = TextRows(ctx, owner).characters().substr(wanted_.at, wanted_.count);
    }

    // Leaves the longest start of the inserted characters in the text; returns its length.
    std::size_t insert() {
        std::size_t too_long = wanted_.inserted.size();
        if (fits(too_long)) return too_long;
        std::size_t shown = 0;
        while (shown + 1 < too_long) {
            take_back();
            const std::size_t middle = (shown + too_long) / 2;
            (fits(middle) ? shown : too_long) = middle;
        }
        take_back();
        if (shown != 0) fits(shown);
        return shown;
    }

private:
    bool fits(std::size_t length) {
        Replacement part = wanted_;
        part.inserted.resize(length);
        restore_characters(ctx_, owner_, part);
        undo_.count = static_cast<u32>(length);
        return TextRows(ctx_, owner_).are_complete();
    }
    void take_back() { restore_characters(ctx_, owner_, undo_); }

    vel_context &ctx_;
    const u32 owner_;
    const Replacement &wanted_;
    Replacement undo_;
};

} // namespace

bool can_change(const vel_context &ctx, u32 owner) {
    return type_of(object_at(ctx, owner)).text != TextKind::chain && is_enabled(ctx, owner);
}

bool change_characters(vel_context &ctx, u32 owner, Replacement &r) {
    const vel_object &o = object_at(ctx, owner);
    const bool only_removes = r.inserted.empty();
    leave_out_misfits(ctx, o, r.inserted);
    const u32 kept = TextRows(ctx, owner).length() - r.count;
    const u32 room = capacity(o);
    cut(ctx, r.inserted, room > kept ? room - kept : 0, VEL_REFUSED_FULL);
    if (r.inserted.empty() && !(only_removes && r.count != 0)) return false;
    if (only_removes || is_field(o)) {
        restore_characters(ctx, owner, r);
    } else {
        cut(ctx, r.inserted, ShownWhole(ctx, owner, r).insert(), VEL_REFUSED_LINES);
    }
    return only_removes || !r.inserted.empty();
}

void restore_characters(vel_context &ctx, u32 owner, const Replacement &r) {
    vel_object &o = object_at(ctx, owner);
    const bool is_label = is_field(o);
    char *const start = is_label ? o.label : ctx.text_recs[text_of(ctx, o)].text;
    const std::size_t size = is_label ? VEL_STRING_SIZE : VEL_TEXT_SIZE;
    const std::size_t length = strnlen(start, size - 1);
    const std::size_t rest = length - r.at - r.count;
    std::memmove(start + r.at + r.inserted.size(), start + r.at + r.count, rest);
    std::memcpy(start + r.at, r.inserted.data(), r.inserted.size());
    o.text_length = static_cast<u32>(r.at + r.inserted.size() + rest);
    start[o.text_length] = '\0';
    if (!is_label) format_text(ctx, owner);
}

} // namespace velumo
