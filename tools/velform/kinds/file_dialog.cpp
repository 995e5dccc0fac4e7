#include "kinds/file_dialog.h"

#include <algorithm>

#include <fmt/format.h>

#include "kinds/pieces.h"

namespace velform {
namespace {

// The window from top to bottom: title, folder, list, name, message, buttons.
constexpr Pixels side = 16;
constexpr Pixels title_top = 12;
constexpr Pixels folder_top = 38;
constexpr Pixels folder_height = 24;
constexpr Pixels list_top = 68;
constexpr Pixels size_width = 76, time_width = 132, least_name_width = 150;
constexpr Pixels align_left = 1, align_right = 2;
constexpr Pixels list_inset = 4;
constexpr Pixels field_height = 28;
constexpr Pixels caption_width = 64, caption_height = 20;
constexpr Pixels message_height = 18;
constexpr Pixels button_width = 104;
constexpr Pixels button_height = 30;
constexpr Pixels gap = 8;
constexpr Pixels all_but_rows = list_top + 2 * list_inset + gap + field_height + gap +
                                message_height + gap + button_height + side;

constexpr Pixels row_height = 20;
constexpr Pixels least_row_height = 12;
constexpr Pixels standard_rows = 12;
constexpr Pixels standard_x = 60, standard_y = 60;
constexpr Pixels standard_width = 480, least_width = 300;

constexpr FileDialogText dialog_texts[] = {{"title", &FileDialog::title},
                                           {"name", &FileDialog::name},
                                           {"ok", &FileDialog::ok},
                                           {"cancel", &FileDialog::cancel},
                                           {"message", &FileDialog::message}};
constexpr FileDialogStyle styles[] = {{"row_style", &FileDialog::row_style},
                                      {"field_style", &FileDialog::field_style},
                                      {"button_style", &FileDialog::button_style}};

std::string text_or(const std::optional<Setting> &text, const char *standard) {
    return text ? text->string() : standard;
}

void set_margins(Settings &settings, Pixels left, Pixels top) {
    set(settings, Field::margin_left, left);
    set(settings, Field::margin_top, top);
    set(settings, Field::margin_right, 0);
    set(settings, Field::margin_bottom, 0);
}

// An object's looks, unless the author's styles say them.
using Looks = std::initializer_list<std::pair<Field, Pixels>>;
void dress(ObjectSource &object, const std::vector<StyleUse> &by_author, Looks looks) {
    object.styles = by_author;
    if (!by_author.empty()) return;
    for (const auto &[field, value] : looks) set(object.own, field, value);
}

class WindowBuilder {
public:
    WindowBuilder(const FileDialog &dialog, PartContext &context)
        : dialog_(dialog), context_(context) {
        width_ = place(Field::width, standard_width);
        measure_rows();
    }

    ObjectSource build() {
        ObjectSource window = part("", VEL_TYPE_WINDOW, {});
        window.own = dialog_.place;
        window.default_type = VEL_TYPE_WINDOW;
        set(window.own, Field::x, place(Field::x, standard_x));
        set(window.own, Field::y, place(Field::y, standard_y));
        keep_where(window.own);
        set_size(window.own);
        window.own[Field::text] = Setting{text_or(dialog_.title, "Choose a file"), {}};
        set_margins(window.own, side, title_top);
        // A range below zero lets nothing scroll across, where there is nothing to see.
        set(window.own, Field::scroll_max_x, -1);
        dress(window, dialog_.style,
              {{Field::fill, theme_.window},
               {Field::text_colour, theme_.ink},
               {Field::border, VEL_BORDER_SHADOW},
               {Field::border_colour, theme_.line}});
        window.objects = parts();
        return window;
    }

private:
    Pixels place(Field field, Pixels standard) const {
        const std::optional<Setting> &said = dialog_.place[field];
        return said ? said->number() : standard;
    }
    // What is wrong with a place is reported where the source gives it.
    void keep_where(Settings &own) const {
        for (const Field field : {Field::x, Field::y}) {
            if (dialog_.place[field]) own[field]->where = dialog_.place[field]->where;
        }
    }
    void set_size(Settings &own) const {
        set(own, Field::width, width_);
        set(own, Field::height, place(Field::height, all_but_rows + rows_ * row_height_));
    }

    void measure_rows() {
        const std::optional<Setting> &height = dialog_.place[Field::height];
        const Pixels room = height ? height->number() - all_but_rows : 0;
        const Pixels fitting =
            height ? std::clamp<Pixels>(room / row_height, 1, VEL_MAX_DEPENDENTS) : standard_rows;
        rows_ = dialog_.rows ? dialog_.rows->number() : fitting;
        if (height) row_height_ = room / rows_;
        if (row_height_ < least_row_height) {
            error(*height, fmt::format("a file dialog of so many rows ({}) must be at least {} "
                                       "pixels high",
                                       rows_, all_but_rows + rows_ * least_row_height));
        }
        if (width_ < least_width) {
            error(*dialog_.place[Field::width],
                  fmt::format("a file dialog must be at least {} pixels wide", least_width));
        }
    }
    void error(const Setting &setting, std::string message) {
        if (!setting.is_faulty) diagnostics_.error(setting.where, std::move(message));
    }

