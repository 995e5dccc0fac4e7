// What lists show in their rows, kept with the context. For lists and for folders.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "velumo.h"

namespace velumo {

// Numbers of rows, as ranges that do not touch: as small for a million rows as for two.
class RowSet {
public:
    bool has(std::uint32_t row) const { return next(row) == row; }
    // The first one from a row on; VEL_NO_ROW for none.
    std::uint32_t next(std::uint32_t row) const {
        const auto after = last_by_first_.upper_bound(row);
        const bool is_inside = after != last_by_first_.begin() && std::prev(after)->second >= row;
        if (is_inside) return row;
        return after == last_by_first_.end() ? VEL_NO_ROW : after->first;
    }
    void clear() { last_by_first_.clear(); }
    // Throws std::bad_alloc.
    void add(std::uint32_t first, std::uint32_t last) {
        auto at = last_by_first_.upper_bound(first);
        if (at != last_by_first_.begin() && std::prev(at)->second + std::uint64_t{1} >= first) --at;
        while (at != last_by_first_.end() && at->first <= last + std::uint64_t{1}) {
            first = std::min(first, at->first);
            last = std::max(last, at->second);
            at = last_by_first_.erase(at);
        }
        last_by_first_[first] = last;
    }
    // Throws std::bad_alloc.
    void remove(std::uint32_t row) {
        if (!has(row)) return;
        const auto range = std::prev(last_by_first_.upper_bound(row));
        const auto [first, last] = *range;
        last_by_first_.erase(range);
        if (first < row) last_by_first_[first] = row - 1;
        if (row < last) last_by_first_[row + 1] = last;
    }

private:
    std::map<std::uint32_t, std::uint32_t> last_by_first_;
};

// The items of a list object, of which its rows show some.
struct List {
    using Cell = std::function<void(std::uint32_t row, std::uint32_t column, vel_cell &)>;

    std::uint32_t count = 0;
    Cell cell;                   // writes what a row shows in a column; the text has an end
    std::uint32_t first = 0;     // item that the first row shows
    std::uint32_t row_width = 0; // of a row that shows an item
    std::uint32_t shown = 0;     // rows that there was room for

    // Of lists that are parts.
    RowSet selected;
    std::uint32_t current = VEL_NO_ROW; // where keys go on from
    std::uint32_t anchor = VEL_NO_ROW;  // where selecting several began
    bool is_answered = false;           // by a double click or Enter, as the last thing
    vel_list_sorter sorter = nullptr;
    std::uint32_t sorted_column = VEL_NO_ROW;
    bool is_descending = false;
    std::vector<std::string> titles; // without the mark of the sorted one
    std::string typed;               // the characters to find
    std::chrono::milliseconds typed_at{0}, pressed_at{0};
    std::uint32_t pressed = VEL_NO_ROW; // row of the last press
};

// What a list of files shows, item by item.
struct ListedName {
    std::string bytes; // as the file system has it
    bool is_folder;
    std::int64_t size = 0;    // bytes
    std::int64_t changed = 0; // seconds, as the file system has them
};

} // namespace velumo
