// Lists and choices: rows of one or several cells.
#include <algorithm>

#include <fmt/format.h>

#include "kinds/pieces.h"

namespace velform {
namespace {

constexpr Pixels standard_row_height = 22;
constexpr Pixels inset = 2; // for the ring of the focus
constexpr Pixels bar_width = 14, picture_gap = 6;
constexpr Pixels most_rows = 97, most_rows_of_choice = 10;
constexpr Pixels least_column = 8;

Pixels row_height_of(const PartSource &part) {
    return part.row_height ? part.row_height->number() : standard_row_height;
}

struct Column {
    std::string title;
    Pixels left, width, picture;
    std::optional<Setting> align;
};

class ListMaker {
public:
    ListMaker(ObjectSource &object, const PartSource &part, const PartContext &context)
        : object_(object), part_(part), context_(context), measures_(object, context),
          row_height_(row_height_of(part)) {}

    void make() {
        place_columns();
        set_part(object_.own, PartCode::list);
        object_.rows = text_of_rows();
        const Pixels head = has_titles_ ? row_height_ : 0;
        const Pixels room = measures_.height() - 2 * inset - head;
        const Pixels count = std::min(room / row_height_, most_rows);
        // A list that can grow has rows for that, too, without a width until there is room.
        const bool can_grow = grows_with_window();
        if (count < 1) {
            return report(object_, Field::height, context_,
                          fmt::format("the list must be at least {} pixels high, to hold a row",
                                      2 * inset + head + row_height_));
        }
        add_sample();
        add_head();
        add_scroll_bar(room + head);
        for (Pixels k = 0; k < (can_grow ? most_rows : count); ++k) {
            add_row(k, inset + head + k * row_height_);
            if (k >= count) set(object_.objects.back().own, Field::width, 0);
        }
    }

private:
    bool grows_with_window() const {
        return (measures_.of(Field::anchor) & (anchor_top | anchor_bottom)) ==
               (anchor_top | anchor_bottom);
    }

    Pixels rows_width() const { return measures_.width() - 2 * inset - bar_width; }

    // Columns without a width share what the others leave.
    void place_columns() {
        Pixels said = 0, sharing = 0;
        for (const ColumnSource &column : part_.columns) {
            said += column.width ? column.width->number() : 0;
            sharing += column.width ? 0 : 1;
        }
        const Pixels free = rows_width() - said;
        if (free < sharing * least_column || rows_width() < least_column) {
            report(object_, Field::width, context_,
                   fmt::format("the list must be at least {} pixels wide, to hold its columns",
                               std::max(said + sharing * least_column, least_column) + 2 * inset +
                                   bar_width));
        }
        if (part_.columns.empty()) columns_.push_back({"", 0, rows_width(), 0, {}});
        Pixels left = 0;
        for (const ColumnSource &column : part_.columns) {
            const Pixels width =
                std::max(column.width ? column.width->number() : free / sharing, Pixels{0});
            const std::string title = column.title ? column.title->string() : "";
            has_titles_ = has_titles_ || !title.empty();
            const Pixels picture = column.picture ? column.picture->number() : 0;
            columns_.push_back({title, left, width, picture, column.align});
            left += width;
        }
    }

    // For the library, in one text; it divides it into rows and cells again.
    std::string text_of_rows() {
        std::string text;
        for (const std::vector<std::string> &row : part_.rows) {
            if (row.size() > columns_.size()) {
                context_.diagnostics.error(
                    part_.rows_where, fmt::format("a row has {} cells, and the list has columns "
                                                  "for {}",
                                                  row.size(), columns_.size()));
            }
            if (&row != &part_.rows.front()) text += '\n';
            text += fmt::format("{}", fmt::join(row, "\t"));
        }
        return text;
    }

    // Pieces follow the list when it is resized.
    void add(ObjectSource piece, std::int64_t anchor = across | anchor_top) {
        measures_.anchor(piece, anchor);
        object_.objects.push_back(std::move(piece));
    }

    void add_sample() { add(piece(Role::sample, {inset, inset, 0, row_height_})); }

    static ObjectSource with_align(ObjectSource object, const std::optional<Setting> &align) {
        if (align) set(object.own, Field::align, align->number());
        return object;
    }

    void add_head() {
        if (!has_titles_) return add(piece(Role::holder, {inset, inset, 0, 0}, VEL_TYPE_EMPTY));
        ObjectSource head = piece(Role::head, {inset, inset, rows_width(), row_height_});
        set(head.own, Field::margin_left, 0);
        set(head.own, Field::margin_right, 0);
        for (const Column &column : columns_) {
            ObjectSource title = with_align(
                piece(Role::head, {column.left, 0, column.width, row_height_}), column.align);
            set_label(title.own, column.title);
            if (&column == &columns_.back()) measures_.anchor(title, across | anchor_top);
            set(title.own, Field::focus, 0);
            head.objects.push_back(std::move(title));
        }
        add(std::move(head));
    }

