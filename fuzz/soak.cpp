// Uses two forms in turn for ten million events, with redraws, dialogs, menus, listings and parts,
// closing and loading them now and then; prints by how much memory and descriptors have grown since
// it was warm. usage: soak [EVENTS]
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <malloc.h>
#include <random>

#include "actions.h"
#include "program.h"
#include "small_form.h"
#include "stage.h"
#include "world.h"

namespace {

using namespace fuzz;

constexpr std::size_t most_growth = 128 * 1024;
constexpr u32 steps_a_form = 5000;

std::size_t memory_in_use() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

std::size_t open_descriptors() {
    DIR *const folder = opendir("/proc/self/fd");
    std::size_t count = 0;
    while (readdir(folder) != nullptr) ++count;
    closedir(folder);
    return count;
}

struct Form {
    FormBytes files;
    SurfaceShape shape;
    std::vector<u8> start; // of the script
};

std::vector<Form> make_forms() {
    const auto list = static_cast<u8>(list_of_parts);
    return {
        {small_form(), {100, 80, 32, true}, {ends_loop, open_window_action, small_window}},
        {form_of_parts(),
         {200, 160, 32, true},
         {ends_loop, open_window_action, small_window, ends_loop, change_part_action, list, 9}}};
}

// Mostly events; now and then an action, but none that changes records behind the library's back.
std::vector<u8> make_script(const Form &form, std::mt19937 &chance) {
    std::vector<u8> script = form.start;
    const auto below = [&chance](std::size_t end) { return static_cast<u8>(chance() % end); };
    const auto width = static_cast<std::size_t>(form.shape.width);
    for (u32 step = 0; step < steps_a_form; ++step) {
        const u8 kind = below(20);
        script.push_back(kind == 0 ? u8{ends_loop} : kind == 1 ? u8{nothing_waits} : below(10));
        if (kind == 0) {
            script.push_back(
                static_cast<u8>(open_window_action + below(action_count() - open_window_action)));
        }
        for (int k = 0; k < 2; ++k) script.push_back(below(width));
    }
    return script;
}

// On the heap, where the sanitizers watch it.
std::unique_ptr<vel_context> make_context(const Stage &stage, const SurfaceShape &shape,
                                          u32 comfort) {
    auto made = std::make_unique<vel_context>();
    vel_context &ctx = *made;
    stage.set_up(ctx, shape);
    world().display = ctx.screen;
    ctx.scroll_step = 10;
    ctx.comfort = comfort;
    return made;
}

void use_form(const Form &form, const Stage &stage, u32 comfort, std::mt19937 &chance) {
    world().form = form.files.form;
    world().text = form.files.text;
    const auto made = make_context(stage, form.shape, comfort);
    vel_context &ctx = *made;
    if (vel_load_forms(&ctx, 2, 1, form_path, text_path) != VEL_OK) std::abort();
    const std::vector<u8> bytes = make_script(form, chance);
    Input script(bytes);
    Program program(ctx, script);
    program.run();
    vel_draw_all_objects(&ctx, 1, 1);
    vel_close(&ctx);
}

} // namespace

int main(int count, char **arguments) {
    const unsigned long wanted = count > 1 ? std::strtoul(arguments[1], nullptr, 10) : 10000000;
    set_up_world();
    const std::vector<Form> used = make_forms();
    const Stage stage;
    std::mt19937 chance(1);
    std::size_t memory = 0, descriptors = 0;
    for (u32 round = 0; world().events < wanted; ++round) {
        use_form(used[round % 2], stage, round / 2 % 2 == 0 ? VEL_COMFORT_ALL : 0, chance);
        if (memory == 0 && world().events > wanted / 10) {
            memory = memory_in_use();
            descriptors = open_descriptors();
        }
    }
    const auto growth = static_cast<long>(memory_in_use() - memory);
    const auto more = static_cast<long>(open_descriptors() - descriptors);
    std::printf("%lu events: %ld bytes and %ld descriptors more than after a tenth of them\n",
                world().events, growth, more);
    return growth <= static_cast<long>(most_growth) && more <= 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
