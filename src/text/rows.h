// Where each character of a text is shown: the rows of a field, of a text or of a whole chain, one
// after the other. For the editor and for drawing a selection.
#pragma once

#include <string_view>

#include "text/lines.h"

namespace velumo {

struct Row {
    u32 object, line;  // what shows it
    u32 first, length; // its characters, without the line feed that ends it

    u32 end() const { return first + length; }
};

// A place between two characters. Where a line was broken between words, the end of one row and the
// start of the next have the same index.
struct RowPlace {
    u32 row, column;
};

// The object whose text an object shows: the head of a chain for its members, else itself; 0 when
// it shows none that could be typed in or selected.
u32 text_owner(const vel_context &ctx, u32 object);

class TextRows {
public:
    // Throws std::bad_alloc.
    TextRows(const vel_context &ctx, u32 owner);

    std::string_view characters() const { return characters_; }
    u32 length() const { return static_cast<u32>(characters_.size()); }
    const std::vector<Row> &rows() const { return rows_; }
    const Row &row(const RowPlace &place) const { return rows_[place.row]; }
    u32 count() const { return static_cast<u32>(rows_.size()); }

    // Whether each character is in a row.
    bool are_complete() const { return are_complete_; }

    u32 index_of(RowPlace place) const;
    // Between two rows, the start of the second.
    RowPlace place_of(u32 index) const;
    // The last place of a row that belongs to it alone: before the blank at which it was broken.
    RowPlace end_of(u32 row) const;

    // The row that an object shows as one of its lines; the nearest that there is.
    u32 row_at(u32 object, u32 line) const;

private:
    void add_lines(const vel_context &ctx, u32 object);

    std::string_view characters_;
    std::vector<Row> rows_; // at least one
    bool are_complete_ = false;
};

} // namespace velumo