    void add_scroll_bar(Pixels height) {
        const Pixels left = measures_.width() - inset - bar_width;
        ObjectSource bar = piece(Role::scroll_bar, {left, inset, bar_width, height});
        make_scroll_bar(bar, {}, context_);
        bar.scrolls_master = true;
        add(std::move(bar), anchor_right | anchor_top | anchor_bottom);
    }

    std::string cell_text(Pixels row, std::size_t column) const {
        const auto k = static_cast<std::size_t>(row);
        if (k >= part_.rows.size() || column >= part_.rows[k].size()) return {};
        return part_.rows[k][column];
    }

    void add_row(Pixels k, Pixels top) {
        ObjectSource row = piece(Role::row, {inset, top, rows_width(), row_height_});
        if (columns_.size() == 1 && columns_[0].picture == 0) {
            row = with_align(std::move(row), columns_[0].align);
            set_label(row.own, cell_text(k, 0));
        } else {
            set(row.own, Field::margin_left, 0);
            set(row.own, Field::margin_right, 0);
            for (std::size_t c = 0; c < columns_.size(); ++c) {
                row.objects.push_back(cell(columns_[c], cell_text(k, c)));
                if (c + 1 == columns_.size())
                    measures_.anchor(row.objects.back(), across | anchor_top);
            }
        }
        add(std::move(row));
    }

    ObjectSource cell(const Column &column, std::string text) const {
        ObjectSource cell = with_align(
            piece(Role::cell, {column.left, 0, column.width, row_height_}), column.align);
        set_label(cell.own, std::move(text));
        if (column.picture == 0) return cell;
        set(cell.own, Field::margin_left, column.picture + 2 * picture_gap);
        ObjectSource picture = outer_piece(
            Role::bare,
            {picture_gap, std::max<Pixels>((row_height_ - column.picture) / 2, 0), 0, row_height_});
        set(picture.own, Field::type, VEL_TYPE_PICTURE_UNLOADED);
        cell.objects.push_back(std::move(picture));
        return cell;
    }

    ObjectSource &object_;
    const PartSource &part_;
    const PartContext &context_;
    const Measures measures_;
    const Pixels row_height_;
    std::vector<Column> columns_;
    bool has_titles_ = false;
};

// Triangles of rows that point down.
constexpr Pixels arrow_width = 9, arrow_right = 9;

void add_arrow(ObjectSource &object, const Measures &measures) {
    const Pixels left = measures.width() - arrow_right - arrow_width;
    const Pixels top = (measures.height() - arrow_width / 2) / 2;
    for (Pixels k = 0; 2 * k < arrow_width; ++k) {
        object.objects.push_back(
            outer_piece(Role::arrow, {left + k, top + k, arrow_width - 2 * k, 1}));
        measures.anchor(object.objects.back(), anchor_right | anchor_top);
    }
}

} // namespace

void make_list(ObjectSource &object, const PartSource &part, const PartContext &context) {
    if (!object.is_made) set_standard(object.own, Field::focus, 1);
    ListMaker(object, part, context).make();
}

// The menu of a choice is at the end of the form, because a menu is at the top level.
void make_choice(ObjectSource &object, PartSource &part, PartContext &context) {
    const Measures measures(object, context);
    const auto count = static_cast<std::int64_t>(part.rows.size());
    const std::int64_t value = measures.of(Field::value, count == 0 ? -1 : 0);
    if (value < -1 || value >= std::max<std::int64_t>(count, 1)) {
        report(object, Field::value, context,
               fmt::format("`value` must be -1 or one of the {} rows, from 0", count));
    } else if (value >= 0 && count != 0) {
        set_label(object.own, part.rows[static_cast<std::size_t>(value)][0]);
    }
    set_part(object.own, PartCode::choice);
    set_standard(object.own, Field::focus, 1);
    set_standard(object.own, Field::value, value);
    add_arrow(object, measures);

    // Rows that the program supplies may be many.
    const Pixels rows = count == 0 ? most_rows_of_choice : std::min(count, most_rows_of_choice);
    const Pixels height = rows * row_height_of(part) + 2 * inset;
    const Pixels width = std::max(measures.width(), 2 * (inset + 1) + bar_width + least_column);
    ObjectSource menu = piece(Role::drop_down, {0, 0, width, height + 2}, VEL_TYPE_MENU);
    menu.alias = fmt::format("choice {}", context.last_objects.size() + 1);
    object.own[Field::menu] = Setting{menu.alias, part.where};
    ObjectSource list = piece(Role::drop_down_list, {1, 1, width - 2, height});
    if (!object.id.empty()) list.id = object.id + "_list";
    list.id_where = object.id_where;
    list.where = object.where;
    make_list(list, part, context);
    menu.objects.push_back(std::move(list));
    context.last_objects.push_back(std::move(menu));
}

} // namespace velform
