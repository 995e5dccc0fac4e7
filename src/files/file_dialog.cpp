#include "files/file_dialog.h"

#include <cstring>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "files/folder_list.h"
#include "files/folder_reading.h"
#include "files/paths.h"
#include "input/text_cursor.h"
#include "model/traits.h"
#include "model/types.h"
#include "model/walk.h"
#include "parts/list.h"
#include "render/geometry.h"
#include "render/scene.h"
#include "text/encoding.h"
#include "text/layout.h"
#include "text/loading.h"
#include "text/measure.h"
#include "window/activation.h"
#include "window/focus.h"
#include "window/waiting.h"

namespace velumo {
namespace {

// What a dialog is made of: the first dependents of its window.
enum DialogPart : u32 {
    dialog_folder,
    dialog_list,
    dialog_name,
    dialog_ok,
    dialog_cancel,
    dialog_message
};
constexpr std::size_t part_count = dialog_message + 1;

constexpr std::string_view cut_mark = "...";

bool is_dialog(const vel_context &ctx, u32 window) {
    const vel_object &o = object_at(ctx, window);
    const bool can_open = o.hidden == 0 || ctx.window_count < VEL_MAX_WINDOWS;
    return window != 0 && is_top_level_window(o) && can_open &&
           dependents_of(o).size() >= part_count;
}

// Opens the window in front, its frame buttons scrolling, and puts everything back at the end.
class OpenWindow {
public:
    OpenWindow(vel_context &ctx, u32 window)
        : ctx_(ctx), window_(window), cursor_(ctx.cursor_object), mode_(ctx.frame_mode),
          colour_(ctx.mark_colour) {
        activate(ctx, window);
        ctx.frame_mode = VEL_MODE_SCROLL;
        ctx.mark_colour = ctx.mark_colour_b;
    }
    ~OpenWindow() {
        if (!has_objects(ctx_)) return;
        close_window(ctx_, window_);
        ctx_.frame_mode = mode_;
        ctx_.mark_colour = colour_;
        return_focus(ctx_, cursor_);
        show_all(ctx_);
    }
    OpenWindow(const OpenWindow &) = delete;
    OpenWindow &operator=(const OpenWindow &) = delete;

private:
    vel_context &ctx_;
    const u32 window_, cursor_, mode_;
    const vel_colour colour_;
};

// The text in the message part, which shows by having a width.
class Message {
public:
    Message(vel_context &ctx, u32 object)
        : ctx_(ctx), object_(object), width_(object_at(ctx, object).width) {
        hide();
    }
    ~Message() {
        if (has_objects(ctx_)) show();
    }
    Message(const Message &) = delete;
    Message &operator=(const Message &) = delete;

    void show() { set(width_); }
    void hide() { set(0); }

private:
    void set(u32 width) {
        vel_object &o = object_at(ctx_, object_);
        o.width = width;
        o.hidden = width == 0 ? 1 : 0;
    }

    vel_context &ctx_;
    const u32 object_;
    const u32 width_;
};

class FileDialog {
public:
    FileDialog(vel_context &ctx, u32 window)
        : ctx_(ctx), window_(window), message_(ctx, number_of(dialog_message)) {}

    // The path of the chosen file; nothing when the user gives up.
    std::optional<std::string> run(const std::string &suggestion) {
        const OpenWindow open(ctx_, window_);
        format();
        start(suggestion);
        show_all(ctx_);
        const u32 path_field = is_editable(part(dialog_folder)) ? number_of(dialog_folder) : 0;
        const Dialog dialog{window_, number_of(dialog_ok), number_of(dialog_cancel), path_field};
        for (;;) {
            const u32 picked = wait_in_dialog(ctx_, dialog);
            pass_quit_on(picked);
            if (is_end(picked)) return {};
            if (auto path = act_on(picked)) return path;
            show_active_window(ctx_);
        }
    }

private:
    u32 number_of(DialogPart part) const { return object_at(ctx_, window_).dep_objs[part]; }
    vel_object &part(DialogPart part) { return object_at(ctx_, number_of(part)); }

