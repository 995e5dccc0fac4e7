// Start-up and shutdown of a context.
#include <cstdio>
#include <cstdlib>
#include <new>

#include "model/assets.h"
#include "model/file.h"
#include "model/form_check.h"
#include "model/listings.h"

namespace velumo {
namespace {

struct Form {
    u32 spare_objects, spare_texts;
    const char *form_path, *text_path;
    Access access;
    FontMessages font_messages;
};

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
    }
    return VEL_ERROR_READ;
}

i32 read_table(const char *path, Access access, i32 open_error, u32 spare, Tables &tables,
               bool (*read)(Bytes, u32, Tables &)) {
    const FileContent file = read_file(path, access);
    if (file.error != FileError::none) return error_code(file.error, open_error);
    return read(file.bytes(), spare, tables) ? VEL_OK : VEL_ERROR_MEMORY;
}

i32 read_tables(const Form &form, Tables &tables) {
    const i32 result = read_table(form.form_path, form.access, VEL_ERROR_FORM_FILE,
                                  form.spare_objects, tables, read_objects);
    if (result != VEL_OK || !needs_texts(tables)) return result;
    return read_table(form.text_path, form.access, VEL_ERROR_TEXT_FILE, form.spare_texts, tables,
                      read_texts);
}

void hand_over(Tables &tables, vel_context &ctx) {
    ctx.objects = tables.objects.release();
    ctx.object_count = tables.object_count;
    ctx.object_records = tables.object_records;
    ctx.text_recs = tables.texts.release();
    ctx.text_bufs = tables.buffers.release();
    ctx.text_count = tables.text_count;
    ctx.text_records = tables.text_records;
}

void set_mark_colour(vel_context &ctx) {
    if (ctx.frame_mode == VEL_MODE_RESIZE) ctx.mark_colour = ctx.mark_colour_a;
    if (ctx.frame_mode == VEL_MODE_SCROLL) ctx.mark_colour = ctx.mark_colour_b;
}

// The one start-up below both entry points. The context is touched only when both files are read.
i32 start(vel_context &ctx, const Form &form) try {
    Tables tables;
    const i32 result = read_tables(form, tables);
    if (result != VEL_OK) return result;
    remove_dangling_references(tables, form.form_path);
    hand_over(tables, ctx);
    load_images(ctx, 1);
    load_fonts(ctx, 1, form.font_messages);
    set_mark_colour(ctx);
    return VEL_OK;
} catch (const std::bad_alloc &) {
    return VEL_ERROR_MEMORY;
}

bool has_null(const vel_context *ctx, const char *form_path, const char *text_path) {
    return ctx == nullptr || form_path == nullptr || text_path == nullptr;
}

} // namespace
} // namespace velumo

using namespace velumo;

void vel_start_velumo(vel_context *ctx, uint32_t extra_objs, uint32_t extra_texts,
                      const char *form_path, const char *text_path) noexcept {
    const i32 result = start(*ctx, {.spare_objects = extra_objs,
                                    .spare_texts = extra_texts,
                                    .form_path = form_path,
                                    .text_path = text_path,
                                    .access = Access::read_write,
                                    .font_messages = FontMessages::print});
    if (result == VEL_OK) return;
    // On purpose: the second message has a line end of its own before that of puts, and a missing
    // file ends the process with success.
    std::puts(result == VEL_ERROR_TEXT_FILE ? "Can't open file !\n" : "Can't open file.");
    std::exit(EXIT_SUCCESS);
}

int32_t vel_load_forms(vel_context *ctx, uint32_t extra_objs, uint32_t extra_texts,
                       const char *form_path, const char *text_path) noexcept {
    if (has_null(ctx, form_path, text_path)) return VEL_ERROR_ARGUMENT;
    return start(*ctx, {.spare_objects = extra_objs,
                        .spare_texts = extra_texts,
                        .form_path = form_path,
                        .text_path = text_path,
                        .access = Access::read_only,
                        .font_messages = FontMessages::keep_quiet});
}

const char *vel_error_text(int32_t code) noexcept {
    switch (code) {
    case VEL_OK:
        return "no error";
    case VEL_ERROR_ARGUMENT:
        return "the context or a path is null";
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
    default:
        return "unknown error";
    }
}

void vel_close(vel_context *ctx) noexcept {
    if (ctx->font != nullptr) TTF_CloseFont(ctx->font);
    SDL_FreeSurface(ctx->text_surface);
    SDL_FreeSurface(ctx->screen);
    release_assets(*ctx);
    if (ctx->texts_loaded == 1) {
        std::free(ctx->text_recs);
        std::free(ctx->text_bufs);
    }
    std::free(ctx->objects);
    delete ctx->listings;
    TTF_Quit();
    SDL_Quit();
}
