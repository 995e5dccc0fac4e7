#include "text/lines.h"

namespace velumo {
namespace {

// Bytes of the block. Nobody knows the size of tables that a program filled by hand; then the
// block reaches to the end of the buffer asked for, or of the last that is counted.
std::uint64_t block_size(const vel_context &ctx, u32 text) {
    const std::uint64_t known = text_records(ctx);
    const std::uint64_t buffers =
        known != 0 ? known : std::max<std::uint64_t>(text, ctx.text_count) + 1;
    return buffers * VEL_TEXT_BUFFER_SIZE;
}

// Null outside the block.
char *byte_at(const vel_context &ctx, u32 text, u32 line, u32 column) {
    const std::uint64_t offset =
        std::uint64_t{text} * VEL_TEXT_BUFFER_SIZE + std::uint64_t{line} * VEL_LINE_SIZE + column;
    if (ctx.text_bufs == nullptr || offset >= block_size(ctx, text)) return nullptr;
    return &ctx.text_bufs[0][0] + offset;
}

u32 number_in(const vel_context &ctx, const void *table, const vel_object &object) {
    const u32 records = text_records(ctx);
    const bool is_inside = records == 0 || object.text_index < records;
    return table != nullptr && is_inside ? object.text_index : 0;
}

} // namespace

u32 text_of(const vel_context &ctx, const vel_object &object) {
    return number_in(ctx, ctx.text_recs, object);
}

u32 buffer_of(const vel_context &ctx, const vel_object &object) {
    return number_in(ctx, ctx.text_bufs, object);
}

const char *line_of(const vel_context &ctx, u32 text, u32 line) {
    const char *start = byte_at(ctx, text, line, 0);
    return start == nullptr ? "" : start;
}

char byte_of(const vel_context &ctx, u32 text, u32 line, u32 column) {
    const char *byte = byte_at(ctx, text, line, column);
    return byte == nullptr ? '\0' : *byte;
}

void put(vel_context &ctx, u32 text, u32 line, u32 column, char character) {
    char *byte = byte_at(ctx, text, line, column);
    if (byte == nullptr) return;
    // The last byte of the block ends its last line, whatever is put there.
    const bool is_last = byte_at(ctx, text, line, column + 1) == nullptr;
    *byte = is_last ? '\0' : character;
}

void clear_lines(vel_context &ctx, u32 text, u32 from, u32 to) {
    for (u32 line = from; line <= to; ++line) put(ctx, text, line, 0, '\0');
}

} // namespace velumo
