// A text to type into. At rests it says "ready", or "held" once a key has typed a row of "a", and
// how keys are repeated; at F12 "typed", the text and the character refused last, and empties the
// text. There is a pilcrow for the end of a line. When they change, it says the sizes of the
// display and where its window and the text in that are, which keeps to all edges. It also offers
// and pastes as a line on standard input says: "offer clipboard FILE" reads the text from the file,
// "paste primary FILE" writes it there. Then it says "done".
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

#include <poll.h>
#include <unistd.h>

#include "clipboard/clipboard.h"
#include "model/traits.h"

namespace {

constexpr uint32_t window = 8, edited = 9;

std::string rect_of(const vel_object &o) {
    std::ostringstream rect;
    rect << ' ' << o.x << ',' << o.y << ' ' << o.width << 'x' << o.height;
    return rect.str();
}

void say_places(vel_context *ctx) {
    auto &known = *static_cast<std::string *>(ctx->application_a[1]);
    const std::string size = std::to_string(ctx->screen->w) + 'x' + std::to_string(ctx->screen->h);
    const std::string places = size + rect_of(ctx->objects[window]) + rect_of(ctx->objects[edited]);
    if (places != known) std::cout << (known = places) << std::endl;
}

void say_news(vel_context *ctx) {
    auto &known = *static_cast<std::string *>(ctx->application_a[0]);
    const std::string news =
        std::strstr(ctx->text_recs[1].text, "aaaaa") != nullptr ? "held" : "ready";
    if (news == known) return;
    known = news;
    int delay = 0, interval = 0;
    SDL_GetKeyRepeat(&delay, &interval);
    std::cout << news << ' ' << delay << ' ' << interval << std::endl;
}

void say_text(vel_context *ctx) {
    std::string text = ctx->text_recs[1].text;
    std::replace(text.begin(), text.end(), '\n', '\xB6');
    std::string utf8(2 * text.size() + 1, '\0');
    vel_to_utf8(text.c_str(), utf8.data(), utf8.size(), nullptr);
    uint32_t refused = 0;
    vel_last_refusal(ctx, &refused);
    std::cout << "typed " << utf8.c_str() << ' ' << refused << std::endl;
}

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

void read_line(vel_context &ctx) {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (poll(&input, 1, 0) == 0) return;
    std::string line;
    for (char c = 0; read(STDIN_FILENO, &c, 1) == 1 && c != '\n';) line += c;
    if (!line.empty()) return obey(ctx, line);
    SDL_Event end{};
    end.type = SDL_QUIT;
    SDL_PushEvent(&end);
}

void rest(vel_context *ctx) {
    say_news(ctx);
    say_places(ctx);
    read_line(*ctx);
}

uint32_t answer_f12(vel_context *ctx, SDL_Event *event) {
    if (event->type == SDL_QUIT) return VEL_FILTER_END_LOOP;
    if (event->type != SDL_KEYDOWN || event->key.keysym.sym != SDLK_F12) return VEL_FILTER_PASS;
    say_text(ctx);
    ctx->text_recs[1].text[0] = '\0';
    vel_format_object_text(ctx, edited);
    vel_set_selection(ctx, edited, 0, 0);
    return VEL_FILTER_PASS;
}

void make_form(vel_context &ctx) {
    ctx.objects = static_cast<vel_object *>(std::calloc(edited + 1, sizeof(vel_object)));
    ctx.object_count = edited;
    ctx.text_recs = static_cast<vel_text_rec *>(std::calloc(2, sizeof(vel_text_rec)));
    ctx.text_bufs = static_cast<decltype(ctx.text_bufs)>(std::calloc(2, VEL_TEXT_BUFFER_SIZE));
    ctx.text_count = ctx.texts_loaded = 1;
    for (const uint32_t number : {window, edited}) {
        vel_object &o = ctx.objects[number];
        o.type = number == window ? VEL_TYPE_WINDOW : VEL_TYPE_TEXT;
        o.x = o.y = 30;
        o.width = o.height = 300;
        o.fill_r = o.fill_g = 255;
    }
    ctx.objects[edited].y += 30;
    ctx.objects[edited].height -= 30;
    velumo::own_traits(ctx, edited).anchor = 15;
    ctx.objects[window].hidden = 1;
    ctx.objects[window].dep_objs[0] = edited;
    ctx.objects[edited].master = window;
    ctx.objects[edited].text_index = ctx.objects[edited].editable = 1;
}

} // namespace

int main() {
    static vel_context ctx;
    std::string known, known_places;
    ctx.font_path = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
    ctx.font_size = 14;
    ctx.open_flags = VEL_OPEN_RESIZABLE;
    ctx.comfort = VEL_COMFORT_TYPING | VEL_COMFORT_CLIPBOARD | VEL_COMFORT_WINDOWS;
    if (vel_open_display(&ctx, 800, 600, "Typing") != VEL_OK) return 1;
    ctx.application_a[0] = &known;
    ctx.application_a[1] = &known_places;
    ctx.idle_hook = rest;
    ctx.event_filter = answer_f12;
    make_form(ctx);
    ctx.window_to_activate = window;
    vel_activate_window(&ctx);
    ctx.cursor_object = edited;
    while (vel_wait_for_object(&ctx) != 0) {
    }
    vel_close(&ctx);
}
