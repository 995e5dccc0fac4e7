// Makes seeds of the project's forms, for the loader, decompiling and full runs: each form with
// each action and a few events. usage: make_seeds FOLDER FORM... (NAME.form, with NAME.text next to
// it)
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "actions.h"
#include "form_bytes.h"
#include "program.h"
#include "small_form.h"
#include "velumo.h"

namespace {

namespace fs = std::filesystem;
using namespace fuzz;
using Record = vel_object_file_rec;
using Seed = std::vector<u8>;

constexpr std::size_t most_form_bytes = 1600;
constexpr u32 smaller = 8; // forms are made for 800 by 600 pixels

Seed read(const fs::path &path) {
    std::ifstream file(path, std::ios::binary);
    return Seed(std::istreambuf_iterator<char>(file), {});
}

void write(const fs::path &path, const Seed &seed) {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char *>(seed.data()),
               static_cast<std::streamsize>(seed.size()));
}

void shrink(Seed &form) {
    for (std::size_t place = 0; place + sizeof(Record) <= form.size(); place += sizeof(Record)) {
        Record record;
        std::memcpy(&record, form.data() + place, sizeof record);
        for (u32 *number : {&record.x, &record.y, &record.width, &record.height,
                            &record.margin_left, &record.margin_top, &record.line_width}) {
            *number = *number > 0x7FFFFFFF ? 0 : *number / smaller;
        }
        std::memcpy(form.data() + place, &record, sizeof record);
    }
}

// Opens a window, does the action, and presses and types inside.
Seed script(std::size_t action, u8 window) {
    const auto number = static_cast<u8>(action);
    const auto place = static_cast<u8>(20 + action % 60);
    return {ends_loop,
            open_window_action,
            window,
            ends_loop,
            number,
            window,
            9,
            10,
            11,
            0,
            16,
            0,
            2,
            16,
            0,
            3,
            place,
            40,
            5,
            place,
            40,
            0,
            8,
            0,
            2,
            8,
            0,
            4,
            40,
            place,
            nothing_waits,
            7,
            30,
            place,
            6,
            50,
            50};
}

// Shows rows, rests on an object, and uses it with the pointer and the wheel, or with keys.
// Whatever is changed ends the wait.
Seed use_of_part(u8 x, u8 y, bool by_keys) {
    const auto right = static_cast<u8>(x + 9), below = static_cast<u8>(y + 30);
    Seed seed{16, 99, 79, VEL_COMFORT_ALL};
    const auto add = [&seed](std::initializer_list<u8> bytes) {
        seed.insert(seed.end(), bytes.begin(), bytes.end());
    };
    const auto wait_and = [&add](std::initializer_list<u8> bytes) {
        add({ends_loop, wait_action});
        add(bytes);
    };
    seed.insert(seed.end(), std::begin(written_parts), std::end(written_parts));
    add({ends_loop, open_window_action, small_window});
    add({ends_loop, change_part_action, static_cast<u8>(list_of_parts), 9});
    wait_and({7, x, y, nothing_waits + 7, nothing_waits}); // the tip
    wait_and({3, x, y, 5, x, y});
    if (by_keys) {
        // Arrows, Home, End, Tab, Space, pages, letters, Enter, Tab, Escape; alone, with Shift and
        // with Ctrl
        constexpr u8 keys[] = {2, 2, 1, 3, 4, 10, 9, 8, 15, 12, 11, 16, 19, 0, 8, 13};
        for (const u8 key : keys) add({0, key, 0});
        for (const u8 key : keys) {
            for (u8 modifier = 0; modifier < 3; ++modifier) wait_and({0, key, modifier});
        }
    } else {
        add({7, x, below, 20, x, below, 8, x, below, 3, x, below, 5, x, below}); // the wheel
        wait_and({3, x, below, 7, right, y, 7, right, below, 5, right, below});
        wait_and({3, x, y, 7, right, below, 5, right, below});
        wait_and({3, x, y, 5, x, y, 10, 1, SDL_QUIT});
    }
    return seed;
}

void write_uses_of_parts(const fs::path &folder) {
    const FormBytes files = form_of_parts();
    const auto middle = [](u32 from, u32 size) { return static_cast<u8>(from + size / 2); };
    for (u32 k = small_window + 1; k <= files.form.size() / sizeof(Record); ++k) {
        Record r;
        std::memcpy(&r, &files.form[(k - 1) * sizeof r], sizeof r);
        if (r.width < 8 || r.height < 8) continue;
        const u8 x = middle(r.x, r.width), y = middle(r.y, r.height);
        write(folder / ("parts" + std::to_string(k)), use_of_part(x, y, false));
        write(folder / ("parts" + std::to_string(k) + "-keys"), use_of_part(x, y, true));
    }
}

} // namespace

int main(int count, char **arguments) {
    const fs::path folder = arguments[1];
    for (const char *name : {"loader", "decompile", "full", "asset"})
        fs::create_directories(folder / name);
    write_uses_of_parts(folder / "full");
    write(folder / "asset" / "font", {'F', 'O', 'N', 'T', 12, 1, 0});
    for (int k = 2; k < count; ++k) {
        const fs::path path = arguments[k];
        FormBytes files{read(path), read(fs::path(path).replace_extension("text"))};
        shrink(files.form);
        const Seed form = write_form(files, most_form_bytes);
        Seed loader{1};
        loader.insert(loader.end(), form.begin(), form.end());
        for (const char *name : {"loader", "decompile"}) write(folder / name / path.stem(), loader);
        for (std::size_t action = 0; action < action_count(); ++action) {
            const auto kind = static_cast<u8>(action), window = static_cast<u8>(8 + action % 5);
            Seed full{kind, 99, 79, static_cast<u8>(action % 2 == 0 ? VEL_COMFORT_ALL : 0)};
            full.insert(full.end(), form.begin(), form.end());
            const Seed steps = script(action, window);
            full.insert(full.end(), steps.begin(), steps.end());
            write(folder / "full" / (path.stem().string() + std::to_string(action)), full);
        }
    }
}
