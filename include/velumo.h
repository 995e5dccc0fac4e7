/**
 * \file velumo.h
 * Velumo: forms for small native programs on SDL 1.2.
 *
 * A program owns one vel_context, fills it with zeros, opens the display and a font, and hands the
 * context to every vel_ function. Windows, buttons, fields, texts, pictures and menus come from two
 * binary files that vel_start_velumo() or vel_load_forms() reads.
 *
 * Conventions that hold everywhere:
 * - Objects, texts and windows are named by their number in the tables; 0 means none.
 * - Coordinates are pixels of the display with (0, 0) at the top left, also inside windows. They
 *   are stored as 32-bit unsigned numbers; a place left of or above the display wraps around.
 * - Texts are ISO 8859-1, ended by a NUL.
 * - A context and tables that a program fills by hand work as well as loaded ones.
 * - A number beyond the tables stands for record 0, the empty record, where the library knows the
 *   size of the tables (it does after loading).
 * - Everything runs on the thread that drives SDL's video. Nothing throws.
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
#define VEL_STRING_SIZE 68     /**< Bytes of a string field of an object, NUL included. */
#define VEL_MAX_DEPENDENTS 100 /**< Entries of an object's list of dependents. */
#define VEL_TEXT_SIZE 1000     /**< Bytes of a text, NUL included. */
#define VEL_TEXT_LINES 40      /**< Formatted lines of a text. */
#define VEL_LINE_SIZE 100      /**< Bytes of a formatted line, NUL included. */
#define VEL_TEXT_BUFFER_SIZE (VEL_TEXT_LINES * VEL_LINE_SIZE) /**< Bytes of a line buffer. */
#define VEL_MAX_WINDOWS 100                                   /**< Entries of the window stack. */
#define VEL_DIR_ENTRIES 100      /**< Names that the file selector lists. */
#define VEL_DIR_NAME_SIZE 65     /**< Bytes of such a name, NUL included. */
#define VEL_FRAME_BUTTONS 7      /**< Objects 1 to 7 are the frame buttons of the active window. */
#define VEL_FRAME_BUTTON_SIZE 16 /**< Width and height of a frame button, in pixels. */
/**@}*/

/** What an object is (vel_object::type). */
enum vel_object_type {
    VEL_TYPE_EMPTY = 0,            /**< Empty record. */
    VEL_TYPE_WINDOW = 1,           /**< Window with a frame, an optional text and dependents. */
    VEL_TYPE_LABEL = 2,            /**< Button or caption of one line, not editable. */
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
    VEL_BORDER_SHADOW = 4,       /**< The outline moved right and down. */
    VEL_BORDER_SHADOW_FITTED = 5 /**< Shadow, and fitted. */
};

/** How masters limit a dependent object (vel_object::clip_mode). */
enum vel_clip_mode {
    VEL_CLIP_MARGINS = 0, /**< It shows inside its masters' margins. */
    VEL_CLIP_FRAME = 1,   /**< It shows on its masters' whole rectangles. */
    VEL_CLIP_NONE = 2     /**< This and any higher code: no limit from the master's rectangle, so an
                               object of an uncut master shows nowhere. */
};

/** Numbers of the frame buttons. */
enum vel_frame_button {
    VEL_BUTTON_MOVE = 1,        /**< Moves the window. */
    VEL_BUTTON_HEIGHT_LESS = 2, /**< Height less, or scroll down. */
    VEL_BUTTON_HEIGHT_MORE = 3, /**< Height more, or scroll up. */
    VEL_BUTTON_MODE = 4,        /**< Switches between resize and scroll. */
    VEL_BUTTON_WIDTH_LESS = 5,  /**< Width less, or scroll right. */
    VEL_BUTTON_WIDTH_MORE = 6,  /**< Width more, or scroll left. */
    VEL_BUTTON_CLOSE = 7        /**< Closes the window. */
};

/** What the frame buttons do (vel_context::frame_mode). */
enum vel_frame_mode {
    VEL_MODE_RESIZE = 0, /**< They resize the window; the marks have colour set A. */
    VEL_MODE_SCROLL = 1  /**< They scroll its contents; the marks have colour set B. */
};

/** Control keys (vel_context::key_code, vel_context::final_key). */
enum vel_key_code {
    VEL_KEY_NONE = 0,      /**< No key. */
    VEL_KEY_BACKSPACE = 8, /**< Deletes the character before the cursor. */
    VEL_KEY_DELETE = 127,  /**< Deletes the character at the cursor. */
    VEL_KEY_ENTER = 271,   /**< New line. */
    VEL_KEY_UP = 273,      /**< One line up. */
    VEL_KEY_DOWN = 274,    /**< One line down. */
    VEL_KEY_RIGHT = 275,   /**< One character right. */
    VEL_KEY_LEFT = 276,    /**< One character left. */
    VEL_KEY_INSERT = 277   /**< Toggles inserting and overwriting. */
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
    VEL_ERROR_ARGUMENT = -1,  /**< A null context or path. */
    VEL_ERROR_FORM_FILE = -2, /**< The form description file cannot be opened. */
    VEL_ERROR_TEXT_FILE = -3, /**< The text file is needed and cannot be opened. */
    VEL_ERROR_READ = -4,      /**< A file could be opened and not be read to its end. */
    VEL_ERROR_MEMORY = -5,    /**< The memory does not suffice. */
    VEL_ERROR_FOLDER = -6,    /**< A folder cannot be read. */
    VEL_ERROR_SIZE = -7       /**< A path is longer than the room for it. */
};

/** A colour. */
typedef struct vel_colour {
    uint8_t r; /**< Read-write. Red, 0 to 255. */
    uint8_t g; /**< Read-write. Green, 0 to 255. */
    uint8_t b; /**< Read-write. Blue, 0 to 255. */
} vel_colour;

/** One record of the form description file: 776 bytes, numbers little-endian. */
typedef struct vel_object_file_rec {
    uint32_t x;                            /**< Byte 0. Left edge. */
    uint32_t y;                            /**< Byte 4. Top edge. */
    uint32_t width;                        /**< Byte 8. Width in pixels. */
    uint32_t height;                       /**< Byte 12. Height in pixels. */
    uint32_t fill_r;                       /**< Byte 16. Body colour, red. */
    uint32_t fill_g;                       /**< Byte 20. Body colour, green. */
    uint32_t fill_b;                       /**< Byte 24. Body colour, blue. */
    char label[VEL_STRING_SIZE];           /**< Byte 28. Caption. */
    uint32_t font_choice;                  /**< Byte 96. 0 default font, 1 own font. */
    uint32_t font_size;                    /**< Byte 100. Points of the own font. */
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
    uint32_t line_width;                   /**< Byte 208. Maximal width of a line. */
    uint32_t line_spacing;                 /**< Byte 212. Pixels between lines. */
    uint32_t reserved_number_of_lines;     /**< Byte 216. Ignored. */
    uint32_t reserved;                     /**< Byte 220. Ignored. */
    uint32_t hidden;                       /**< Byte 224. Nonzero = hidden. */
    uint32_t type;                         /**< Byte 228. Object type code. */
    uint32_t window_kind;                  /**< Byte 232. Frame of a window. */
    uint32_t editable;                     /**< Byte 236. 1 = can hold the text cursor. */
    uint32_t reserved_cursor_x;            /**< Byte 240. Ignored. */
    uint32_t reserved_cursor_y;            /**< Byte 244. Ignored. */
    uint32_t text_length;                  /**< Byte 248. Characters of the text. */
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
    uint32_t clip_mode;                    /**< Byte 772. Limit by the masters. */
} vel_object_file_rec;

