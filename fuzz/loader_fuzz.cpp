// Loads form files of any bytes into tables, and checks what the rest of the library relies on:
// references lead into the tables, masters and lists form no rings, strings end.
#include <cstdlib>
#include <cstring>

#include "form_bytes.h"
#include "model/form_check.h"
#include "model/traits.h"
#include "world.h"

namespace {

using namespace velumo;

void expect(bool is_right) {
    if (!is_right) std::abort();
}

template <std::size_t size> void expect_string(const char (&string)[size]) {
    expect(std::memchr(string, '\0', size) != nullptr);
}

// Climbs from each object; seen are those from where the top is known to be reached.
template <class Link> void expect_no_ring(u32 count, Link link) {
    std::vector<u32> seen(count + 1U);
    for (u32 start = 1; start <= count; ++start) {
        for (u32 at = start; at != 0 && at <= count && seen[at] != 1; at = link(at)) {
            expect(seen[at] != start + 1); // came back in the same climb
            seen[at] = start + 1;
        }
        for (u32 at = start; at != 0 && at <= count && seen[at] != 1; at = link(at)) seen[at] = 1;
    }
}

void check(const Tables &tables) {
    std::vector<u32> lister(tables.object_records);
    for (u32 k = 1; k <= tables.object_count; ++k) {
        const vel_object &o = tables.objects[k];
        expect(o.master < tables.object_records);
        expect(o.text_index == 0 || o.text_index < tables.text_records);
        expect_string(o.label), expect_string(o.font_path), expect_string(o.image_path);
        bool has_ended = false;
        for (const u32 dependent : o.dep_objs) {
            expect(dependent < tables.object_records);
            has_ended |= dependent == 0;
            if (has_ended) continue;
            expect(lister[dependent] == 0);
            lister[dependent] = k;
        }
    }
    for (u32 k = 1; k <= tables.text_count; ++k) expect_string(tables.texts[k].text);
    expect_no_ring(tables.object_count, [&](u32 k) { return tables.objects[k].master; });
    expect_no_ring(tables.object_count, [&](u32 k) { return lister[k]; });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    fuzz::Input input({data, size});
    const u32 spare = input.byte() % 4;
    const fuzz::FormBytes files = read_form(input);
    fuzz::world().form = files.form;
    fuzz::world().text = files.text;
    Tables tables;
    RecordReader form(fuzz::form_path, Access::read_only, sizeof(vel_object_file_rec));
    expect(form.error() == FileError::none);
    expect(read_objects(form, spare, tables) == FileError::none);
    RecordReader texts(fuzz::text_path, Access::read_only, sizeof(vel_text_rec));
    expect(read_texts(texts, spare, tables) == FileError::none);
    remove_dangling_references(tables, fuzz::form_path);
    check(tables);
    read_traits(tables);
    return 0;
}
