// Loads, formats, draws and closes a small form with every value of every byte, cut at every byte,
// and with every pair of boundary values in two fields of a record.
// usage: exhaust [RECORD [STEP]]
//        a record of the form alone, from 0, and one of so many values; by default everything
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "small_form.h"
#include "stage.h"
#include "velumo.h"
#include "world.h"

namespace {

using namespace fuzz;

constexpr std::size_t record_size = sizeof(vel_object_file_rec);
constexpr u32 boundary[] = {0,      1,      2,          99,         100,        101,       0x7FFF,
                            0x8000, 0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, 0xFFFFFFF0};
constexpr std::size_t pair_record = small_text - 1;

// Where the numbers of a record are; of its list the first, the second and the last.
std::vector<std::size_t> number_places() {
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < record_size; place += 4) {
        const bool is_string = (place >= 28 && place < 96) || (place >= 104 && place < 172) ||
                               (place >= 704 && place < 772);
        const bool is_middle_of_list = place > 292 && place < 684;
        if (!is_string && !is_middle_of_list) places.push_back(place);
    }
    return places;
}

// What a worker is at, for whoever waits for it.
struct Progress {
    unsigned long runs;
    char at[100];
};

class Worker {
public:
    Worker(unsigned number, unsigned count, Progress &progress)
        : number_(number), count_(count), progress_(progress), sane_(small_form()), files_(sane_) {}

    void values(std::vector<u8> &bytes, const char *file, std::size_t first, std::size_t last,
                int step = 1) {
        for (std::size_t place = first; place < last; ++place) {
            const u8 sane = bytes[place];
            for (int value = 0; value < 256; value += step) {
                if (!is_mine()) continue;
                bytes[place] = static_cast<u8>(value);
                run("%s, byte %zu is %d", file, place, value);
            }
            bytes[place] = sane;
        }
    }
    void record(std::size_t number, int step) {
        values(files_.form, "form", number * record_size, (number + 1) * record_size, step);
    }
    void all() {
        values(files_.form, "form", 0, files_.form.size());
        values(files_.text, "text", 0, files_.text.size());
        cuts(files_.form, "form");
        cuts(files_.text, "text");
        pairs();
    }

private:
    void cuts(std::vector<u8> &bytes, const char *file) {
        const std::vector<u8> whole = bytes;
        for (std::size_t size = 0; size < whole.size(); ++size) {
            if (!is_mine()) continue;
            bytes.assign(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
            run("%s, cut to %zu bytes%.0d", file, size, 0);
        }
        bytes = whole;
    }
    void pairs() {
        const std::vector<std::size_t> places = number_places();
        for (std::size_t a : places) {
            for (std::size_t b : places) {
                if (b > a) pairs_of(pair_record * record_size + a, pair_record * record_size + b);
            }
        }
    }
    void pairs_of(std::size_t a, std::size_t b) {
        for (const u32 first : boundary) {
            for (const u32 second : boundary) {
                if (!is_mine()) continue;
                std::memcpy(&files_.form[a], &first, sizeof first);
                std::memcpy(&files_.form[b], &second, sizeof second);
                std::snprintf(progress_.at, sizeof progress_.at, "form, %u at %zu and %u at %zu",
                              first, a, second, b);
                load_and_draw();
            }
        }
        std::copy_n(&sane_.form[a], 4, &files_.form[a]);
        std::copy_n(&sane_.form[b], 4, &files_.form[b]);
    }

    bool is_mine() { return next_++ % count_ == number_; }
    void run(const char *format, const char *file, std::size_t place, int value) {
        std::snprintf(progress_.at, sizeof progress_.at, format, file, place, value);
        load_and_draw();
    }
    void load_and_draw() {
        const SurfaceShape shape{100, 80, depths[next_ / 64 % std::size(depths)], next_ % 2 == 0};
        // A run that takes a second of the processor is ended.
        constexpr itimerval second{{}, {1, 0}};
        setitimer(ITIMER_VIRTUAL, &second, nullptr);
        world() = {};
        world().form = files_.form;
        world().text = files_.text;
        const auto made = std::make_unique<vel_context>(); // on the heap it is watched
        vel_context &ctx = *made;
        stage_.set_up(ctx, shape);
        ctx.comfort = next_ % 3 == 0 ? VEL_COMFORT_ALL : 0;
        if (vel_load_forms(&ctx, 0, 0, form_path, text_path) == VEL_OK) {
            for (const u32 window : {small_window, small_dialog}) {
                ctx.window_to_activate = window;
                if (window <= ctx.object_count) vel_activate_window(&ctx);
            }
            vel_draw_all_objects(&ctx, 1, 1);
        }
        vel_close(&ctx);
        ++progress_.runs;
    }

    static constexpr int depths[] = {32, 32, 32, 16, 32, 32, 32, 8, 32, 32, 32, 24, 32, 32, 32, 15};
    const unsigned number_, count_;
    Progress &progress_;
    const FormBytes sane_;
    FormBytes files_;
    const Stage stage_;
    unsigned long next_ = 0;
};

struct Wanted {
    int record = -1, step = 1; // -1 = everything
};

void work(unsigned number, unsigned count, Progress &progress, Wanted wanted) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    set_up_world();
    Worker worker(number, count, progress);
    if (wanted.record < 0) {
        worker.all();
    } else {
        worker.record(static_cast<std::size_t>(wanted.record), wanted.step);
    }
}

// The end of a worker before its time is a fault.
bool wait_for(const std::vector<pid_t> &workers, const Progress *progress) {
    bool is_right = true;
    for (std::size_t k = 0; k < workers.size(); ++k) {
        int status = 0;
        waitpid(workers[k], &status, 0);
        if (status == 0) continue;
        std::printf("FAULT, %s: %s\n", WTERMSIG(status) == SIGVTALRM ? "endless" : "crash",
                    progress[k].at);
        is_right = false;
    }
    return is_right;
}

} // namespace

int main(int count, char **arguments) {
    const Wanted wanted{count > 1 ? std::atoi(arguments[1]) : -1,
                        count > 2 ? std::atoi(arguments[2]) : 1};
    const unsigned jobs = std::max(std::thread::hardware_concurrency(), 1U);
    auto *const progress =
        static_cast<Progress *>(mmap(nullptr, jobs * sizeof(Progress), PROT_READ | PROT_WRITE,
                                     MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    if (progress == MAP_FAILED) return EXIT_FAILURE;
    std::vector<pid_t> workers;
    for (unsigned k = 0; k < jobs; ++k) {
        const pid_t worker = fork();
        if (worker == 0) {
            work(k, jobs, progress[k], wanted);
            return EXIT_SUCCESS;
        }
        workers.push_back(worker);
    }
    const bool is_right = wait_for(workers, progress);
    unsigned long runs = 0;
    for (unsigned k = 0; k < jobs; ++k) runs += progress[k].runs;
    std::printf("exhaust: %lu forms loaded, drawn and closed, %s\n", runs,
                is_right ? "nothing found" : "faults found");
    return is_right ? EXIT_SUCCESS : EXIT_FAILURE;
}