/** One text, in memory and in the text file: 1008 bytes. */
typedef struct vel_text_rec {
    uint32_t first_word;   /**< Read-write. Copied from the file, never interpreted. */
    uint32_t cursor_index; /**< Read-write. Place of the text cursor: characters from the start. */
    char text[VEL_TEXT_SIZE]; /**< Read-write. The text; byte 10 ends a paragraph. */
} vel_text_rec;

/** One object of the form. Fields marked 'file' come from the form description file. */
typedef struct vel_object {
    uint32_t x;                  /**< Read-write, file. Left edge, pixels. */
    uint32_t y;                  /**< Read-write, file. Top edge, pixels. */
    uint32_t width;              /**< Read-write, file. Pixels; 0 = neither drawn nor hit. */
    uint32_t height;             /**< Read-write, file. Pixels; 0 = neither drawn nor hit. */
    uint32_t fill_r;             /**< Read-write, file. Body colour, red; the low byte counts. */
    uint32_t fill_g;             /**< Read-write, file. Body colour, green; the low byte counts. */
    uint32_t fill_b;             /**< Read-write, file. Body colour, blue; the low byte counts. */
    char label[VEL_STRING_SIZE]; /**< Read-write, file. Caption of types 2, 5 and 6. */
    uint32_t font_choice;        /**< Read-write, file. 0 the context's font, 1 own_font; with
                                      other values no text is measured or shown. */
    uint32_t font_size;          /**< Read-write, file. Points of own_font. */
    char font_path[VEL_STRING_SIZE]; /**< Read-write, file. TrueType file of own_font. */
    TTF_Font *own_font;     /**< Read-write. Opened at loading when font_choice is 1; null when that
                                 failed. Closed by vel_close() for loaded objects. Default null. */
    uint32_t text_index;    /**< Read-write, file. Number of the object's text; 0 = none. */
    uint32_t text_r;        /**< Read-write, file. Colour of text and cursor, red. */
    uint32_t text_g;        /**< Read-write, file. Colour of text and cursor, green. */
    uint32_t text_b;        /**< Read-write, file. Colour of text and cursor, blue. */
    uint32_t margin_left;   /**< Read-write, file. Pixels kept free inside the left edge. */
    uint32_t margin_right;  /**< Read-write, file. Pixels kept free inside the right edge. */
    uint32_t margin_top;    /**< Read-write, file. Pixels kept free inside the top edge. */
    uint32_t margin_bottom; /**< Read-write, file. Pixels kept free inside the bottom edge. */
    uint32_t centred;       /**< Read-write, file. 1 = a window of kind 1 centres its lines. */
    uint32_t line_width;   /**< Read-write, file. Maximal width of a formatted line, pixels; 0 = set
                                at the first formatting from the object's size. */
    uint32_t line_spacing; /**< Read-write, file. Pixels added to the font height for the distance
                                of two lines. */
    uint32_t
        number_of_lines;    /**< Read-only. Index of the last formatted line, from 0; default 0. */
    uint32_t reserved;      /**< Private to the library. */
    uint32_t hidden;        /**< Read-write, file. Nonzero = neither drawn nor hit. Dependents other
                                 than menus get it anew with every drawing of their master. */
    uint32_t type;          /**< Read-write, file. One of vel_object_type. */
    uint32_t window_kind;   /**< Read-write, file. One of vel_window_kind. */
    uint32_t editable;      /**< Read-write, file. 1 = can hold the text cursor. */
    uint32_t cursor_x;      /**< Read-write. Left edge of the text cursor, pixels; default 0. */
    uint32_t cursor_y;      /**< Read-write. Top edge of the text cursor, pixels; default 0. */
    uint32_t text_length;   /**< Read-write, file. Characters of the text. */
    uint32_t cursor_line;   /**< Read-write. Line of the text cursor, from 0; default 0. */
    uint32_t cursor_column; /**< Read-write. Column of the text cursor, from 0; default 0. */
    uint32_t max_chars;     /**< Read-write, file. Most characters of an entry field (at most 64
                                 count, 0 = none); column limit when overwriting. For types 2, 4 and
                                 9 the number of the menu (type 7) that the object opens as its
                                 title in vel_wait_for_object(); 0 = none. */
    uint32_t border_style;  /**< Read-write, file. One of vel_border_style. */
    uint32_t border_inset;  /**< Read-write, file. Offset of the border lines, pixels. */
    uint32_t border_r;      /**< Read-write, file. Border colour, red. */
    uint32_t border_g;      /**< Read-write, file. Border colour, green. */
    uint32_t border_b;      /**< Read-write, file. Border colour, blue. */
    uint32_t master;        /**< Read-write, file. Number of the master; 0 = top-level object. */
    uint32_t dep_objs[VEL_MAX_DEPENDENTS]; /**< Read-write, file. Numbers of the dependents in the
                                                order of drawing, hit tests take the first; the
                                                list ends at the first 0. */
    uint32_t scroll_x;     /**< Read-write. Scroll offset of the contents, pixels; default 0. */
    uint32_t scroll_y;     /**< Read-write. Scroll offset of the contents, pixels; default 0. */
    uint32_t scroll_max_x; /**< Read-write, file. Scroll range, pixels; 0 = five screen widths. */
    uint32_t scroll_max_y; /**< Read-write, file. Scroll range, pixels; 0 = five screen heights. */
    char image_path[VEL_STRING_SIZE]; /**< Read-write, file. Picture of a type 4 object. */
    SDL_Surface *image; /**< Read-write. Picture of a type 9 object. Freed by vel_close() for
                             loaded objects. Default null. */
    uint32_t clip_mode; /**< Read-write, file. One of vel_clip_mode. */
    char *stream;       /**< Read-write. Text of the head of a chain (type 8); owned by the
                             application. Default null. */
} vel_object;

struct vel_context;
struct vel_state;

/**
 * Gets every event that a loop of the library polls, before the loop does.
 *
 * When it ends the loop, a selection loop returns 7, a menu and vel_wait_for_object() return 0, and
 * a move leaves the window where it is. It may draw, and run loops of its own.
 *
 * \param ctx   context
 * \param event the event; it may be changed
 * \returns one of vel_filter_verdict
 */
typedef uint32_t (*vel_event_filter)(struct vel_context *ctx, SDL_Event *event);

/**
 * Called by a loop of the library whenever no event is waiting: at least every 50 ms, at most about
 * a thousand times a second. For clocks, timers and progress.
 *
 * \param ctx context
 */
typedef void (*vel_idle_hook)(struct vel_context *ctx);