    // The program's own loop has to see that the user closes the program.
    void pass_quit_on(u32 picked) {
        if (picked == 0 && ctx_.event.type == SDL_QUIT) SDL_PushEvent(&ctx_.event);
    }

    bool is_end(u32 picked) const {
        return picked == 0 || picked == VEL_BUTTON_CLOSE || picked == number_of(dialog_cancel);
    }

    // The program need not have formatted anything before.
    void format() {
        format_object(ctx_, window_);
        walk_dependents(ctx_, window_, [this](u32 number) {
            format_object(ctx_, number);
            return Walk::descend;
        });
    }

    // --- What the user does

    std::optional<std::string> act_on(u32 picked) {
        const bool is_in_path = ctx_.cursor_object == number_of(dialog_folder);
        if (picked == number_of(dialog_ok)) return is_in_path ? accept_path() : accept_name();
        if (picked == number_of(dialog_folder)) return complete_path(), std::nullopt;
        if (picked == number_of(dialog_list)) return act_on_selected();
        if (object_at(ctx_, picked).master != number_of(dialog_list)) return {};
        const ListedName *name = name_of_row(ctx_, picked);
        if (name == nullptr) return {};
        if (name->is_folder)
            enter(*name);
        else
            set_name(name->bytes);
        return {};
    }

    // In a list that the form tool has made, a second click or Enter goes on from what one click
    // or the arrow keys select.
    std::optional<std::string> act_on_selected() {
        const List *items = find_list(ctx_, number_of(dialog_list));
        const auto *names = names_of(ctx_, number_of(dialog_list));
        const u32 row = items == nullptr ? VEL_NO_ROW : items->selected.next(0);
        if (names == nullptr || row >= names->size()) return {};
        const ListedName name = (*names)[row];
        if (!name.is_folder) set_name(name.bytes);
        if (!items->is_answered) return {};
        if (!name.is_folder) return accept_name();
        enter(name);
        return {};
    }

    void enter(const ListedName &folder) {
        if (folder.bytes == "..")
            show_folder(split(folder_).folder, pattern_);
        else
            show_folder(joined(folder_, folder.bytes), pattern_);
    }

    // --- The path that is typed

    std::string typed_path() {
        const vel_object &field = part(dialog_folder);
        const std::string label(field.label, strnlen(field.label, VEL_STRING_SIZE));
        return label == shown_path_ ? folder_ : utf8_of(label);
    }

    std::optional<std::string> accept_path() {
        const std::string path = joined(folder_, typed_path());
        if (path != folder_) return follow(path);
        return accept_name();
    }

    // Adds what all names have in common that begin as the one that is typed; where nothing can be
    // added, the focus goes on.
    void complete_path() {
        const std::string typed = typed_path();
        const std::string path = joined(folder_, typed);
        const auto [folder, name] = split(path);
        const std::string more = common_rest(folder, name);
        if (typed == folder_ || more.empty()) {
            move_focus(ctx_, {.is_dialog = true}, false);
            return;
        }
        vel_object &field = part(dialog_folder);
        set_label(field, latin1_of(typed + more));
        reset_text(ctx_, number_of(dialog_folder), Holder::label);
        select_text(ctx_, number_of(dialog_folder), VEL_STRING_SIZE, VEL_STRING_SIZE);
    }

    std::optional<std::string> accept_name() {
        const std::string name = typed_name();
        if (name.empty()) return {};
        return follow(joined(folder_, name));
    }

    // The bytes of the name in the field: those of the name that was picked or that the list shows
    // like this, so that a name which a label cannot show as a whole can be chosen.
    std::string typed_name() {
        const vel_object &field = part(dialog_name);
        const std::string label(field.label, strnlen(field.label, VEL_STRING_SIZE));
        if (label == picked_label_) return picked_;
        const auto *names = names_of(ctx_, number_of(dialog_list));
        if (names == nullptr) return utf8_of(label);
        for (const ListedName &name : *names) {
            const std::string shown = label_of(name);
            if (shown == label || (name.is_folder && shown == label + '/')) return name.bytes;
        }
        return utf8_of(label);
    }

