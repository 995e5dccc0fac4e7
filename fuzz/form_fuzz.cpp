// Loads form files of random bytes, draws them and uses them with random keys and clicks, under the
// address and undefined-behaviour sanitizers.
#include <cstdlib>
#include <cstring>

#include "model/form_check.h"
#include "model/traits.h"

namespace {

using namespace velumo;

constexpr std::size_t record_size = sizeof(vel_object_file_rec);
constexpr std::size_t most_objects = 40;
constexpr const char *font_path = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

// Shared by all runs: the drawing surface and a font.
struct Stage {
    Stage() {
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        if (SDL_Init(SDL_INIT_VIDEO) != 0 || TTF_Init() != 0) std::abort();
        screen = SDL_SetVideoMode(160, 120, 32, SDL_SWSURFACE);
        font = TTF_OpenFont(font_path, 10);
        if (screen == nullptr || font == nullptr) std::abort();
    }
    SDL_Surface *screen;
    TTF_Font *font;
};

// The rest of the input, taken from its front.
class Input {
public:
    Input(const std::uint8_t *data, std::size_t size) : data_(data), size_(size) {}
    u8 byte() { return take(1).empty() ? u8{0} : data_[-1]; }
    Bytes take(std::size_t wanted) {
        const Bytes taken(data_, std::min(wanted, size_));
        data_ += taken.size();
        size_ -= taken.size();
        return taken;
    }
    bool is_empty() const { return size_ == 0; }

private:
    const std::uint8_t *data_;
    std::size_t size_;
};

Tables load(Input &input) {
    Tables tables;
    const std::size_t objects = input.byte() % most_objects;
    const std::size_t texts = input.byte() % 4;
    if (!read_objects(input.take(objects * record_size), 2, tables)) std::abort();
    if (!read_texts(input.take(texts * sizeof(vel_text_rec)), 1, tables)) std::abort();
    remove_dangling_references(tables, "fuzz");
    // Drawing a text of a thousand points takes long and shows nothing new.
    for (u32 k = 0; k < tables.object_records; ++k) tables.objects[k].font_size %= 100;
    return tables;
}

SDL_Event next_event(Input &input) {
    constexpr Uint8 types[] = {SDL_KEYDOWN, SDL_KEYUP, SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP,
                               SDL_MOUSEMOTION};
    constexpr int keys[] = {SDLK_RETURN, SDLK_UP,     SDLK_DOWN,      SDLK_RIGHT,  SDLK_LEFT,
                            SDLK_INSERT, SDLK_DELETE, SDLK_BACKSPACE, SDLK_TAB,    SDLK_HOME,
                            SDLK_END,    SDLK_PAGEUP, SDLK_PAGEDOWN,  SDLK_ESCAPE, SDLK_F10};
    constexpr int modifiers[] = {KMOD_NONE, KMOD_LSHIFT, KMOD_LCTRL, KMOD_LCTRL | KMOD_LSHIFT,
                                 KMOD_LALT, KMOD_MODE};
    SDL_Event event{};
    event.type = types[input.byte() % std::size(types)];
    const u8 value = input.byte();
    if (event.type == SDL_KEYDOWN || event.type == SDL_KEYUP) {
        event.key.keysym.sym = static_cast<SDLKey>(value < std::size(keys) ? keys[value] : value);
        event.key.keysym.mod = static_cast<SDLMod>(modifiers[input.byte() % std::size(modifiers)]);
        // What a layout makes of the key, or of a letter with Ctrl.
        const bool is_control = (event.key.keysym.mod & KMOD_CTRL) != 0;
        event.key.keysym.unicode = is_control ? value % 32 : value;
    } else if (event.type == SDL_MOUSEMOTION) {
        event.motion.x = value;
        event.motion.y = input.byte();
    } else {
        event.button.button = value % 8 < 5 ? SDL_BUTTON_LEFT : static_cast<Uint8>(value % 8 - 3);
        event.button.state = event.type == SDL_MOUSEBUTTONDOWN ? SDL_PRESSED : SDL_RELEASED;
        event.button.x = value;
        event.button.y = input.byte();
    }
    return event;
}

// Feeds the input's events to the loop and ends it after the last one.
u32 play(vel_context *ctx, SDL_Event *event) {
    auto &input = *static_cast<Input *>(ctx->application_a[0]);
    if (input.is_empty()) return VEL_FILTER_END_LOOP;
    *event = next_event(input);
    return VEL_FILTER_PASS;
}

void keep_busy(vel_context *) {
    SDL_Event event{};
    event.type = SDL_USEREVENT;
    SDL_PushEvent(&event);
}

void use(vel_context &ctx) {
    vel_draw_all_objects(&ctx, 1, 1);
    for (u32 number = 1; number <= ctx.object_count; ++number) {
        ctx.window_to_activate = number;
        vel_select_window(&ctx);
    }
    vel_wait_for_object(&ctx);
    vel_draw_all_objects(&ctx, 1, 1);
    for (u32 number = 1; number <= ctx.object_count; ++number) vel_close_win(&ctx, number);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const Stage stage;
    Input input(data, size);
    const bool is_comfortable = input.byte() % 2 != 0;
    Tables tables = load(input);
    vel_context ctx{};
    if (is_comfortable) {
        ctx.comfort = VEL_COMFORT_ALL;
        state_of(ctx).traits = read_traits(tables);
    }
    ctx.screen = stage.screen;
    ctx.font = stage.font;
    ctx.screen_width = 160;
    ctx.screen_height = 120;
    ctx.screen_rect = {0, 0, 160, 120};
    ctx.scroll_step = 10;
    ctx.objects = tables.objects.get();
    ctx.object_count = tables.object_count;
    state_of(ctx).object_records = tables.object_records;
    ctx.text_recs = tables.texts.get();
    ctx.text_bufs = tables.buffers.get();
    ctx.text_count = tables.text_count;
    state_of(ctx).text_records = tables.text_records;
    ctx.application_a[0] = &input;
    ctx.event_filter = play;
    ctx.idle_hook = keep_busy;
    for (u32 k = 1; k <= ctx.object_count; ++k) {
        vel_object &o = ctx.objects[k];
        if (o.type == VEL_TYPE_CHAIN && o.text_index != 0) {
            o.stream = ctx.text_recs[o.text_index].text;
        }
    }
    use(ctx);
    SDL_FreeSurface(ctx.text_surface);
    release_state(ctx);
    return 0;
}
