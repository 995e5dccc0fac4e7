// Offers and pastes as a line on standard input says, while a loop of the library runs: "offer
// clipboard FILE" reads the text from the file, "paste primary FILE" writes it there. Says "done".
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

#include <poll.h>
#include <unistd.h>

#include "clipboard/clipboard.h"

namespace {

void obey(vel_context &ctx, const std::string &line) {
    std::istringstream words(line);
    std::string what, board_name, path;
    words >> what >> board_name >> path;
    const auto board = board_name == "primary" ? velumo::Board::primary : velumo::Board::clipboard;
    if (what == "offer") {
        std::ifstream file(path, std::ios::binary);
        velumo::offer(ctx, board, {std::istreambuf_iterator<char>(file), {}});
    } else {
        std::ofstream(path, std::ios::binary) << velumo::offered(ctx, board);
    }
    std::cout << "done" << std::endl;
}

void read_line(vel_context *ctx) {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (poll(&input, 1, 0) == 0) return;
    std::string line;
    for (char c = 0; read(STDIN_FILENO, &c, 1) == 1 && c != '\n';) line += c;
    if (!line.empty()) return obey(*ctx, line);
    SDL_Event end{};
    end.type = SDL_QUIT;
    SDL_PushEvent(&end);
}

} // namespace

int main() {
    static vel_context ctx;
    SDL_Init(SDL_INIT_VIDEO);
    ctx.screen = SDL_SetVideoMode(64, 48, 32, SDL_SWSURFACE);
    ctx.comfort = VEL_COMFORT_CLIPBOARD;
    ctx.idle_hook = read_line;
    ctx.event_filter = [](vel_context *, SDL_Event *event) -> uint32_t {
        return event->type == SDL_QUIT ? VEL_FILTER_END_LOOP : VEL_FILTER_PASS;
    };
    vel_wait_for_object(&ctx);
    vel_close(&ctx);
}
