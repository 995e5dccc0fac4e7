// What the types of objects and the styles of borders are, as tables. For every subsystem.
#pragma once

#include "model/objects.h"

namespace velumo {

enum class Body { box, box_at_top_level, picture, none };
enum class TextKind {
    none,
    caption,    // one line, in the label
    paragraphs, // a text record, broken into lines
    chain       // lines that flow in from the head of a chain
};
// Which objects of a type the waiting loop reports when they are clicked.
enum class Answer { always, unless_editable, at_top_level, never };

struct ObjectType {
    Body body;
    TextKind text;
    bool takes_cursor;  // shows the text cursor and gets it by a click, where it may be edited
    bool is_on_desktop; // painted with the desktop when it has no master
    bool can_be_title;  // may open a menu
    Answer answer;
};

inline constexpr ObjectType object_types[] = {
    /* 0 empty    */ {Body::box_at_top_level, TextKind::none, false, false, false,
                      Answer::at_top_level},
    /* 1 window   */ {Body::box, TextKind::paragraphs, true, false, false, Answer::never},
    /* 2 label    */ {Body::box, TextKind::caption, false, true, true, Answer::always},
    /* 3 text     */ {Body::box, TextKind::paragraphs, true, false, false, Answer::at_top_level},
    /* 4 unloaded */ {Body::none, TextKind::none, false, true, true, Answer::always},
    /* 5 entry    */ {Body::box, TextKind::caption, true, true, false, Answer::unless_editable},
    /* 6 number   */ {Body::box, TextKind::caption, true, true, false, Answer::unless_editable},
    /* 7 menu     */ {Body::box, TextKind::none, false, true, false, Answer::always},
    /* 8 chain    */ {Body::box, TextKind::chain, true, true, false, Answer::at_top_level},
    /* 9 picture  */ {Body::picture, TextKind::none, false, true, true, Answer::always},
    /* any other  */
    {Body::box_at_top_level, TextKind::none, false, true, false, Answer::at_top_level},
};

inline const ObjectType &type_of(const vel_object &object) {
    return object_types[std::min<std::size_t>(object.type, std::size(object_types) - 1)];
}

inline bool has_caption(const vel_object &o) { return type_of(o).text == TextKind::caption; }
inline bool has_paragraphs(const vel_object &o) { return type_of(o).text == TextKind::paragraphs; }
// An entry field: a caption that is typed in.
inline bool is_field(const vel_object &o) { return has_caption(o) && type_of(o).takes_cursor; }
inline bool is_editable(const vel_object &o) { return o.editable == 1 && type_of(o).takes_cursor; }

// Beyond these, nothing is typed into a field and a text.
inline constexpr u32 max_field_characters = 64;
inline constexpr u32 max_text_characters = VEL_TEXT_SIZE - 1;

enum class BorderLines { none, frame, shadow };

struct BorderStyle {
    BorderLines lines;
    bool is_fitted;           // as a dependent it covers its master's inner area
    bool lets_clicks_through; // to what lies under it
};

inline constexpr BorderStyle border_styles[] = {
    /* 0 none          */ {BorderLines::none, false, false},
    /* 1 frame         */ {BorderLines::frame, false, false},
    // On purpose: of the fitted styles only these two let clicks through.
    /* 2 fitted        */ {BorderLines::none, true, true},
    /* 3 frame fitted  */ {BorderLines::frame, true, true},
    /* 4 shadow        */ {BorderLines::shadow, false, false},
    /* 5 shadow fitted */ {BorderLines::shadow, true, false},
    /* any other       */ {BorderLines::none, false, false},
};

inline const BorderStyle &border_of(const vel_object &object) {
    return border_styles[std::min<std::size_t>(object.border_style, std::size(border_styles) - 1)];
}

} // namespace velumo
