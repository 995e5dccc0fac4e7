/**
 * \file velumo.h
 * Velumo: forms for small native programs on SDL 1.2.
 *
 * A program owns one vel_context, fills it with zeros, opens the display and a font, and passes the
 * context to every vel_ function. Windows, buttons, fields, texts, pictures and menus come from two
 * binary files that vel_start_velumo() or vel_load_forms() reads.
 *
 * Conventions:
 * - Objects, texts and windows are referred to by their number in the tables; 0 means none.
 * - Coordinates are display pixels, with (0, 0) at the top left, even inside windows. They are
 *   stored as unsigned 32-bit numbers; positions left of or above the display wrap around.
 * - Texts are ISO 8859-1 and end with a NUL.
 * - A context and tables that a program fills by hand work like loaded ones.
 * - Where the library knows the size of the tables, as it does after loading, a number beyond them
 *   means record 0, the empty record.
 * - Bad arguments do no harm. Without a form - a null context, one before start-up or after
 *   vel_close() - and without memory, a function does nothing and returns 0, or what it says for
 *   failures. A null string counts as "", a null place to write to is not written to, and object 0
 *   and numbers beyond the table are the empty record.
 * - Everything runs on the thread that drives SDL's video. Nothing throws.
 *
 * What nobody can tell from what is right stays undefined:
 *
 * | Undefined | Because |
 * |---|---|
 * | A pointer that is neither null nor valid | C cannot find out |
 * | A context that was not filled with zeros before its first use | it is full of such pointers |
 * | A font, picture or table that the program has released and not set to null | the same |
 * | A text_surface that the program releases or replaces | the library releases it |
 * | A string that is not in a record and has no end, or less than its length | it has no size |
 * | A destination with less room than the function says | the same |
 * | Numbers beyond a table that the program made, and counts above its length | the same |
 * | vel_copy_st_last_part() of "" | it copies a byte before it looks for the end |
 * | Calls by two threads at once, or by a signal handler | nothing is locked |
 * | A vel_list_source that loads or closes a form, or shows other rows | it is asked while rows are
 * shown |
 */
#ifndef VELUMO_H
#define VELUMO_H

#include <stddef.h>
#include <stdint.h>

#include <SDL.h>
#include <SDL_ttf.h>

#define VEL_API __attribute__((visibility("default")))