    ObjectSource part(std::string_view suffix, std::uint32_t type, const Rect &rect) const {
        ObjectSource object;
        object.where = dialog_.where;
        object.role = Role::bare;
        object.id = fmt::format("{}{}", dialog_.id, suffix);
        object.id_where = dialog_.id_where;
        set(object.own, Field::type, type);
        set_rect(object.own, rect);
        return object;
    }

    // A line of text that begins at the left; labels would centre it.
    ObjectSource text_line(std::string_view suffix, const Rect &rect, std::string text,
                           Pixels colour) const {
        ObjectSource object = part(suffix, VEL_TYPE_ENTRY, rect);
        set(object.own, Field::editable, 0);
        set_margins(object.own, 0, 1);
        object.own[Field::label] = Setting{std::move(text), {}};
        // The ground of a window that has a style is the author's.
        dress(object, dialog_.style, {{Field::fill, theme_.window}});
        set(object.own, Field::text_colour, colour);
        set(object.own, Field::border, VEL_BORDER_NONE);
        return object;
    }

    std::vector<ObjectSource> parts() {
        const Pixels inner = width_ - 2 * side;
        const Pixels list_height = rows_ * row_height_ + 2 * list_inset;
        const Pixels field_top = list_top + list_height + gap;
        const Pixels message_top = field_top + field_height + gap;
        const Pixels button_top = message_top + message_height + gap;
        const Pixels ok_left = width_ - side - button_width;
        std::vector<ObjectSource> all;
        all.push_back(field("_folder", {side, folder_top, inner, folder_height}));
        all.push_back(list({side, list_top, inner, list_height}));
        all.push_back(
            field("_name", {side + caption_width, field_top, inner - caption_width, field_height}));
        all.push_back(button("_ok", ok_left, button_top, text_or(dialog_.ok, "OK")));
        all.push_back(button("_cancel", ok_left - gap - button_width, button_top,
                             text_or(dialog_.cancel, "Cancel")));
        all.push_back(text_line("_message", {side, message_top, inner, message_height},
                                text_or(dialog_.message, "This folder cannot be read."),
                                theme_.warning));
        all.push_back(text_line("", {side, field_top + 3, caption_width - gap, caption_height},
                                text_or(dialog_.name, "Name"), theme_.muted));
        all.back().id.clear();
        return all;
    }

    // Name, size and time of each file, as far as there is room.
    ObjectSource list(const Rect &rect) {
        ObjectSource object = part("_list", VEL_TYPE_LABEL, rect);
        object.styles = dialog_.row_style;
        PartSource list;
        list.kind = PartKind::list;
        list.where = dialog_.where;
        list.row_height = Setting{row_height_, {}};
        list.columns.emplace_back();
        if (rect.width >= size_width + time_width + least_name_width) {
            list.columns.push_back(column(size_width, align_right));
            list.columns.push_back(column(time_width, align_left));
        }
        make_part(object, list, context_);
        return object;
    }

    static ColumnSource column(Pixels width, Pixels align) {
        ColumnSource column;
        column.width = Setting{width, {}};
        column.align = Setting{align, {}};
        return column;
    }

    ObjectSource field(std::string_view suffix, const Rect &rect) const {
        ObjectSource object = part(suffix, VEL_TYPE_ENTRY, rect);
        // The frame follows the margins: one more than its inset puts it on the edge.
        dress(object, dialog_.field_style,
              {{Field::fill, theme_.field},
               {Field::text_colour, theme_.ink},
               {Field::border_inset, 3},
               {Field::border, VEL_BORDER_FRAME},
               {Field::border_colour, theme_.edge},
               {Field::margin_left, 4},
               {Field::margin_right, 4},
               {Field::margin_top, 4},
               {Field::margin_bottom, 4}});
        return object;
    }

    ObjectSource button(std::string_view suffix, Pixels x, Pixels y, std::string text) const {
        const bool is_main = suffix == "_ok";
        ObjectSource object = part(suffix, VEL_TYPE_LABEL, {x, y, button_width, button_height});
        object.own[Field::label] = Setting{std::move(text), {}};
        set(object.own, is_main ? Field::default_answer : Field::cancel_answer, 1);
        dress(object, dialog_.button_style,
              {{Field::fill, is_main ? theme_.accent : theme_.button},
               {Field::text_colour, is_main ? theme_.accent_ink : theme_.button_ink},
               {Field::border, VEL_BORDER_SHADOW},
               {Field::border_colour, is_main ? theme_.accent_edge : theme_.edge}});
        return object;
    }

    const FileDialog &dialog_;
    PartContext &context_;
    const Theme &theme_ = context_.theme;
    Diagnostics &diagnostics_ = context_.diagnostics;
    Pixels width_ = 0, rows_ = 0, row_height_ = row_height;
};

} // namespace

std::span<const FileDialogText> file_dialog_texts() { return dialog_texts; }
std::span<const FileDialogStyle> file_dialog_styles() { return styles; }

ObjectSource file_dialog_window(const FileDialog &dialog, PartContext &context) {
    return WindowBuilder(dialog, context).build();
}

} // namespace velform
