#include "text/lines.h"

#include <cstring>

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

// The bytes of the block from one on; none when it lies outside.
struct Block {
    char *start;
    std::uint64_t size;
};

Block block_from(const vel_context &ctx, u32 text, u32 line, u32 column) {
    const std::uint64_t offset =
        std::uint64_t{text} * VEL_TEXT_BUFFER_SIZE + std::uint64_t{line} * VEL_LINE_SIZE + column;
    const std::uint64_t size = block_size(ctx, text);
    if (ctx.text_bufs == nullptr || offset >= size) return {nullptr, 0};
    return {&ctx.text_bufs[0][0] + offset, size - offset};
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
    const Block block = block_from(ctx, text, line, 0);
    if (block.size == 0) return "";
    // A program may have filled the buffers with what has no end.
    const bool has_end = block.start[block.size - 1] == '\0' ||
                         std::memchr(block.start, '\0', block.size) != nullptr;
    return has_end ? block.start : "";
}

char byte_of(const vel_context &ctx, u32 text, u32 line, u32 column) {
    const char *byte = block_from(ctx, text, line, column).start;
    return byte == nullptr ? '\0' : *byte;
}

void put(vel_context &ctx, u32 text, u32 line, u32 column, char character) {
    const Block block = block_from(ctx, text, line, column);
    // The last byte of the block ends its last line, whatever is put there.
    if (block.size != 0) *block.start = block.size == 1 ? '\0' : character;
}

void put_all(vel_context &ctx, u32 text, u32 line, u32 column, std::string_view characters) {
    const Block block = block_from(ctx, text, line, column);
    if (block.size == 0) return;
    const std::size_t count = std::min<std::uint64_t>(characters.size(), block.size - 1);
    std::copy_n(characters.data(), count, block.start);
    block.start[count] = '\0';
}

void clear_lines(vel_context &ctx, u32 text, u32 from, u32 to) {
    for (u32 line = from; line <= to; ++line) put(ctx, text, line, 0, '\0');
}

} // namespace velumo