/** The state of one interface. The application owns it and fills it with zeros before use. */
typedef struct vel_context {
    SDL_Event event;     /**< Read-write. The event last polled; a type of 0 marks it as used. */
    TTF_Font *font;      /**< Read-write. Default font; set by the application, closed by
                              vel_close(). */
    SDL_Surface *screen; /**< Read-write. Everything is drawn here; set by the application, freed
                              by vel_close(). */
    SDL_Surface *text_surface; /**< Read-only. The text line painted last; freed by vel_close(). */
    SDL_Rect screen_rect; /**< Read-write. Rectangle that a full redraw updates and that limits the
                               borders of top-level objects; normally the whole display. */
    vel_colour background_colour; /**< Read-write. Colour of the bare screen. */
    vel_colour mark_colour;       /**< Read-write. Colour of the marks of the active window. */
    vel_colour mark_colour_a;     /**< Read-write. Colour set A, for resizing. */
    vel_colour mark_colour_b;     /**< Read-write. Colour set B, for scrolling. */
    uint32_t screen_width;        /**< Read-write. Pixels; objects are cut to it. */
    uint32_t screen_height;       /**< Read-write. Pixels; objects are cut to it. */
    uint32_t frame_mode;    /**< Read-write. One of vel_frame_mode; other values switch the frame
                                 buttons that depend on it off. */
    uint32_t scroll_step;   /**< Read-write. Pixels of one scroll. */
    uint32_t key_code;      /**< Read-write. Key pressed last; 0 = none pending. */
    uint32_t final_key;     /**< Read-write. Key for the text editor; 0 = none. */
    uint32_t key_printable; /**< Read-write. 1 = key_code is a character to insert. */
    uint32_t active_window; /**< Read-only. Number of the active window; 0 = none. */
    uint32_t reserved;      /**< Private to the library. */
    uint32_t object_count;  /**< Read-only. Objects read from the form description file. */
    uint32_t text_count;    /**< Read-only. Texts read from the text file. */
    uint32_t window_to_activate; /**< Read-write. Object that the next activation, selection or
                                      frame action is about. */
    uint32_t umlaut_conversion;  /**< Read-write. 1 = formatting converts the bytes 0x84, 0x94 and
                                      0x81 to the small umlauts of ISO 8859-1. */
    uint32_t cursor_object;      /**< Read-write. Object that typing goes to; 0 = none. */
    uint32_t insert_mode;        /**< Read-write. 0 = typing inserts, 1 = it overwrites. */
    uint32_t texts_loaded;       /**< Read-write. 1 = vel_close() frees texts and line buffers. */
    void *application_a[4];      /**< Read-write. The application's own; never touched. */
    uint32_t dir_last;           /**< Read-only. Index of the last name in dir_names. */
    void *application_b[4];      /**< Read-write. The application's own; never touched. */
    char dir_names[VEL_DIR_ENTRIES][VEL_DIR_NAME_SIZE]; /**< Read-only. Names of a directory. */
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
} vel_context;

/** \name Start-up and shutdown */
/**@{*/

/**
 * Loads a form: reads the form description file and, when an object has a text, the text file,
 * opens the pictures and fonts that the objects name and sets mark_colour from frame_mode.
 *
 * Both files must be writable as well as readable. Record k of a file, from 0, becomes object or
 * text k + 1; bytes behind the last whole record are ignored. A dependent that is no menu, and an
 * object of type 0, starts visible whatever its record says. References that lead nowhere are taken
 * out, each with a line on standard error: masters, dependents and texts beyond the tables, cycles
 * of masters or dependents, objects listed as dependent twice. A string without a NUL is ended
 * inside its field.
 *
 * A form description file that cannot be opened prints "Can't open file." and a line end, a missing
 * text file "Can't open file !" and two line ends, both to standard output; then the process ends
 * with exit status 0. The same happens when a file cannot be read or does not fit into memory. A
 * font that cannot be opened prints "TTF_OpenFont: " and SDL's error text; a picture that cannot be
 * loaded is silently left at type 4.
 *
 * \param ctx         context, filled with zeros but for what the application sets
 * \param extra_objs  spare object records behind the loaded ones, all zero
 * \param extra_texts spare text records behind the loaded ones, all zero
 * \param form_path   form description file
 * \param text_path   text file; not looked at when no object has a text
 */
VEL_API void vel_start_velumo(vel_context *ctx, uint32_t extra_objs, uint32_t extra_texts,
                              const char *form_path, const char *text_path) VEL_NOTHROW;

/**
 * Loads a form as vel_start_velumo() does, for programs that want to go on after a failure.
 *
 * The files are opened for reading only. Nothing is printed but the lines about references that
 * lead nowhere, and the process is never ended. On failure the context is as it was before.
 *
 * \param ctx         as for vel_start_velumo()
 * \param extra_objs  as for vel_start_velumo()
 * \param extra_texts as for vel_start_velumo()
 * \param form_path   as for vel_start_velumo()
 * \param text_path   as for vel_start_velumo()
 * \returns VEL_OK (1), or one of the negative codes of vel_result
 */
VEL_API int32_t vel_load_forms(vel_context *ctx, uint32_t extra_objs, uint32_t extra_texts,
                               const char *form_path, const char *text_path) VEL_NOTHROW;

/**
 * Tells in English what a code of vel_result means.
 *
 * \param code a result
 * \returns a constant string without line end, never null; "unknown error" for other numbers
 */
VEL_API const char *vel_error_text(int32_t code) VEL_NOTHROW;

/**
 * Loads the pictures of the objects of type 4 from first to object_count.
 *
 * An object whose picture loads gets image, the picture's width and height, and type 9; the others
 * stay as they are. Only regular files are read. Nothing is printed.
 *
 * \param ctx   context
 * \param first first object to look at; 0 stands for 1
 * \returns 1 or -1 as the last picture tried loaded or not; 0 when there was none
 */
VEL_API int32_t vel_load_object_images(vel_context *ctx, uint32_t first) VEL_NOTHROW;

/**
 * Opens own_font of the objects from first to object_count whose font_choice is 1.
 *
 * A font that cannot be opened leaves own_font null and prints "TTF_OpenFont: ", SDL's error text
 * and a line end to standard output. Only regular files are read. A font that was open before is
 * not closed.
 *
 * \param ctx   context
 * \param first first object to look at; 0 stands for 1
 * \returns 1 or -1 as the last font tried opened or not; 0 when there was none
 */
VEL_API int32_t vel_load_object_fonts(vel_context *ctx, uint32_t first) VEL_NOTHROW;

/**
 * Releases what the library opened or allocated, the context's font, text_surface and screen, and
 * shuts SDL_ttf and SDL down. Call it once; the context must not be used afterwards.
 *
 * Texts and line buffers are freed only when texts_loaded is 1. Fonts and pictures of objects
 * beyond object_count are the application's to release before.
 *
 * \param ctx context
 */
VEL_API void vel_close(vel_context *ctx) VEL_NOTHROW;
/**@}*/

/** \name Strings and numbers
 * They take no context. Their edge behaviour is their own: read it before use. */
/**@{*/

/**
 * Compares the first n + 1 characters of two strings.
 *
 * The verdict is that of the last pair compared: an earlier difference is forgotten.
 *
 * \param a first string
 * \param b second string
 * \param n index of the last character to compare
 * \returns 1 equal, 2 different, 0 nothing was compared. Where a string ends before n characters: 1
 *          when both end there, else 2
 */
VEL_API uint32_t vel_strcmp(const char *a, const char *b, uint32_t n) VEL_NOTHROW;

/**
 * Counts the characters of a string.
 *
 * \param string a string
 * \returns characters before the NUL
 */
VEL_API uint32_t vel_count_string_size_without_zero(const char *string) VEL_NOTHROW;

/**
 * Tells where a string ends.
 *
 * \param string a string
 * \returns index of the NUL
 */
VEL_API uint32_t vel_get_lastposition(const char *string) VEL_NOTHROW;

/**
 * Tells where the last character of a string stands.
 *
 * \param string a string
 * \returns index of the last character; 0xFFFFFFFF for an empty string
 */
VEL_API uint32_t vel_get_lastposition_before_zero(const char *string) VEL_NOTHROW;

/**
 * Copies the first n + 1 characters of a string, or the whole when it is shorter, and a NUL.
 * Source and destination may overlap when the destination comes first.
 *
 * \param n           index of the last character to copy
 * \param source      a string
 * \param destination room for n + 2 bytes, or for the whole source
 */
