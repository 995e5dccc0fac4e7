// The floor of drawing: the office form in bare SDL, with texts rendered beforehand.
#include "floor_scene.h"

namespace {

void redraw() {
    const office::Display display = office::open_display();
    const office::FloorScene scene(display);
    measure::say_time("redraw", [&scene] { scene.draw(); });
}

void picture() {
    const office::Display display = office::open_display();
    office::FloorScene(display).draw();
    SDL_SaveBMP(display.screen, "office-floor.bmp");
}

} // namespace

int main(int argc, char **argv) {
    return measure::run(argc, argv, {{"redraw", redraw}, {"picture", picture}});
}
