#include "library_form.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace office {
namespace {

constexpr std::uint32_t text_number = 1, text_records = 2, entry_characters = 64;
constexpr int least_window_x = 11, least_window_y = 25;
constexpr std::uint32_t field_left = 5, field_top = 3, title_left = 24, title_top = 2;

// Tables as loading makes them, so that vel_close can release them.
template <class Record> Record *table_of(std::size_t records) {
    void *const table = std::calloc(records, sizeof(Record));
    measure::demand(table != nullptr, "out of memory");
    return static_cast<Record *>(table);
}

void append_dependent(vel_object &master, std::uint32_t number) {
    *std::find(std::begin(master.dep_objs), std::end(master.dep_objs), 0U) = number;
}

void outline(vel_object &object, std::uint32_t margin_right = 2, std::uint32_t margin_bottom = 2) {
    object.border_style = VEL_BORDER_SHADOW;
    object.margin_right = margin_right;
    object.margin_bottom = margin_bottom;
}

// A raised face with three lines on it.
std::uint32_t frame_button_pixel(int x, int y) {
    constexpr int last = frame_button_size - 1;
    if (x == last || y == last) return colour::black;
    if (x == 0 || y == 0) return colour::light;
    if (x == last - 1 || y == last - 1) return colour::dark;
    const bool on_line = x >= 4 && x < 12 && (y == 5 || y == 8 || y == 11);
    return on_line ? colour::black : colour::face;
}

SDL_Surface *frame_button_picture() {
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < frame_button_size; ++y) {
        for (int x = 0; x < frame_button_size; ++x)
            pixels.push_back(0xFF000000 | frame_button_pixel(x, y));
    }
    return opaque_surface_of(pixels, frame_button_size);
}

void push_event(Uint8 type, SDLKey key = SDLK_UNKNOWN) {
    SDL_Event event{};
    event.type = type;
    event.key.keysym.sym = key;
    SDL_PushEvent(&event);
}

std::uint32_t end_loop_at_user_event(vel_context *, SDL_Event *event) {
    return event->type == SDL_USEREVENT ? VEL_FILTER_END_LOOP : VEL_FILTER_PASS;
}

} // namespace

LibraryForm::LibraryForm(const Display &display, Area kind) : kind_(kind) {
    ctx.screen = display.screen;
    ctx.font = display.font;
    ctx.screen_width = width;
    ctx.screen_height = height;
    ctx.screen_rect = {0, 0, width, height};
    ctx.mark_colour = {0x80, 0x80, 0x80};
    ctx.event_filter = end_loop_at_user_event;
    ctx.texts_loaded = 1;

    const std::vector<Item> all = items();
    ctx.objects = table_of<vel_object>(VEL_FRAME_BUTTONS + 1 + all.size());
    ctx.text_recs = table_of<vel_text_rec>(text_records);
    ctx.text_bufs = table_of<char[VEL_TEXT_BUFFER_SIZE]>(text_records);
    ctx.text_count = text_number;
    ctx.object_count = VEL_FRAME_BUTTONS;
    for (int k = 1; k <= VEL_FRAME_BUTTONS; ++k) ctx.objects[k].hidden = 1;
    for (const Item &item : all) add(item);
}

std::size_t LibraryForm::table_bytes() const {
    return (ctx.object_count + 1) * sizeof *ctx.objects +
           text_records * (sizeof *ctx.text_recs + sizeof *ctx.text_bufs);
}

void LibraryForm::show() {
    for (const std::uint32_t window : windows_) {
        ctx.window_to_activate = window;
        vel_activate_window(&ctx);
    }
    ctx.cursor_object = 0;
    if (kind_ == Area::long_text) place_caret();
}

void LibraryForm::redraw() {
    const Display display{ctx.screen, ctx.font};
    SDL_FillRect(ctx.screen, nullptr, display.pixel_of(colour::desk));
    vel_draw_all_objects(&ctx, 0, 1);
}

void LibraryForm::strike(SDLKey key) {
    push_event(SDL_KEYDOWN, key);
    push_event(SDL_KEYUP, key);
    push_event(SDL_USEREVENT);
    vel_wait_for_object(&ctx);
}

void LibraryForm::strike_next() {
    strike(letter_is_next_ ? SDLK_x : SDLK_BACKSPACE);
    letter_is_next_ = !letter_is_next_;
}

void LibraryForm::set_text(const std::string &text) {
    char *const end = text.copy(ctx.text_recs[text_number].text, VEL_TEXT_SIZE - 1) +
                      ctx.text_recs[text_number].text;
    *end = '\0';
}

// --- The items as objects

