// How the time for a chain of masters grows with its depth: each label is the only dependent of the
// one before.
#include <cstdio>
#include <string>
#include <vector>

#include <velumo.h>

#include "display.h"

namespace {

constexpr std::uint32_t first_object = VEL_FRAME_BUTTONS + 1;

class Chain {
public:
    explicit Chain(std::uint32_t depth) : objects_(first_object + depth) {
        const office::Display display = office::open_display();
        ctx.screen = display.screen;
        ctx.font = display.font;
        ctx.screen_width = office::width;
        ctx.screen_height = office::height;
        ctx.screen_rect = {0, 0, office::width, office::height};
        ctx.objects = objects_.data();
        ctx.object_count = first_object + depth - 1;
        for (std::uint32_t k = 1; k < first_object; ++k) objects_[k].hidden = 1;
        for (std::uint32_t k = 0; k < depth; ++k) place(first_object + k);
    }

    vel_context ctx{};

private:
    void place(std::uint32_t number) {
        vel_object &label = objects_[number];
        label.type = VEL_TYPE_LABEL;
        label.x = label.y = 4;
        label.width = 95;
        label.height = 23;
        label.fill_r = 200;
        label.border_style = VEL_BORDER_SHADOW;
        label.margin_left = 2;
        label.clip_mode = VEL_CLIP_FRAME;
        std::snprintf(label.label, VEL_STRING_SIZE, "Label %05u", number);
        if (number > first_object) label.master = number - 1;
        if (number < ctx.object_count) label.dep_objs[0] = number + 1;
    }

    std::vector<vel_object> objects_;
};

void measure_depth(std::uint32_t depth) {
    Chain chain(depth);
    measure::say_time("redraw", [&chain] { vel_draw_all_objects(&chain.ctx, 0, 0); });
    measure::say_time("hit-test", [&chain] {
        measure::demand(vel_test_all_objects(&chain.ctx, 30, 12) != 0, "nothing was hit");
    });
}

void depth_500() { measure_depth(500); }
void depth_4000() { measure_depth(4000); }

} // namespace

int main(int argc, char **argv) {
    return measure::run(argc, argv, {{"500", depth_500}, {"4000", depth_4000}});
}
