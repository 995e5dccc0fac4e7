#include "measure.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>

namespace measure {
namespace {

constexpr double sample_ns = 1e6;     // a sample is as many runs as fill a millisecond
constexpr double longest_ns = 0.25e9; // of all samples of a work
constexpr std::size_t fewest_samples = 3, most_samples = 60;
constexpr double warming_ns = 20e6;

std::string x_server_times; // a file; empty while the X server does not count

double x_server_ns() {
    double ns = 0;
    std::ifstream(x_server_times) >> ns;
    return ns;
}

double processor_ns() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    const double own = static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
    return x_server_times.empty() ? own : own + x_server_ns();
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

class Series {
public:
    explicit Series(const Named &named) : named_(named) {
        // An even number of runs a sample, because some works undo every second time what they did.
        double once = run(2);
        for (double spent = 0; spent < warming_ns; spent += 2 * once) once = run(2);
        runs_ = 2 * std::max(1, static_cast<int>(sample_ns / 2 / std::max(once, 1.0)));
        const double room = longest_ns / (once * runs_);
        samples_ = std::clamp(static_cast<std::size_t>(room), fewest_samples, most_samples);
    }

    void take_sample() {
        if (times_.size() < samples_) times_.push_back(run(runs_));
    }
    bool done() const { return times_.size() == samples_; }
    void print() const { say(named_.name, median(times_) / 1e3); }

private:
    double run(int runs) const {
        const double before = processor_ns();
        for (int k = 0; k < runs; ++k) named_.work();
        return (processor_ns() - before) / runs;
    }

    Named named_;
    int runs_ = 0;
    std::size_t samples_ = 0;
    std::vector<double> times_;
};

} // namespace

void say_time(const std::string &name, const Work &work) { say_times({{name.c_str(), work}}); }

void say_times(const std::vector<Named> &works) {
    std::vector<Series> all(works.begin(), works.end());
    const auto done = [](const Series &series) { return series.done(); };
    while (!std::all_of(all.begin(), all.end(), done)) {
        for (Series &series : all) series.take_sample();
    }
    for (const Series &series : all) series.print();
}

void say(const std::string &name, double value) { std::printf("%s %.3f\n", name.c_str(), value); }

void count_x_server() {
    const char *const process = std::getenv("X_SERVER_PID");
    demand(process != nullptr, "X_SERVER_PID is not set");
    x_server_times = std::string("/proc/") + process + "/schedstat";
    demand(x_server_ns() > 0, "the time of the X server cannot be read");
}

double anonymous_kib() {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        double kib = 0;
        if (word == "RssAnon:" && status >> kib) return kib;
    }
    return 0;
}

void demand(bool condition, const char *what) {
    if (condition) return;
    std::fprintf(stderr, "%s\n", what);
    std::exit(1);
}

int run(int argc, char **argv, const std::vector<Named> &works) {
    for (const Named &named : works) {
        if (argc != 2 || std::strcmp(argv[1], named.name) != 0) continue;
        named.work();
        return 0;
    }
    std::fprintf(stderr, "usage: %s WORK, one of:", argv[0]);
    for (const Named &named : works) std::fprintf(stderr, " %s", named.name);
    std::fprintf(stderr, "\n");
    return 2;
}

} // namespace measure
