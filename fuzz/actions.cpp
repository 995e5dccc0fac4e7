#include "actions.h"

#include <cstdlib>
#include <cstring>
#include <tuple>

#include "world.h"

namespace fuzz {
namespace {

using Action = void (*)(Program &);

template <void (*function)(vel_context *) noexcept> void call(Program &p) { function(&p.ctx()); }
template <void (*function)(vel_context *, u32) noexcept> void call_for(Program &p) {
    function(&p.ctx(), p.object());
}
template <u32 (*function)(vel_context *, u32) noexcept> void ask_and_write(Program &p) {
    function(&p.ctx(), p.object());
}
template <u32 (*function)(const vel_context *, u32) noexcept> void ask(Program &p) {
    function(&p.ctx(), p.object());
}
template <void (*function)(vel_context *, u32, u32, u32) noexcept> void shift(Program &p) {
    const u32 object = p.object();
    const u32 first = p.script().number();
    function(&p.ctx(), object, first, p.script().number());
}

// --- Changes of records

// Any word of a record that is no pointer, and no part of a string.
void set_number(Program &p) {
    static constexpr u32 vel_object::*numbers[] = {&vel_object::x,
                                                   &vel_object::y,
                                                   &vel_object::width,
                                                   &vel_object::height,
                                                   &vel_object::font_choice,
                                                   &vel_object::font_size,
                                                   &vel_object::text_index,
                                                   &vel_object::margin_left,
                                                   &vel_object::margin_right,
                                                   &vel_object::margin_top,
                                                   &vel_object::margin_bottom,
                                                   &vel_object::centred,
                                                   &vel_object::line_width,
                                                   &vel_object::line_spacing,
                                                   &vel_object::number_of_lines,
                                                   &vel_object::hidden,
                                                   &vel_object::type,
                                                   &vel_object::window_kind,
                                                   &vel_object::editable,
                                                   &vel_object::cursor_x,
                                                   &vel_object::cursor_y,
                                                   &vel_object::text_length,
                                                   &vel_object::cursor_line,
                                                   &vel_object::cursor_column,
                                                   &vel_object::max_chars,
                                                   &vel_object::border_style,
                                                   &vel_object::border_inset,
                                                   &vel_object::master,
                                                   &vel_object::scroll_x,
                                                   &vel_object::scroll_y,
                                                   &vel_object::scroll_max_x,
                                                   &vel_object::scroll_max_y,
                                                   &vel_object::clip_mode,
                                                   &vel_object::fill_r,
                                                   &vel_object::reserved};
    vel_object &o = p.record();
    const auto member = numbers[p.script().byte() % std::size(numbers)];
    o.*member = p.script().number();
}

void set_dependent(Program &p) {
    vel_object &o = p.record();
    const u8 place = p.script().byte();
    o.dep_objs[place % VEL_MAX_DEPENDENTS] = p.object();
}

// Rings, and lists that share objects: what loading would have taken out.
void link_at_random(Program &p) {
    u32 seed = p.script().number();
    const u32 count = p.ctx().object_count;
    const u32 listed = p.script().byte() % (VEL_MAX_DEPENDENTS + 1);
    for (u32 k = 1; k <= count; ++k) {
        vel_object &o = p.ctx().objects[k];
        const auto next = [&] { return (seed = seed * 1664525 + 1013904223) >> 16; };
        o.master = next() % (count + 1);
        for (u32 d = 0; d < listed; ++d) o.dep_objs[d] = next() % count + 1;
    }
}

void set_label(Program &p) {
    vel_object &o = p.record();
    std::strncpy(o.label, p.string(), sizeof o.label - 1);
    o.label[sizeof o.label - 1] = '\0';
}

void set_text(Program &p) {
    if (p.ctx().text_recs == nullptr) return;
    vel_text_rec &text = p.ctx().text_recs[p.text()];
    text.cursor_index = p.script().number();
    const std::size_t length = std::min<std::size_t>(p.script().pair(), VEL_TEXT_SIZE - 1);
    const char *const pattern = p.string();
    const std::size_t period = std::strlen(pattern);
    for (std::size_t k = 0; k < length && period > 0; ++k) text.text[k] = pattern[k % period];
    text.text[length] = '\0';
}

void set_font(Program &p) {
    vel_object &o = p.record();
    o.font_choice = 1;
    o.own_font = lasting_font(6 + p.script().byte() % 10);
}

// The tables of the form before are the program's.
void load_again(Program &p) {
    vel_context &ctx = p.ctx();
    const auto tables = std::make_tuple(ctx.objects, ctx.text_recs, ctx.text_bufs);
    if (vel_load_forms(&ctx, 1, 1, form_path, text_path) != VEL_OK) return;
    std::free(std::get<0>(tables));
    std::free(std::get<1>(tables));
    std::free(std::get<2>(tables));
}

void set_stream(Program &p) { p.record().stream = p.string(); }

void set_context(Program &p) {
    static constexpr u32 vel_context::*numbers[] = {&vel_context::screen_width,
                                                    &vel_context::screen_height,
                                                    &vel_context::frame_mode,
                                                    &vel_context::scroll_step,
                                                    &vel_context::key_code,
                                                    &vel_context::final_key,
                                                    &vel_context::key_printable,
                                                    &vel_context::active_window,
                                                    &vel_context::window_to_activate,
                                                    &vel_context::umlaut_conversion,
                                                    &vel_context::cursor_object,
                                                    &vel_context::insert_mode,
                                                    &vel_context::comfort,
                                                    &vel_context::partial_redraw,
                                                    &vel_context::text_cache_size};
    const u8 which = p.script().byte();
    p.ctx().*numbers[which % std::size(numbers)] = p.script().number();
}

void set_screen_rect(Program &p) {
    const auto side = [&p] { return static_cast<u16>(p.script().number()); };
    SDL_Rect &rect = p.ctx().screen_rect;
    rect.x = static_cast<Sint16>(side()), rect.y = static_cast<Sint16>(side());
    rect.w = side(), rect.h = side();
}

void set_stack(Program &p) {
    vel_context &ctx = p.ctx();
    const u8 place = p.script().byte();
    ctx.window_stack[place % VEL_MAX_WINDOWS] = p.object();
    ctx.window_count = std::max(ctx.window_count, place % VEL_MAX_WINDOWS + 1U);
}

// --- Functions that take more than an object

void open_window(Program &p) {
    p.ctx().window_to_activate = p.object();
    vel_select_window(&p.ctx());
}

void draw_shapes(Program &p) {
    const u32 x = p.script().number(), y = p.script().number();
    const u32 width = p.script().number(), height = p.script().number();
    vel_lock(p.ctx().screen);
    vel_draw_box(&p.ctx(), x, y, width, height, 1, 2, 3);
    vel_draw_rectangle(&p.ctx(), x, y, width, height, 1, 2, 3);
    vel_draw_line(&p.ctx(), x, y, width, y, 1, 2, 3);
    vel_draw_line(&p.ctx(), x, y, x, height, 1, 2, 3);
    vel_draw_pixel(&p.ctx(), x, y, 1, 2, 3);
    vel_unlock(p.ctx().screen);
}

void ask_for_limits(Program &p) {
    u32 left = 0, right = 0, top = 0, bottom = 0;
    const u32 object = p.object();
    vel_get_borders_for_dep_object(&p.ctx(), object, &left, &right, &top, &bottom);
    vel_get_borders_for_text(&p.ctx(), object, &left, &right, &top, &bottom);
    vel_p_cutted_w_independent(&p.ctx(), object);
    vel_p_cutted_h_independent(&p.ctx(), object);
    vel_p_cutted_w_dependent(&p.ctx(), object);
    vel_p_cutted_h_dependent(&p.ctx(), object);
    vel_search_master(&p.ctx(), object);
}

void ask_at(Program &p) {
    const u32 object = p.object(), x = p.script().number(), y = p.script().number();
    vel_test_all_objects(&p.ctx(), x, y);
    vel_test_dep_objs(&p.ctx(), object, x, y);
    vel_in_object(&p.ctx(), object, static_cast<i32>(x), static_cast<i32>(y));
}

void draw_all(Program &p) {
    const u8 how = p.script().byte();
    vel_draw_all_objects(&p.ctx(), how & 1, how & 2);
}

void put_words(Program &p) {
    const u32 object = p.object();
    const char *const word = p.string();
    u32 line = p.script().number(), column = p.script().number();
    auto length = static_cast<u32>(std::strlen(word));
    u32 chain = p.script().number(), text = p.text();
    const u8 how = p.script().byte();
    vel_check_line_volume(&p.ctx(), object, word, &line, &column, &length);
    vel_copy_word_into_line(&p.ctx(), object, word, &line, &column, &length, how);
    vel_copy_word_big(&p.ctx(), object, &chain, &text, word, &line, &column, &length, how);
    u32 member = p.object();
    vel_go_to_next_chainmember(&p.ctx(), object, &chain, &member, &text, &line, &column);
}

void wait_for_stops(Program &p) {
    const auto first = static_cast<i32>(p.object());
    vel_get_mouse_selection(&p.ctx(), first, static_cast<i32>(p.object()));
}

void wait_for_stop(Program &p) {
    vel_get_mono_mouse_selection(&p.ctx(), static_cast<i32>(p.object()));
}

void wait_for_object(Program &p) { vel_wait_for_object(&p.ctx()); }

void decide(Program &p) {
    const u32 window = p.object(), first = p.object();
    vel_decide_window(&p.ctx(), window, first, p.object());
}

void notice(Program &p) {
    const u32 window = p.object();
    vel_notice_window(&p.ctx(), window, p.object());
}

void open_menu(Program &p) {
    const u32 menu = p.object();
    vel_move_out_menu(&p.ctx(), menu, p.script().byte());
}

void select_text(Program &p) {
    const u32 object = p.object(), anchor = p.script().number();
    vel_set_selection(&p.ctx(), object, anchor, p.script().number());
    u32 from = 0, to = 0, character = 0;
    vel_get_selection(&p.ctx(), p.object(), &from, &to);
    vel_last_refusal(&p.ctx(), &character);
}

void set_traits(Program &p) {
    const u32 object = p.object();
    const u8 value = p.script().byte();
    vel_set_enabled(&p.ctx(), object, value & 1);
    vel_set_password(&p.ctx(), object, value & 2);
    vel_set_answer(&p.ctx(), object, value / 4 % 5);
    vel_set_access_key(&p.ctx(), object, static_cast<char>(value));
    vel_is_enabled(&p.ctx(), object);
}

// Lives as long as the process.
SDL_Surface *lasting_picture() {
    static SDL_Surface *const picture =
        SDL_CreateRGBSurface(SDL_SWSURFACE, 5, 40, 32, 0xFF0000, 0xFF00, 0xFF, 0);
    return picture;
}

void write_cell(vel_context *, uint32_t, uint32_t row, uint32_t column, vel_cell *cell) {
    std::memset(cell->text, static_cast<int>(' ' + (row + column) % 90), sizeof cell->text);
    cell->picture = row % 3 == 1 ? lasting_picture() : nullptr;
}

void sort_nothing(vel_context *, uint32_t, uint32_t, uint32_t) {}

void change_part(Program &p) {
    const u32 object = p.object();
    const u32 value = p.script().number();
    vel_set_checked(&p.ctx(), object, value & 1);
    vel_set_value(&p.ctx(), object, static_cast<i32>(value));
    vel_show_page(&p.ctx(), object, value % 4);
    if (value % 2 != 0) vel_list_show(&p.ctx(), object, value, write_cell);
    vel_list_sort_by(&p.ctx(), object, sort_nothing);
    vel_list_select(&p.ctx(), object, value % 8);
    vel_list_mark(&p.ctx(), object, value % 5, value & 2);
    vel_get_checked(&p.ctx(), object);
    vel_get_value(&p.ctx(), object);
    vel_list_selected(&p.ctx(), object, vel_list_count(&p.ctx(), object) / 2);
    vel_list_answered(&p.ctx(), object);
    vel_shown_page(&p.ctx(), object);
}

void load_text(Program &p) {
    const u32 object = p.object(), button = p.object();
    const char *const text = p.string();
    vel_load_window_text(&p.ctx(), object, text);
    vel_load_window_text_buttons(&p.ctx(), object, text, button, p.object());
}

void reset_text(Program &p) {
    const u32 object = p.object();
    vel_reset_textobject(&p.ctx(), p.script().byte(), object);
}

void fill_label(Program &p) {
    const u32 object = p.object(), length = p.script().number();
    const char *const string = p.string();
    vel_fill_form_with_dummies(&p.ctx(), string, object, length, p.script().byte());
}

void prepare_rows(Program &p) {
    const u32 list = p.object();
    vel_prepare_fileselector(&p.ctx(), list, p.script().number());
}

void list_names(Program &p) {
    const u32 list = p.object();
    const char *const path = p.string();
    vel_list_directory(&p.ctx(), list, path, p.string());
    vel_listed_name(&p.ctx(), p.object());
}

// The room for the path ends where it says.
void choose_file(Program &p) {
    const u32 window = p.object();
    const std::size_t size = p.script().pair() % 300;
    const std::string suggestion = p.string();
    std::vector<char> path(size);
    if (size > 0) suggestion.copy(path.data(), size - 1);
    vel_choose_file(&p.ctx(), window, path.data(), size);
}

void resize(Program &p) {
    const u32 width = p.script().number();
    vel_resize(&p.ctx(), width, p.script().number());
}

constexpr Action actions[] = {set_number,
                              set_dependent,
                              link_at_random,
                              set_label,
                              set_text,
                              set_stream,
                              set_context,
                              set_screen_rect,
                              set_stack,
                              open_window,
                              draw_shapes,
                              ask_for_limits,
                              ask_at,
                              draw_all,
                              put_words,
                              wait_for_stops,
                              wait_for_stop,
                              call<vel_move_window>,
                              decide,
                              notice,
                              open_menu,
                              select_text,
                              set_traits,
                              change_part,
                              load_text,
                              reset_text,
                              fill_label,
                              prepare_rows,
                              list_names,
                              choose_file,
                              wait_for_object,
                              call_for<vel_evoke_object>,
                              call_for<vel_evoke_borders>,
                              call_for<vel_draw_dep_objs>,
                              call_for<vel_switch_dep_object>,
                              call<vel_draw_selected_window>,
                              call<vel_draw_and_screenup_selected_window>,
                              call_for<vel_undraw_object>,
                              call_for<vel_draw_selected_lines>,
                              call_for<vel_draw_selected_box>,
                              call_for<vel_undraw_selected_lines>,
                              call_for<vel_undraw_selected_box>,
                              call_for<vel_draw_cursor>,
                              ask_and_write<vel_format_object_text>,
                              ask_and_write<vel_format_small_obj>,
                              ask_and_write<vel_format_stream_to_linked_objects>,
                              call<vel_get_text>,
                              call<vel_get_position_in_stream>,
                              call<vel_get_column_row>,
                              call<vel_activate_window>,
                              call_for<vel_close_win>,
                              call<vel_set_operators>,
                              call<vel_select_window>,
                              call_for<vel_initiate_cursor_win>,
                              call_for<vel_initiate_cursor_dep_objs>,
                              ask<vel_check_cursor_dep_objs>,
                              call<vel_exa_left_pressed>,
                              call<vel_exa_left_released>,
                              call<vel_increase_win_w>,
                              call<vel_increase_win_h>,
                              call<vel_decrease_win_w>,
                              call<vel_decrease_win_h>,
                              call<vel_scroll_win_up>,
                              call<vel_scroll_win_down>,
                              call<vel_scroll_win_left>,
                              call<vel_scroll_win_right>,
                              shift<vel_update_x_dependent_obj>,
                              shift<vel_update_y_dependent_obj>,
                              shift<vel_update_dep_objs_after_move>,
                              shift<vel_add_difference_toxy_dep_objs>,
                              call<vel_read_app_dir>,
                              call_for<vel_load_dir_entries>,
                              set_font,
                              load_again,
                              resize};

static_assert(actions[open_window_action] == open_window);
static_assert(actions[change_part_action] == change_part &&
              actions[wait_action] == wait_for_object);

} // namespace

std::size_t action_count() { return std::size(actions); }

void do_action(Program &program) { actions[program.script().byte() % std::size(actions)](program); }

} // namespace fuzz
