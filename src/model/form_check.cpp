#include "model/form_check.h"

#include <cstdio>
#include <new>
#include <vector>

#include "model/diagnostics.h"

namespace velumo {
namespace {

class FormCheck {
public:
    FormCheck(Tables &tables, const char *form_path)
        : tables_(tables), form_path_(printable(form_path)),
          lister_(static_cast<u32 *>(std::calloc(tables.object_records, sizeof(u32)))) {
        if (lister_ == nullptr) throw std::bad_alloc();
    }

    void run() {
        for (u32 number = 1; number <= tables_.object_count; ++number) check_numbers(number);
        for (u32 number = 1; number <= tables_.object_count; ++number) check_listing(number);
        cut_cycles([this](u32 number) { return object(number).master; },
                   [this](u32 number) { drop_master(number); });
        cut_cycles([this](u32 number) { return lister_[number]; },
                   [this](u32 number) { drop_dependent(number); });
        if (lines_.left_out() == 0) return;
        std::fprintf(stderr, "%s: %u more invalid references; taken out\n", form_path_.c_str(),
                     lines_.left_out());
    }

private:
    vel_object &object(u32 number) { return tables_.objects[number]; }
    bool is_loaded(u32 number) const { return number <= tables_.object_count; }

    void report(u32 number, const char *field, u32 value, const char *fault) {
        if (!lines_.admits()) return;
        std::fprintf(stderr, "%s: record %u (object %u), %s %u: %s; taken out\n",
                     form_path_.c_str(), number - 1, number, field, value, fault);
    }

    void check_number(u32 number, const char *field, u32 &value, u32 records) {
        if (value == 0 || value < records) return;
        report(number, field, value, "there is no such record");
        value = 0;
    }

    void check_numbers(u32 number) {
        vel_object &o = object(number);
        check_number(number, "master", o.master, tables_.object_records);
        check_number(number, "text_index", o.text_index, tables_.text_records);
        const std::size_t listed = dependents_of(o).size();
        if (listed == 0) return;                   // then the whole list is 0
        for (u32 &entry : std::span(o.dep_objs)) { // also after the end of the list
            check_number(number, "dep_objs", entry, tables_.object_records);
        }
        close_gaps(o, listed);
    }

    // The list ends at its first 0, so what is taken out of it must not leave a gap.
    static void close_gaps(vel_object &o, std::size_t listed) {
        u32 *end = o.dep_objs + listed;
        std::fill(std::remove(o.dep_objs, end, 0U), end, 0U);
    }

    // Of the lists that name an object the first keeps it.
    void check_listing(u32 number) {
        vel_object &o = object(number);
        const std::size_t listed = dependents_of(o).size();
        for (u32 &entry : std::span(o.dep_objs, listed)) {
            if (!note_lister(entry, number)) {
                report(number, "dep_objs", entry, "it is listed as a dependent already");
                entry = 0;
            }
        }
        close_gaps(o, listed);
    }

    bool note_lister(u32 dependent, u32 number) {
        if (lister_[dependent] != 0) return false;
        lister_[dependent] = number;
        return true;
    }

    // Follows the link of every object upwards. A chain that comes back to itself is a cycle; its
    // lowest number is cut loose.
    template <class Link, class Cut> void cut_cycles(Link link, Cut cut) {
        std::vector<u32> seen_from(tables_.object_count + std::size_t{1});
        for (u32 start = 1; start <= tables_.object_count; ++start) {
            u32 at = start;
            while (at != 0 && is_loaded(at) && seen_from[at] == 0) {
                seen_from[at] = start;
                at = link(at);
            }
            if (at != 0 && is_loaded(at) && seen_from[at] == start) cut(lowest_of_cycle(at, link));
        }
    }

    template <class Link> static u32 lowest_of_cycle(u32 member, Link link) {
        u32 lowest = member;
        for (u32 at = link(member); at != member; at = link(at)) lowest = std::min(lowest, at);
        return lowest;
    }

    void drop_master(u32 number) {
        report(number, "master", object(number).master, "its masters form a cycle");
        object(number).master = 0;
    }

    void drop_dependent(u32 number) {
        const u32 lister = lister_[number];
        report(lister, "dep_objs", number, "its dependents form a cycle");
        vel_object &o = object(lister);
        const std::size_t listed = dependents_of(o).size();
        std::replace(o.dep_objs, o.dep_objs + listed, number, 0U);
        close_gaps(o, listed);
        lister_[number] = 0;
    }

    Tables &tables_;
    const std::string form_path_;
    LineCount lines_;
    // By number: the object whose list names it, 0 = none. From calloc, as a program may ask for
    // far more spare objects than any list names.
    Table<u32> lister_;
};

} // namespace

void remove_dangling_references(Tables &tables, const char *form_path) {
    FormCheck(tables, form_path).run();
}

} // namespace velumo
