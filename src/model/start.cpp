#include "model/start.h"

#include <cstdlib>
#include <new>

#include "model/form_check.h"
#include "model/traits.h"

namespace velumo {
namespace {

i32 error_code(FileError error, i32 open_error) {
    switch (error) {
    case FileError::none:
        return VEL_OK;
    case FileError::open:
        return open_error;
    case FileError::read:
        return VEL_ERROR_READ;
    case FileError::memory:
        return VEL_ERROR_MEMORY;
    case FileError::records:
        return VEL_ERROR_RECORDS;
    }
    return VEL_ERROR_READ;
}

RecordReader reader_of(const char *path, const std::optional<Bytes> &bytes, Access access,
                       std::size_t record_size) {
    return bytes ? RecordReader(*bytes, record_size) : RecordReader(path, access, record_size);
}

i32 read_tables(const Form &form, Tables &tables) {
    RecordReader objects =
        reader_of(form.form_path, form.form_bytes, form.access, sizeof(vel_object_file_rec));
    FileError error = objects.error();
    if (error == FileError::none) error = read_objects(objects, form.spare_objects, tables);
    if (error != FileError::none) return error_code(error, VEL_ERROR_FORM_FILE);
    if (!tables.need_texts) return VEL_OK;
    RecordReader texts =
        reader_of(form.text_path, form.text_bytes, form.access, sizeof(vel_text_rec));
    error = texts.error();
    if (error == FileError::none) error = read_texts(texts, form.spare_texts, tables);
    return error_code(error, VEL_ERROR_TEXT_FILE);
}

void hand_over(Tables &tables, std::map<u32, Traits> traits, vel_context &ctx, vel_state &state) {
    ctx.objects = tables.objects.release();
    ctx.object_count = tables.object_count;
    state.lists.clear();
    state.folders.clear();
    state.hidden_widths.clear();
    state.borrowed_images.clear();
    state.settle_parts = nullptr;
    state.traits = std::move(traits);
    state.histories.clear();
    state.excess.clear();
    state.selection = {};
    state.object_records = tables.object_records;
    ctx.text_recs = tables.texts.release();
    ctx.text_bufs = tables.buffers.release();
    ctx.text_count = tables.text_count;
    state.text_records = tables.text_records;
}

void set_mark_colour(vel_context &ctx) {
    if (ctx.frame_mode == VEL_MODE_RESIZE) ctx.mark_colour = ctx.mark_colour_a;
    if (ctx.frame_mode == VEL_MODE_SCROLL) ctx.mark_colour = ctx.mark_colour_b;
}

// So that a call that comes too late finds nothing, and not what is no longer there.
void forget_what_is_gone(vel_context &ctx) {
    ctx.font = nullptr;
    ctx.text_surface = ctx.screen = nullptr;
    ctx.objects = nullptr;
    ctx.object_count = 0;
    if (ctx.texts_loaded == 1) {
        ctx.text_recs = nullptr;
        ctx.text_bufs = nullptr;
        ctx.text_count = 0;
    }
    ctx.active_window = ctx.window_to_activate = ctx.cursor_object = 0;
    std::fill(std::begin(ctx.window_stack), std::end(ctx.window_stack), 0U);
    ctx.window_count = 0;
}

} // namespace

i32 load(vel_context &ctx, const Form &form) try {
    Tables tables;
    const i32 result = read_tables(form, tables);
    if (result != VEL_OK) return result;
    remove_dangling_references(tables, form.form_path);
    std::map<u32, Traits> traits;
    if (ctx.comfort != 0) traits = read_traits(tables);
    hand_over(tables, std::move(traits), ctx, state_of(ctx));
    ctx.state->form_data = form.data;
    load_images(ctx, 1);
    load_fonts(ctx, 1, form.font_messages);
    set_mark_colour(ctx);
    return VEL_OK;
} catch (const std::bad_alloc &) {
    return VEL_ERROR_MEMORY;
}

Form form_in_memory(const vel_form_data &data) {
    Form form{.spare_objects = 0,
              .spare_texts = 0,
              .form_path = "the form in memory",
              .text_path = "",
              .access = Access::read_only,
              .font_messages = FontMessages::keep_quiet};
    form.form_bytes = Bytes(data.form, data.form_size);
    if (data.text != nullptr) form.text_bytes = Bytes(data.text, data.text_size);
    form.data = &data;
    return form;
}

const char *error_text(i32 code) {
    switch (code) {
    case VEL_OK:
        return "no error";
    case VEL_ERROR_ARGUMENT:
        return "an argument is null or out of range";
    case VEL_ERROR_FORM_FILE:
        return "the form description file cannot be opened";
    case VEL_ERROR_TEXT_FILE:
        return "the text file cannot be opened";
    case VEL_ERROR_READ:
        return "a form file cannot be read to its end";
    case VEL_ERROR_MEMORY:
        return "the memory does not suffice";
    case VEL_ERROR_FOLDER:
        return "the folder cannot be read";
    case VEL_ERROR_SIZE:
        return "the path is longer than the room for it";
    case VEL_ERROR_RECORDS:
        return "a form file has more than 65,536 records";
    case VEL_ERROR_DISPLAY:
        return "the display cannot be opened or resized";
    case VEL_ERROR_FONT:
        return "the default font cannot be found or opened";
    default:
        return "unknown error";
    }
}

void close(vel_context &ctx) {
    if (ctx.font != nullptr) TTF_CloseFont(ctx.font);
    SDL_FreeSurface(ctx.text_surface);
    SDL_FreeSurface(ctx.screen);
    if (has_objects(ctx)) release_assets(ctx);
    if (ctx.texts_loaded == 1) {
        std::free(ctx.text_recs);
        std::free(ctx.text_bufs);
    }
    std::free(ctx.objects);
    release_state(ctx);
    forget_what_is_gone(ctx);
    TTF_Quit();
    SDL_Quit();
}

} // namespace velumo