    // Goes where a path leads: into a folder, or to the files that match its last part. Returns the
    // path when it is one of a file, which need not exist.
    std::optional<std::string> follow(const std::string &path) {
        const auto [given, name] = split(path);
        // Links that the user walked through stay in the path.
        const std::string folder = given == folder_ ? given : canonical(given);
        const bool is_pattern = has_wildcard(name) && !exists(path);
        if (is_folder(path) || is_pattern) {
            const bool went =
                is_pattern ? show_folder(folder, name) : show_folder(canonical(path), pattern_);
            if (went) set_name("");
            return {};
        }
        if (is_folder(folder)) return joined(folder, name);
        message_.show();
        return {};
    }

    // --- What the dialog shows

    void start(const std::string &suggestion) {
        set_name("");
        if (is_editable(part(dialog_folder))) ctx_.cursor_object = number_of(dialog_name);
        const std::string here = working_folder();
        if (const auto file = follow(joined(here, suggestion))) {
            const auto [folder, name] = split(*file);
            show_folder(folder, pattern_);
            set_name(name);
            // What is typed takes the place of the suggestion.
            if (has_comfort(ctx_, VEL_COMFORT_TYPING)) select_name();
        }
        if (!folder_.empty()) return;
        // The message says what could not be read, and the user goes on elsewhere.
        if (!show_folder(here, pattern_)) show_folder("/", pattern_);
        message_.show();
    }

    void select_name() {
        const u32 field = number_of(dialog_name);
        select_text(ctx_, field, 0, VEL_STRING_SIZE);
    }

    // Shows another folder from its start. Where it cannot be read, all but the message stays.
    bool show_folder(const std::string &folder, const std::string &pattern) {
        vel_object &list = part(dialog_list);
        const u32 scroll = std::exchange(list.scroll_y, 0);
        if (list_folder(ctx_, number_of(dialog_list), folder.c_str(), pattern.c_str()) < 0) {
            list.scroll_y = scroll;
            message_.show();
            return false;
        }
        message_.hide();
        folder_ = folder;
        pattern_ = pattern;
        show_path();
        return true;
    }

    // The end of a path says more than its beginning.
    void show_path() {
        vel_object &field = part(dialog_folder);
        TTF_Font *font = font_of(ctx_, field);
        const u32 room = field.width - field.margin_left - field.margin_right;
        const std::string path = latin1_of(folder_);
        std::string label = path;
        for (std::size_t cut = 1;
             cut < path.size() &&
             (label.size() > longest_label || text_width(ctx_, font, label.c_str()) > room);
             ++cut) {
            label = cut_mark;
            label += path.substr(cut);
        }
        set_label(field, label);
        shown_path_ = field.label;
        if (is_editable(field)) reset_text(ctx_, number_of(dialog_folder), Holder::label);
    }

    void set_name(const std::string &name) {
        vel_object &field = part(dialog_name);
        set_label(field, latin1_of(name));
        picked_ = name;
        picked_label_ = field.label;
        field.scroll_x = 0;
        reset_text(ctx_, number_of(dialog_name), Holder::label);
    }

    static void set_label(vel_object &field, std::string_view text) {
        text = text.substr(0, longest_label);
        field.label[text.copy(field.label, longest_label)] = '\0';
    }

    vel_context &ctx_;
    const u32 window_;
    Message message_;
    std::string folder_, pattern_;      // that the list shows
    std::string shown_path_;            // as the path's field shows the folder
    std::string picked_, picked_label_; // the name put into the field, and how that shows it
};

} // namespace

i32 choose_file(vel_context &ctx, u32 window, char *path_out, std::size_t size) try {
    const std::string suggestion(path_out, strnlen(path_out, size));
    if (suggestion.size() == size || !is_dialog(ctx, window)) return VEL_ERROR_ARGUMENT;
    const auto path = FileDialog(ctx, window).run(suggestion);
    if (!path) return 0;
    if (path->size() >= size) return VEL_ERROR_SIZE;
    std::memcpy(path_out, path->c_str(), path->size() + 1);
    return 1;
} catch (const std::bad_alloc &) {
    return VEL_ERROR_MEMORY;
}

} // namespace velumo
