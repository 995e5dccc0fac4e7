// Loading a form of 10,000 objects, in turn with the least that this takes: reading the file and
// copying each record into a zeroed table.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <malloc.h>
#include <unistd.h>
#include <velumo.h>

#include "measure.h"

namespace {

constexpr std::size_t objects = 10000;

// Labels and entry fields in turn.
vel_object_file_rec record_of(std::size_t number) {
    const bool is_entry = number % 2 == 1;
    vel_object_file_rec record{};
    record.x = static_cast<std::uint32_t>(4 + number % 8 * 99);
    record.y = static_cast<std::uint32_t>(4 + number / 8 % 24 * 25);
    record.width = 95;
    record.height = 23;
    record.type = is_entry ? VEL_TYPE_ENTRY : VEL_TYPE_LABEL;
    record.editable = is_entry;
    record.max_chars = 64;
    record.fill_r = record.fill_g = record.fill_b = 255;
    record.border_style = VEL_BORDER_SHADOW;
    std::snprintf(record.label, VEL_STRING_SIZE, is_entry ? "Entry %05zu" : "Label %05zu", number);
    return record;
}

// A form description file that is removed in the end.
class FormFile {
public:
    FormFile() {
        std::FILE *const file = fdopen(mkstemp(path_), "wb");
        measure::demand(file != nullptr, "no temporary file can be made");
        for (std::size_t number = 0; number < objects; ++number) {
            const vel_object_file_rec record = record_of(number);
            std::fwrite(&record, sizeof record, 1, file);
        }
        measure::demand(std::fclose(file) == 0, "the form cannot be written");
    }
    ~FormFile() { unlink(path_); }
    FormFile(const FormFile &) = delete;
    FormFile &operator=(const FormFile &) = delete;

    const char *path() const { return path_; }

private:
    char path_[32] = "/tmp/velumo-bench-XXXXXX";
};

void load_by_library(vel_context &ctx, const char *path) {
    measure::demand(vel_load_forms(&ctx, 0, 0, path, "") == VEL_OK, "the form does not load");
    std::free(ctx.objects);
    ctx.objects = nullptr;
}

void load_by_floor(const char *path) {
    constexpr std::size_t record_size = sizeof(vel_object_file_rec);
    auto *const records = static_cast<char *>(std::malloc(objects * record_size));
    std::FILE *const file = std::fopen(path, "rb");
    measure::demand(file != nullptr && records != nullptr &&
                        std::fread(records, record_size, objects, file) == objects,
                    "the form cannot be read");
    std::fclose(file);
    auto *const table = static_cast<char *>(std::calloc(objects + 1, sizeof(vel_object)));
    measure::demand(table != nullptr, "out of memory");
    for (std::size_t k = 0; k < objects; ++k)
        std::memcpy(table + (k + 1) * sizeof(vel_object), records + k * record_size, record_size);
    asm volatile("" ::"r"(table) : "memory"); // the table counts as used
    std::free(records);
    std::free(table);
}

void load() {
    const FormFile form;
    static vel_context ctx;
    measure::say_times({{"load", [&form] { load_by_library(ctx, form.path()); }},
                        {"floor", [&form] { load_by_floor(form.path()); }}});
}

// As when a program starts: memory comes from the system. Once malloc moves its threshold, which it
// does by itself unless it is set, it gives tables of this size from what was freed before.
void load_fresh() {
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
    load();
}

} // namespace

int main(int argc, char **argv) {
    return measure::run(argc, argv, {{"fresh", load_fresh}, {"warm", load}});
}
