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

} // namespace

int main(int count, char **arguments) {
    const fs::path folder = arguments[1];
    for (const char *name : {"loader", "decompile", "full"}) fs::create_directories(folder / name);
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
