#include "program.h"

#include <cstdlib>
#include <cstring>

#include "actions.h"
#include "events.h"
#include "world.h"

namespace fuzz {
namespace {

constexpr Uint8 act_event = SDL_USEREVENT, end_event = SDL_USEREVENT + 1;
constexpr unsigned most_loops = 3, most_idle_polls = 10000;
constexpr u32 plain_objects = 64;

Program &program_of(vel_context *ctx) { return *static_cast<Program *>(ctx->application_a[0]); }

Program *running; // the world's events carry no context

} // namespace

Program::Program(vel_context &ctx, Input &script)
    : ctx_(ctx), script_(script), records_(std::max(ctx.object_count, 1U)),
      texts_(std::max(ctx.text_count, 1U)) {
    running = this;
    ctx.application_a[0] = this;
    world().next_event = [](SDL_Event &event) { return running->next_event(event); };
    ctx.event_filter = [](vel_context *c, SDL_Event *e) { return program_of(c).filter(*e); };
}

Program::~Program() {
    world().next_event = nullptr;
    ctx_.event_filter = nullptr;
    ctx_.idle_hook = nullptr;
}

void Program::run() {
    while (!script_.is_empty()) step(script_.byte());
}

void Program::step(u8 code) {
    if (code >= acts) return act();
    if (code >= nothing_waits) return;
    ctx_.event = read_event(code, script_);
    vel_getfirstkeyinformation(&ctx_);
    vel_getfinalkeyinformation(&ctx_);
    vel_get_text(&ctx_);
}

void Program::act() {
    if (loops_ == most_loops) return;
    ++loops_;
    do_action(*this);
    --loops_;
}

// A loop goes on until the script ends it.
bool Program::next_event(SDL_Event &event) {
    const u8 code = script_.peek();
    if (script_.is_empty() || code >= ends_loop) {
        // Here the loop has been asked to end so often that it never will.
        if (++idle_polls_ > most_idle_polls) std::abort();
        event.type = end_event;
        return true;
    }
    idle_polls_ = 0;
    script_.byte();
    if (code >= acts) {
        event.type = act_event;
        is_acting_ = true;
        return true;
    }
    if (code >= nothing_waits) {
        world().milliseconds += 100U * (code - nothing_waits);
        return false;
    }
    event = read_event(code, script_);
    return true;
}

u32 Program::filter(const SDL_Event &event) {
    if (event.type == end_event) return VEL_FILTER_END_LOOP;
    if (!is_acting_) return VEL_FILTER_PASS;
    is_acting_ = false;
    act();
    return VEL_FILTER_DROP;
}

u32 Program::object() {
    const u32 number = script_.number();
    return number < plain_objects ? number % (records_ + 2) : number;
}

u32 Program::text() { return script_.byte() % texts_; }

vel_object &Program::record() { return ctx_.objects[script_.byte() % (records_ + 1)]; }

char *Program::string() {
    const std::string text = script_.string();
    auto bytes = std::make_unique<char[]>(text.size() + 1);
    std::memcpy(bytes.get(), text.data(), text.size());
    strings_.push_back(std::move(bytes));
    return strings_.back().get();
}

} // namespace fuzz
