#include "input/history.h"

namespace velumo {
namespace {

// What is kept: the last steps, as long as they hold no more characters than this, and in any case
// so many that a person finds them enough. A step holds two texts at most.
constexpr std::size_t most_steps = 2000;
constexpr std::size_t most_bytes = 64 * 1024;
constexpr std::size_t least_steps = 200;

std::size_t bytes_of(const Step &step) { return step.removed.size() + step.inserted.size(); }

bool begins_word(const Step &last, char character) {
    return !last.inserted.empty() && last.inserted.back() == ' ' && character != ' ';
}

bool can_join(const History &history, const Step &step) {
    if (!history.is_open || history.done == 0 || step.inserted.size() != 1) return false;
    const Step &last = history.steps[history.done - 1];
    return step.at == last.at + last.inserted.size() && step.inserted[0] != '\n' &&
           !begins_word(last, step.inserted[0]);
}

void forget_undone(History &history) {
    while (history.steps.size() > history.done) {
        history.bytes -= bytes_of(history.steps.back());
        history.steps.pop_back();
    }
}

void forget_oldest(History &history) {
    std::size_t count = history.steps.size(), oldest = 0;
    while (count > most_steps || (history.bytes > most_bytes && count > least_steps)) {
        history.bytes -= bytes_of(history.steps[oldest++]);
        --count;
    }
    const auto first = history.steps.begin();
    history.steps.erase(first, first + static_cast<std::ptrdiff_t>(oldest));
    history.done -= oldest;
}

} // namespace

History &history_of(vel_context &ctx, u32 object, std::string_view text) {
    History &history = state_of(ctx).histories[object];
    if (history.known != text) {
        history = {};
        history.known = text;
    }
    return history;
}

void keep_step(History &history, Step step, Joins joins, std::string_view text) {
    if (step.removed == step.inserted) return;
    forget_undone(history);
    history.bytes += bytes_of(step);
    if (joins == Joins::typed_character && can_join(history, step)) {
        Step &last = history.steps.back();
        last.removed += step.removed;
        last.inserted += step.inserted;
    } else {
        history.steps.push_back(std::move(step));
        ++history.done;
    }
    history.is_open = joins == Joins::typed_character;
    forget_oldest(history);
    history.known = text;
}

std::optional<Step> step_back(History &history) {
    history.is_open = false;
    if (history.done == 0) return {};
    return history.steps[--history.done];
}

std::optional<Step> step_forward(History &history) {
    history.is_open = false;
    if (history.done == history.steps.size()) return {};
    return history.steps[history.done++];
}

} // namespace velumo
