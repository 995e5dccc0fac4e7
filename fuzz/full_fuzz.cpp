// Loads a form of any bytes, draws it on a surface of any size and depth, does with it what a
// script says, and closes it.
#include <cstdlib>
#include <cstring>
#include <memory>

#include "form_bytes.h"
#include "program.h"
#include "stage.h"
#include "world.h"

namespace {

using namespace fuzz;

constexpr u32 spare_objects = 3, spare_texts = 1;

void set_up_context(vel_context &ctx) {
    ctx.background_colour = {255, 255, 255};
    ctx.mark_colour_a = {0, 128, 0};
    ctx.mark_colour_b = {128, 0, 0};
    ctx.scroll_step = 10;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const Stage stage;
    Input input({data, size});
    const SurfaceShape shape = read_shape(input);
    const auto made = std::make_unique<vel_context>(); // on the heap it is watched
    vel_context &ctx = *made;
    stage.set_up(ctx, shape);
    set_up_context(ctx);
    const u8 comfort = input.byte();
    ctx.comfort = comfort & VEL_COMFORT_ALL;
    ctx.partial_redraw = comfort >> 5 & 1;
    ctx.umlaut_conversion = comfort >> 6 & 1;
    const FormBytes files = read_form(input);
    world() = {};
    world().form = files.form;
    world().text = files.text;
    world().display = comfort < 128 ? ctx.screen : nullptr;
    const i32 loaded = vel_load_forms(&ctx, spare_objects, spare_texts, form_path, text_path);
    if (loaded != VEL_OK) std::abort(); // such small files do load
    {
        Program program(ctx, input);
        vel_draw_all_objects(&ctx, 1, 1);
        program.run();
        vel_draw_all_objects(&ctx, 1, 1);
    }
    vel_close(&ctx);
    return 0;
}