vel_object &LibraryForm::append(const Item &item, std::uint32_t type, std::uint32_t fill) {
    const std::uint32_t number = ++ctx.object_count;
    vel_object &object = ctx.objects[number];
    object.type = type;
    object.x = static_cast<std::uint32_t>(item.x);
    object.y = static_cast<std::uint32_t>(item.y);
    object.width = static_cast<std::uint32_t>(item.width);
    object.height = static_cast<std::uint32_t>(item.height);
    object.fill_r = fill >> 16 & 0xFF;
    object.fill_g = fill >> 8 & 0xFF;
    object.fill_b = fill & 0xFF;
    object.border_r = object.border_g = object.border_b = 0x80;
    object.clip_mode = VEL_CLIP_FRAME;
    item.text.copy(object.label, VEL_STRING_SIZE - 1);
    if (item.window >= 0 && item.kind != Kind::window) {
        object.master = windows_.back();
        append_dependent(ctx.objects[object.master], number);
    }
    return object;
}

void LibraryForm::add(Item item) {
    if (item.kind == Kind::window) {
        shift_x_ = std::max(0, least_window_x - item.x);
        shift_y_ = std::max(0, least_window_y - item.y);
    }
    item.x += shift_x_;
    item.y += shift_y_;
    switch (item.kind) {
    case Kind::window:
        return add_window(item);
    case Kind::label:
        return add_label(item, colour::face, field_left, field_top);
    case Kind::title:
        return add_label(item, colour::title, title_left, title_top);
    case Kind::entry:
        return add_entry(item);
    case Kind::button:
        return add_button(item);
    case Kind::frame_button:
        return add_frame_button(item);
    case Kind::picture:
    case Kind::translucent_picture:
        return add_picture(item);
    case Kind::text_area:
        return add_text_area(item);
    }
}

void LibraryForm::add_window(const Item &item) {
    vel_object &window = append(item, VEL_TYPE_WINDOW, colour::face);
    windows_.push_back(ctx.object_count);
    // The front window, moved down, ends where it did.
    if (item.window == window_count - 1) window.height -= static_cast<std::uint32_t>(shift_y_);
    window.hidden = 1;
    window.window_kind = VEL_WINDOW_PLAIN;
    window.border_r = window.border_g = window.border_b = 0;
    outline(window);
}

void LibraryForm::add_label(const Item &item, std::uint32_t fill, std::uint32_t left,
                            std::uint32_t top) {
    vel_object &label = append(item, VEL_TYPE_LABEL, fill);
    label.margin_left = left;
    label.margin_top = top;
    outline(label);
    if (item.kind == Kind::title) label.border_style = VEL_BORDER_NONE;
}

void LibraryForm::add_entry(const Item &item) {
    vel_object &entry = append(item, VEL_TYPE_ENTRY, colour::entry);
    entry.margin_left = field_left;
    entry.margin_top = field_top;
    entry.editable = 1;
    entry.max_chars = entry_characters;
    outline(entry);
}

void LibraryForm::add_button(const Item &item) {
    int text_width = 0, text_height = 0;
    TTF_SizeText(ctx.font, item.text.c_str(), &text_width, &text_height);
    add_label(item, colour::face, static_cast<std::uint32_t>((item.width - text_width) / 2),
              static_cast<std::uint32_t>((item.height - text_height) / 2));
}

void LibraryForm::add_frame_button(const Item &item) {
    append(item, VEL_TYPE_PICTURE, 0).image = frame_button_picture();
}

// The frame is two pixels outside of the picture.
void LibraryForm::add_picture(const Item &item) {
    Item inner = item;
    inner.x += 2;
    inner.y += 2;
    inner.width = inner.height = picture_size;
    vel_object &object = append(inner, VEL_TYPE_PICTURE, 0);
    object.image = picture_of(item.kind);
    object.border_style = VEL_BORDER_FRAME;
    object.border_inset = 1;
}

void LibraryForm::add_text_area(const Item &item) {
    vel_object &object = append(item, VEL_TYPE_TEXT, colour::entry);
    area = ctx.object_count;
    object.text_index = text_number;
    object.margin_left = 5;
    object.margin_top = 4;
    object.editable = 1;
    object.line_width = area_line_width;
    outline(object, 5);
    if (kind_ == Area::long_text) return set_text(long_text_with_room());
    set_text("x"); // an empty text shows no lines
    object.number_of_lines = area_lines - 1;
    for (int k = 0; k < area_lines; ++k)
        area_line(k).copy(ctx.text_bufs[text_number] + k * VEL_LINE_SIZE, VEL_LINE_SIZE - 1);
}

void LibraryForm::place_caret() {
    vel_format_object_text(&ctx, area);
    ctx.cursor_object = area;
    ctx.text_recs[text_number].cursor_index = caret_index;
    vel_get_column_row(&ctx);
    vel_object &object = ctx.objects[area];
    const char *const line =
        ctx.text_bufs[text_number] + object.cursor_line * std::uint32_t{VEL_LINE_SIZE};
    const std::string before(line, object.cursor_column);
    int x = 0;
    TTF_SizeText(ctx.font, before.c_str(), &x, nullptr);
    const auto line_distance = static_cast<std::uint32_t>(TTF_FontHeight(ctx.font));
    object.cursor_x = object.x + object.margin_left + static_cast<std::uint32_t>(x);
    object.cursor_y = object.y + object.margin_top + object.cursor_line * line_distance;
}

} // namespace office
