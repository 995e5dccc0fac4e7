// What vel_wait_for_object costs while nothing happens, and how soon it handles an event: under X,
// keys from a second connection, after a text was copied for other programs; without X, events that
// another thread pushes.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <ctime>
#include <functional>
#include <thread>

#include <SDL_syswm.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include "bench_form.h"

namespace {

using namespace std::chrono_literals;

constexpr int events = 300;
constexpr auto quiet = 1500ms, measured = 5000ms;

double seconds_of(clockid_t clock) {
    timespec t{};
    clock_gettime(clock, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

// Shared by the thread of the form and the one that sends; the filter of the form writes the times.
struct Measure {
    std::atomic<double> sent{0};
    std::atomic<int> seen{0};
    std::atomic<bool> over{false};
    std::vector<double> milliseconds;
};

Measure &measure_of(vel_context *ctx) { return *static_cast<Measure *>(ctx->application_a[0]); }

uint32_t note_event(vel_context *ctx, SDL_Event *event) {
    Measure &m = measure_of(ctx);
    if (m.over) return VEL_FILTER_END_LOOP;
    if (event->type != SDL_KEYDOWN) return VEL_FILTER_PASS;
    m.milliseconds.push_back((seconds_of(CLOCK_MONOTONIC) - m.sent) * 1e3);
    ++m.seen;
    return VEL_FILTER_PASS;
}

void push(Uint8 type) {
    SDL_Event event{};
    event.type = type;
    event.key.keysym.sym = SDLK_a;
    SDL_PushEvent(&event);
}

// Runs the form while another thread does the work, then ends it.
void run_during(bench::Form &form, const std::function<void(Measure &)> &work,
                const std::function<void()> &send) {
    Measure &m = measure_of(&form.ctx);
    std::thread other([&] {
        work(m);
        m.over = true;
        send();
    });
    vel_wait_for_object(&form.ctx);
    other.join();
    m.over = false;
}

double idle_share(bench::Form &form, const std::function<void()> &send) {
    double share = 0;
    const auto work = [&share](Measure &) {
        std::this_thread::sleep_for(quiet);
        const double before = seconds_of(CLOCK_PROCESS_CPUTIME_ID);
        std::this_thread::sleep_for(measured);
        const double used = seconds_of(CLOCK_PROCESS_CPUTIME_ID) - before;
        share = used / std::chrono::duration<double>(measured).count();
    };
    run_during(form, work, send);
    return 100 * share;
}

// Milliseconds from sending a key to the call of the filter, sorted. Keys come 12 to 36 ms apart,
// out of step with the loop.
std::vector<double> latencies(bench::Form &form, const std::function<void()> &send) {
    const auto work = [&send](Measure &m) {
        unsigned random = 7;
        for (int k = 0; k < events; ++k) {
            random = random * 1664525U + 1013904223U;
            std::this_thread::sleep_for(std::chrono::microseconds(12000 + (random >> 8) % 24000));
            const int seen = m.seen;
            m.sent = seconds_of(CLOCK_MONOTONIC);
            send();
            for (int wait = 0; wait < 1000 && m.seen == seen; ++wait) {
                std::this_thread::sleep_for(1ms);
            }
        }
    };
    Measure &m = measure_of(&form.ctx);
    m.milliseconds.clear();
    run_during(form, work, send);
    std::sort(m.milliseconds.begin(), m.milliseconds.end());
    return m.milliseconds;
}

// Types an 'a', selects it and copies it: from then on the form has a connection of its own for the
// clipboard.
void copy_a_text(bench::Form &form, Display *display) {
    const auto press = [display](KeySym symbol, Bool pressed) {
        XTestFakeKeyEvent(display, XKeysymToKeycode(display, symbol), pressed, 0);
    };
    const auto press_keys = [display, press](Measure &) {
        for (const KeySym symbol : {XK_a, XK_Control_L, XK_a, XK_c}) {
            press(symbol, True);
            if (symbol != XK_Control_L) press(symbol, False);
        }
        press(XK_Control_L, False);
        XFlush(display);
        std::this_thread::sleep_for(quiet);
    };
    const auto move = [display] {
        XTestFakeRelativeMotionEvent(display, 1, 0, 0);
        XFlush(display);
    };
    run_during(form, press_keys, move);
    if (XGetSelectionOwner(display, XInternAtom(display, "CLIPBOARD", False)) == None)
        std::printf("X           no text was copied\n");
}

} // namespace

int main() {
    bench::Form form;
    Measure measure;
    form.ctx.application_a[0] = &measure;
    form.ctx.event_filter = note_event;
    form.ctx.comfort = VEL_COMFORT_ALL;

    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    const bool has_x = SDL_GetWMInfo(&info) == 1 && info.subsystem == SDL_SYSWM_X11;
    Display *const second = has_x ? XOpenDisplay(nullptr) : nullptr;
    std::function<void()> send = [] {
        push(SDL_KEYDOWN);
        push(SDL_KEYUP);
    };
    if (second != nullptr) {
        XTestFakeMotionEvent(second, -1, 400, 300, 0);
        XFlush(second);
        copy_a_text(form, second);
        send = [second, key = XKeysymToKeycode(second, 'a')] {
            XTestFakeKeyEvent(second, key, True, 0);
            XTestFakeKeyEvent(second, key, False, 0);
            XFlush(second);
        };
    }

    const char *const driver = has_x ? "X" : "no display";
    std::printf("%-10s  idle: %.2f %% of a core\n", driver, idle_share(form, send));
    const std::vector<double> late = latencies(form, send);
    if (late.size() < events) {
        std::printf("%-10s  only %zu of %d keys arrived\n", driver, late.size(), events);
        return 1;
    }
    std::printf("%-10s  a key is handled after: %.2f ms (median), %.2f ms (95 %%), %.2f ms "
                "(longest)\n",
                driver, late[late.size() / 2], late[late.size() * 95 / 100], late.back());
    if (second != nullptr) XCloseDisplay(second);
    return 0;
}