#ifdef __cplusplus
#define VEL_NOTHROW noexcept
extern "C" {
#else
#define VEL_NOTHROW
#endif

/** \name Sizes of the records */
/**@{*/
#define VEL_STRING_SIZE 68     /**< Bytes of a string field of an object, including the NUL. */
#define VEL_MAX_RECORDS 65536  /**< Records of a form description file or a text file. */
#define VEL_MAX_DEPENDENTS 100 /**< Entries in an object's list of dependents. */
#define VEL_TEXT_SIZE 1000     /**< Bytes of a text, including the NUL. */
#define VEL_TEXT_LINES 40      /**< Formatted lines of a text. */
#define VEL_LINE_SIZE 100      /**< Bytes of a formatted line, including the NUL. */
#define VEL_TEXT_BUFFER_SIZE (VEL_TEXT_LINES * VEL_LINE_SIZE) /**< Bytes of a line buffer. */
#define VEL_MAX_WINDOWS 100                                   /**< Entries in the window stack. */
#define VEL_DIR_ENTRIES 100      /**< Names in the listing of the simple file selector. */
#define VEL_DIR_NAME_SIZE 65     /**< Bytes of such a name, including the NUL. */
#define VEL_FRAME_BUTTONS 7      /**< Objects 1 to 7 are the frame buttons of the active window. */
#define VEL_FRAME_BUTTON_SIZE 16 /**< Width and height of a frame button, in pixels. */
/**@}*/

/** What an object is (vel_object::type). */
enum vel_object_type {
    VEL_TYPE_EMPTY = 0,            /**< Empty record. */
    VEL_TYPE_WINDOW = 1,           /**< Window with a frame, an optional text and dependents. */
    VEL_TYPE_LABEL = 2,            /**< Button or caption: one line, not editable. */
    VEL_TYPE_TEXT = 3,             /**< Text of many lines. */
    VEL_TYPE_PICTURE_UNLOADED = 4, /**< Picture whose file is not loaded; only its border shows. */
    VEL_TYPE_ENTRY = 5,            /**< Entry field of one line. */
    VEL_TYPE_NUMBER = 6,           /**< Entry field of one line for digits. */
    VEL_TYPE_MENU = 7,             /**< Pull-down menu; its dependents are the entries. */
    VEL_TYPE_CHAIN = 8,            /**< Head or member of a chain of texts. */
    VEL_TYPE_PICTURE = 9           /**< Loaded picture. */
};

/** Frame of a window (vel_object::window_kind). */
enum vel_window_kind {
    VEL_WINDOW_FULL = 0,    /**< All seven frame buttons. */
    VEL_WINDOW_REDUCED = 1, /**< Frame buttons 1 and 7; the text may be centred. */
    VEL_WINDOW_PLAIN = 2    /**< This and any higher code: the frame buttons stay as they are. */
};

/** Border of an object (vel_object::border_style); any other code draws nothing. */
enum vel_border_style {
    VEL_BORDER_NONE = 0,         /**< No border. */
    VEL_BORDER_FRAME = 1,        /**< Frame around the inner area. */
    VEL_BORDER_FITTED = 2,       /**< No lines; a dependent is fitted to its master's inner area. */
    VEL_BORDER_FRAME_FITTED = 3, /**< Frame, and fitted. */
    VEL_BORDER_SHADOW = 4,       /**< The outline, shifted right and down. */
    VEL_BORDER_SHADOW_FITTED = 5 /**< Shadow, and fitted. */
};

/** How masters limit a dependent object (vel_object::clip_mode). */
enum vel_clip_mode {
    VEL_CLIP_MARGINS = 0, /**< It shows within its masters' margins. */
    VEL_CLIP_FRAME = 1,   /**< It shows anywhere on its masters' rectangles. */
    VEL_CLIP_NONE = 2     /**< This and any higher code: the master's rectangle sets no limit, and
                               an object whose master lies wholly on the screen shows nowhere. */
};

/** Numbers of the frame buttons. */
enum vel_frame_button {
    VEL_BUTTON_MOVE = 1,        /**< Moves the window. */
    VEL_BUTTON_HEIGHT_LESS = 2, /**< Reduces the height, or scrolls down. */
    VEL_BUTTON_HEIGHT_MORE = 3, /**< Increases the height, or scrolls up. */
    VEL_BUTTON_MODE = 4,        /**< Switches between resizing and scrolling. */
    VEL_BUTTON_WIDTH_LESS = 5,  /**< Reduces the width, or scrolls right. */
    VEL_BUTTON_WIDTH_MORE = 6,  /**< Increases the width, or scrolls left. */
    VEL_BUTTON_CLOSE = 7        /**< Closes the window. */
};

/** What the frame buttons do (vel_context::frame_mode). */
enum vel_frame_mode {
    VEL_MODE_RESIZE = 0, /**< They resize the window; the marks have colour set A. */
    VEL_MODE_SCROLL = 1  /**< They scroll its contents; the marks have colour set B. */
};

/** Control keys (vel_context::key_code, vel_context::final_key). Those from VEL_KEY_HOME on, and
 * the modifiers, exist with VEL_COMFORT_TYPING only. */
enum vel_key_code {
    VEL_KEY_NONE = 0,         /**< No key. */
    VEL_KEY_BACKSPACE = 8,    /**< Deletes the character before the cursor. */
    VEL_KEY_DELETE = 127,     /**< Deletes the character at the cursor. */
    VEL_KEY_ENTER = 271,      /**< Starts a new line. */
    VEL_KEY_UP = 273,         /**< Moves one line up. */
    VEL_KEY_DOWN = 274,       /**< Moves one line down. */
    VEL_KEY_RIGHT = 275,      /**< Moves one character right. */
    VEL_KEY_LEFT = 276,       /**< Moves one character left. */
    VEL_KEY_INSERT = 277,     /**< Toggles between inserting and overwriting. */
    VEL_KEY_HOME = 278,       /**< Moves to the start of the line. */
    VEL_KEY_END = 279,        /**< Moves to the end of the line. */
    VEL_KEY_PAGE_UP = 280,    /**< Moves up by the lines in sight but one. */
    VEL_KEY_PAGE_DOWN = 281,  /**< Moves down by the lines in sight but one. */
    VEL_KEY_SHIFT = 0x10000,  /**< Added to a key: Shift was held. Selects, with keys that move. */
    VEL_KEY_CONTROL = 0x20000 /**< Added to a key, or to a small letter: Ctrl was held. */
};

/** Comforts that a program switches on (vel_context::comfort). 0 = none: everything as it always
 * was. */
enum vel_comfort {
    VEL_COMFORT_TYPING = 1, /**< Characters come from the layout of the user's keyboard; moving by
                                 words and pages, selecting, undoing; a clipboard. */
    VEL_COMFORT_CLIPBOARD = 2, /**< That clipboard is shared with other programs. */
    VEL_COMFORT_KEYBOARD = 4,  /**< Answers, menus and frame buttons are reached by keys. */
    VEL_COMFORT_STATES = 8,    /**< Objects show that they are focused, under the pointer or
                                    pressed. */
    VEL_COMFORT_WHEEL = 16,    /**< The wheel scrolls what is under the pointer. */
    VEL_COMFORT_WINDOWS = 32,  /**< The pointer drags the active window by the strip at its top and
                                    resizes it by its lower right corner. */
    VEL_COMFORT_ALL = 63       /**< All of these. */
};

/** How vel_open_display() opens the display (vel_context::open_flags). 0 = none. */
enum vel_open_flags {
    VEL_OPEN_RESIZABLE = 1, /**< The user may resize it, and the form follows, see vel_resize(). */
    VEL_OPEN_FULLSCREEN = 2 /**< It covers the whole screen. */
};

/** Why something that was typed or pasted was refused (vel_last_refusal()). */
enum vel_refusal {
    VEL_REFUSED_NOTHING = 0,   /**< Nothing was refused yet. */
    VEL_REFUSED_CHARACTER = 1, /**< ISO 8859-1 does not have the character, or only as a control
                                    character, as a tab that was pasted. */
    VEL_REFUSED_DIGIT = 2,     /**< A number field takes digits only. */
    VEL_REFUSED_FULL = 3,      /**< The field or text is full, or the line, when overwriting. */
    VEL_REFUSED_LINES = 4,     /**< The text would have more than 40 lines, or a field two. */
    VEL_REFUSED_READ_ONLY = 5, /**< The text of a chain or a disabled object cannot be changed. */
    VEL_REFUSED_SECRET = 6     /**< A password is not copied. */
};

/** What an object is to the keyboard (vel_set_answer()). */
enum vel_answer {
    VEL_ANSWER_NONE = 0,    /**< Tab passes it over. */
    VEL_ANSWER_PLAIN = 1,   /**< Tab reaches it, Space and Enter press it. */
    VEL_ANSWER_DEFAULT = 2, /**< The same, and Enter presses it from elsewhere in its window. */
    VEL_ANSWER_CANCEL = 3   /**< The same, and Escape presses it from elsewhere in its window. */
};

/** Verdicts of an event filter (vel_context::event_filter). */
enum vel_filter_verdict {
    VEL_FILTER_PASS = 0,    /**< The loop handles the event. */
    VEL_FILTER_DROP = 1,    /**< The loop does not see the event. */
    VEL_FILTER_END_LOOP = 2 /**< The loop ends. */
};

/** Results of vel_load_forms(), and errors of other functions. */
enum vel_result {
    VEL_OK = 1,               /**< Done. */
    VEL_ERROR_ARGUMENT = -1,  /**< A null context or path, or another invalid argument. */
    VEL_ERROR_FORM_FILE = -2, /**< The form description file cannot be opened. */
    VEL_ERROR_TEXT_FILE = -3, /**< The text file is needed and cannot be opened. */
    VEL_ERROR_READ = -4,      /**< A file was opened, but cannot be read to its end. */
    VEL_ERROR_MEMORY = -5,    /**< Out of memory. */
    VEL_ERROR_FOLDER = -6,    /**< A folder cannot be read. */
    VEL_ERROR_SIZE = -7,      /**< A path is longer than the room for it. */
    VEL_ERROR_RECORDS = -8,   /**< A file has more than VEL_MAX_RECORDS records. */
    VEL_ERROR_DISPLAY = -9,   /**< The display cannot be opened or resized. */
    VEL_ERROR_FONT = -10      /**< The default font cannot be found or opened. */
};

/** A colour. */
typedef struct vel_colour {
    uint8_t r; /**< Read-write. Red, 0 to 255. */
    uint8_t g; /**< Read-write. Green, 0 to 255. */
    uint8_t b; /**< Read-write. Blue, 0 to 255. */
} vel_colour;

/** One record of the form description file: 776 bytes, numbers little-endian. All fields are
 * read-write; vel_object describes the fields of the same names. */
typedef struct vel_object_file_rec {
    uint32_t x;                            /**< Byte 0. Left edge. */
    uint32_t y;                            /**< Byte 4. Top edge. */
    uint32_t width;                        /**< Byte 8. Width, pixels. */
    uint32_t height;                       /**< Byte 12. Height, pixels. */
    uint32_t fill_r;                       /**< Byte 16. Body colour, red. */
    uint32_t fill_g;                       /**< Byte 20. Body colour, green. */
    uint32_t fill_b;                       /**< Byte 24. Body colour, blue. */
    char label[VEL_STRING_SIZE];           /**< Byte 28. Caption. */
    uint32_t font_choice;                  /**< Byte 96. 0 = default font, 1 = own font. */
    uint32_t font_size;                    /**< Byte 100. Size of the own font, points. */
    char font_path[VEL_STRING_SIZE];       /**< Byte 104. File of the own font. */
    uint32_t text_index;                   /**< Byte 172. Number of the text, 0 = none. */
    uint32_t text_r;                       /**< Byte 176. Text colour, red. */
    uint32_t text_g;                       /**< Byte 180. Text colour, green. */
    uint32_t text_b;                       /**< Byte 184. Text colour, blue. */
    uint32_t margin_left;                  /**< Byte 188. Left margin. */
    uint32_t margin_right;                 /**< Byte 192. Right margin. */
    uint32_t margin_top;                   /**< Byte 196. Top margin. */
    uint32_t margin_bottom;                /**< Byte 200. Bottom margin. */
    uint32_t centred;                      /**< Byte 204. 1 = centred text lines. */
    uint32_t line_width;                   /**< Byte 208. Maximum width of a line. */
    uint32_t line_spacing;                 /**< Byte 212. Pixels between lines. */
    uint32_t reserved_number_of_lines;     /**< Byte 216. Ignored. */
    uint32_t reserved;                     /**< Byte 220. Ignored. */
    uint32_t hidden;                       /**< Byte 224. Nonzero = hidden. */
    uint32_t type;                         /**< Byte 228. Object type code. */
    uint32_t window_kind;                  /**< Byte 232. Frame of a window. */
    uint32_t editable;                     /**< Byte 236. 1 = can hold the text cursor. */
    uint32_t reserved_cursor_x;            /**< Byte 240. Ignored. */
    uint32_t reserved_cursor_y;            /**< Byte 244. Ignored. */
    uint32_t text_length;                  /**< Byte 248. Characters in the text. */
    uint32_t reserved_cursor_line;         /**< Byte 252. Ignored. */
    uint32_t reserved_cursor_column;       /**< Byte 256. Ignored. */
    uint32_t max_chars;                    /**< Byte 260. Column limit, or menu of a title. */
    uint32_t border_style;                 /**< Byte 264. Border code. */
    uint32_t border_inset;                 /**< Byte 268. Offset of the border lines. */
    uint32_t border_r;                     /**< Byte 272. Border colour, red. */
    uint32_t border_g;                     /**< Byte 276. Border colour, green. */
    uint32_t border_b;                     /**< Byte 280. Border colour, blue. */
    uint32_t master;                       /**< Byte 284. Number of the master, 0 = none. */
    uint32_t dep_objs[VEL_MAX_DEPENDENTS]; /**< Byte 288. Numbers of the dependents. */
    uint32_t reserved_scroll_x;            /**< Byte 688. Ignored. */
    uint32_t reserved_scroll_y;            /**< Byte 692. Ignored. */
    uint32_t scroll_max_x;                 /**< Byte 696. Horizontal scroll range. */
    uint32_t scroll_max_y;                 /**< Byte 700. Vertical scroll range. */
    char image_path[VEL_STRING_SIZE];      /**< Byte 704. Picture file. */
    uint32_t clip_mode;                    /**< Byte 772. How masters limit the object. */
} vel_object_file_rec;

/** One text, in memory and in the text file: 1008 bytes. Spare texts start as zeros. */
typedef struct vel_text_rec {
    uint32_t first_word;      /**< Read-write. Copied from the file, never interpreted. */
    uint32_t cursor_index;    /**< Read-write. Text cursor: characters from the start, 0 to 999. */
    char text[VEL_TEXT_SIZE]; /**< Read-write. The text; byte 10 ends a paragraph. */
} vel_text_rec;

/**
 * One object of the form. Fields marked 'file' are loaded from the form description file; all other
 * fields, and all fields of spare objects, start as 0 or null.
 */
typedef struct vel_object {
    uint32_t x;                  /**< Read-write, file. Left edge, pixels. */
    uint32_t y;                  /**< Read-write, file. Top edge, pixels. */
    uint32_t width;              /**< Read-write, file. Pixels; 0 = neither drawn nor hit. */
    uint32_t height;             /**< Read-write, file. Pixels; 0 = neither drawn nor hit. */
    uint32_t fill_r;             /**< Read-write, file. Body colour, red; low byte only. */
    uint32_t fill_g;             /**< Read-write, file. Body colour, green; low byte only. */
    uint32_t fill_b;             /**< Read-write, file. Body colour, blue; low byte only. */
    char label[VEL_STRING_SIZE]; /**< Read-write, file. Caption of types 2, 5 and 6. */
    uint32_t font_choice;        /**< Read-write, file. 0 = the context's font, 1 = own_font; with
                                      other values text is neither measured nor drawn. */
    uint32_t font_size;          /**< Read-write, file. Size of own_font, points; at most 2000. */
    char font_path[VEL_STRING_SIZE]; /**< Read-write, file. TrueType file of own_font. */
    TTF_Font *own_font;     /**< Read-write. Opened by loading if font_choice is 1; null if that
                                 failed. Loaded objects of the same file and size share it. For
                                 loaded objects, vel_close() closes it. */
    uint32_t text_index;    /**< Read-write, file. Number of the object's text; 0 = none. */
    uint32_t text_r;        /**< Read-write, file. Text and cursor colour, red; low byte only. */
    uint32_t text_g;        /**< Read-write, file. Text and cursor colour, green; low byte only. */
    uint32_t text_b;        /**< Read-write, file. Text and cursor colour, blue; low byte only. */
    uint32_t margin_left;   /**< Read-write, file. Pixels kept free inside the left edge. */
    uint32_t margin_right;  /**< Read-write, file. Pixels kept free inside the right edge. */
    uint32_t margin_top;    /**< Read-write, file. Pixels kept free inside the top edge. */
    uint32_t margin_bottom; /**< Read-write, file. Pixels kept free inside the bottom edge. */
    uint32_t centred;       /**< Read-write, file. 1 = a window of kind 1 centres its lines. */
    uint32_t line_width;    /**< Read-write, file. Maximum width of a formatted line, pixels; 0 =
                                 computed from the object's size at the first formatting. */
    uint32_t line_spacing;  /**< Read-write, file. Pixels added to the font height to get the
                                 distance between lines. */
    uint32_t number_of_lines; /**< Read-only. Index of the last formatted line, from 0. */
    uint32_t reserved;        /**< Private to the library. */
    uint32_t hidden;      /**< Read-write, file. Nonzero = neither drawn nor hit; a closed window
                               has 1. Drawing a master sets it for every dependent but menus. */
    uint32_t type;        /**< Read-write, file. One of vel_object_type. */
    uint32_t window_kind; /**< Read-write, file. One of vel_window_kind. */
    uint32_t editable;    /**< Read-write, file. 1 = can hold the text cursor, 0 = cannot. A window
                               with another value leaves the cursor where it was when it is
                               activated. */
    uint32_t cursor_x;    /**< Read-write. Left edge of the text cursor, pixels. */
    uint32_t cursor_y;    /**< Read-write. Top edge of the text cursor, pixels. */
    uint32_t text_length; /**< Read-write, file. Characters in the text or label. */
    uint32_t cursor_line; /**< Read-write. Line of the text cursor, from 0. */
    uint32_t cursor_column; /**< Read-write. Column of the text cursor, from 0. */
    uint32_t max_chars;     /**< Read-write, file. Most characters in an entry field (at most 64
                                 count, 0 = none); for windows and texts the column limit when
                                 overwriting, 0 = no limit. For types 2, 4 and 9 the number of the
                                 menu (type 7) that the object opens as its title in
                                 vel_wait_for_object(), 0 = none. */
    uint32_t border_style;  /**< Read-write, file. One of vel_border_style. */
    uint32_t border_inset;  /**< Read-write, file. Offset of the border lines, pixels. */
    uint32_t border_r;      /**< Read-write, file. Border colour, red; low byte only. */
    uint32_t border_g;      /**< Read-write, file. Border colour, green; low byte only. */
    uint32_t border_b;      /**< Read-write, file. Border colour, blue; low byte only. */
    uint32_t master;        /**< Read-write, file. Number of the master; 0 = top-level object. */
    uint32_t dep_objs[VEL_MAX_DEPENDENTS]; /**< Read-write, file. Numbers of the dependents, in
                                                drawing order; the first one hit gets a click. Ends
                                                at the first 0. */
    uint32_t scroll_x;     /**< Read-write. Pixels the contents are moved right; wraps when left. */
    uint32_t scroll_y;     /**< Read-write. Pixels the contents are moved down; wraps when up. */
    uint32_t scroll_max_x; /**< Read-write, file. Scroll range, pixels: this far to the left, twice
                                as far to the right; 0 = five screen widths either way. */
    uint32_t scroll_max_y; /**< Read-write, file. Scroll range, pixels: this far up, twice as far
                                down; 0 = five screen heights either way. */
    char image_path[VEL_STRING_SIZE]; /**< Read-write, file. Picture of a type 4 object. */
    SDL_Surface *image; /**< Read-write. Picture of a type 9 object. For loaded objects,
                             vel_close() frees it. */
    uint32_t clip_mode; /**< Read-write, file. One of vel_clip_mode. */
    char *stream;       /**< Read-write. Text of the head of a chain (type 8); the application owns
                             it. */
} vel_object;

struct vel_context;
struct vel_state;

/**
 * Sees every event that a loop of the library polls, before the loop does.
 *
 * If it ends the loop, a selection loop returns 7, a menu and vel_wait_for_object() return 0, and a
 * move leaves the window where it is. It may draw, run loops of its own, change objects, load
 * another form and close the context. An event may have any type, keys, buttons and places, also
 * such that SDL does not have: a loop passes over what it does not know.
 *
 * \param event the event; the filter may change it
 * \returns one of vel_filter_verdict
 */
typedef uint32_t (*vel_event_filter)(struct vel_context *ctx, SDL_Event *event);

/**
 * Called by a loop of the library whenever no event is waiting: at least every 50 ms, at most about
 * a thousand times a second. Use it for clocks, timers and progress.
 */
typedef void (*vel_idle_hook)(struct vel_context *ctx);

/**
 * The state of one interface. The application owns it and fills it with zeros before use, so every
 * field starts as 0 or null.
 */
typedef struct vel_context {
    SDL_Event event;     /**< Read-write. The event polled last; type 0 marks it as used. */
    TTF_Font *font;      /**< Read-write. Default font; set by the application, closed by
                              vel_close(). */
    SDL_Surface *screen; /**< Read-write. The surface to draw on; set by the application, freed by
                              vel_close(). */
    SDL_Surface *text_surface; /**< Read-only. The text line painted last; freed by vel_close(). */
    SDL_Rect screen_rect; /**< Read-write. The rectangle that a full redraw updates and that limits
                               the borders of top-level objects; normally the whole display. */
    vel_colour background_colour; /**< Read-write. Colour of the empty screen. */
    vel_colour mark_colour;       /**< Read-write. Colour of the marks of the active window. */
    vel_colour mark_colour_a;     /**< Read-write. Colour set A, for resizing. */
    vel_colour mark_colour_b;     /**< Read-write. Colour set B, for scrolling. */
    uint32_t screen_width;        /**< Read-write. Pixels; objects are cut to it. */
    uint32_t screen_height;       /**< Read-write. Pixels; objects are cut to it. */
    uint32_t frame_mode;    /**< Read-write. One of vel_frame_mode; other values disable the frame
                                 buttons that depend on it. */
    uint32_t scroll_step;   /**< Read-write. Distance of one scroll, pixels. */
    uint32_t key_code;      /**< Read-write. Key pressed last; 0 = none pending. Not used with
                                 VEL_COMFORT_TYPING. */
    uint32_t final_key;     /**< Read-write. Key for the text editor, a character or one of
                                 vel_key_code; 0 = none. */
    uint32_t key_printable; /**< Read-write. 1 = key_code, or with VEL_COMFORT_TYPING final_key, is
                                 a character to insert; else 0. */
    uint32_t active_window; /**< Read-only. Number of the active window; 0 = none. */
    uint32_t reserved;      /**< Private to the library. */
    uint32_t object_count;  /**< Read-only. Objects loaded from the form description file. */
    uint32_t text_count;    /**< Read-only. Texts loaded from the text file. */
    uint32_t window_to_activate; /**< Read-write. Object that the next activation, selection or
                                      frame action is for; 0 after a window was activated. */
    uint32_t umlaut_conversion;  /**< Read-write. 1 = formatting converts the bytes 0x84, 0x94 and
                                      0x81 to the small umlauts of ISO 8859-1. */
    uint32_t cursor_object;      /**< Read-write. Object that receives typing; 0 = none. */
    uint32_t insert_mode;        /**< Read-write. 0 = typing inserts, 1 = it overwrites. */
    uint32_t texts_loaded;       /**< Read-write. 1 = vel_close() frees texts and line buffers. */
    void *application_a[4];      /**< Read-write. For the application; never touched. */
    uint32_t dir_last;           /**< Read-only. Index of the last name in dir_names. */
    void *application_b[4];      /**< Read-write. For the application; never touched. */
    char dir_names[VEL_DIR_ENTRIES][VEL_DIR_NAME_SIZE]; /**< Read-only. Names in a folder. */
    uint32_t dir_order[VEL_DIR_ENTRIES];    /**< Read-only. Indexes into dir_names, as shown. */
    uint32_t window_stack[VEL_MAX_WINDOWS]; /**< Read-write. Open windows, the front one first. */
    uint32_t window_count;                  /**< Read-write. Windows on the stack, 0 to 100. */
    vel_text_rec *text_recs;                /**< Read-write. Texts by number; record 0 is unused. */
    char (*text_bufs)[VEL_TEXT_BUFFER_SIZE]; /**< Read-write. Line buffers by text number; line k
                                                  starts at byte 100 * k. Buffer 0 is unused. */
    vel_object *objects;            /**< Read-write. Objects by number; record 0 is unused. */
    vel_object_file_rec *file_recs; /**< Private to the library. Null between calls. */
    vel_event_filter event_filter;  /**< Read-write. Sees every event first; default null, off. */
    vel_idle_hook idle_hook;        /**< Read-write. Called while nothing happens; default null,
                                         off. */
    struct vel_state *state;        /**< Private to the library. What it keeps for itself; made when
                                         it is first needed, released by vel_close(). Default
                                         null. */
    uint32_t comfort;         /**< Read-write. Sum of flags of vel_comfort; default 0, none. To
                                   be set before loading, so that what the form says beyond
                                   its records counts. */
    uint32_t partial_redraw;  /**< Read-write. 1 = nobody but the library draws inside windows, so
                                   that vel_get_text() repaints and updates only what a key has
                                   changed; default 0, the whole active window. A program that
                                   changes or replaces a picture, the screen or its palette has
                                   to draw the window itself. */
    uint32_t text_cache_size; /**< Read-write. Bytes of rendered lines that are kept for the next
                                   redraw; default 0, 4 MiB. */
    uint32_t strict_pictures; /**< Read-write. 1 = of pictures only PNG, BMP and JPEG files are
                                   loaded; default 0, whatever SDL_image knows, some of whose
                                   decoders do not withstand a damaged file. */
    uint32_t open_flags;      /**< Read-write. How vel_open_display() opens the display: sum of
                                   flags of vel_open_flags; default 0, none. */
    const char *font_path;    /**< Read-write. Font file that vel_open_display() opens; default
                                   null, the one that the system has for "sans". */
    uint32_t font_size;       /**< Read-write. Size of that font, points, at most 2000; default 0,
                                   12. */
} vel_context;

/** A picture or font inside a program. */
typedef struct vel_form_file {
    const char *path;           /**< Read-only. What image_path or font_path of objects says. */
    const unsigned char *bytes; /**< Read-only. What such a file holds. */
    size_t size;                /**< Read-only. Bytes. */
} vel_form_file;

/** A form inside a program, as `velform compile --embed` writes it. */
typedef struct vel_form_data {
    const unsigned char *form;  /**< Read-only. What a form description file holds. */
    size_t form_size;           /**< Read-only. Bytes. */
    const unsigned char *text;  /**< Read-only. What a text file holds; null = none. */
    size_t text_size;           /**< Read-only. Bytes. */
    const vel_form_file *files; /**< Read-only. Pictures and fonts; null = none. */
    size_t file_count;          /**< Read-only. How many. */
} vel_form_data;

/** \name Start-up and shutdown */
/**@{*/

/**
 * Opens the display and the default font, so that forms can be loaded and drawn.
 *
 * Starts SDL's video and SDL_ttf where they are not running, opens the font of font_path and
 * font_size, sets a video mode of 32 bits as open_flags says, and fills it with background_colour.
 * Sets screen, screen_width, screen_height and, to all of the display, screen_rect; texts_loaded
 * becomes 1. What the program has set already stays: font, background_colour, mark_colour_a,
 * mark_colour_b (for which black counts as not set), scroll_step and comfort; where they are not
 * set, they become calm and light, 20 pixels and VEL_COMFORT_ALL. mark_colour becomes
 * mark_colour_a.
 *
 * Without SDL_VIDEODRIVER in the environment, the drivers that show pixels are tried; else SDL
 * obeys it unless it names one that draws with letters. SDL has signal handlers of its own: a
 * program that wants others sets them before. vel_close() releases all of it.
 *
 * \param width  pixels, 1 to 16383; at most 2^26 pixels in all
 * \param height pixels, 1 to 16383
 * \param title  of the display's window, UTF-8; null counts as ""
 * \returns VEL_OK; VEL_ERROR_ARGUMENT for a null context, one that has a screen, a size beyond
 *          the range, a font_size above 2000 and other flags; VEL_ERROR_MEMORY; VEL_ERROR_FONT
 *          and VEL_ERROR_DISPLAY, with the cause in SDL_GetError(). After an error the context is
 * unchanged, and nothing is open that was not before
 */
VEL_API int32_t vel_open_display(vel_context *ctx, uint32_t width, uint32_t height,
                                 const char *title) VEL_NOTHROW;

/**
 * Gives the display another size, and the form with it, and draws all of it.
 *
 * The loops of the library call this when the user resizes a display that vel_open_display() opened
 * with VEL_OPEN_RESIZABLE; of several sizes that wait, the last one counts. The event filter sees
 * the event (SDL_VIDEORESIZE) first and may drop it.
 *
 * screen, screen_width, screen_height and screen_rect become those of the new size. A screen that
 * is not the display's own stays, for programs that replace it themselves. Top-level objects keep
 * their distance from the edges that the form source says (`anchor`), the left and the top one
 * unless it says others; whole windows cover the screen; windows that would be out of sight are
 * moved back, so that 20 pixels of them show. What dependents do when their master is resized
 * follows from their anchors in the same way. Nothing becomes narrower or lower than 1 pixel, and
 * what does not fit comes back when there is room again.
 *
 * \param width  pixels, 1 to 16383; at most 2^26 pixels in all
 * \param height pixels, 1 to 16383
 * \returns VEL_OK; VEL_ERROR_ARGUMENT without a form and for a size beyond the range;
 *          VEL_ERROR_DISPLAY if SDL refuses, after which the display has its old size again or, if
 *          SDL refuses that, too, screen is null; VEL_ERROR_MEMORY, after which some objects may
 *          have their old size
 */
VEL_API int32_t vel_resize(vel_context *ctx, uint32_t width, uint32_t height) VEL_NOTHROW;

/**
 * Loads a form: reads the form description file and, if any object has a text, the text file, then
 * opens the pictures and fonts that the objects name and sets mark_colour according to frame_mode.
 *
 * Both files must be readable and writable. Record k of a file, counting from 0, becomes object or
 * text k + 1; bytes after the last whole record are ignored. Dependents other than menus, and
 * objects of type 0, start visible whatever their record says. Invalid references are removed, each
 * with a line on standard error: masters, dependents and texts beyond the tables, cycles of masters
 * or dependents, objects listed as a dependent twice; after 20 lines, one says how many more there
 * were. Control characters of the path are printed as \\xNN. A string without a NUL is cut to fit
 * its field.
 *
 * If the form description file cannot be opened, "Can't open file." and a line end are printed; if
 * a text file that is needed cannot be opened, "Can't open file !" and two line ends. Both go to
 * standard output, and the process exits with status 0. If a file cannot be read, has
 * more than VEL_MAX_RECORDS records or does not fit into memory, the first message is printed and
 * the process exits in the same way. A font that
 * cannot be opened prints "TTF_OpenFont: ", SDL's error text and a line end to standard output. A
 * picture that cannot be loaded silently stays at type 4.
 *
 * \param ctx         zeros except for what the application has set; null does nothing
 * \param extra_objs  spare object records after the loaded ones, all zero
 * \param extra_texts spare text records after the loaded ones, all zero
 * \param text_path   not opened if no object has a text
 */
VEL_API void vel_start_velumo(vel_context *ctx, uint32_t extra_objs, uint32_t extra_texts,
                              const char *form_path, const char *text_path) VEL_NOTHROW;

/**
 * Loads a form like vel_start_velumo(), for programs that want to go on after a failure.
 *
 * The files are opened for reading only. Nothing is printed except the lines about invalid
 * references, and the process never exits. After a failure the context is unchanged.
 *
 * \returns VEL_OK (1), or one of the negative codes of vel_result; VEL_ERROR_ARGUMENT if a pointer
 *          is null
 */
VEL_API int32_t vel_load_forms(vel_context *ctx, uint32_t extra_objs, uint32_t extra_texts,
                               const char *form_path, const char *text_path) VEL_NOTHROW;

/**
 * Loads a form like vel_load_forms(), from memory.
 *
 * Pictures and fonts are looked up by their path among the files of the data first, then on the
 * disk; vel_load_object_images() and vel_load_object_fonts() do the same later. Each goes through
 * the same checks as a file. Entries without a path or bytes count as not there.
 *
 * \param data must last, unchanged, until another form is loaded or the context is closed, and
 *             as long as any of its fonts is open
 * \returns as vel_load_forms(); VEL_ERROR_ARGUMENT if data or its form is null, or files is null
 *          and file_count is not 0; VEL_ERROR_TEXT_FILE if its text is needed and null
 */
VEL_API int32_t vel_load_forms_from_memory(vel_context *ctx, uint32_t extra_objs,
                                           uint32_t extra_texts,
                                           const vel_form_data *data) VEL_NOTHROW;

/**
 * Describes a code of vel_result in English.
 *
 * \returns a constant string without a line end, never null; "unknown error" for other numbers
 */
VEL_API const char *vel_error_text(int32_t code) VEL_NOTHROW;

/**
 * Loads the pictures of all objects of type 4 from first to object_count.
 *
 * An object whose picture loads gets image, the picture's width and height, and type 9; the others
 * are unchanged. Only regular files of at most 64 MiB are read. PNG, BMP and JPEG files are
 * recognised by their content and must be whole; a picture of more than 2^26 pixels is not loaded,
 * nor are more than 2^27 pixels in one call. Other files are loaded as SDL_image does unless
 * strict_pictures is set. One call decodes each file once, whatever its path, and reads 256 MiB at
 * most; what fails to decode counts as pixels, too, and a JPEG file of n > 8 scans for n / 8 times
 * its pixels. Objects of one file each get a surface of their own. Nothing is printed.
 *
 * \param first number of the first object; 0 means 1
 * \returns 1 if the last picture tried was loaded, -1 if not; 0 if there was none
 */
VEL_API int32_t vel_load_object_images(vel_context *ctx, uint32_t first) VEL_NOTHROW;

/**
 * Opens own_font of all objects from first to object_count whose font_choice is 1.
 *
 * A file is opened once for each size, and all objects that name it share the font, so that a style
 * set on it shows on each; a program can give an object a font that it opened itself instead. A
 * font that was already open is not closed. If a program closes a shared font with TTF_CloseFont(),
 * own_font of every loaded object that has it becomes null.
 *
 * A font that cannot be opened leaves own_font null and prints "TTF_OpenFont: ", SDL's error text
 * and a line end to standard output; after 20 lines, one says how many more there were. Only
 * regular files of at most 64 MiB are read. A font is refused in the same way if its size is above
 * 2000, if a line or a character is out of proportion to its size, as in a damaged file, if the
 * file is compressed or a web font, or if one call would open too many: 256 of up to 125 points, or
 * fewer of larger ones and for more than 1,953 objects, from files of 256 MiB at most. Nor are all
 * of them checked for longer than a quarter of a second and two milliseconds each, which sound
 * fonts do not take. What the program opens itself, as the context's font, is not checked.
 *
 * \param first number of the first object; 0 means 1
 * \returns 1 if the last font tried was opened, -1 if not; 0 if there was none
 */
VEL_API int32_t vel_load_object_fonts(vel_context *ctx, uint32_t first) VEL_NOTHROW;

/**
 * Releases what the library opened or allocated, and the context's font, text_surface, screen and
 * objects; then shuts down SDL_ttf and SDL, whoever else uses them. What was released is null
 * afterwards, and no window is open: calls that come too late find no form, and a second
 * vel_close() finds nothing to release. Loops of the library that run, because an event filter or
 * an idle hook closes the context, end as if the filter had ended them.
 *
 * A font that several objects have is closed once if the library opened it. Tables that a program
 * made itself must come from malloc(). Texts and line buffers are freed only if texts_loaded is 1.
 * The application releases the fonts and pictures of objects beyond object_count itself, before
 * this call.
 */
VEL_API void vel_close(vel_context *ctx) VEL_NOTHROW;
/**@}*/

/** \name Traits
 * What an object is beyond its record: enabled or not, a password, an answer, its access key. With
 * comfort not 0, loading sets them as the form source says; else all objects start without, and a
 * form loads as if it said nothing. These functions work in either case, and also for spare objects
 * and tables that a program filled by hand; what they set shows when the object is drawn again.
 * Loading another form forgets them all. */
/**@{*/

/**
 * Enables or disables an object. All objects are enabled unless the form says otherwise.
 *
 * \param enabled 0 = disabled; any other value = enabled
 * \returns VEL_OK; VEL_ERROR_ARGUMENT if there is no form, or object is 0 or beyond the
 *          table; VEL_ERROR_MEMORY. After an error nothing has changed
 */
VEL_API int32_t vel_set_enabled(vel_context *ctx, uint32_t object, uint32_t enabled) VEL_NOTHROW;

/**
 * Says whether an object is enabled.
 *
 * \returns 1 if it is; 0 if it is disabled, without a form, and if object is 0 or beyond the table
 */
VEL_API uint32_t vel_is_enabled(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Makes an entry or number field show dots for its characters, or the characters again. The label
 * of the field holds the characters in either case. What it holds is neither copied nor selected
 * word by word. For objects of other types it means nothing.
 *
 * \param password 0 = characters; any other value = dots
 * \returns as vel_set_enabled()
 */
VEL_API int32_t vel_set_password(vel_context *ctx, uint32_t object, uint32_t password) VEL_NOTHROW;

/**
 * Says what a label or a picture is to the keyboard; for objects of other types it means nothing.
 * If several objects of a window are its default answer, or its cancel answer, the first one in
 * drawing order counts.
 *
 * \param answer one of vel_answer
 * \returns as vel_set_enabled(); VEL_ERROR_ARGUMENT also for any other answer
 */
VEL_API int32_t vel_set_answer(vel_context *ctx, uint32_t object, uint32_t answer) VEL_NOTHROW;

/**
 * Gives an object the key that presses or reaches it together with Alt.
 *
 * \param key a letter from A to Z or a digit; capitals count as small letters. 0 = none
 * \returns as vel_set_enabled(); VEL_ERROR_ARGUMENT also for any other character
 */
VEL_API int32_t vel_set_access_key(vel_context *ctx, uint32_t object, char key) VEL_NOTHROW;
/**@}*/

/** \name Parts
 * Lists, check boxes, sliders and the like, which velform makes of several objects and the library
 * makes live, see docs/parts.md. They are known by the number of their outermost object. They need
 * comfort not 0 before loading, and VEL_COMFORT_KEYBOARD to be reached by keys. In
 * vel_wait_for_object(), dialogs and selections the user changes them; vel_wait_for_object() then
 * returns the number of the part. What the program sets shows when the part is drawn again.
 *
 * Where a function says 'list', it also takes a choice, whose list it means. */
/**@{*/

#define VEL_NO_ROW UINT32_MAX /**< No row of a list. */

/** What a list shows in one row and one column. */
typedef struct vel_cell {
    char text[VEL_STRING_SIZE]; /**< Read-write. Caption, ISO 8859-1; "" on entry. */
    SDL_Surface *picture; /**< Read-write. Shown where the form has room for a picture; null on
                               entry. The program owns it and keeps it until the list shows
                               something else. */
} vel_cell;

/**
 * Says what a list shows. It is called for the rows in sight whenever they change, and for those
 * that typing looks for. Meanwhile the form must stay, and the list what it is.
 *
 * \param row    0 to one less than the number of rows
 * \param column 0 to one less than the number of columns
 * \param cell   to be filled
 */
typedef void (*vel_list_source)(struct vel_context *ctx, uint32_t list, uint32_t row,
                                uint32_t column, vel_cell *cell);

/**
 * Sorts what a list shows, after the user has clicked on a title. The list shows its rows again
 * afterwards; the same numbers stay selected.
 *
 * \param column     column of the title
 * \param descending 1 = largest first, after every second click; else 0
 */
typedef void (*vel_list_sorter)(struct vel_context *ctx, uint32_t list, uint32_t column,
                                uint32_t descending);

/**
 * Lets a list show rows. Nothing stays selected, and it shows its first rows.
 *
 * \param count  number of rows, at most 2^24
 * \param source says what they show; null = the rows that the form gives, whatever count says
 * \returns VEL_OK; VEL_ERROR_ARGUMENT if there is no form, list is none, or count is larger;
 *          VEL_ERROR_MEMORY
 */
VEL_API int32_t vel_list_show(vel_context *ctx, uint32_t list, uint32_t count,
                              vel_list_source source) VEL_NOTHROW;

/** Says how many rows a list has. \returns 0 also if it is none */
VEL_API uint32_t vel_list_count(const vel_context *ctx, uint32_t list) VEL_NOTHROW;

/**
 * Lets clicks on the titles of a list sort it.
 *
 * \param sorter null = titles do nothing, as at first
 * \returns as vel_list_show()
 */
VEL_API int32_t vel_list_sort_by(vel_context *ctx, uint32_t list,
                                 vel_list_sorter sorter) VEL_NOTHROW;

/**
 * Finds the first selected row from one on. Begin with 0, and go on with the row after the last.
 *
 * \returns VEL_NO_ROW if there is none, and if list is none
 */
VEL_API uint32_t vel_list_selected(const vel_context *ctx, uint32_t list,
                                   uint32_t from) VEL_NOTHROW;

/**
 * Selects a row and no other, and brings it in sight.
 *
 * \param row VEL_NO_ROW selects none
 * \returns VEL_OK; VEL_ERROR_ARGUMENT if there is no form, or no such list or row; VEL_ERROR_MEMORY
 */
VEL_API int32_t vel_list_select(vel_context *ctx, uint32_t list, uint32_t row) VEL_NOTHROW;

/**
 * Selects a row, too, or no longer, in a list of which many rows can be selected.
 *
 * \param selected 0 = not; any other value = selected
 * \returns as vel_list_select(); VEL_ERROR_ARGUMENT also if only one row can be selected
 */
VEL_API int32_t vel_list_mark(vel_context *ctx, uint32_t list, uint32_t row,
                              uint32_t selected) VEL_NOTHROW;

/** Says whether the user has double-clicked a row, or pressed Enter, as the last thing in a list.
 * \returns 1 if so, else 0 */
VEL_API uint32_t vel_list_answered(const vel_context *ctx, uint32_t list) VEL_NOTHROW;

/** Says whether a check box or radio button is checked. \returns 1 if so; 0 also if it is none */
VEL_API uint32_t vel_get_checked(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Checks a check box or a radio button, or no longer. The other radio buttons of its group are then
 * not checked.
 *
 * \param checked 0 = not; any other value = checked
 * \returns VEL_OK; VEL_ERROR_ARGUMENT if there is no form or no such part; VEL_ERROR_MEMORY
 */
VEL_API int32_t vel_set_checked(vel_context *ctx, uint32_t object, uint32_t checked) VEL_NOTHROW;

/** Reads the value of a slider or progress. \returns 0 also if it is none */
VEL_API int32_t vel_get_value(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Sets the value of a slider or progress, cut to its range. In an endless progress, whatever the
 * value, the block moves along by a step; while a loop waits, it does so by itself.
 *
 * \returns as vel_set_checked()
 */
VEL_API int32_t vel_set_value(vel_context *ctx, uint32_t object, int32_t value) VEL_NOTHROW;

/**
 * Shows a page of tabs and none of the others. A text cursor in one of these goes to the tab.
 *
 * \param page from 0
 * \returns as vel_set_checked(); VEL_ERROR_ARGUMENT also if there is no such page
 */
VEL_API int32_t vel_show_page(vel_context *ctx, uint32_t tabs, uint32_t page) VEL_NOTHROW;

/** Says which page of tabs shows, from 0. \returns 0 also if it is none */
VEL_API uint32_t vel_shown_page(const vel_context *ctx, uint32_t tabs) VEL_NOTHROW;
/**@}*/

/** \name Strings and numbers
 * They take no context. Their edge cases differ from the standard library's: read before use. */
/**@{*/

/**
 * Compares the first n + 1 characters of two strings.
 *
 * The result is that of the last pair compared: earlier differences do not count.
 *
 * \param n index of the last character to compare
 * \returns 1 equal, 2 different, 0 nothing was compared. If a string ends before n characters: 1 if
 *          both end there, else 2
 */
VEL_API uint32_t vel_strcmp(const char *a, const char *b, uint32_t n) VEL_NOTHROW;

/**
 * Counts the characters of a string.
 *
 * \returns characters before the NUL
 */
VEL_API uint32_t vel_count_string_size_without_zero(const char *string) VEL_NOTHROW;

/**
 * Finds the end of a string.
 *
 * \returns index of the NUL
 */
VEL_API uint32_t vel_get_lastposition(const char *string) VEL_NOTHROW;

/**
 * Finds the last character of a string.
 *
 * \returns index of the last character; 0xFFFFFFFF for an empty string
 */
VEL_API uint32_t vel_get_lastposition_before_zero(const char *string) VEL_NOTHROW;

/**
 * Copies the first n + 1 characters of a string, or all of a shorter one, and adds a NUL. Source
 * and destination may overlap if the destination comes first.
 *
 * \param n           index of the last character to copy
 * \param destination room for n + 2 bytes, or for the whole source
 */
VEL_API void vel_copy_st_first_part(uint32_t n, const char *source, char *destination) VEL_NOTHROW;

/**
 * Copies a string of at least one character, and its NUL.
 *
 * The first byte is copied before any test: an empty source would be read beyond its end.
 *
 * \param destination room for the string and its NUL
 * \returns characters copied
 */
VEL_API uint32_t vel_copy_st_last_part(const char *source, char *destination) VEL_NOTHROW;

/**
 * Writes a digit as a character, without a NUL.
 *
 * \param digit       0 to 9
 * \param destination one byte; "0" for any other number
 * \returns 1, or -1 if digit is not 0 to 9 or destination is null
 */
VEL_API int32_t vel_transform_int_to_asccii(int32_t digit, char *destination) VEL_NOTHROW;

/**
 * Reads a digit.
 *
 * \param destination value of the digit; 0 if the character is not a digit
 * \param character   one byte
 * \returns 1, or -1 if the character is not a digit or character is null
 */
VEL_API int32_t vel_transform_ascii_to_int(uint32_t *destination,
                                           const char *character) VEL_NOTHROW;

/**
 * Reads a decimal number of at most nine digits.
 *
 * Only the first nine characters of a string are read. A character that is not a digit counts as
 * the digit 0.
 *
 * \param destination the number; 0 for an empty string
 */
VEL_API void vel_transform_str_to_num(const char *string, uint32_t *destination) VEL_NOTHROW;

/**
 * Writes a number in decimal, and a NUL.
 *
 * The digits are counted in single precision. Numbers that this rounds up to 100000000 or
 * 1000000000 are written with one digit too many: 99999999 becomes 999999999. From 2147483648 on,
 * only the NUL at destination[10] is written.
 *
 * \param destination room for 11 bytes
 * \returns digits written; 10 from 2147483648 on; 0 if a pointer is null
 */
VEL_API int32_t vel_transform_num_to_str(const uint32_t *value, char *destination) VEL_NOTHROW;

/**
 * Raises ten to a power, modulo 2 to the 32.
 *
 * \returns ten to the exponent; 10 for an exponent of 0
 */
VEL_API uint32_t vel_zehnerpotenz(uint32_t exponent) VEL_NOTHROW;
/**@}*/

/** \name Characters
 * They take no context. Forms show ISO 8859-1; most files, command lines and libraries have UTF-8.
 * Nothing is turned into another character: what has no place is left out, counted and found. */
/**@{*/

/**
 * Converts UTF-8 to ISO 8859-1.
 *
 * Left out are characters beyond U+00FF, bytes that are no UTF-8 (a sequence that is cut short, is
 * longer than necessary, stands for a surrogate or is beyond U+10FFFF counts as one character) and,
 * once the room is used up, everything else.
 *
 * \param utf8       null counts as ""
 * \param latin1     ends with a NUL unless size is 0; may be null, which counts as a size of 0, and
 *                   may be utf8 itself
 * \param size       bytes of latin1, including the NUL; the length of utf8 and one are enough
 * \param first_lost set to the byte in utf8 at which the first character begins that was left out,
 *                   or to the length of utf8; may be null
 * \returns characters left out; 0 = all are there
 */
VEL_API size_t vel_from_utf8(const char *utf8, char *latin1, size_t size,
                             size_t *first_lost) VEL_NOTHROW;

/**
 * Converts ISO 8859-1 to UTF-8, in which the characters from 128 on have two bytes. Left out are
 * the first character that has no room and all after it.
 *
 * \param latin1     null counts as ""
 * \param utf8       ends with a NUL unless size is 0; may be null, which counts as a size of 0;
 *                   must not overlap latin1
 * \param size       bytes of utf8, including the NUL; twice the length of latin1 and one are enough
 * \param first_lost set to the byte in latin1 of the first character that was left out, or to the
 *                   length of latin1; may be null
 * \returns characters left out; 0 = all are there
 */
VEL_API size_t vel_to_utf8(const char *latin1, char *utf8, size_t size,
                           size_t *first_lost) VEL_NOTHROW;
/**@}*/

/** \name Surface primitives
 * Colours are mapped to the screen's pixel format. Whatever lies outside the surface is dropped.
 * Drawing works on surfaces of 8, 16 and 32 bits. At other depths only filled boxes work; anything
 * else draws nothing and prints a line to standard output for each pixel inside the surface:
 * "24 bit is not supported ! " at 24 bits, else "Error - can't get color depth. ". */
/**@{*/

/**
 * Locks a surface if it must be locked before it is written to.
 *
 * \param surface may be null
 */
VEL_API void vel_lock(SDL_Surface *surface) VEL_NOTHROW;

/**
 * Unlocks a surface that vel_lock() locked.
 *
 * \param surface may be null
 */
VEL_API void vel_unlock(SDL_Surface *surface) VEL_NOTHROW;

/** Sets one pixel of the screen, which must already be locked if it needs locking. */
VEL_API void vel_draw_pixel(vel_context *ctx, uint32_t x, uint32_t y, uint8_t red, uint8_t green,
                            uint8_t blue) VEL_NOTHROW;

/**
 * Draws a horizontal or vertical line on the screen, which must already be locked if it needs
 * locking. Both ends are included.
 *
 * A slanted line, and one whose ends are the same pixel, draws nothing.
 */
VEL_API void vel_draw_line(vel_context *ctx, uint32_t x1, uint32_t y1, uint32_t x2, uint32_t y2,
                           uint8_t red, uint8_t green, uint8_t blue) VEL_NOTHROW;

/** Fills a box on the screen. The numbers are cut to the 16 bits of an SDL_Rect. */
VEL_API void vel_draw_box(vel_context *ctx, uint32_t x, uint32_t y, uint32_t width, uint32_t height,
                          uint8_t red, uint8_t green, uint8_t blue) VEL_NOTHROW;

/**
 * Draws the outermost pixels of a box. The screen is locked meanwhile.
 *
 * A side of one pixel draws nothing, so a box of width 1 shows only its left and right side.
 */
VEL_API void vel_draw_rectangle(vel_context *ctx, uint32_t x, uint32_t y, uint32_t width,
                                uint32_t height, uint8_t red, uint8_t green,
                                uint8_t blue) VEL_NOTHROW;
/**@}*/

/** \name Geometry
 * Pure computations on the object table and the screen size. */
/**@{*/

/**
 * Computes the visible width of a top-level object.
 *
 * \returns its width, or screen_width - x - 2 if x + width - 1 is above screen_width; this wraps
 *          around if the object starts beyond the screen
 */
VEL_API uint32_t vel_p_cutted_w_independent(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Computes the visible height of a top-level object.
 *
 * \returns its height, or screen_height - y - 5 if y + height - 1 is above screen_height; this
 *          wraps around if the object starts beyond the screen
 */
VEL_API uint32_t vel_p_cutted_h_independent(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Computes the visible width of a dependent object inside its master.
 *
 * \returns its width, or what the master's right margin leaves of it
 */
VEL_API uint32_t vel_p_cutted_w_dependent(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Computes the visible height of a dependent object inside its master. If the master has a master
 * itself, the visible height of that one is used in place of the master's own.
 *
 * \returns its height, or what the bottom margin leaves of it
 */
VEL_API uint32_t vel_p_cutted_h_dependent(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Finds the top-level object above a dependent one.
 *
 * \returns the topmost of its masters; 0 if it has no master
 */
VEL_API uint32_t vel_search_master(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Computes where the masters let a dependent object show: strictly between the four limits.
 *
 * \param left   last column outside, on the left
 * \param right  first column outside, on the right
 * \param top    last row outside, above
 * \param bottom first row outside, below. All four are 0 without a form
 */
VEL_API void vel_get_borders_for_dep_object(const vel_context *ctx, uint32_t object, uint32_t *left,
                                            uint32_t *right, uint32_t *top,
                                            uint32_t *bottom) VEL_NOTHROW;

/**
 * Computes where the text of an object may show, within its margins and its masters: strictly
 * between the four limits.
 *
 * \param left   last column outside, on the left
 * \param right  first column outside, on the right
 * \param top    last row outside, above
 * \param bottom first row outside, below. All four are 0 without a form
 */
VEL_API void vel_get_borders_for_text(const vel_context *ctx, uint32_t object, uint32_t *left,
                                      uint32_t *right, uint32_t *top, uint32_t *bottom) VEL_NOTHROW;
/**@}*/

/** \name Painting
 * Nothing here updates the display unless it says so. */
/**@{*/

/**
 * Paints one object: body or picture, text lines, border.
 *
 * A top-level window is first moved to an x of at least 11 and a y of at least 25. A window with
 * centred lines gets the offset of its last line in scroll_x. text_surface holds the line painted
 * last. Frame buttons are 16 by 16 pixels whatever their record says.
 *
 * \param object 0 and numbers beyond the tables paint nothing
 */
VEL_API void vel_evoke_object(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/** Draws the border of an object, cut by screen_rect or its masters. The screen is locked
 * meanwhile. */
VEL_API void vel_evoke_borders(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Draws the whole screen: top-level objects other than windows and texts, the windows of the stack
 * from the bottom up, the active window with its marks, the frame buttons.
 *
 * \param format_first 1 = break all texts into lines first
 * \param refresh      1 = update screen_rect of the display afterwards
 * \returns 1; 0 without a form
 */
VEL_API uint32_t vel_draw_all_objects(vel_context *ctx, uint32_t format_first,
                                      uint32_t refresh) VEL_NOTHROW;

/** Draws all dependents of an object, depth first, after fitting and hiding them with
 * vel_switch_dep_object(). */
VEL_API void vel_draw_dep_objs(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Fits the dependents of border style 2, 3 and 5 to the inner area of an object, and sets hidden of
 * all its dependents but menus: 0 if any part lies within the masters' limits, else 1. Dependents
 * without a width or height keep theirs.
 */
VEL_API void vel_switch_dep_object(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/** Draws the active window, its cursor, its dependents and the frame buttons, but not its marks. */
VEL_API void vel_draw_selected_window(vel_context *ctx) VEL_NOTHROW;

/** Draws the active window like vel_draw_selected_window(), then updates the part of its rectangle
 * that is on the display, but not the frame buttons above it. */
VEL_API void vel_draw_and_screenup_selected_window(vel_context *ctx) VEL_NOTHROW;

/** Fills the rectangle of an object with background_colour. A top-level window is first moved as by
 * vel_evoke_object(). A shadow outside the rectangle stays. */
VEL_API void vel_undraw_object(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/** Draws a one-pixel outline around a window in mark_colour. The object is first moved: an x of at
 * most 10 becomes 11, a y of at most 0 becomes 2. */
VEL_API void vel_draw_selected_lines(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/** Draws a square of 10 by 10 pixels to the left of a window's top left corner in mark_colour. The
 * object is first moved to an x of at least 11 and a y of at least 2. */
VEL_API void vel_draw_selected_box(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/** Draws the outline of vel_draw_selected_lines() in background_colour. A top-level window is first
 * moved as by vel_evoke_object(). */
VEL_API void vel_undraw_selected_lines(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/** Draws the square of vel_draw_selected_box() in background_colour. A top-level window is first
 * moved as by vel_evoke_object(). */
VEL_API void vel_undraw_selected_box(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/** Draws the text cursor of an object at cursor_x and cursor_y: a line one pixel wide and as high
 * as the object's font, in its text colour, cut to its text area. The screen must already be locked
 * if it needs locking. */
VEL_API void vel_draw_cursor(vel_context *ctx, uint32_t object) VEL_NOTHROW;
/**@}*/

/** \name Text formatting
 * Texts are broken into at most 40 lines of at most 99 characters. Words end at a NUL, a line feed
 * or a space; one of more than 70 characters is cut into pieces. */
/**@{*/

/**
 * Breaks the text of a window or text object into lines in its line buffer.
 *
 * Sets number_of_lines, and line_width if that is 0. An empty text clears the lines and keeps
 * number_of_lines. A word that does not fit on line 39 goes to line slot 40, which is the first
 * line of the next buffer; after the last buffer it is dropped. With VEL_COMFORT_TYPING it is
 * always dropped, and a word that is split is shown once and not again before the next.
 *
 * \returns index of the last line, as in number_of_lines; 0 for an empty text, and if the object is
 *          not of type 1 or 3 or has no text
 */
VEL_API uint32_t vel_format_object_text(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Puts a word into the line buffer of an object. A word that does not fit moves to the next line or
 * is split. A line_width of 0 is first set from the object's width and margins.
 *
 * \param line        line to start on; afterwards the line where the text goes on
 * \param column      column to start at; afterwards the column where the text goes on
 * \param word_length characters of the word; not changed
 * \param break_after 1 = end the line after the word, unless the word is split
 * \returns 0 if the word was placed whole, 1 if it was split, -1 if the lines ran out, without a
 *          form, and if a pointer is null
 */
VEL_API int32_t vel_copy_word_into_line(vel_context *ctx, uint32_t object, const char *word,
                                        uint32_t *line, uint32_t *column, uint32_t *word_length,
                                        uint32_t break_after) VEL_NOTHROW;

/**
 * Checks whether a word fits after what a line of an object already holds.
 *
 * \param column      characters on the line
 * \param word_length characters of the word
 * \returns 1 it fits; 2 it would fit on an empty line; 3 it would not fit on an empty line either;
 *          0 without a form, and if a pointer is null
 */
VEL_API uint32_t vel_check_line_volume(const vel_context *ctx, uint32_t object, const char *word,
                                       const uint32_t *line, const uint32_t *column,
                                       const uint32_t *word_length) VEL_NOTHROW;

/**
 * Prepares the caption of an object of one line: cuts it at its first line feed and, for a label
 * (type 2), centres it by setting the left and the top margin where more than 2 pixels are free.
 *
 * \returns 0 not centred, or the caption is empty; 1 centred horizontally; 2 centred vertically, or
 *          both ways; 3 an entry field (types 5 and 6), whose margins are left alone
 */
VEL_API uint32_t vel_format_small_obj(vel_context *ctx, uint32_t object) VEL_NOTHROW;
/**@}*/

/** \name Chains
 * A chain is a head of type 8 without a master. Its stream flows through its dependents of type 8,
 * the members, in list order. */
/**@{*/

/**
 * Breaks the stream of a chain into lines in the line buffers of its members.
 *
 * A member takes 40 lines, then the next one goes on. Members and lines that the stream does not
 * reach keep what an earlier run left there. A stream longer than the chain is cut. Debug lines are
 * printed to standard output if a word that had to be split ends a paragraph on the last line of a
 * member, or fills that line to its 99th character at the end of the chain.
 *
 * \param master number of the head
 * \returns the line reached in the last member used; 0 if there is no stream or no member
 */
VEL_API uint32_t vel_format_stream_to_linked_objects(vel_context *ctx, uint32_t master) VEL_NOTHROW;

/**
 * Puts a word into the lines of a chain, going on to the next member if the lines run out.
 *
 * \param master         number of the head
 * \param chain_position index of the member in the head's list; afterwards that of the last one
 *                       tried
 * \param text_index     number of the member's text; afterwards that of the last member used
 * \param line           line to start on; afterwards the line where the text goes on
 * \param column         column to start at; afterwards the column where the text goes on
 * \param word_length    characters of the word; 0 once it is placed
 * \param break_after    1 = end the line after the word
 * \returns -1 if the chain ended, without a form, and if a pointer is null; 1 if the text moved to
 *          the next member before or after the word, or if the word went on the given line without
 *          ending it; 0 otherwise
 */
VEL_API int32_t vel_copy_word_big(vel_context *ctx, uint32_t master, uint32_t *chain_position,
                                  uint32_t *text_index, const char *word, uint32_t *line,
                                  uint32_t *column, uint32_t *word_length,
                                  uint32_t break_after) VEL_NOTHROW;

/**
 * Leaves a member of a chain for the next: stores its line count and starts line 0 of the next one.
 *
 * \param master         number of the head
 * \param chain_position index of the member in the head's list; increased by one
 * \param member         number of the member to leave; afterwards the next number in the list
 * \param text_index     number of its text; afterwards that of the next object, if it is of type 8
 * \param line           line reached; 0 after a move
 * \param column         column reached; 0 after a move
 * \returns 0 moved; 1 the chain has no further member, there is no form, or a pointer is null
 */
VEL_API int32_t vel_go_to_next_chainmember(vel_context *ctx, uint32_t master,
                                           uint32_t *chain_position, uint32_t *member,
                                           uint32_t *text_index, uint32_t *line,
                                           uint32_t *column) VEL_NOTHROW;
/**@}*/

/** \name Waiting and hit tests
 * Loops that wait for the user. They sleep while nothing happens. Keys go to vel_get_text() while
 * they run. */
/**@{*/

/**
 * Waits until the left button is released over one of two objects or over frame button 7.
 *
 * Keys edit the cursor object. All other events are dropped, even the one that closes the program
 * (SDL_QUIT); an event filter can act on them.
 *
 * With VEL_COMFORT_KEYBOARD, Tab and Shift+Tab go through the editable objects of the active window
 * and the two objects; Space and Enter on one of these give it, Enter elsewhere the one that is a
 * default answer, Escape the one that is a cancel answer or else 7, and Alt with its key gives one,
 * too. In a text of many lines it is Ctrl+Enter. Closing the program ends the wait.
 *
 * \param stop_a 0 returns 0 at once
 * \param stop_b 0 returns 0 at once
 * \returns stop_a, stop_b or 7; 7 also if the event filter ends the loop; 0 if the user closes the
 *          program, with VEL_COMFORT_KEYBOARD, see vel_quit_requested()
 */
VEL_API uint32_t vel_get_mouse_selection(vel_context *ctx, int32_t stop_a,
                                         int32_t stop_b) VEL_NOTHROW;

/**
 * Waits for one object like vel_get_mouse_selection().
 *
 * \param stop 0 returns 0 at once
 * \returns stop or 7
 */
VEL_API uint32_t vel_get_mono_mouse_selection(vel_context *ctx, int32_t stop) VEL_NOTHROW;

/**
 * Runs the form until the user does something that the application should act on.
 *
 * Keys edit the cursor object: with VEL_COMFORT_TYPING when they are pressed, otherwise when a key
 * is released. Tab and Shift+Tab move the cursor through the visible editable objects of the active
 * window. Pressing frame button 2, 3, 5 or 6 resizes or scrolls the window, and repeats every 50 ms
 * once the button has been held for 400 ms; releasing 1, 4 or 7 moves the window, switches the mode
 * or closes the window. A release on a background window raises it, one on an editable object gives
 * it the cursor.
 *
 * A press on a label or picture whose max_chars names a menu, in the active window or on the
 * desktop, opens that menu like vel_move_out_menu() with mode 1. The menu is moved, with its
 * entries, to directly below the title: left edges aligned, or as far left of that as the right
 * edge of the screen requires, but not beyond the left edge. Releasing the button over the title
 * leaves the menu open; the next click on the title closes it. The screen is redrawn afterwards.
 *
 * With VEL_COMFORT_TYPING, a press of the left button in a text of the active window or the desktop
 * puts the caret at the character there. Moving the pointer before the release selects, and so do a
 * second press, a word, and a third, a line; such a release returns nothing. The middle button
 * inserts what was selected last. Until the release, other events are dropped.
 *
 * With VEL_COMFORT_KEYBOARD, Tab also stops at answers (vel_set_answer()), and without an active
 * window it goes through the desktop. Space and Enter press an answer; Enter elsewhere gives the
 * default answer of the window, Ctrl+Enter in a text of many lines; Escape gives its cancel answer,
 * or does what frame button 7 does where that shows. Alt and a key (vel_set_access_key()) reach an
 * object of the active window, or else of the desktop: an editable one gets the cursor, a title
 * opens its menu, others are returned. F10 opens the first menu. Alt+Space goes to the frame
 * buttons: Left, Right and Tab walk them, Space and Enter use one, Escape goes back. Ctrl+Tab
 * raises the window at the bottom of the stack, Ctrl+Shift+Tab the second one.
 *
 * With VEL_COMFORT_WHEEL, the wheel scrolls what is under the pointer: a text by three lines, a
 * list by three names, else the nearest window by scroll_step, with Shift sideways. Each goes as
 * far as there is something out of sight, and windows stay where they are on the stack.
 *
 * A part (see above) acts where it is, and is returned when the user has changed it. The pointer
 * may rest on an object for 0.6 seconds: then its tip shows until the pointer moves or a key is
 * pressed.
 *
 * \returns the object released on if it is a label, a picture, a menu, an entry field that cannot
 *          be edited, or a top-level object other than a window that cannot be edited; the entry
 *          chosen in the menu of a title; 7 after the user closed the last window; 0 if the user
 *          closes the program (SDL_QUIT) or the event filter ends the loop or a menu
 */
VEL_API uint32_t vel_wait_for_object(vel_context *ctx) VEL_NOTHROW;

/**
 * Says whether the user has closed the program (SDL_QUIT) in the loop of the library that began
 * last, and so ended it. With VEL_COMFORT_KEYBOARD this ends every loop: selections, dialogs and
 * menus with 0, a move with the window where it is. All of them but vel_wait_for_object() put the
 * event back into SDL's queue, so that the loop around them and the program's own see it, too; the
 * event filter sees it each time.
 *
 * \returns 1 if so; 0 if not, before the first loop, without VEL_COMFORT_KEYBOARD and for a null
 *          context
 */
VEL_API uint32_t vel_quit_requested(const vel_context *ctx) VEL_NOTHROW;

/**
 * Finds the object under a point. The first hit of these counts: frame buttons, the active window
 * and its dependents, other windows from the highest number down, top-level objects from the lowest
 * number up and their dependents.
 *
 * \returns number of the innermost object, but of the window itself if it is not the active one; 0
 *          for none
 */
VEL_API uint32_t vel_test_all_objects(const vel_context *ctx, uint32_t x, uint32_t y) VEL_NOTHROW;

/**
 * Finds the innermost dependent of an object under a point. If there are several, the first in list
 * order counts. Dependents that are hidden, have no size or have border style 2 or 3 are skipped.
 *
 * \returns number of the dependent; 0 for none
 */
VEL_API uint32_t vel_test_dep_objs(const vel_context *ctx, uint32_t object, uint32_t x,
                                   uint32_t y) VEL_NOTHROW;

/**
 * Tests whether a point lies inside an object, not on its outermost pixels and within its masters'
 * limits.
 *
 * \returns 1 inside, 0 outside
 */
VEL_API uint32_t vel_in_object(const vel_context *ctx, uint32_t object, int32_t x,
                               int32_t y) VEL_NOTHROW;
/**@}*/

/** \name Keys and text editing
 * A key is translated when it is pressed and applied when any key is released. With
 * VEL_COMFORT_TYPING both happen when it is pressed. */
/**@{*/

/**
 * Translates the key-down event of the context by the table of a German keyboard.
 *
 * Sets key_code and key_printable and marks the event as used. Nothing happens without a cursor
 * object, for other events and for keys without a code; but with a number field as cursor object,
 * every key sets key_printable.
 *
 * With VEL_COMFORT_TYPING the layout of the user's keyboard counts, and final_key and key_printable
 * are set at once. A character that ISO 8859-1 does not have is refused. A key that the editor has
 * no use for is left: Tab, Escape, and in a field Enter, Up, Down, Page Up and Page Down. SDL must
 * translate keys (SDL_EnableUNICODE(1)); the loops of the library switch that on and, with it, the
 * repeating of keys, as the X server has it, unless the program has set that.
 */
VEL_API void vel_getfirstkeyinformation(vel_context *ctx) VEL_NOTHROW;

/** Moves key_code to final_key if the context's event is a key-up event. With VEL_COMFORT_TYPING
 * there is nothing to move. */
VEL_API void vel_getfinalkeyinformation(vel_context *ctx) VEL_NOTHROW;

/**
 * Applies final_key to the text of cursor_object, resets final_key and key_printable to 0, redraws
 * the active window and updates it; with vel_context::partial_redraw, only what has changed in it.
 *
 * A key that has no room or nowhere to go changes nothing. If there is no cursor object, or it has
 * no text to edit, final_key is kept.
 *
 * With VEL_COMFORT_TYPING, the keys of a chain select in its stream, and for an object outside of
 * the active window the whole screen is redrawn. A text that the program has changed since the last
 * key begins a new history of steps to undo.
 */
VEL_API void vel_get_text(vel_context *ctx) VEL_NOTHROW;

/** Sets cursor_index of the cursor object's text from cursor_line and cursor_column. A position
 * that the formatted lines do not have changes nothing. */
VEL_API void vel_get_position_in_stream(vel_context *ctx) VEL_NOTHROW;

/** Sets cursor_line and cursor_column of the cursor object from cursor_index of its text. An index
 * beyond the formatted lines changes nothing. */
VEL_API void vel_get_column_row(vel_context *ctx) VEL_NOTHROW;

/**
 * Says where the caret of a text is and what is selected: the characters between the two indexes.
 *
 * \param object a field, an object with a text, or a chain; 0 = where something is selected
 * \param anchor where selecting began, in characters from the start of the text or stream; may be
 *               null. The caret's index if nothing is selected
 * \param caret  where the caret is; may be null
 * \returns the number of the object, the head for a chain; 0 if it has no text, or if nothing is
 *          selected and object is 0. Then nothing is written
 */
VEL_API uint32_t vel_get_selection(const vel_context *ctx, uint32_t object, uint32_t *anchor,
                                   uint32_t *caret) VEL_NOTHROW;

/**
 * Selects the characters between two indexes and scrolls the text so that the caret is in sight.
 * There is one selection at a time. It shows, at the next redraw, while cursor_object has that
 * text, or always if the text cannot be edited. cursor_object stays, but if it is in that chain, it
 * goes to the member that shows the caret. What is selected is there for the middle button, too,
 * unless it is a password.
 *
 * \param object a field, an object with a text, or a chain
 * \param anchor where selecting begins; indexes beyond the text count as its end
 * \param caret  where the caret goes; the same as anchor selects nothing
 * \returns VEL_OK; VEL_ERROR_ARGUMENT if the object has no text or there is no form;
 *          VEL_ERROR_MEMORY
 */
VEL_API int32_t vel_set_selection(vel_context *ctx, uint32_t object, uint32_t anchor,
                                  uint32_t caret) VEL_NOTHROW;

/**
 * Says what comfortable typing refused last. A refused key or character changes nothing, and lets
 * the caret flash once in mark_colour; of a text that is pasted, only what is refused is left out.
 *
 * \param character set to the code point of the character, or of the first one that did not fit;
 *                  0xFFFD for bytes that are no UTF-8, 0 if it was no character. May be null
 * \returns one of vel_refusal; VEL_REFUSED_NOTHING before the first refusal
 */
VEL_API uint32_t vel_last_refusal(const vel_context *ctx, uint32_t *character) VEL_NOTHROW;
/**@}*/

/** \name Windows */
/**@{*/

/**
 * Opens the window in window_to_activate or brings it to the front, and gives it the marks, the
 * frame buttons and the text cursor. Then window_to_activate is 0. Nothing is redrawn.
 *
 * Anything but a top-level window that is not yet active is ignored. While 100 windows are open, a
 * closed one is refused: it becomes visible, but is not put on the stack.
 */
VEL_API void vel_activate_window(vel_context *ctx) VEL_NOTHROW;

/**
 * Closes a window, erases it and, if it was active, activates the one that takes its place on the
 * stack. Nothing is redrawn.
 *
 * \param window 0 means the active one; a window that is not open is ignored
 */
VEL_API void vel_close_win(vel_context *ctx, uint32_t window) VEL_NOTHROW;

/** Places the frame buttons on the active window, or hides them if there is none. A window of kind
 * 2 or more leaves them as they are. */
VEL_API void vel_set_operators(vel_context *ctx) VEL_NOTHROW;

/** Acts on the object in window_to_activate: activates a top-level window and redraws the screen,
 * or gives the text cursor to an editable object and redraws the active window. Other objects are
 * ignored. */
VEL_API void vel_select_window(vel_context *ctx) VEL_NOTHROW;

/**
 * Opens a dialog, waits for one of two answers and closes it. The caller redraws the screen.
 *
 * With VEL_COMFORT_KEYBOARD, keys give answers as in vel_get_mouse_selection(), and reach nothing
 * outside of the window. Without an editable object, the cursor starts on the default answer or on
 * the first one.
 *
 * \param window number of the dialog's window
 * \param first  number of the object that is the first answer
 * \param last   number of the object that is the second answer
 * \returns the answer; 7 if the user closed the dialog or the event filter ended the loop; 0 if the
 *          user closes the program, with VEL_COMFORT_KEYBOARD, see vel_quit_requested()
 */
VEL_API uint32_t vel_decide_window(vel_context *ctx, uint32_t window, uint32_t first,
                                   uint32_t last) VEL_NOTHROW;

/**
 * Opens a notice, waits until the user acknowledges or closes it, and closes it. The caller redraws
 * the screen. Keys work as in vel_decide_window().
 *
 * \param window number of the notice's window
 * \param object number of the object that acknowledges it
 */
VEL_API void vel_notice_window(vel_context *ctx, uint32_t window, uint32_t object) VEL_NOTHROW;

/** Places the text cursors of a window and its dependents at the start of their texts, unless they
 * have a place already: a cursor_x or cursor_y other than 0. */
VEL_API void vel_initiate_cursor_win(vel_context *ctx, uint32_t window) VEL_NOTHROW;

/** Places the text cursors of an object's dependents like vel_initiate_cursor_win(). */
VEL_API void vel_initiate_cursor_dep_objs(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Finds the first dependent that can take the text cursor, depth first, hidden ones included.
 *
 * \returns number of the dependent; 0 for none
 */
VEL_API uint32_t vel_check_cursor_dep_objs(const vel_context *ctx, uint32_t object) VEL_NOTHROW;
/**@}*/

/** \name Frame actions
 * Moving, resizing and scrolling act on the active window; without one they do nothing. */
/**@{*/

/** Does what pressing the frame button in window_to_activate means: 2, 3, 5 and 6 resize a window
 * of kind 0 by 4 pixels or scroll it by scroll_step, depending on frame_mode. */
VEL_API void vel_exa_left_pressed(vel_context *ctx) VEL_NOTHROW;

/** Does what releasing the frame button in window_to_activate means: 1 moves the window, 4 switches
 * frame_mode, 7 closes the window. */
VEL_API void vel_exa_left_released(vel_context *ctx) VEL_NOTHROW;

/** Waits for a press of the left button, moves the window there, to an x of at least 11 and a y of
 * at least 25, and redraws the screen. All events before the press are dropped. */
VEL_API void vel_move_window(vel_context *ctx) VEL_NOTHROW;

/** Makes the window 4 pixels wider if it is narrower than screen_width - 50. Redraws in any case.
 */
VEL_API void vel_increase_win_w(vel_context *ctx) VEL_NOTHROW;

/** Makes the window 4 pixels higher if it is lower than screen_height - 50. Redraws in any case. */
VEL_API void vel_increase_win_h(vel_context *ctx) VEL_NOTHROW;

/** Makes the window 4 pixels narrower if it is wider than 20. Redraws in any case. */
VEL_API void vel_decrease_win_w(vel_context *ctx) VEL_NOTHROW;

/** Makes the window 4 pixels lower if it is higher than 20. Redraws in any case. */
VEL_API void vel_decrease_win_h(vel_context *ctx) VEL_NOTHROW;

/**
 * Moves the contents up by scroll_step if scroll_y is above -scroll_max_y, and updates the window;
 * a scroll_max_y of 0 means five screen heights.
 *
 * In a window that shows a list of vel_list_directory(), the names move towards their end instead,
 * by as many rows as fit into scroll_step, but at least one.
 */
VEL_API void vel_scroll_win_up(vel_context *ctx) VEL_NOTHROW;

/**
 * Moves the contents down by scroll_step if scroll_y is below 2 * scroll_max_y, and updates the
 * window; a scroll_max_y of 0 means a limit of five screen heights.
 *
 * In a window that shows a list of vel_list_directory(), the names move towards their start
 * instead, as with vel_scroll_win_up().
 */
VEL_API void vel_scroll_win_down(vel_context *ctx) VEL_NOTHROW;

/** Moves the contents left by scroll_step if scroll_x is above -scroll_max_x, and updates the
 * window; a scroll_max_x of 0 means five screen widths. The window's own cursor moves right. */
VEL_API void vel_scroll_win_left(vel_context *ctx) VEL_NOTHROW;

/** Moves the contents right by scroll_step if scroll_x is below 2 * scroll_max_x, and updates the
 * window; a scroll_max_x of 0 means a limit of five screen widths. */
VEL_API void vel_scroll_win_right(vel_context *ctx) VEL_NOTHROW;

/**
 * Moves the dependents of an object, and their cursors, horizontally as scrolling does: those of
 * clip mode 0, and those of clip mode 1 whose master has a master itself. A dependent that stays
 * keeps its own dependents in place, too.
 *
 * \param direction 1 left, 2 right
 * \param distance  pixels
 */
VEL_API void vel_update_x_dependent_obj(vel_context *ctx, uint32_t object, uint32_t direction,
                                        uint32_t distance) VEL_NOTHROW;

/**
 * Moves the dependents of an object vertically, as vel_update_x_dependent_obj() does horizontally.
 *
 * \param direction 1 up, 2 down
 * \param distance  pixels
 */
VEL_API void vel_update_y_dependent_obj(vel_context *ctx, uint32_t object, uint32_t direction,
                                        uint32_t distance) VEL_NOTHROW;

/**
 * Moves all dependents of an object, and the cursors of editable windows, texts, fields and chain
 * members among them.
 *
 * \param dx pixels to the right; wraps around for a move to the left
 * \param dy pixels down; wraps around for a move up
 */
VEL_API void vel_update_dep_objs_after_move(vel_context *ctx, uint32_t object, uint32_t dx,
                                            uint32_t dy) VEL_NOTHROW;

/**
 * Moves all dependents of an object that have a size, and the cursors of all editable ones. A
 * dependent without a size keeps its own dependents in place, too.
 *
 * \param dx pixels to the right; wraps around for a move to the left
 * \param dy pixels down; wraps around for a move up
 */
VEL_API void vel_add_difference_toxy_dep_objs(vel_context *ctx, uint32_t object, uint32_t dx,
                                              uint32_t dy) VEL_NOTHROW;
/**@}*/

/** \name Loading texts */
/**@{*/

/**
 * Puts a text into a window or text object and formats it. The cursor stays where it is;
 * vel_reset_textobject() moves it to the start.
 *
 * \param text at most 999 characters; a longer text is cut
 * \returns what vel_format_object_text() returns
 */
VEL_API uint32_t vel_load_window_text(vel_context *ctx, uint32_t object,
                                      const char *text) VEL_NOTHROW;

/**
 * Loads a text like vel_load_window_text(), and prepares the captions of two buttons.
 *
 * \param text at most 999 characters; a longer text is cut
 * \returns what vel_format_small_obj() returns for button_b
 */
VEL_API uint32_t vel_load_window_text_buttons(vel_context *ctx, uint32_t object, const char *text,
                                              uint32_t button_a, uint32_t button_b) VEL_NOTHROW;

/**
 * Counts the characters of an object's text and moves its cursor to the start. The scroll offsets,
 * which typing changes in a narrow field, stay; set them to 0 to show the text from its start.
 *
 * \param mode 0 = the text is the object's label, 1 = it is in its text record; other values leave
 *             text_length as it is
 */
VEL_API void vel_reset_textobject(vel_context *ctx, uint32_t mode, uint32_t object) VEL_NOTHROW;

/**
 * Right-aligns the label of an object in a field of characters, padding it on the left.
 *
 * \param string       the text whose length counts, normally the label itself; not empty
 * \param field_length characters of the field, at most 67
 * \param fill_char    character to pad with
 * \returns field_length. If nothing was changed: the length of string if that fills the field
 *          already, 0 if string is empty or the field is longer than a label
 */
VEL_API uint32_t vel_fill_form_with_dummies(vel_context *ctx, const char *string, uint32_t object,
                                            uint32_t field_length, uint8_t fill_char) VEL_NOTHROW;

/**
 * Reads a whole regular file of at most 64 MiB, which must be writable, too. A NUL follows its last
 * byte, so that it can be the stream of a chain as it is.
 *
 * \returns the bytes of the file and the NUL, to be released with free(); null if the file cannot
 * be opened or read, or is larger
 */
VEL_API char *vel_read_external_stream(const char *path) VEL_NOTHROW;
/**@}*/

/** \name Menus and the file selector */
/**@{*/

/**
 * Shows a menu, darkens the entry under the pointer and waits until the left button is released or
 * the pointer leaves the menu. All other events are dropped. Then the menu is erased and hidden;
 * the caller redraws what it covered. In a menu without entries a release is ignored.
 *
 * With VEL_COMFORT_KEYBOARD, Up, Down, Home and End walk the entries, Space and Enter choose one,
 * as does the key of an entry, and Escape closes the menu. After a key the pointer does not count
 * until it moves onto an entry. Disabled entries are passed over.
 *
 * \param mode 1 = the pointer may stay above the menu, on its title, until it has been on an entry;
 *             with other values it must not be above the menu
 * \returns the entry on which the button was released; 0 if the pointer left the menu, the button
 *          was released elsewhere or the event filter ended the loop
 */
VEL_API uint32_t vel_move_out_menu(vel_context *ctx, uint32_t menu, uint32_t mode) VEL_NOTHROW;

/**
 * Makes the rows of a file selector. The objects whose numbers follow that of the list's first
 * dependent become its rows: 3 pixels apart, with its type, size, colours, left and top margin.
 *
 * A row that was the dependent of another object leaves that one, and no object is listed twice.
 * The rows end before the list itself and before an object that the list hangs on.
 *
 * \param rows rows to make, at most 99; at most one of them lies after the loaded objects
 */
VEL_API void vel_prepare_fileselector(vel_context *ctx, uint32_t list, uint32_t rows) VEL_NOTHROW;

/**
 * Reads the first 100 names in the working folder into dir_names, cut to 64 characters, and sorts
 * dir_order by their first character. If the folder cannot be read, nothing changes.
 */
VEL_API void vel_read_app_dir(vel_context *ctx) VEL_NOTHROW;

/**
 * Writes the names that vel_read_app_dir() read into the rows of a list, makes these rows 180
 * pixels wide, hides the others, and sets the height of the list. A folder with a single name is
 * not shown.
 */
VEL_API void vel_load_dir_entries(vel_context *ctx, uint32_t list) VEL_NOTHROW;

/**
 * Fills a list with the names in a folder: first the subfolders, with "/" appended and ".." at the
 * top, then the files that match a pattern. Names are sorted by their bytes, with A to Z counting
 * like a to z.
 *
 * Left out are "." and hidden names, which start with a dot; ".." in the root; and whatever is
 * neither a folder nor a regular file. A symbolic link counts as what it points to.
 *
 * A list that is a part shows the names from the first on, with size and time in a second and a
 * third column. In any other, the rows are the dependents, whatever their type; each shows one name
 * in its label.
 * scroll_y of the list determines the first name shown, in pixels of the distance between rows; it
 * is set to the nearest value that leaves no row empty unnecessarily. While the list is visible,
 * the vertical scroll functions of its window, and so its frame buttons in scroll mode, scroll the
 * names. Rows without a name get a width of 0, the others the width that the rows had before.
 * Nothing is drawn.
 *
 * A name is shown in ISO 8859-1, with "?" for characters outside of it, and cut to 64 characters
 * including the "/"; vel_listed_name() returns the real one. Formatting centres the labels of rows
 * of type 2; rows of type 5 that cannot be edited show them from their left margin on.
 *
 * \param pattern as for fnmatch(), or several separated by ";"; null or "" for all files
 * \returns the number of names found, including "..", even if there are fewer rows;
 *          VEL_ERROR_FOLDER if the folder cannot be read, VEL_ERROR_ARGUMENT for list 0 or one
 *          beyond the table, without a form and for a null path, VEL_ERROR_MEMORY. After an error
 *          nothing has changed
 */
VEL_API int32_t vel_list_directory(vel_context *ctx, uint32_t list, const char *path,
                                   const char *pattern) VEL_NOTHROW;

/**
 * Returns the name that a row of a list filled by vel_list_directory() shows.
 *
 * \returns the bytes of the name in the file system, without "/"; null if the row shows no name.
 *          The library owns them; they are valid until the list is filled again
 */
VEL_API const char *vel_listed_name(const vel_context *ctx, uint32_t row) VEL_NOTHROW;

/**
 * Lets the user choose a file in a modal dialog and navigate the folders.
 *
 * The window is one that velform makes of a [[file_dialog]], or a top-level window whose first
 * dependents are, in this order: an entry field that shows the folder; the list, which is a part or
 * has rows as its dependents, preferably entry fields that cannot be edited; the entry
 * field for the name; the OK button; the cancel button; the label that says that a folder cannot be
 * read, which shows only then. More dependents may follow.
 *
 * A click on a folder enters it, a click on ".." leaves the current one; a click on a file puts its
 * name into the field. In a list that is a part, a click selects, and what it selects is entered or
 * chosen by a double click or Enter. If the field that shows the folder can be edited, Enter in it
 * goes to the path that it has, and Tab completes a name there. OK, or the Enter key, chooses the
 * file named in the field, which need not exist; if the field has the name of a folder, this enters
 * the folder, and if it has * or ? in it, the list shows the files that match. The cancel button,
 * the Escape key and the close button of the frame cancel. If a folder cannot be read, the label
 * says so and nothing else changes.
 *
 * While the dialog is open, the frame buttons scroll the list, and nothing outside the window can
 * be reached. Afterwards frame_mode, the other windows and their text cursor are as before, and the
 * screen is redrawn. The event filter and the idle hook work as in vel_wait_for_object(); the event
 * that closes the program (SDL_QUIT) cancels and stays in the queue for the application's own loop.
 *
 * \param path_out on entry a suggestion in the bytes of the file system: a folder; a file, whose
 *                 name goes into the field; or a folder and a pattern for vel_list_directory() that
 *                 has * or ? in it. "mail/a.txt" and "mail/a*" are relative to the working folder,
 *                 and "" is that folder itself. If the folder cannot be read, the dialog says so
 *                 and shows the working folder. With result 1 the absolute path of the file, else
 *                 unchanged
 * \param size     bytes of path_out, including the NUL
 * \returns 1 if a file was chosen; 0 if the user cancelled or closed the program, or the event
 *          filter ended the loop; VEL_ERROR_SIZE if the path does not fit; VEL_ERROR_ARGUMENT for
 *          null pointers, a suggestion without a NUL, a window that is no such dialog, and a closed
 *          one while 100 windows are open; VEL_ERROR_MEMORY
 */
VEL_API int32_t vel_choose_file(vel_context *ctx, uint32_t window, char *path_out,
                                size_t size) VEL_NOTHROW;
/**@}*/

#ifdef __cplusplus
}
#endif

#endif