VEL_API void vel_copy_st_first_part(uint32_t n, const char *source, char *destination) VEL_NOTHROW;

/**
 * Copies a string of at least one character, and a NUL.
 *
 * The first byte is copied before any test: an empty source would be read behind its end.
 *
 * \param source      a string that is not empty
 * \param destination room for the string and its NUL
 * \returns characters copied
 */
VEL_API uint32_t vel_copy_st_last_part(const char *source, char *destination) VEL_NOTHROW;

/**
 * Writes the character of a digit; no NUL is written.
 *
 * \param digit       0 to 9
 * \param destination one byte; "0" for any other digit
 * \returns 1, or -1 when digit is not 0 to 9
 */
VEL_API int32_t vel_transform_int_to_asccii(int32_t digit, char *destination) VEL_NOTHROW;

/**
 * Reads a digit.
 *
 * \param destination the digit's value; 0 when the character is no digit
 * \param character   one byte
 * \returns 1, or -1 when the character is no digit
 */
VEL_API int32_t vel_transform_ascii_to_int(uint32_t *destination,
                                           const char *character) VEL_NOTHROW;

/**
 * Reads a decimal number of at most nine digits.
 *
 * A string of ten or more characters is cut to its first nine. A character that is no digit counts
 * as the digit 0.
 *
 * \param string      a string
 * \param destination the number; 0 for an empty string
 */
VEL_API void vel_transform_str_to_num(const char *string, uint32_t *destination) VEL_NOTHROW;

/**
 * Writes a number in decimal.
 *
 * The digits are counted in single precision, so just below a power of ten from 100,000,000 on
 * there is one too many: 99999999 is written as 999999999. From 2147483648 on only the NUL at
 * destination[10] is written.
 *
 * \param value       the number
 * \param destination room for 11 bytes
 * \returns digits written, 10 for numbers from 2147483648 on
 */
VEL_API int32_t vel_transform_num_to_str(const uint32_t *value, char *destination) VEL_NOTHROW;

/**
 * Raises ten to a power, modulo 2 to the 32.
 *
 * \param exponent the exponent
 * \returns 10 for 0, else ten to the exponent
 */
VEL_API uint32_t vel_zehnerpotenz(uint32_t exponent) VEL_NOTHROW;
/**@}*/

/** \name Surface primitives
 * Colours are mapped to the screen's pixel format. What lies outside the surface is dropped.
 * Surfaces of 8, 16 and 32 bits are drawn on. On 24 bits each pixel asked for inside the surface
 * prints "24 bit is not supported ! ", on any other depth "Error - can't get color depth. ", as a
 * line on standard output, and nothing is drawn; only filled boxes work at every depth. */
/**@{*/

/**
 * Locks a surface when it must be locked to be written to.
 *
 * \param surface a surface; null is ignored
 */
VEL_API void vel_lock(SDL_Surface *surface) VEL_NOTHROW;

/**
 * Unlocks a surface that vel_lock() locked.
 *
 * \param surface a surface; null is ignored
 */
VEL_API void vel_unlock(SDL_Surface *surface) VEL_NOTHROW;

/**
 * Sets one pixel of the screen, which must be locked if it needs to be.
 *
 * \param ctx   context
 * \param x     column
 * \param y     row
 * \param red   0 to 255
 * \param green 0 to 255
 * \param blue  0 to 255
 */
VEL_API void vel_draw_pixel(vel_context *ctx, uint32_t x, uint32_t y, uint8_t red, uint8_t green,
                            uint8_t blue) VEL_NOTHROW;

/**
 * Draws a horizontal or vertical line, both ends included, on the screen, which must be locked if
 * it needs to be.
 *
 * A slanted line, and one whose ends are the same pixel, draws nothing.
 *
 * \param ctx   context
 * \param x1    column of the start
 * \param y1    row of the start
 * \param x2    column of the end
 * \param y2    row of the end
 * \param red   0 to 255
 * \param green 0 to 255
 * \param blue  0 to 255
 */
VEL_API void vel_draw_line(vel_context *ctx, uint32_t x1, uint32_t y1, uint32_t x2, uint32_t y2,
                           uint8_t red, uint8_t green, uint8_t blue) VEL_NOTHROW;

/**
 * Fills a box of the screen. The numbers are cut to the 16 bits of an SDL_Rect.
 *
 * \param ctx    context
 * \param x      left column
 * \param y      top row
 * \param width  pixels
 * \param height pixels
 * \param red    0 to 255
 * \param green  0 to 255
 * \param blue   0 to 255
 */
VEL_API void vel_draw_box(vel_context *ctx, uint32_t x, uint32_t y, uint32_t width, uint32_t height,
                          uint8_t red, uint8_t green, uint8_t blue) VEL_NOTHROW;

/**
 * Draws the outermost pixels of a box, locking the screen meanwhile.
 *
 * A side of one pixel draws nothing, so a box of width 1 shows its two sides only.
 *
 * \param ctx    context
 * \param x      left column
 * \param y      top row
 * \param width  pixels
 * \param height pixels
 * \param red    0 to 255
 * \param green  0 to 255
 * \param blue   0 to 255
 */
VEL_API void vel_draw_rectangle(vel_context *ctx, uint32_t x, uint32_t y, uint32_t width,
                                uint32_t height, uint8_t red, uint8_t green,
                                uint8_t blue) VEL_NOTHROW;
/**@}*/

/** \name Geometry
 * Pure computations on the object table and the screen size. */
/**@{*/

/**
 * Tells how wide a top-level object may be shown.
 *
 * \param ctx    context
 * \param object number of an object without master
 * \returns its width; screen_width - x - 2 when x + width - 1 is above screen_width, wrapped when
 * it starts beyond the screen
 */
