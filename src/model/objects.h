// Objects by number, their dependents, and small questions about one object. For every subsystem.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "model/state.h"

namespace velumo {

using i32 = std::int32_t;
using u32 = std::uint32_t;
using i64 = std::int64_t;
using u8 = std::uint8_t;

// Coordinates lie in the records as unsigned numbers that wrap around. The library computes with
// them as signed numbers, of 64 bits so that no sum overflows, once a record's own arithmetic is
// done.
constexpr i32 as_signed(u32 value) { return static_cast<i32>(value); }
constexpr u32 as_field(i64 value) { return static_cast<u32>(value); }

// There are none before start-up and after vel_close().
inline bool has_objects(const vel_context &ctx) { return ctx.objects != nullptr; }

// A number beyond a table of known size means record 0, the empty record.
inline u32 object_index(const vel_context &ctx, u32 number) {
    const u32 records = object_records(ctx);
    return records != 0 && number >= records ? 0 : number;
}
// 0, or a number beyond the tables: there is nothing to draw or to move.
inline bool names_nothing(const vel_context &ctx, u32 number) {
    return !has_objects(ctx) || object_index(ctx, number) == 0;
}
inline vel_object &object_at(vel_context &ctx, u32 number) {
    return ctx.objects[object_index(ctx, number)];
}
inline const vel_object &object_at(const vel_context &ctx, u32 number) {
    return ctx.objects[object_index(ctx, number)];
}

// Whether the table surely has an object of this number: where its length is not known, only the
// loaded ones count.
inline bool is_known_object(const vel_context &ctx, u32 number) {
    const u32 records = object_records(ctx);
    return number != 0 && (records != 0 ? number < records : number <= ctx.object_count);
}

// Frame buttons that the table has: 7, or fewer in a table that is shorter. A table that a program
// has filled and not counted has them all.
inline u32 frame_button_count(const vel_context &ctx) {
    if (ctx.objects == nullptr) return 0;
    const u32 records = object_records(ctx);
    const u32 known = records != 0 ? records - 1 : ctx.object_count;
    const bool is_counted = records != 0 || ctx.object_count != 0;
    return is_counted ? std::min<u32>(known, VEL_FRAME_BUTTONS) : VEL_FRAME_BUTTONS;
}

inline bool has_area(const vel_object &object) { return object.width != 0 && object.height != 0; }
inline bool is_drawable(const vel_object &object) { return object.hidden == 0 && has_area(object); }
inline bool is_top_level_window(const vel_object &object) {
    return object.type == VEL_TYPE_WINDOW && object.master == 0;
}

// The numbers of an object's dependents: at most 100, ending at the first 0.
inline std::span<const u32> dependents_of(const vel_object &object) {
    return {std::begin(object.dep_objs),
            std::find(std::begin(object.dep_objs), std::end(object.dep_objs), 0U)};
}
inline bool has_dependents(const vel_object &object) { return object.dep_objs[0] != 0; }

} // namespace velumo
