#include "files/file_selector.h"

#include "files/folder.h"
#include "model/strings.h"
#include "model/walk.h"

namespace velumo {
namespace {

constexpr u32 row_gap = 3;
constexpr u32 row_width = 180;
constexpr u32 list_margin = 40;

void make_row(vel_context &ctx, u32 list, u32 row, u32 place) {
    const vel_object &t = object_at(ctx, object_at(ctx, list).dep_objs[0]);
    vel_object &o = object_at(ctx, row);
    o.type = t.type;
    o.x = t.x;
    o.y = t.y + (t.height + row_gap) * place;
    o.width = t.width;
    o.height = t.height;
    o.master = list;
    o.fill_r = t.fill_r;
    o.fill_g = t.fill_g;
    o.fill_b = t.fill_b;
    o.text_r = t.text_r;
    o.text_g = t.text_g;
    o.text_b = t.text_b;
    o.margin_top = t.margin_top;
    o.margin_left = t.margin_left;
}

// Whether an object is the list or one that the list hangs on: as a row it would close a ring.
bool holds_list(const vel_context &ctx, u32 number, u32 list) {
    if (number == list) return true;
    for (const u32 master : Masters(ctx, list)) {
        if (master == number) return true;
    }
    bool is_below = false;
    walk_dependents(ctx, number, [&](u32 below) {
        is_below = below == list;
        return is_below ? Walk::stop : Walk::descend;
    });
    return is_below;
}

// An object is listed once. From an entry on, those from first to last are taken out of a list.
void strike_out(vel_object &master, u32 entry, u32 first, u32 last) {
    u32 *const end = std::end(master.dep_objs);
    const auto is_meant = [=](u32 number) { return number >= first && number <= last; };
    std::fill(std::remove_if(master.dep_objs + entry, end, is_meant), end, 0U);
}

u8 first_character(const vel_context &ctx, u32 place) {
    return static_cast<u8>(ctx.dir_names[ctx.dir_order[place]][0]);
}

// On purpose: only first characters count; names that share one keep the order that the
// exchanges bring them into.
void order_names(vel_context &ctx) {
    const auto smaller_behind = [&ctx](u32 place) {
        for (u32 k = place + 1; k <= ctx.dir_last; ++k) {
            if (first_character(ctx, k) < first_character(ctx, place)) return k;
        }
        return place;
    };
    for (u32 place = 0; place < ctx.dir_last;) {
        const u32 smaller = smaller_behind(place);
        if (smaller == place)
            ++place;
        else
            std::swap(ctx.dir_order[place], ctx.dir_order[smaller]);
    }
}

u32 fill_rows(vel_context &ctx, const vel_object &list) {
    u32 filled = 0;
    for (const u32 row : dependents_of(list)) {
        if (filled > ctx.dir_last) break;
        vel_object &o = object_at(ctx, row);
        const u32 name = std::min<u32>(ctx.dir_order[filled], VEL_DIR_ENTRIES - 1);
        copy_up_to(VEL_DIR_NAME_SIZE - 2, ctx.dir_names[name], o.label);
        o.hidden = 0;
        o.width = row_width;
        ++filled;
    }
    return filled;
}

} // namespace

void make_file_rows(vel_context &ctx, u32 list, u32 rows) {
    vel_object &o = object_at(ctx, list);
    const u32 first = o.dep_objs[0];
    if (first == 0) return;
    u32 row = first;
    u32 k = 1;
    // On purpose: the row before is looked at, so that one row after the loaded objects is made.
    for (; k <= rows && k < VEL_MAX_DEPENDENTS && (k == 1 || row <= ctx.object_count); ++k) {
        const u32 next = first + k;
        if (names_nothing(ctx, next) || holds_list(ctx, next, list)) break;
        row = next;
        const u32 master = object_at(ctx, row).master;
        if (master != list) strike_out(object_at(ctx, master), 0, row, row);
        o.dep_objs[k] = row;
        make_row(ctx, list, row, k);
    }
    strike_out(o, k, first + 1, row);
}

void read_current_folder(vel_context &ctx) {
    const OpenFolder folder(opendir("."));
    if (!folder) return;
    u32 count = 0;
    while (const dirent *entry = readdir(folder.get())) {
        if (count == VEL_DIR_ENTRIES) break;
        copy_up_to(VEL_DIR_NAME_SIZE - 2, entry->d_name, ctx.dir_names[count]);
        ctx.dir_order[count] = count;
        ++count;
    }
    // A folder that was deleted has no names at all.
    ctx.dir_last = count == 0 ? 0 : count - 1;
    order_names(ctx);
}

void fill_file_rows(vel_context &ctx, u32 list) {
    vel_object &o = object_at(ctx, list);
    // On purpose: a folder of a single name is not shown.
    if (ctx.dir_last == 0) return;
    const u32 filled = fill_rows(ctx, o);
    if (o.dep_objs[0] == 0) return;
    o.height = filled * (object_at(ctx, o.dep_objs[0]).height + row_gap) + list_margin;
    for (const u32 row : dependents_of(o).subspan(filled)) {
        object_at(ctx, row).hidden = 1;
        object_at(ctx, row).width = 0;
    }
}

} // namespace velumo
