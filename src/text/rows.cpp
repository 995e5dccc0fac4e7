#include "text/rows.h"

#include <cstring>

#include "model/types.h"
#include "text/line_breaker.h"

namespace velumo {
namespace {

bool is_chain(const vel_object &o) { return type_of(o).text == TextKind::chain; }

std::string_view characters_of(const vel_context &ctx, const vel_object &o) {
    if (is_field(o)) return {o.label, strnlen(o.label, VEL_STRING_SIZE - 1)};
    if (is_chain(o)) return o.stream == nullptr ? std::string_view() : o.stream;
    const char *text = ctx.text_recs[text_of(ctx, o)].text;
    return {text, strnlen(text, VEL_TEXT_SIZE - 1)};
}

bool shows(char shown, char character, bool converts_umlauts) {
    return shown == (converts_umlauts ? umlaut_of(character) : character);
}

} // namespace

u32 text_owner(const vel_context &ctx, u32 object) {
    if (ctx.objects == nullptr || names_nothing(ctx, object)) return 0;
    const vel_object &o = object_at(ctx, object);
    if (is_field(o)) return object;
    if (is_chain(o)) {
        const u32 head = o.master == 0 ? object : o.master;
        return is_chain(object_at(ctx, head)) && object_at(ctx, head).stream != nullptr ? head : 0;
    }
    return has_paragraphs(o) && text_of(ctx, o) != 0 && buffer_of(ctx, o) != 0 ? object : 0;
}

TextRows::TextRows(const vel_context &ctx, u32 owner)
    : characters_(characters_of(ctx, object_at(ctx, owner))) {
    const vel_object &o = object_at(ctx, owner);
    if (is_field(o)) {
        rows_.push_back({owner, 0, 0, length()});
        are_complete_ = true;
    } else if (is_chain(o)) {
        for (const u32 member : dependents_of(o)) {
            if (are_complete_ || !is_chain(object_at(ctx, member))) break;
            add_lines(ctx, member);
        }
    } else {
        add_lines(ctx, owner);
    }
    if (rows_.empty()) rows_.push_back({owner, 0, 0, 0});
}

void TextRows::add_lines(const vel_context &ctx, u32 object) {
    const vel_object &o = object_at(ctx, object);
    const u32 buffer = buffer_of(ctx, o);
    const bool converts = ctx.umlaut_conversion == 1;
    u32 index = rows_.empty() ? 0 : rows_.back().end();
    const auto is_line_feed = [this](u32 k) { return k < length() && characters_[k] == '\n'; };
    if (!rows_.empty() && is_line_feed(index)) ++index;
    const u32 last = std::min(o.number_of_lines, last_line);
    for (u32 line = 0; line <= last && !are_complete_; ++line) {
        const char *shown = line_of(ctx, buffer, line);
        const u32 first = index;
        for (u32 k = 0; k < last_column && shown[k] != '\0' && index < length() &&
                        shows(shown[k], characters_[index], converts);
             ++k) {
            ++index;
        }
        rows_.push_back({object, line, first, index - first});
        are_complete_ = index == length();
        if (is_line_feed(index)) ++index;
    }
}

u32 TextRows::index_of(RowPlace place) const {
    const Row &row = rows_[std::min(place.row, count() - 1)];
    return row.first + std::min(place.column, row.length);
}

RowPlace TextRows::place_of(u32 index) const {
    const auto after = std::upper_bound(rows_.begin(), rows_.end(), index,
                                        [](u32 i, const Row &row) { return i < row.first; });
    const auto row = after == rows_.begin() ? after : after - 1;
    return {static_cast<u32>(row - rows_.begin()), std::min(index - row->first, row->length)};
}

RowPlace TextRows::end_of(u32 row) const {
    const Row &r = rows_[row];
    const bool is_broken = row + 1 < count() && rows_[row + 1].first == r.end() && r.length != 0;
    return {row, is_broken && characters_[r.end() - 1] == ' ' ? r.length - 1 : r.length};
}

u32 TextRows::row_at(u32 object, u32 line) const {
    u32 found = 0;
    for (u32 row = 0; row < count(); ++row) {
        if (rows_[row].object == object && rows_[row].line <= line) found = row;
    }
    return found;
}

} // namespace velumo
