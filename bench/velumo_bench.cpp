// The library compared with bare SDL doing the same work. Only compare figures of the same run.
#include <benchmark/benchmark.h>

#include "bench_form.h"

namespace {

// What the window shows, for the bare redraw: bodies and captions.
void draw_bare(bench::Form &form) {
    vel_context &ctx = form.ctx;
    SDL_FillRect(ctx.screen, nullptr, 0);
    const auto body = [&ctx](const vel_object &o) {
        SDL_Rect r{static_cast<Sint16>(o.x), static_cast<Sint16>(o.y), static_cast<Uint16>(o.width),
                   static_cast<Uint16>(o.height)};
        SDL_FillRect(ctx.screen, &r, SDL_MapRGB(ctx.screen->format, 240, 240, 240));
    };
    const auto line = [&ctx](const char *string, std::uint32_t x, std::uint32_t y) {
        if (string[0] == '\0') return;
        SDL_Surface *surface = TTF_RenderText_Blended(ctx.font, string, {0, 0, 0, 0});
        SDL_Rect place{static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
        SDL_BlitSurface(surface, nullptr, ctx.screen, &place);
        SDL_FreeSurface(surface);
    };
    for (std::uint32_t number = bench::window; number <= ctx.object_count; ++number) {
        const vel_object &o = ctx.objects[number];
        body(o);
        if (number != bench::text) line(o.label, o.x + 4, o.y + 2);
    }
    const vel_object &text = ctx.objects[bench::text];
    for (std::uint32_t k = 0; k <= text.number_of_lines; ++k) {
        const auto height = static_cast<std::uint32_t>(TTF_FontHeight(ctx.font));
        line(ctx.text_bufs[1] + k * VEL_LINE_SIZE, text.x, text.y + k * height);
    }
}

void redraw_with_bare_sdl(benchmark::State &state) {
    bench::Form form;
    for (auto _ : state) draw_bare(form);
}
BENCHMARK(redraw_with_bare_sdl)->Unit(benchmark::kMicrosecond);

void redraw(benchmark::State &state) {
    bench::Form form;
    for (auto _ : state) vel_draw_all_objects(&form.ctx, 0, 0);
}
BENCHMARK(redraw)->Unit(benchmark::kMicrosecond);

void redraw_with_formatting(benchmark::State &state) {
    bench::Form form;
    for (auto _ : state) vel_draw_all_objects(&form.ctx, 1, 0);
}
BENCHMARK(redraw_with_formatting)->Unit(benchmark::kMicrosecond);

void break_a_text_into_lines(benchmark::State &state) {
    bench::Form form;
    for (auto _ : state) benchmark::DoNotOptimize(vel_format_object_text(&form.ctx, bench::text));
}
BENCHMARK(break_a_text_into_lines)->Unit(benchmark::kMicrosecond);

// The least that line breaking needs: measuring every word once with bare SDL_ttf.
void measure_each_word_with_bare_sdl(benchmark::State &state) {
    bench::Form form;
    for (auto _ : state) {
        char text[VEL_TEXT_SIZE];
        std::strcpy(text, form.ctx.text_recs[1].text);
        char *rest = nullptr;
        for (char *word = strtok_r(text, " ", &rest); word; word = strtok_r(nullptr, " ", &rest)) {
            int width = 0;
            TTF_SizeText(form.ctx.font, word, &width, nullptr);
            benchmark::DoNotOptimize(width);
        }
    }
}
BENCHMARK(measure_each_word_with_bare_sdl)->Unit(benchmark::kMicrosecond);

// Types a character into the field or the text and deletes it, each with a redraw: the given
// editor, then the comfortable one.
void type_and_take_back(benchmark::State &state) {
    bench::Form form;
    form.ctx.cursor_object = static_cast<uint32_t>(state.range(0));
    form.ctx.comfort = static_cast<uint32_t>(state.range(1));
    for (auto _ : state) {
        form.ctx.final_key = 'a';
        form.ctx.key_printable = 1;
        vel_get_text(&form.ctx);
        form.ctx.final_key = VEL_KEY_BACKSPACE;
        form.ctx.key_printable = 0;
        vel_get_text(&form.ctx);
    }
}
BENCHMARK(type_and_take_back)
    ->ArgNames({"object", "comfort"})
    ->ArgsProduct({{bench::field, bench::text}, {0, VEL_COMFORT_TYPING}})
    ->Unit(benchmark::kMicrosecond);

void find_the_object_under_the_pointer(benchmark::State &state) {
    bench::Form form;
    for (auto _ : state) benchmark::DoNotOptimize(vel_test_all_objects(&form.ctx, 700, 550));
}
BENCHMARK(find_the_object_under_the_pointer)->Unit(benchmark::kNanosecond);

} // namespace