VEL_API uint32_t vel_p_cutted_w_independent(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Tells how high a top-level object may be shown.
 *
 * \param ctx    context
 * \param object number of an object without master
 * \returns its height; screen_height - y - 5 when y + height - 1 is above screen_height, wrapped
 * when it starts beyond the screen
 */
VEL_API uint32_t vel_p_cutted_h_independent(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Tells how wide a dependent object may be shown inside its master.
 *
 * \param ctx    context
 * \param object number of an object with a master
 * \returns its width, or what the master's right margin leaves of it
 */
VEL_API uint32_t vel_p_cutted_w_dependent(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Tells how high a dependent object may be shown inside its master. The master's own height is that
 * of the master's master where there is one.
 *
 * \param ctx    context
 * \param object number of an object with a master
 * \returns its height, or what the bottom margin leaves of it
 */
VEL_API uint32_t vel_p_cutted_h_dependent(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Finds the top-level object above a dependent one.
 *
 * \param ctx    context
 * \param object number of an object
 * \returns the top of its masters; 0 when it has no master
 */
VEL_API uint32_t vel_search_master(const vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Tells where the masters let a dependent object show: strictly between the four limits.
 *
 * \param ctx    context
 * \param object number of an object with a master
 * \param left   last column outside, on the left
 * \param right  first column outside, on the right
 * \param top    last row outside, above
 * \param bottom first row outside, below
 */
VEL_API void vel_get_borders_for_dep_object(const vel_context *ctx, uint32_t object, uint32_t *left,
                                            uint32_t *right, uint32_t *top,
                                            uint32_t *bottom) VEL_NOTHROW;

/**
 * Tells where the text of an object may show, inside its margins and its masters: strictly between
 * the four limits.
 *
 * \param ctx    context
 * \param object number of an object
 * \param left   last column outside, on the left
 * \param right  first column outside, on the right
 * \param top    last row outside, above
 * \param bottom first row outside, below
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
 * A top-level window is first moved to x of at least 11 and y of at least 25. A window with centred
 * lines gets the last line's offset in scroll_x. text_surface holds the line painted last. Frame
 * buttons are 16 by 16 pixels whatever their record says.
 *
 * \param ctx    context
 * \param object number of the object; 0 and a number beyond the tables paint nothing
 */
VEL_API void vel_evoke_object(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Draws the border of an object, cut by screen_rect or its masters; locks the screen meanwhile.
 *
 * \param ctx    context
 * \param object number of the object
 */
VEL_API void vel_evoke_borders(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Draws the whole screen: objects without master other than windows and texts, the windows of the
 * stack from the bottom up, the active window with its marks, the frame buttons.
 *
 * \param ctx          context
 * \param format_first 1 = break all texts into lines first
 * \param refresh      1 = update screen_rect of the display afterwards
 * \returns 1
 */
VEL_API uint32_t vel_draw_all_objects(vel_context *ctx, uint32_t format_first,
                                      uint32_t refresh) VEL_NOTHROW;

/**
 * Draws all dependents of an object, depth first, after fitting and hiding them by
 * vel_switch_dep_object().
 *
 * \param ctx    context
 * \param object number of the master
 */
VEL_API void vel_draw_dep_objs(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Fits the dependents of border style 2, 3 and 5 to their master's inner area, and sets hidden of
 * every dependent but menus: 0 when any of it lies inside the masters' limits, else 1.
 *
 * \param ctx    context
 * \param object number of the master
 */
VEL_API void vel_switch_dep_object(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Draws the active window, its cursor, its dependents and the frame buttons, without its marks.
 *
 * \param ctx context
 */
VEL_API void vel_draw_selected_window(vel_context *ctx) VEL_NOTHROW;

/**
 * Draws the active window as vel_draw_selected_window() does and updates its rectangle, as far as
 * it is on the display. The frame buttons above it are not updated.
 *
 * \param ctx context
 */
VEL_API void vel_draw_and_screenup_selected_window(vel_context *ctx) VEL_NOTHROW;

/**
 * Fills the rectangle of an object with background_colour. A top-level window is first moved as by
 * vel_evoke_object(). A shadow outside the rectangle stays.
 *
 * \param ctx    context
 * \param object number of the object
 */
VEL_API void vel_undraw_object(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Draws the one-pixel outline around a window in mark_colour. The object is first moved: an x of at
 * most 10 becomes 11, a y of at most 0 becomes 2.
 *
 * \param ctx    context
 * \param object number of the window
 */
VEL_API void vel_draw_selected_lines(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Draws the square of 10 by 10 pixels left of a window's top left corner in mark_colour. The object
 * is first moved to x of at least 11 and y of at least 2.
 *
 * \param ctx    context
 * \param object number of the window
 */
VEL_API void vel_draw_selected_box(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Draws the outline of vel_draw_selected_lines() in background_colour. A top-level window is first
 * moved as by vel_evoke_object().
 *
 * \param ctx    context
 * \param object number of the window
 */
VEL_API void vel_undraw_selected_lines(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Draws the square of vel_draw_selected_box() in background_colour. A top-level window is first
 * moved as by vel_evoke_object().
 *
 * \param ctx    context
 * \param object number of the window
 */
VEL_API void vel_undraw_selected_box(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Draws the text cursor of an object at cursor_x and cursor_y: a line one pixel wide and as high as
 * the object's font, in its text colour, cut to its text area. The screen must be locked if it
 * needs to be.
 *
 * \param ctx    context
 * \param object number of the object
 */
VEL_API void vel_draw_cursor(vel_context *ctx, uint32_t object) VEL_NOTHROW;
/**@}*/

/** \name Text formatting
 * Texts are broken into at most 40 lines of at most 99 characters. Separators are NUL, line feed
 * and blank; a word is cut after 70 characters. */
/**@{*/

/**
 * Breaks the text of a window or text object into lines in its line buffer.
 *
 * Sets line_width on first use and number_of_lines. An empty text clears the lines and leaves
 * number_of_lines. A word that moves on from line 39 lands in line slot 40, the first line of the
 * next buffer; behind the last buffer it is dropped.
 *
 * \param ctx    context
 * \param object number of the object
 * \returns index of the last line, also in number_of_lines; 0 for an empty text, and when the
 *          object is not of type 1 or 3 or has no text
 */
VEL_API uint32_t vel_format_object_text(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Puts a word into the line buffer of an object, moving to the next line or splitting the word
 * where it does not fit.
 *
 * \param ctx         context
 * \param object      number of the object; a line_width of 0 is set from its width and margins
 * \param word        the word, ended by a NUL
 * \param line        line to start on; the line where the text goes on
 * \param column      column to start at; the column where the text goes on
 * \param word_length characters of the word; not changed
 * \param break_after 1 = end the line after the word; a word that was split is not followed by it
 * \returns 0; 1 when the word was split and is complete; -1 when the lines ran out
 */
VEL_API int32_t vel_copy_word_into_line(vel_context *ctx, uint32_t object, const char *word,
                                        uint32_t *line, uint32_t *column, uint32_t *word_length,
                                        uint32_t break_after) VEL_NOTHROW;

/**
 * Tells whether a word fits behind what a line of an object already holds.
 *
 * \param ctx         context
 * \param object      number of the object
 * \param word        the word, ended by a NUL
 * \param line        the line
 * \param column      characters on the line
 * \param word_length characters of the word
 * \returns 1 it fits; 2 it would fit on an empty line; 3 it would not fit on an empty line
 */
VEL_API uint32_t vel_check_line_volume(const vel_context *ctx, uint32_t object, const char *word,
                                       const uint32_t *line, const uint32_t *column,
                                       const uint32_t *word_length) VEL_NOTHROW;

/**
 * Prepares the caption of an object of one line: cuts it at its first line feed and centres that of
 * a label (type 2) by its left and top margin where more than 2 pixels are free.
 *
 * \param ctx    context
 * \param object number of the object
 * \returns 0 not centred; 1 centred horizontally; 2 centred vertically, or both ways; 3 an entry
 *          field (types 5 and 6), whose margins are left alone
 */
VEL_API uint32_t vel_format_small_obj(vel_context *ctx, uint32_t object) VEL_NOTHROW;
/**@}*/

/** \name Chains
 * A chain is a head of type 8 without a master, whose stream flows through its dependents of type 8
 * in list order. */
/**@{*/

/**
 * Breaks the stream of a chain's head into lines in the line buffers of its members.
 *
 * A member takes 40 lines, then the next goes on. Lines behind the last keep what an earlier run
 * left. A word that is split at the end of its last line's room prints debug lines to standard
 * output. A stream longer than the chain is cut.
 *
 * \param ctx    context
 * \param master number of the head
 * \returns the line reached in the last member used; 0 when there is no stream or no member
 */
VEL_API uint32_t vel_format_stream_to_linked_objects(vel_context *ctx, uint32_t master) VEL_NOTHROW;

/**
 * Puts a word into the lines of a chain, going on to the next member where lines run out.
 *
 * \param ctx            context
 * \param master         number of the head
 * \param chain_position index of the member in the head's list; where the word ends
 * \param text_index     number of the member's text; that of the member where the word ends
 * \param word           the word, ended by a NUL
 * \param line           line to start on; the line where the word ends
 * \param column         column to start at; the column behind the word
 * \param word_length    characters of the word; 0 when it was placed
 * \param break_after    1 = end the line after the word
 * \returns -1 the chain ended; 1 placed after a move or on the line at hand; 0 otherwise
 */
VEL_API int32_t vel_copy_word_big(vel_context *ctx, uint32_t master, uint32_t *chain_position,
                                  uint32_t *text_index, const char *word, uint32_t *line,
                                  uint32_t *column, uint32_t *word_length,
                                  uint32_t break_after) VEL_NOTHROW;

/**
 * Leaves a member of a chain for the next: stores its line count and starts line 0 of the next.
 *
 * \param ctx            context
 * \param master         number of the head
 * \param chain_position index of the member in the head's list; one more afterwards
 * \param member         number of the member left; of the next, or of what stands in its place
 * \param text_index     number of its text; of the next member's
 * \param line           line reached; 0 after a move
 * \param column         column reached; 0 after a move
 * \returns 0 moved; 1 the chain has no further member
 */
VEL_API int32_t vel_go_to_next_chainmember(vel_context *ctx, uint32_t master,
                                           uint32_t *chain_position, uint32_t *member,
                                           uint32_t *text_index, uint32_t *line,
                                           uint32_t *column) VEL_NOTHROW;
/**@}*/

/** \name Waiting and hit tests
 * Loops that wait for the user. They rest when nothing happens. Keys go to vel_get_text() while
 * they run. */
/**@{*/

/**
 * Waits until the left button is released over one of two objects or over frame button 7.
 *
 * The close of the program's window (SDL_QUIT) and all other events are dropped; an event filter
 * can act on them.
 *
 * \param ctx    context
 * \param stop_a number of an object; 0 returns 0 at once
 * \param stop_b number of an object; 0 returns 0 at once
 * \returns the object released on: stop_a, stop_b or 7
 */
VEL_API uint32_t vel_get_mouse_selection(vel_context *ctx, int32_t stop_a,
                                         int32_t stop_b) VEL_NOTHROW;

/**
 * Waits as vel_get_mouse_selection() does, for one object.
 *
 * \param ctx  context
 * \param stop number of an object; 0 returns 0 at once
 * \returns the object released on: stop or 7
 */
VEL_API uint32_t vel_get_mono_mouse_selection(vel_context *ctx, int32_t stop) VEL_NOTHROW;

/**
 * Runs the form until the user does something that the application should act on.
 *
 * Keys edit the cursor object. Tab and Shift+Tab move the cursor through the visible editable
 * objects of the active window. A press on frame buttons 2, 3, 5 or 6 resizes or scrolls the
 * window, again every 50 ms after 400 ms of holding it; a release on 1, 4 or 7 moves the window,
 * switches the mode or closes it. A release on a window behind raises it, one on an editable object
 * gives it the cursor.
 *
 * A press on a label or picture whose max_chars names a menu, in the active window or on the
 * desktop, opens that menu by vel_move_out_menu() with mode 1: moved with its entries to right
 * below the title, left edges in line, or as far left of that as the screen's right edge demands,
 * but not beyond its left edge. A button released over the title itself leaves the menu open; the
 * next click on the title closes it. Afterwards the screen is redrawn.
 *
 * \param ctx context
 * \returns the object released on when it is a label, a picture or a menu, or when it cannot be
 *          edited and is a field or stands by itself on the desktop; the entry chosen in the menu
 *          of a title; 7 when the user has closed the last window; 0 when the user closes the
 *          program (SDL_QUIT), or the event filter ends the loop or a menu
 */
VEL_API uint32_t vel_wait_for_object(vel_context *ctx) VEL_NOTHROW;

/**
 * Finds the object under a point: frame buttons, the active window and its dependents, other
 * windows from the highest number down, then objects without master and their dependents.
 *
 * \param ctx context
 * \param x   column
 * \param y   row
 * \returns number of the innermost object, for windows behind that of the window; 0 for none
 */
VEL_API uint32_t vel_test_all_objects(const vel_context *ctx, uint32_t x, uint32_t y) VEL_NOTHROW;

/**
 * Finds the innermost dependent of an object under a point. Of several the first in list order
 * counts; hidden and empty ones and those of border style 2 and 3 do not.
 *
 * \param ctx    context
 * \param object number of the master
 * \param x      column
 * \param y      row
 * \returns number of the dependent; 0 for none
 */
VEL_API uint32_t vel_test_dep_objs(const vel_context *ctx, uint32_t object, uint32_t x,
                                   uint32_t y) VEL_NOTHROW;

/**
 * Tells whether a point lies inside an object, within its outermost pixels and its masters' limits.
 *
 * \param ctx    context
 * \param object number of the object
 * \param x      column
 * \param y      row
 * \returns 1 inside, 0 outside
 */
VEL_API uint32_t vel_in_object(const vel_context *ctx, uint32_t object, int32_t x,
                               int32_t y) VEL_NOTHROW;
/**@}*/

/** \name Keys and text editing
 * A key is translated when it is pressed and applied when a key is released. */
/**@{*/

/**
 * Translates the key-down event of the context by the table of a German keyboard.
 *
 * Sets key_code and key_printable and marks the event as used. Without a cursor object, for other
 * events and for keys without a code nothing is done, but that in a numeric field key_printable
 * follows every key.
 *
 * \param ctx context
 */
VEL_API void vel_getfirstkeyinformation(vel_context *ctx) VEL_NOTHROW;

/**
 * Hands key_code over to final_key when the context's event is a key-up event.
 *
 * \param ctx context
 */
VEL_API void vel_getfinalkeyinformation(vel_context *ctx) VEL_NOTHROW;

/**
 * Applies final_key to the text of cursor_object, redraws the active window and updates it.
 *
 * A key that finds no room or no way to go changes nothing. When there is no cursor object, or it
 * has no text to edit, final_key stays.
 *
 * \param ctx context
 */
VEL_API void vel_get_text(vel_context *ctx) VEL_NOTHROW;

/**
 * Sets cursor_index of the cursor object's text from cursor_line and cursor_column. A place that
 * the formatted lines do not have leaves it as it is.
 *
 * \param ctx context
 */
VEL_API void vel_get_position_in_stream(vel_context *ctx) VEL_NOTHROW;

/**
 * Sets cursor_line and cursor_column of the cursor object from cursor_index of its text. An index
 * behind the formatted lines leaves them as they are.
 *
 * \param ctx context
 */
VEL_API void vel_get_column_row(vel_context *ctx) VEL_NOTHROW;
/**@}*/

/** \name Windows */
/**@{*/

/**
 * Opens the window in window_to_activate or brings it to the front, and gives it marks, frame
 * buttons and text cursor. Nothing is redrawn.
 *
 * Anything but a top-level window that is not active yet is ignored. A closed window is refused
 * while 100 are open; it is then visible but not on the stack.
 *
 * \param ctx context
 */
VEL_API void vel_activate_window(vel_context *ctx) VEL_NOTHROW;

/**
 * Closes a window, erases it and activates the one that takes its place on the stack. Nothing is
 * redrawn.
 *
 * \param ctx    context
 * \param window number of the window; 0 stands for the active one. One that is not open is ignored
 */
VEL_API void vel_close_win(vel_context *ctx, uint32_t window) VEL_NOTHROW;

/**
 * Places the frame buttons on the active window, or hides them when there is none.
 *
 * \param ctx context
 */
VEL_API void vel_set_operators(vel_context *ctx) VEL_NOTHROW;

/**
 * Acts on the object in window_to_activate: a top-level window is activated and the screen redrawn,
 * an editable object gets the text cursor and the active window is redrawn. Others are ignored.
 *
 * \param ctx context
 */
VEL_API void vel_select_window(vel_context *ctx) VEL_NOTHROW;

/**
 * Opens a dialog, waits for one of two answers and closes it. The caller redraws the screen.
 *
 * \param ctx    context
 * \param window number of the dialog's window
 * \param first  number of the first answer
 * \param last   number of the second answer
 * \returns the answer, or 7 when the dialog was closed
 */
VEL_API uint32_t vel_decide_window(vel_context *ctx, uint32_t window, uint32_t first,
                                   uint32_t last) VEL_NOTHROW;

/**
 * Opens a notice, waits until it is acknowledged or closed and closes it. The caller redraws the
 * screen.
 *
 * \param ctx    context
 * \param window number of the notice's window
 * \param object number of the acknowledging object
 */
VEL_API void vel_notice_window(vel_context *ctx, uint32_t window, uint32_t object) VEL_NOTHROW;

/**
 * Places the text cursors of a window and its dependents at the start of their texts, unless they
 * were placed before.
 *
 * \param ctx    context
 * \param window number of the window
 */
VEL_API void vel_initiate_cursor_win(vel_context *ctx, uint32_t window) VEL_NOTHROW;

/**
 * Places the text cursors of an object's dependents as vel_initiate_cursor_win() does.
 *
 * \param ctx    context
 * \param object number of the object
 */
VEL_API void vel_initiate_cursor_dep_objs(vel_context *ctx, uint32_t object) VEL_NOTHROW;

/**
 * Finds the first dependent that can take the text cursor, depth first, hidden ones included.
 *
 * \param ctx    context
 * \param object number of the object
 * \returns number of the dependent; 0 for none
 */
VEL_API uint32_t vel_check_cursor_dep_objs(const vel_context *ctx, uint32_t object) VEL_NOTHROW;
/**@}*/

/** \name Frame actions
 * What moves, resizes and scrolls does so to the active window, and nothing without one. */
/**@{*/

/**
 * Does what pressing the frame button in window_to_activate means: 2, 3, 5 and 6 resize a window of
 * kind 0 by 4 pixels or scroll it by scroll_step, as frame_mode tells.
 *
 * \param ctx context
 */
VEL_API void vel_exa_left_pressed(vel_context *ctx) VEL_NOTHROW;

/**
 * Does what releasing the frame button in window_to_activate means: 1 moves the window, 4 switches
 * frame_mode, 7 closes the window.
 *
 * \param ctx context
 */
VEL_API void vel_exa_left_released(vel_context *ctx) VEL_NOTHROW;

/**
 * Waits for a press of the left button and moves the window there, to x of at least 11 and y of at
 * least 25. All events before the press are dropped.
 *
 * \param ctx context
 */
VEL_API void vel_move_window(vel_context *ctx) VEL_NOTHROW;

/**
 * Makes the window 4 pixels wider while it is narrower than screen_width - 50, and redraws.
 *
 * \param ctx context
 */
VEL_API void vel_increase_win_w(vel_context *ctx) VEL_NOTHROW;

/**
 * Makes the window 4 pixels higher while it is lower than screen_height - 50, and redraws.
 *
 * \param ctx context
 */
VEL_API void vel_increase_win_h(vel_context *ctx) VEL_NOTHROW;

/**
 * Makes the window 4 pixels narrower while it is wider than 20, and redraws.
 *
 * \param ctx context
 */
VEL_API void vel_decrease_win_w(vel_context *ctx) VEL_NOTHROW;

/**
 * Makes the window 4 pixels lower while it is higher than 20, and redraws.
 *
 * \param ctx context
 */
VEL_API void vel_decrease_win_h(vel_context *ctx) VEL_NOTHROW;

/**
 * Moves the contents up by scroll_step while scroll_y is above -scroll_max_y, and updates the
 * window. In a window that shows a list of vel_list_directory() the names move on instead, by as
 * many rows as fit into scroll_step, at least one.
 *
 * \param ctx context
 */
VEL_API void vel_scroll_win_up(vel_context *ctx) VEL_NOTHROW;

/**
 * Moves the contents down by scroll_step while scroll_y is below 2 * scroll_max_y, and updates the
 * window. In a window that shows a list of vel_list_directory() the names move back instead, as
 * with vel_scroll_win_up().
 *
 * \param ctx context
 */
VEL_API void vel_scroll_win_down(vel_context *ctx) VEL_NOTHROW;

/**
 * Moves the contents left by scroll_step while scroll_x is above -scroll_max_x, and updates the
 * window. The window's own cursor moves right.
 *
 * \param ctx context
 */
VEL_API void vel_scroll_win_left(vel_context *ctx) VEL_NOTHROW;

/**
 * Moves the contents right by scroll_step while scroll_x is below 2 * scroll_max_x, and updates the
 * window.
 *
 * \param ctx context
 */
VEL_API void vel_scroll_win_right(vel_context *ctx) VEL_NOTHROW;

/**
 * Moves the dependents of an object, and their cursors, horizontally as scrolling does: those of
 * clip mode 0, and of clip mode 1 below the first level, each with what hangs on it.
 *
 * \param ctx       context
 * \param object    number of the object
 * \param direction 1 left, 2 right
 * \param distance  pixels
 */
VEL_API void vel_update_x_dependent_obj(vel_context *ctx, uint32_t object, uint32_t direction,
                                        uint32_t distance) VEL_NOTHROW;

/**
 * Moves the dependents of an object vertically as vel_update_x_dependent_obj() does horizontally.
 *
 * \param ctx       context
 * \param object    number of the object
 * \param direction 1 up, 2 down
 * \param distance  pixels
 */
VEL_API void vel_update_y_dependent_obj(vel_context *ctx, uint32_t object, uint32_t direction,
                                        uint32_t distance) VEL_NOTHROW;

/**
 * Moves all dependents of an object, and the cursors of editable windows, texts, fields and chain
 * members among them.
 *
 * \param ctx    context
 * \param object number of the object
 * \param dx     pixels to the right; a move to the left wraps around
 * \param dy     pixels down; a move up wraps around
 */
VEL_API void vel_update_dep_objs_after_move(vel_context *ctx, uint32_t object, uint32_t dx,
                                            uint32_t dy) VEL_NOTHROW;

/**
 * Moves all dependents of an object that have a size, and the cursors of all editable ones.
 *
 * \param ctx    context
 * \param object number of the object
 * \param dx     pixels to the right; a move to the left wraps around
 * \param dy     pixels down; a move up wraps around
 */
VEL_API void vel_add_difference_toxy_dep_objs(vel_context *ctx, uint32_t object, uint32_t dx,
                                              uint32_t dy) VEL_NOTHROW;
/**@}*/

/** \name Loading texts */
/**@{*/

/**
 * Puts a text into a window or text object and formats it. The cursor stays; vel_reset_textobject()
 * brings it to the start.
 *
 * \param ctx    context
 * \param object number of the object
 * \param text   1 to 999 characters
 * \returns index of the last formatted line, as vel_format_object_text()
 */
VEL_API uint32_t vel_load_window_text(vel_context *ctx, uint32_t object,
                                      const char *text) VEL_NOTHROW;

/**
 * Loads a text as vel_load_window_text() does and prepares the captions of two buttons.
 *
 * \param ctx      context
 * \param object   number of the object
 * \param text     1 to 999 characters
 * \param button_a number of the first button
 * \param button_b number of the second button
 * \returns what vel_format_small_obj() returns for the second button
 */
VEL_API uint32_t vel_load_window_text_buttons(vel_context *ctx, uint32_t object, const char *text,
                                              uint32_t button_a, uint32_t button_b) VEL_NOTHROW;

/**
 * Counts the characters of an object's text and brings its cursor to the start. The scroll offsets,
 * which typing moves in a narrow field, stay; set them to 0 to show the text from its start.
 *
 * \param ctx    context
 * \param mode   0 the text is the object's label; 1 it is in its text record; with other values
 *               text_length stays
 * \param object number of the object
 */
VEL_API void vel_reset_textobject(vel_context *ctx, uint32_t mode, uint32_t object) VEL_NOTHROW;

/**
 * Right-aligns the label of an object in a field, filling up its left.
 *
 * \param ctx          context
 * \param string       the text whose length counts, normally the label itself; not empty
 * \param object       number of the object
 * \param field_length characters of the field, at most 67
 * \param fill_char    character to fill with
 * \returns field_length; the length of string when that fills the field already, and 0 when string
 *          is empty or the field longer than a label, with nothing changed
 */
VEL_API uint32_t vel_fill_form_with_dummies(vel_context *ctx, const char *string, uint32_t object,
                                            uint32_t field_length, uint8_t fill_char) VEL_NOTHROW;

/**
 * Reads a whole file that may be written to as well. No NUL is added.
 *
 * \param path the file
 * \returns a buffer of the file's size that the caller releases with free(); null when the file
 *          cannot be opened
 */
VEL_API char *vel_read_external_stream(const char *path) VEL_NOTHROW;
/**@}*/

/** \name Menus and the file selector */
/**@{*/

/**
 * Shows a menu, darkens the entry under the pointer and waits until the left button is released or
 * the pointer leaves the menu. All other events are dropped meanwhile. Afterwards the menu is
 * erased and hidden; the caller redraws what it covered.
 *
 * \param ctx  context
 * \param menu number of the menu; its dependents are the entries
 * \param mode 1 the pointer may stay above the menu, on its title, until it has been on an entry;
 *             with other values it must not be above the menu
 * \returns the entry released on; 0 when the menu was left, the button released elsewhere, or the
 *          event filter ended the loop
 */
VEL_API uint32_t vel_move_out_menu(vel_context *ctx, uint32_t menu, uint32_t mode) VEL_NOTHROW;

/**
 * Makes the rows of a file selector, the objects that follow its first dependent in number, from
 * that dependent: 3 pixels apart, with its type, size, colours, left and top margin.
 *
 * \param ctx  context
 * \param list number of the list
 * \param rows rows to make; at most one row behind the loaded objects is made, and 99 in all
 */
VEL_API void vel_prepare_fileselector(vel_context *ctx, uint32_t list, uint32_t rows) VEL_NOTHROW;

/**
 * Reads the first 100 names of the current folder, cut to 64 characters, into dir_names, and orders
 * them in dir_order by their first character. A folder that cannot be read leaves all as it is.
 *
 * \param ctx context
 */
VEL_API void vel_read_app_dir(vel_context *ctx) VEL_NOTHROW;

/**
 * Writes the names that vel_read_app_dir() read into the rows of a list, makes these 180 pixels
 * wide, hides the rest, and sets the height of the list. A folder of one name is not shown.
 *
 * \param ctx  context
 * \param list number of the list
 */
VEL_API void vel_load_dir_entries(vel_context *ctx, uint32_t list) VEL_NOTHROW;

/**
 * Fills a list with the names in a folder: the folders, each with a "/" behind it and ".." before
 * the others, then the files that match a pattern. Upper and lower case of A to Z count alike in
 * their order, all else by its bytes.
 *
 * "." and hidden names, which begin with a dot, are left out; so is ".." in the root. A symbolic
 * link is what it leads to; what is neither folder nor regular file is left out.
 *
 * The rows are the dependents of the list, whatever their type; one row shows one name in its
 * label. The first name shown is the one that the list's scroll_y tells, in pixels of the rows'
 * distance; it is brought to the nearest value that leaves no row empty without need. As long as
 * the list is visible, the vertical scroll functions of its window, and so its frame buttons in
 * scroll mode, scroll through the names. Rows without a name get a width of 0, others the width
 * that the rows had before. Nothing is drawn.
 *
 * A name is shown in ISO 8859-1, "?" standing for what that does not have, and cut to 64
 * characters, the "/" included; vel_listed_name() tells the real one. Formatting centres the labels
 * of rows of type 2; those of type 5 that cannot be edited begin at their margin.
 *
 * \param ctx     context
 * \param list    number of the list
 * \param path    the folder
 * \param pattern as for fnmatch(), or several of them separated by ";"; null or "" for all files
 * \returns how many names were found, ".." included, whether there are rows for them or not;
 *          VEL_ERROR_FOLDER when the folder cannot be read, VEL_ERROR_ARGUMENT for list 0, a null
 *          context or a null path, VEL_ERROR_MEMORY; after an error all is as it was
 */
VEL_API int32_t vel_list_directory(vel_context *ctx, uint32_t list, const char *path,
                                   const char *pattern) VEL_NOTHROW;

/**
 * Tells which name of its folder a row shows.
 *
 * \param ctx context
 * \param row number of a row of a list that vel_list_directory() filled
 * \returns the bytes of the name in the file system, without "/"; the library owns them until it
 *          fills the list again; null when the row shows no name
 */
VEL_API const char *vel_listed_name(const vel_context *ctx, uint32_t row) VEL_NOTHROW;

/**
 * Lets the user choose a file in a modal dialog, walking through the folders.
 *
 * The window is one that velform makes of a [[file_dialog]], or one of the top level whose first
 * dependents are, in this order: an entry field that cannot be edited and shows the folder; the
 * list, its dependents being the rows, best entry fields that cannot be edited; the entry field for
 * the name; the OK button; the cancel button; the label that says that a folder cannot be read.
 * That label shows only when it is so. More dependents may follow.
 *
 * A click on a folder walks into it, on ".." out of it; one on a file puts its name into the field.
 * OK, or the Enter key, chooses the name in the field, of a file that need not exist; a folder's
 * name walks into that, and a name with * or ? shows the files that match it. Cancel, the Escape
 * key and the frame's close button give up. A folder that cannot be read is told and changes
 * nothing. While the dialog is open, the frame buttons scroll the list, and what lies outside of
 * the window cannot be reached; frame_mode, the windows behind and their text cursor are as before
 * afterwards, and the screen is redrawn. The event filter and the idle hook work as in
 * vel_wait_for_object(); the close of the program (SDL_QUIT) stays in the queue for the
 * application's own loop.
 *
 * \param ctx      context
 * \param window   number of the dialog's window
 * \param path_out on entry the suggestion in the bytes of the file system: a folder, a file whose
 *                 name goes into the field, or a pattern for vel_list_directory() behind a folder,
 *                 which has * or ? in it, as "mail/a.txt" or "mail/a*"; relative to the
 *                 working folder, which "" stands for. When the folder cannot be read, that is told
 *                 and the working folder shown. With result 1 the absolute path of the file, else
 *                 unchanged
 * \param size     bytes of path_out, the NUL included
 * \returns 1 when a file was chosen; 0 when the user gave up or closed the program, or the event
 *          filter ended the loop; VEL_ERROR_SIZE when the path does not fit, VEL_ERROR_ARGUMENT for
 *          null pointers, a suggestion without a NUL and a window that is no such dialog,
 *          VEL_ERROR_MEMORY
 */
VEL_API int32_t vel_choose_file(vel_context *ctx, uint32_t window, char *path_out,
                                size_t size) VEL_NOTHROW;
/**@}*/

#ifdef __cplusplus
}
#endif

#endif
